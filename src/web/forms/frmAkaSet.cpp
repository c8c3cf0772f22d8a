#include "web/forms/frmAkaSet.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "ui_frmAkaSet.h"

namespace kelvado {

frmAkaSet::frmAkaSet(const QStringList& titles, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmAkaSet>()), m_dialogs(dialogs)
{
    m_ui->setupUi(this);
    m_ui->lstAkaSel->addItems(titles);
    // With the focus, a list marks its first row, which then looks selected and is not.
    m_ui->lstAkaSel->setCurrentIndex({});
    connect(m_ui->lstAkaSel, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(m_ui->cmdOkay, &QPushButton::clicked, this, [this] { Guarded(m_dialogs, [this] { OnOkay(); }); });
}

frmAkaSet::~frmAkaSet() = default;

std::optional<qsizetype> frmAkaSet::ShowAndRead()
{
    if (exec() != QDialog::Accepted)
        return std::nullopt;
    const QList<QListWidgetItem*> selected = m_ui->lstAkaSel->selectedItems();
    return selected.isEmpty() ? std::nullopt : std::optional<qsizetype>(m_ui->lstAkaSel->row(selected.constFirst()));
}

void frmAkaSet::OnOkay()
{
    if (m_ui->lstAkaSel->selectedItems().isEmpty())
        m_dialogs.MessageBox(u"Please Select A Title First"_s, kBoxPlain, u"Error: AKA Selection"_s);
    else
        accept();
}

} // namespace kelvado
