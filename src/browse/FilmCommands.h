#pragma once

#include "browse/CatalogModel.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Shell.h"

#include <QModelIndex>

#include <optional>

namespace kelvado {

/// True where the tree shows the catalog that is open by now. Otherwise it is built anew: the numbers of its films mean other films there.
bool TreeIsCurrent(const AppState& state, Shell& shell);

/// The menu entries that act on one film.
class FilmCommands
{
public:
    FilmCommands(const AppState& state, Dialogs& dialogs, Shell& shell, CatalogModel& model);

    /// Each entry raises `kErrObjectNotSet` for no node and `kErrInvalidCall` for a node that is no film. Nothing is written where the tree
    /// is not current.

    /// Asks, deletes the film and takes the node out of the tree. Under the sort by genre its other nodes stay until the next refresh.
    /// The node of a film that cannot be deleted stays; where the catalog does not have the film any more, the tree is built anew.
    void Delete(const QModelIndex& node);
    void MoveToRequests(const QModelIndex& node);
    void MoveToMovies(const QModelIndex& node);
    void AddToMovieNight(const QModelIndex& node);
    void ClearMovieNight();
    /// The film of `node`, for those who lend it; nothing where the tree had to be built anew.
    std::optional<FilmId> CurrentFilm(const QModelIndex& node) { return IsCurrent() ? std::optional(FilmOf(node)) : std::nullopt; }

private:
    FilmId FilmOf(const QModelIndex& node) const;
    bool IsCurrent() { return TreeIsCurrent(m_state, m_shell); }

    const AppState& m_state;
    Dialogs& m_dialogs;
    Shell& m_shell;
    CatalogModel& m_model;
};

} // namespace kelvado
