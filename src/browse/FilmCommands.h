#pragma once

#include "browse/CatalogModel.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Shell.h"

#include <QModelIndex>

namespace kelvado {

/// The menu entries that act on one film.
class FilmCommands
{
public:
    FilmCommands(const AppState& state, Dialogs& dialogs, Shell& shell, CatalogModel& model);

    /// Asks, takes the node out of the tree and deletes the film. Under the sort by genre its other nodes stay until the next refresh.
    /// Raises 91 for no node.
    void Delete(const QModelIndex& node);
    void MoveToRequests(const QModelIndex& node);
    void MoveToMovies(const QModelIndex& node);
    /// `filmId` is the text of the window's `ID` label.
    void AddToMovieNight(const QString& filmId);
    void ClearMovieNight();

private:
    QString FilmOf(const QModelIndex& node) const;

    const AppState& m_state;
    Dialogs& m_dialogs;
    Shell& m_shell;
    CatalogModel& m_model;
};

} // namespace kelvado
