#include "render/forms/frmPageView.h"

#include "render/forms/PageEngine.h"

#include <QVBoxLayout>
#include <QWebChannel>
#include <QWebEngineHistory>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineView>

namespace kelvado {

namespace {

constexpr QLatin1StringView kBlank("about:blank");
constexpr quint32 kScriptWorld = QWebEngineScript::ApplicationWorld;

} // namespace

frmPageView::frmPageView(QWidget* parent) : QWidget(parent), m_path(kBlank)
{
    setObjectName(QStringLiteral("frmPageView"));
    setAccessibleName(tr("Page"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
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
    channel->registerObject(QStringLiteral("page"), bridge);
    m_document->setWebChannel(channel, kScriptWorld);

    QWebEngineScript script;
    script.setName(QStringLiteral("page"));
    script.setSourceCode(PageScript());
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(kScriptWorld);
    m_document->scripts().insert(script);

    connect(m_document.get(), &QWebEnginePage::loadFinished, this, [this](bool loaded) {
        m_document->history()->clear(); // each page is left for good
        Q_EMIT DocumentComplete(m_path, loaded);
    });

    m_view = new QWebEngineView(this);
    m_view->setObjectName(QStringLiteral("WebBrowser1"));
    m_view->setAccessibleName(tr("Page"));
    m_view->setPage(m_document.get());
    m_view->setAcceptDrops(false);
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    m_document->setBackgroundColor(palette().color(QPalette::Base));
    Navigate(m_path);
}

void frmPageView::Navigate(const QString& path)
{
    m_path = path;
    if (m_document)
        m_document->Open(path == kBlank ? QUrl(path) : QUrl::fromLocalFile(path));
}

} // namespace kelvado
