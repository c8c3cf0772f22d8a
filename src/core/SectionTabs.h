#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/NodeKey.h"

#include <QString>

#include <array>
#include <optional>

namespace kelvado {

/// The pieces of the section tab row, in the order in which their pictures are loaded.
enum class TabPiece { Left, MovieList, MovieGrab, MovieEdit, ActorInfo, End, Joint1, Joint2, Joint3 };
inline constexpr int kTabPieces = 9;
/// The skin's picture file of each piece.
using TabPictures = std::array<const char*, kTabPieces>;

/// What the section handlers need of the main window and its panels.
class SectionHost
{
public:
    virtual ~SectionHost() = default;

    virtual bool PersonHasChanges() const = 0;
    virtual QString PersonName() const = 0;
    virtual void SavePerson() = 0;
    virtual bool FilmHasChanges() const = 0;
    virtual QString FilmTitle() const = 0;
    /// The text of the film panel's id label.
    virtual QString FilmId() const = 0;
    virtual void SaveFilm(qint32 movieId) = 0;

    virtual std::optional<NodeRef> SelectedNode() const = 0;
    /// Selects the node without reacting to it. Raises 35601 where the tree has no such key.
    virtual void SelectNode(const QString& key) = 0;
    virtual void EnableTree(bool enabled) = 0;
    virtual void LoadTabPictures(const TabPictures& pictures) = 0;

    /// Hides the other panels and puts the page view into the panel host.
    virtual void ShowPageView() = 0;
    /// Shows a page file, or the blank page for the empty text.
    virtual void Navigate(const QString& path) = 0;
    virtual void ShowSelection() = 0;
    /// Shows the strip of film sources and begins with the first one.
    virtual void ShowAddPanel() = 0;
    virtual void ShowFilmPanel() = 0;
    virtual void LoadFilm(const QString& movieId) = 0;
    virtual void ShowPersonPanel() = 0;
    virtual void LoadPerson(qint32 actorId) = 0;

    virtual void PushHistory(const QString& key, const QString& section, const QString& page) = 0;
    virtual void EnableButton(const QString& key, bool enabled) = 0;
};

/// The handlers of the four section tabs, the question about unsaved changes, and the walk through the history.
class SectionTabs
{
public:
    SectionTabs(AppState& state, Dialogs& dialogs, SectionHost& host);

    /// Shows `section`, one of the four names. Asks about unsaved changes of the panel that is left; while no catalog is open it only
    /// says so. A click on the current section's tab asks, and does nothing else.
    void Show(const QString& section);

    /// Walks one step through the history. Raises 35601 where the step's node is not in the present tree; the walk has then passed that
    /// step. Where there is no step at all it raises too, and stays where it was.
    void GoBack();
    void GoForward();

private:
    void AskAboutPerson();
    void AskAboutFilm();
    void ShowFilmOfSelection();
    void ShowPersonOfSelection();
    void MoveAndShow(void (History::*move)());

    AppState& m_state;
    Dialogs& m_dialogs;
    SectionHost& m_host;
};

/// The pictures of the tab row with `section` selected. Raises 5 for any other name.
const TabPictures& TabPicturesOf(const QString& section);

} // namespace kelvado
