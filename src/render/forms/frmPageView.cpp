#include "render/forms/frmPageView.h"

#include "core/Literals.h"
#include "render/forms/PageEngine.h"

#include <QEvent>
#include <QFileInfo>
#include <QVBoxLayout>
#include <QWebChannel>
#include <QWebEngineHistory>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineView>

#include <csignal>

namespace kelvado {

namespace {

constexpr QLatin1StringView kBlank = "about:blank"_L1;
constexpr quint32 kScriptWorld = QWebEngineScript::ApplicationWorld;

} // namespace

frmPageView::frmPageView(QWidget* parent) : QWidget(parent), m_path(kBlank)
{
    setObjectName(u"frmPageView"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_watch.setSingleShot(true);
    m_watch.setInterval(10000);
    connect(&m_watch, &QTimer::timeout, this, &frmPageView::EndHungPage);
}

frmPageView::~frmPageView()
{
    delete m_view;
}

void frmPageView::CreateBrowser()
{
    if (m_view)
        return;
    m_profile = std::make_unique<PageProfile>();
    m_document = std::make_unique<PageDocument>(m_profile.get());

    auto* bridge = new PageBridge(m_document.get());
    connect(bridge, &PageBridge::Clicked, this, [this](const QString& id, const QString& tagName, const QString& href, bool controlDown) {
        Q_EMIT Clicked(PageClick{id, tagName, href, controlDown});
    });
    connect(bridge, &PageBridge::ContextMenuAsked, this, &frmPageView::ContextMenu);
    auto* channel = new QWebChannel(m_document.get());
    channel->registerObject(u"page"_s, bridge);
    m_document->setWebChannel(channel, kScriptWorld);

    QWebEngineScript script;
    script.setName(u"page"_s);
    script.setSourceCode(PageScript());
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(kScriptWorld);
    m_document->scripts().insert(script);

    connect(m_document.get(), &QWebEnginePage::loadFinished, this, [this](bool loaded) {
        if (m_ending)
            return;
        m_watch.stop();
        RestoreEnvironment();
        m_document->history()->clear(); // each page is left for good
        Q_EMIT DocumentComplete(m_path, loaded);
    });

    // Queued: the engine must have put its dead process away before it is told to open a page.
    connect(m_document.get(), &QWebEnginePage::renderProcessTerminated, this, &frmPageView::Recover, Qt::QueuedConnection);

    m_view = new QWebEngineView(this);
    m_view->setObjectName(u"WebBrowser1"_s);
    m_view->setAccessibleName(tr("Page"));
    m_view->setPage(m_document.get());
    m_view->setAcceptDrops(false);
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    m_document->setBackgroundColor(palette().color(QPalette::Base));
    Navigate(m_path);
}

// A blank page, and the moment before a page is painted, have the colour of what is around.
void frmPageView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_document)
        m_document->setBackgroundColor(palette().color(QPalette::Base));
}

void frmPageView::Navigate(const QString& path)
{
    m_path = path;
    m_recoveries = 0;
    if (m_document)
        Open(path);
}

void frmPageView::Open(const QString& path)
{
    m_watch.start();
    m_document->Open(QFileInfo(path).isFile() ? QUrl::fromLocalFile(path) : QUrl(kBlank));
}

void frmPageView::EndHungPage()
{
    const qint64 process = m_document->renderProcessPid();
    m_ending = process > 0 && ::kill(static_cast<pid_t>(process), SIGKILL) == 0;
}

void frmPageView::Recover()
{
    m_ending = false;
    ++m_recoveries;
    if (m_recoveries == 1)
        Open(m_path);
    else if (m_recoveries == 2)
        Open(kBlank);
}

} // namespace kelvado
