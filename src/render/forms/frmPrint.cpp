#include "render/forms/frmPrint.h"

#include "core/Afterwards.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "render/export/PrintPages.h"
#include "ui_frmPrint.h"

#include <QEventLoop>

#include <utility>

namespace kelvado {

frmPrint::frmPrint(Dialogs& dialogs, PrintPage print, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPrint>()), m_dialogs(dialogs), m_print(std::move(print))
{
    m_ui->setupUi(this);
    m_ui->pageView->CreateBrowser();
    m_ui->pageView->Navigate(AppPath() + u"/print.html"_s);
    connect(m_ui->Command1, &QPushButton::clicked, this, [this] { Guarded(m_dialogs, [this] { Print(); }); });
}

frmPrint::~frmPrint() = default;

void frmPrint::Print()
{
    // Events are served while a page loads.
    m_ui->Command1->setEnabled(false);
    Afterwards([this] { PrintPages(); }, [this] { m_ui->Command1->setEnabled(true); });
}

void frmPrint::PrintPages()
{
    for (const QString& page : WritePrintPages(AppPath() + u"/keldb3.mdb"_s, AppPath())) {
        QEventLoop loaded;
        connect(m_ui->pageView, &frmPageView::DocumentComplete, &loaded, &QEventLoop::quit);
        m_ui->pageView->Navigate(page);
        loaded.exec();
        m_print(page);
    }
}

} // namespace kelvado
