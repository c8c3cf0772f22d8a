#include "app/IntakeMenus.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "intake/FileAdd.h"
#include "intake/forms/fAVIAdd.h"
#include "intake/forms/frmImpTitles.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace kelvado {

namespace {

QStringList PathsOf(const QDropEvent& event)
{
    QStringList paths;
    for (const QUrl& url : event.mimeData()->urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}

} // namespace

IntakeMenus::IntakeMenus(const Context& context) : m_context(context), m_run({context.desk.events, context.desk.shell, context.skinner})
{
    OnMenu("mnuAddAVI", &IntakeMenus::ShowFilePanel);
    OnMenu("mnuImportTitles", &IntakeMenus::ImportTitles);
    m_context.window.setAcceptDrops(true);
    m_context.window.installEventFilter(this);
}

IntakeMenus::~IntakeMenus()
{
    delete m_panel.data();
}

void IntakeMenus::OnMenu(const char* name, void (IntakeMenus::*handler)())
{
    connect(&m_context.menus.Entry(QString::fromLatin1(name)), &QAction::triggered, this,
            [this, handler] { Guarded(m_context.desk.dialogs, [&] { (this->*handler)(); }); });
}

bool IntakeMenus::ShowPanel()
{
    if (m_panel && m_panel->isVisible())
        return true;
    if (!m_context.enterSection())
        return false;
    m_context.sources.LoadSearchBar(m_context.state.skin, u"File"_s);
    if (!m_panel) {
        m_panel = new fAVIAdd(m_context.desk, m_context.discs, m_run, m_context.skinner);
        connect(m_panel, &fAVIAdd::MenuWanted, this, m_context.showRowMenu);
    }
    m_context.host.SetPanel(m_panel);
    m_panel->show();
    m_panel->Open();
    return true;
}

void IntakeMenus::ShowFilePanel()
{
    ShowPanel();
}

void IntakeMenus::ImportTitles()
{
    frmImpTitles window({m_context.state, m_context.desk.dialogs, m_context.desk.shell, m_run, m_context.skinner}, &m_context.window);
    window.exec();
}

bool IntakeMenus::MayDrop(const QDropEvent& event) const
{
    const bool isFree = m_context.state.CatalogOpen && !m_context.desk.fetching && !IsBusy() && !(m_panel && m_panel->IsBusy()) &&
                        !QApplication::activeModalWidget();
    return isFree && MayHoldFilms(PathsOf(event));
}

bool IntakeMenus::eventFilter(QObject* watched, QEvent* event)
{
    const bool enters = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!enters && event->type() != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto* drop = static_cast<QDropEvent*>(event);
    if (!MayDrop(*drop)) {
        event->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (!enters) {
        // The program that the files come from waits for the end of the drop.
        QTimer::singleShot(0, this, [this, paths = PathsOf(*drop)] {
            Guarded(m_context.desk.dialogs, [&] {
                if (ShowPanel())
                    m_panel->TakePaths(paths);
            });
        });
    }
    return true;
}

} // namespace kelvado
