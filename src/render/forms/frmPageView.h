#pragma once

#include "render/pages/PageMessages.h"

#include <QTimer>
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

    /// Opens the file at `path`, or "about:blank"; a missing file shows as a blank page. Without a browser the last path waits for it.
    /// A page whose script never ends cannot hold up the next one: where a page is not there in time, the engine's process is ended and
    /// the page is opened once more, and the second time the view stays blank.
    void Navigate(const QString& path);

    /// How long a page may take; 10,000 milliseconds until it is set.
    void SetPatience(int milliseconds) { m_watch.setInterval(milliseconds); }

    /// Null until `CreateBrowser`.
    QWebEngineView* WebBrowser1() const { return m_view; }

Q_SIGNALS:
    void Clicked(const kelvado::PageClick& click);
    void ContextMenu();
    /// A page has been loaded and listens to clicks; `loaded` is false where it could not be.
    void DocumentComplete(const QString& path, bool loaded);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Open(const QString& path);
    void EndHungPage();
    void Recover();

    std::unique_ptr<PageProfile> m_profile;
    std::unique_ptr<PageDocument> m_document; // goes before its profile
    QWebEngineView* m_view = nullptr;
    QString m_path;
    QTimer m_watch;        ///< runs while a page is being opened
    int m_recoveries = 0;  ///< since the last `Navigate`
    bool m_ending = false; ///< the engine's process is being ended; what it still says of its page does not count
};

} // namespace kelvado
