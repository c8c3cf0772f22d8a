#include "render/forms/PageEngine.h"

#include "core/Literals.h"
#include "core/Paths.h"

#include <QFile>
#include <QLoggingCategory>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include <unistd.h>

namespace kelvado {

namespace {

Q_LOGGING_CATEGORY(pageLog, "kelvado.page", QtWarningMsg)

constexpr const char* kFlagsVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

constexpr std::array<const char*, 11> kEngineFlags{{
    "--disable-gpu",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-domain-reliability",
    "--disable-sync",
    "--dns-prefetch-disable",
    "--no-pings",
    "--no-proxy-server",
    "--force-webrtc-ip-handling-policy=disable_non_proxied_udp",
    "--renderer-process-limit=1",
    "--disable-features=Translate,MediaRouter,OptimizationHints",
}};

// Pages are text and pictures: painted without the graphics driver, they take half the memory and appear sooner.
// A page is told to assistive programs; that costs nothing while none listens.
constexpr std::array<std::pair<const char*, const char*>, 3> kEngineVariables{{
    {"QT_QUICK_BACKEND", "software"},
    {"QT_XCB_GL_INTEGRATION", "none"},
    {"QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1"},
}};

constexpr std::array<std::pair<QWebEngineSettings::WebAttribute, bool>, 14> kSettings{{
    {QWebEngineSettings::JavascriptEnabled, true},
    {QWebEngineSettings::AutoLoadImages, true},
    {QWebEngineSettings::LocalContentCanAccessFileUrls, true}, // style sheets of XML pages
    {QWebEngineSettings::LocalContentCanAccessRemoteUrls, false},
    {QWebEngineSettings::JavascriptCanOpenWindows, false},
    {QWebEngineSettings::JavascriptCanAccessClipboard, false},
    {QWebEngineSettings::LocalStorageEnabled, false},
    {QWebEngineSettings::PluginsEnabled, false},
    {QWebEngineSettings::PdfViewerEnabled, false},
    {QWebEngineSettings::FullScreenSupportEnabled, false},
    {QWebEngineSettings::HyperlinkAuditingEnabled, false},
    {QWebEngineSettings::DnsPrefetchEnabled, false},
    {QWebEngineSettings::WebGLEnabled, false},
    {QWebEngineSettings::ErrorPageEnabled, false},
}};

// Every click is told and cancelled before the page sees it, so that no page can keep one for itself; the page's own handlers run on.
// The source element is the innermost one. A click or menu that a script makes is not told, so that a page cannot open the user's browser
// or choose a film by itself. The middle button and dragging do nothing.
constexpr const char* kScript = R"((() => {
    'use strict';
    let bridge = null;
    const waiting = [];
    const tell = message => bridge ? message(bridge) : waiting.push(message);
    new QWebChannel(qt.webChannelTransport, channel => {
        bridge = channel.objects.page;
        waiting.splice(0).forEach(message => message(bridge));
    });
    const listen = (type, handler) => window.addEventListener(type, event => {
        event.preventDefault();
        if (event.isTrusted)
            handler(event);
    }, { capture: true, passive: false });
    listen('click', event => {
        const source = event.target;
        if (!(source instanceof Element))
            return;
        const href = typeof source.href === 'string' ? source.href : '';
        const id = source.getAttribute('id') || '', tagName = source.tagName, controlDown = event.ctrlKey;
        tell(page => page.Click(id, tagName, href, controlDown));
    });
    listen('contextmenu', () => tell(page => page.ContextMenu()));
    for (const type of ['auxclick', 'dragstart', 'submit'])
        listen(type, () => {});
})();
)";

struct ChangedVariable
{
    const char* name;
    std::optional<QByteArray> before; // nothing where it was not set
};

std::vector<ChangedVariable>& ChangedVariables()
{
    static std::vector<ChangedVariable> variables;
    return variables;
}

void ChangeVariable(const char* name, const QByteArray& value)
{
    const bool isSet = qEnvironmentVariableIsSet(name);
    ChangedVariables().push_back({name, isSet ? std::optional(qgetenv(name)) : std::nullopt});
    qputenv(name, value);
}

} // namespace

void PreparePageEngine()
{
    QByteArray flags = qgetenv(kFlagsVariable);
    for (const char* flag : kEngineFlags) {
        if (!flags.isEmpty())
            flags += ' ';
        flags += flag;
    }
    ChangeVariable(kFlagsVariable, flags);
    for (const auto& [variable, value] : kEngineVariables) {
        if (!qEnvironmentVariableIsSet(variable))
            ChangeVariable(variable, value);
    }
    QLoggingCategory::setFilterRules(u"qt.webenginecontext=false"_s); // it would report the missing driver at every start
    if (geteuid() == 0)
        ChangeVariable("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

void RestoreEnvironment()
{
    for (const ChangedVariable& variable : ChangedVariables()) {
        if (variable.before)
            qputenv(variable.name, *variable.before);
        else
            qunsetenv(variable.name);
    }
    ChangedVariables().clear();
}

void PageRequests::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    const QUrl address = info.requestUrl();
    const bool allowed = address.isLocalFile()
                             ? address.host().isEmpty() && IsInside(AppPath(), address.toLocalFile())
                             : address.scheme() == "data"_L1 && info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeImage;
    if (!allowed) {
        qCDebug(pageLog) << "refused" << address;
        info.block(true);
    }
}

PageProfile::PageProfile(QObject* parent) : QWebEngineProfile(parent)
{
    setHttpCacheType(NoCache);
    setPersistentCookiesPolicy(NoPersistentCookies);
    setSpellCheckEnabled(false);
    setUrlRequestInterceptor(new PageRequests(this));
    connect(this, &QWebEngineProfile::downloadRequested, this, [](QWebEngineDownloadRequest* download) { download->cancel(); });
    for (const auto& [attribute, on] : kSettings)
        settings()->setAttribute(attribute, on);
}

PageDocument::PageDocument(QWebEngineProfile* profile, QObject* parent) : QWebEnginePage(profile, parent)
{
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) { setFeaturePermission(origin, feature, PermissionDeniedByUser); });
}

void PageDocument::Open(const QUrl& address)
{
    m_address = address;
    load(address);
}

bool PageDocument::acceptNavigationRequest(const QUrl& address, NavigationType type, bool isMainFrame)
{
    const bool ours = isMainFrame && type == NavigationTypeTyped && address == m_address;
    if (!ours)
        qCDebug(pageLog) << "refused to go to" << address << type;
    return ours;
}

QWebEnginePage* PageDocument::createWindow(WebWindowType)
{
    return nullptr;
}

QStringList PageDocument::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&)
{
    return {};
}

void PageDocument::javaScriptAlert(const QUrl&, const QString&) {}

bool PageDocument::javaScriptConfirm(const QUrl&, const QString&)
{
    return false;
}

bool PageDocument::javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*)
{
    return false;
}

void PageDocument::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& text, int line, const QString& source)
{
    qCDebug(pageLog) << source << line << text;
}

QString PageScript()
{
    QFile channel(u":/qtwebchannel/qwebchannel.js"_s);
    if (!channel.open(QIODevice::ReadOnly))
        qCWarning(pageLog, "the channel's script is missing; pages cannot speak to the program");
    return QString::fromUtf8(channel.readAll()) + QLatin1StringView(kScript);
}

} // namespace kelvado
