#include "core/SectionTabs.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <algorithm>

namespace kelvado {

namespace {

struct SectionPictures
{
    QLatin1StringView section;
    TabPictures pictures;
};

constexpr SectionPictures kPictures[] = {
    {kMovieList,
     {"ToolLeftSel.BMP", "ToolMovieListSel.BMP", "ToolMovieGrab.BMP", "ToolMovieEdit.BMP", "ToolActorInfo.BMP", "ToolEnd.BMP",
      "ToolFrontYesNo.BMP", "ToolFrontNoNo.BMP", "ToolFrontNoNo.BMP"}},
    {kMovieGrab,
     {"ToolLeft.BMP", "ToolMovieList.BMP", "ToolMovieGrabSel.BMP", "ToolMovieEdit.BMP", "ToolActorInfo.BMP", "ToolEnd.BMP",
      "ToolFrontNoYes.BMP", "ToolFrontYesNo.BMP", "ToolFrontNoNo.BMP"}},
    {kMovieEdit,
     {"ToolLeft.BMP", "ToolMovieList.BMP", "ToolMovieGrab.BMP", "ToolMovieEditSel.BMP", "ToolActorInfo.BMP", "ToolEnd.BMP",
      "ToolFrontNoNo.BMP", "ToolFrontNoYes.BMP", "ToolFrontYesNo.BMP"}},
    {kActorInfo,
     {"ToolLeft.BMP", "ToolMovieList.BMP", "ToolMovieGrab.BMP", "ToolMovieEdit.BMP", "ToolActorInfoSel.BMP", "ToolEndSel.BMP",
      "ToolFrontNoNo.BMP", "ToolFrontNoNo.BMP", "ToolFrontNoYes.BMP"}},
};

const QString kEditTitle = u"Edit Interface"_s;

// The tag of the nodes that a section's panel shows; empty where it shows any.
QLatin1StringView WantedTag(const QString& section)
{
    return section == kMovieEdit ? kTagFilm : section == kActorInfo ? kTagActor : QLatin1StringView();
}

} // namespace

const TabPictures& PicturesOfSection(const QString& section)
{
    const auto* entry = std::ranges::find(kPictures, section, &SectionPictures::section);
    if (entry == std::end(kPictures))
        throw RuntimeError(kErrInvalidCall);
    return entry->pictures;
}

void SectionTabs::SetPanels(EditPanel* film, EditPanel* person)
{
    m_film = film;
    m_person = person;
}

std::optional<SectionView> SectionTabs::Choose(const QString& section, const std::optional<NodeRef>& selected)
{
    const TabPictures& pictures = PicturesOfSection(section);
    // The first activation lays out the page view although no catalog is open yet.
    if (!m_state.CatalogOpen && m_state.Activated) {
        m_dialogs.MessageBox(kNoCatalogOpen, kBoxInformation);
        return std::nullopt;
    }
    // The questions come on the current section's own tab too, although nothing is left then.
    AskAboutChanges();
    if (m_state.CurrentSection == section)
        return std::nullopt;

    m_state.CurrentSection = section;
    // The tree cannot be used while a film is being added.
    SectionView view{section, pictures, section != kMovieGrab, selected};
    const QLatin1StringView tag = WantedTag(section);
    if (selected && !tag.isEmpty() && selected->tag != tag)
        view.node.reset();
    if (view.node && !tag.isEmpty())
        m_state.history.Push(view.node->key, section, {});
    return view;
}

void SectionTabs::AskAboutChanges()
{
    if (m_state.CurrentSection == kActorInfo && m_person)
        kelvado::AskAboutChanges(*m_person, m_dialogs);
    if (m_state.CurrentSection == kMovieEdit && m_film)
        kelvado::AskAboutChanges(*m_film, m_dialogs);
}

void AskAboutChanges(EditPanel& panel, Dialogs& dialogs)
{
    if (!panel.HasChanges())
        return;
    const QString name = panel.Name();
    const QString question = u"You Have Made Changes To "_s + name + u".  Do You Want To Save These Changes?"_s;
    if (dialogs.MessageBox(question, kBoxYesNo, kEditTitle) == kAnswerYes) {
        panel.Save();
        return;
    }
    dialogs.MessageBox(u"Changed To "_s + name + u" Have Been Disregarded."_s, kBoxPlain, kEditTitle);
    panel.Discard();
}

} // namespace kelvado
