#pragma once

#include "core/FilmId.h"
#include <QString>

namespace kelvado {

/// The few routines by which the other rooms call the main window.
class Shell
{
public:
    virtual ~Shell() = default;

    /// Rebuilds the catalog tree from the open catalog.
    virtual void RefreshCatalogTree() = 0;
    /// Reacts to the selected node of the tree as the current section demands.
    virtual void ShowSelection() = 0;
    /// Enables menus and buttons by what is open and selected, and names the open catalog in the caption.
    virtual void ApplyMenuRules() = 0;
    /// Brings the status bar up to date; `recount` asks the catalog anew.
    virtual void UpdateStatus(bool recount) = 0;
    /// Shows `text` in the status bar, until the next `UpdateStatus`.
    virtual void ShowStatusText(const QString& text) = 0;
    /// Shows the moving picture while a long job runs, the idle one otherwise.
    virtual void ShowWorking(bool busy) = 0;
    /// 0 to 100.
    virtual void ShowProgress(int percent) = 0;
    virtual void EnableMainWindow(bool enabled) = 0;
    /// Gives the selected tree node the text of the film `movieId`, which was just stored anew. Another film's node is left alone.
    virtual void RetitleSelectedNode(FilmId movieId, const QString& title) = 0;
    /// Gives the selected tree node the key that the film `movieId` has in the present tree. Another film's node is left alone.
    virtual void RekeySelectedNode(FilmId movieId) = 0;
};

} // namespace kelvado
