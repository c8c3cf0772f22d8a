#pragma once

#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>

namespace kelvado {

/// Prepares the process for the page view; call it before the application object is made. It keeps the engine off the network and small,
/// and turns its sandbox off where the program runs as root, for nobody else. Flags that the user has set for the engine stay.
void PreparePageEngine();

/// Puts the environment back as `PreparePageEngine` found it, so that the programs that we start get nothing of ours. The engine has read
/// it once a page is loaded. Does nothing the second time.
void RestoreEnvironment();

/// Lets a page load files below the program's folder, links resolved, and pictures that it holds itself; nothing else.
class PageRequests : public QWebEngineUrlRequestInterceptor
{
    Q_OBJECT
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;
};

/// A profile that keeps nothing: no cookies, no cache, no downloads.
class PageProfile : public QWebEngineProfile
{
    Q_OBJECT
public:
    explicit PageProfile(QObject* parent = nullptr);
};

/// A page that goes where the program sends it and nowhere else: no links, no scripted moves, no windows, no questions, no permissions.
class PageDocument : public QWebEnginePage
{
    Q_OBJECT
public:
    explicit PageDocument(QWebEngineProfile* profile, QObject* parent = nullptr);

    void Open(const QUrl& address);

protected:
    bool acceptNavigationRequest(const QUrl& address, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles, const QStringList& acceptedMimeTypes) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& value, QString* result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& text, int line, const QString& source) override;

private:
    QUrl m_address;
};

/// The object that the injected script speaks to.
class PageBridge : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    Q_INVOKABLE void Click(const QString& id, const QString& tagName, const QString& href, bool controlDown)
    {
        Q_EMIT Clicked(id, tagName, href, controlDown);
    }
    Q_INVOKABLE void ContextMenu() { Q_EMIT ContextMenuAsked(); }

Q_SIGNALS:
    void Clicked(const QString& id, const QString& tagName, const QString& href, bool controlDown);
    void ContextMenuAsked();
};

/// The script that tells `PageBridge`, published under the name "page", of every click and context menu. It lives in a world of its own,
/// where a page's script cannot reach it.
QString PageScript();

} // namespace kelvado
