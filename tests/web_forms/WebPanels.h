#pragma once

#include "app/MainWindow.h"
#include "web/LoopbackServer.h"

namespace kelvado {

/// Keeps what would have gone to the desktop's browser.
class Browser : public QObject
{
    Q_OBJECT
public:
    Browser() { QDesktopServices::setUrlHandler(u"http"_s, this, "Open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(u"http"_s); }
    Q_SLOT void Open(const QUrl& address) { opened << address.toString(); }
    QStringList opened;
};

/// The assembled main window and the panels that add films.
class FilmPanels : public MainWindow
{
protected:
    /// Lets the retrieval ask `host` (host:port) for everything.
    void SetHosts(const QString& host);
    /// Starts the window and opens the panel that adds films.
    void StartAdding();
    /// Searches by the panel and puts all films that are found into the queue.
    void QueueAll();
    QTreeWidget& List(const char* name) const { return Get<QTreeWidget>(name); }
    /// The rows as "title|number", parted by a line feed.
    std::string Rows(const char* list) const;
    void DoubleClick(const char* list, int row);
    /// Does `action` in the modal window `name`, once it is there.
    void InWindow(const char* name, std::function<void(QWidget& modal)> action);
    /// The titles of the films that came into the catalog, in that order.
    std::string NewTitles() const;
};

/// With a film site of its own on this machine: the films of `titles`, by number. Any other number has no page.
class WebPanels : public FilmPanels
{
protected:
    WebPanels();

    QMap<QByteArray, QByteArray> titles{{"0912345", "The L&#246;wen Affair (1987/II) (TV)"},
                                        {"0912346", "Another Affair (1990)"},
                                        {"0912347", "A Very Long Affair (2001)"},
                                        {"0078748", "Alien Renewed (1979)"}};
    std::function<void(const QByteArray& path)> onRequest;
    std::function<LoopbackServer::Reply(const QByteArray& path)> instead; ///< answers where it gives any bytes, or stalls
    LoopbackServer site;

private:
    LoopbackServer::Reply Answer(const QByteArray& path);
};

} // namespace kelvado
