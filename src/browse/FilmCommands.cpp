#include "browse/FilmCommands.h"

#include "core/NodeKey.h"
#include "core/RuntimeError.h"
#include "store/FilmActions.h"

namespace kelvado {

FilmCommands::FilmCommands(const AppState& state, Dialogs& dialogs, Shell& shell, CatalogModel& model)
    : m_state(state), m_dialogs(dialogs), m_shell(shell), m_model(model)
{
}

QString FilmCommands::FilmOf(const QModelIndex& node) const
{
    if (!node.isValid())
        throw RuntimeError(kErrObjectNotSet);
    return KeyPart(m_model.Key(node), 0);
}

void FilmCommands::Delete(const QModelIndex& node)
{
    const QString film = FilmOf(node);
    if (m_model.Tag(node) != kTagFilm)
        throw RuntimeError(kErrInvalidCall);
    const QString question = QStringLiteral("Are you sure you want to delete ") + node.data().toString();
    if (m_dialogs.MessageBox(question, kBoxYesNo, QStringLiteral("Confirm Delete")) != kAnswerYes)
        return;
    m_model.RemoveFilm(node);
    DeleteFilm(film, m_state.CatalogPath());
    m_shell.ShowSelection();
    m_shell.UpdateStatus(true);
}

void FilmCommands::MoveToRequests(const QModelIndex& node)
{
    MoveFilmToRequests(FilmOf(node), m_state.CatalogPath());
    m_shell.RefreshCatalogTree();
}

void FilmCommands::MoveToMovies(const QModelIndex& node)
{
    MoveFilmToMovies(FilmOf(node), m_state.CatalogPath());
    m_shell.RefreshCatalogTree();
}

void FilmCommands::AddToMovieNight(const QString& filmId)
{
    kelvado::AddToMovieNight(filmId, m_state.CatalogPath());
}

void FilmCommands::ClearMovieNight()
{
    kelvado::ClearMovieNight(m_state.CatalogPath());
    if (m_state.gOptions->View.ViewMode == u"MovieNight")
        m_shell.RefreshCatalogTree();
}

} // namespace kelvado
