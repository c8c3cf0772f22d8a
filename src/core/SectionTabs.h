#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Literals.h"
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

/// The pictures of all tabs while `section`, one of the four names, is shown. Raises `kErrInvalidCall` for any other name.
const TabPictures& PicturesOfSection(const QString& section);

/// The message of a section for which no catalog is open, or nothing that suits it is selected.
inline constexpr QLatin1StringView kNoCatalogOpen = "No Kelvado Catolog is open"_L1;

/// A panel whose changes may be unsaved, as far as the question about them goes.
class EditPanel
{
public:
    virtual ~EditPanel() = default;
    virtual bool HasChanges() const = 0;
    /// The film's title or the person's name.
    virtual QString Name() const = 0;
    virtual void Save() = 0;
    /// Shows what the catalog holds in the place of what was changed.
    virtual void Discard() = 0;
};

/// Asks whether changes of the panel that are not saved are to be saved, and does so. Without any, nothing happens. Raises what saving
/// raises.
void AskAboutChanges(EditPanel& panel, Dialogs& dialogs);

/// What the window is to show once a section was chosen.
struct SectionView
{
    QString section;
    TabPictures pictures;
    bool treeEnabled;
    /// The node that the section's panel shows; nothing where none is selected, or one that does not suit the section.
    std::optional<NodeRef> node;
};

/// The rules of the four section tabs and the question about unsaved changes.
class SectionTabs
{
public:
    SectionTabs(AppState& state, Dialogs& dialogs) : m_state(state), m_dialogs(dialogs) {}

    /// The panels of a film and of a person, null where there is none yet; they outlive this object.
    void SetPanels(EditPanel* film, EditPanel* person);

    /// Makes `section`, one of the four names, the current one and returns what to show; `selected` is the tree's selected node. Asks
    /// about unsaved changes of the panel that is left. Returns nothing where the window stays as it is: while no catalog is open, which
    /// is told, and on the current section's own tab, which asks all the same. Raises `kErrInvalidCall` for any other name.
    std::optional<SectionView> Choose(const QString& section, const std::optional<NodeRef>& selected);

    /// Asks about unsaved changes of the current section's panel, as if it were left.
    void AskAboutChanges();

private:
    AppState& m_state;
    Dialogs& m_dialogs;
    EditPanel* m_film = nullptr;
    EditPanel* m_person = nullptr;
};

} // namespace kelvado
