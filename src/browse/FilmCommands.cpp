#include "browse/FilmCommands.h"

#include "core/Afterwards.h"
#include "core/Literals.h"
#include "core/NodeKey.h"
#include "core/RuntimeError.h"
#include "store/FilmActions.h"

namespace kelvado {

bool TreeIsCurrent(const AppState& state, Shell& shell)
{
    if (state.treeCatalog == state.CatalogPath())
        return true;
    shell.RefreshCatalogTree();
    return false;
}

FilmCommands::FilmCommands(const AppState& state, Dialogs& dialogs, Shell& shell, CatalogModel& model)
    : m_state(state), m_dialogs(dialogs), m_shell(shell), m_model(model)
{
}

FilmId FilmCommands::FilmOf(const QModelIndex& node) const
{
    if (!node.isValid())
        throw RuntimeError(kErrObjectNotSet);
    // The keys of groups and people hold other numbers.
    if (m_model.Tag(node) != kTagFilm)
        throw RuntimeError(kErrInvalidCall);
    return FilmOfKey(m_model.Key(node));
}

void FilmCommands::Delete(const QModelIndex& node)
{
    const FilmId film = FilmOf(node);
    if (!IsCurrent())
        return;
    const QString question = u"Are you sure you want to delete "_s + node.data(CatalogModel::TextRole).toString();
    if (!m_dialogs.ConfirmLoss(question, kBoxYesNo, u"Confirm Delete"_s))
        return;
    const QPersistentModelIndex place = node; // waiting for another program serves events
    try {
        DeleteFilm(film, m_state.CatalogPath());
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrNoCurrentRecord)
            Afterwards([&] { m_shell.RefreshCatalogTree(); }, [&] { throw error; }); // another program has deleted it
        throw;
    }
    m_model.RemoveFilm(place);
    m_shell.ShowSelection();
    m_shell.UpdateStatus(true);
}

void FilmCommands::MoveToRequests(const QModelIndex& node)
{
    const FilmId film = FilmOf(node);
    if (!IsCurrent())
        return;
    MoveFilmToRequests(film, m_state.CatalogPath());
    m_shell.RefreshCatalogTree();
}

void FilmCommands::MoveToMovies(const QModelIndex& node)
{
    const FilmId film = FilmOf(node);
    if (!IsCurrent())
        return;
    MoveFilmToMovies(film, m_state.CatalogPath());
    m_shell.RefreshCatalogTree();
}

void FilmCommands::AddToMovieNight(const QModelIndex& node)
{
    const FilmId film = FilmOf(node);
    if (IsCurrent())
        kelvado::AddToMovieNight(film, m_state.CatalogPath());
}

void FilmCommands::ClearMovieNight()
{
    kelvado::ClearMovieNight(m_state.CatalogPath());
    if (m_state.gOptions->View.ViewMode == u"MovieNight")
        m_shell.RefreshCatalogTree();
}

} // namespace kelvado
