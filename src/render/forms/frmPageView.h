#pragma once

#include "render/PageMessages.h"

#include <QWidget>

#include <memory>

class QWebEngineView;

namespace kelvado {

class PageDocument;
class PageProfile;

/// The page view of the main window. The browser inside is costly and is made only by `CreateBrowser`, which the window calls once it is
/// on the screen. Nothing in here follows a click: `Clicked` and `ContextMenu` tell of it, and `PageMessages` knows what it means.
class frmPageView : public QWidget
{
    Q_OBJECT
public:
    explicit frmPageView(QWidget* parent = nullptr);
    ~frmPageView() override;

    /// Makes the browser and opens what `Navigate` was told last, or "about:blank". Does nothing the second time.
    void CreateBrowser();

    /// Opens the file at `path`, or "about:blank". Without a browser the last path waits for it.
    void Navigate(const QString& path);

    /// Null until `CreateBrowser`.
    QWebEngineView* WebBrowser1() const { return m_view; }

Q_SIGNALS:
    void Clicked(const kelvado::PageClick& click);
    void ContextMenu();
    /// A page has been loaded and listens to clicks; `loaded` is false where it could not be.
    void DocumentComplete(const QString& path, bool loaded);

private:
    std::unique_ptr<PageProfile> m_profile;
    std::unique_ptr<PageDocument> m_document; // goes before its profile
    QWebEngineView* m_view = nullptr;
    QString m_path;
};

} // namespace kelvado
