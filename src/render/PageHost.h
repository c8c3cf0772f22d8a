#pragma once

#include <QString>
#include <QUrl>

namespace kelvado {

/// What pages and their messages need of the window that shows them.
class PageHost
{
public:
    virtual ~PageHost() = default;

    /// The key of the selected tree node.
    virtual QString SelectedKey() const = 0;
    /// Selects the tree node with this key. Raises 35601 where the tree has none.
    virtual void SelectNode(const QString& key) = 0;
    /// Shows what is selected, as the current section demands.
    virtual void ShowSelection() = 0;
    /// Opens the file at `path` (or "about:blank") in the page view.
    virtual void Navigate(const QString& path) = 0;
    /// Brings the state of the menus up to date and opens the film's context menu at the cursor.
    virtual void ShowFilmMenu() = 0;
    /// Opens the main window's popup menu at the cursor.
    virtual void PopupMenuAtCursor() = 0;
    /// Hands an address to the desktop's own program for it.
    virtual void OpenOutside(const QUrl& address) = 0;
};

} // namespace kelvado
