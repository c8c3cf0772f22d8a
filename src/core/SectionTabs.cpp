#include "core/SectionTabs.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"

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
const QString kNoCatalog = u"No Kelvado Catolog is open"_s;

bool AskToSave(Dialogs& dialogs, const QString& name)
{
    const QString question = u"You Have Made Changes To "_s + name + u".  Do You Want To Save These Changes?"_s;
    if (dialogs.MessageBox(question, kBoxYesNo, kEditTitle) == kAnswerYes)
        return true;
    dialogs.MessageBox(u"Changed To "_s + name + u" Have Been Disregarded."_s, kBoxPlain, kEditTitle);
    return false;
}

// Marks a walk through the history for as long as it lasts.
class Walk
{
public:
    explicit Walk(History& history) : m_history(history) { m_history.walking = true; }
    ~Walk() { m_history.walking = false; }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

private:
    History& m_history;
};

} // namespace

const TabPictures& TabPicturesOf(const QString& section)
{
    for (const SectionPictures& entry : kPictures) {
        if (entry.section == section)
            return entry.pictures;
    }
    throw RuntimeError(kErrInvalidCall);
}

SectionTabs::SectionTabs(AppState& state, Dialogs& dialogs, SectionHost& host) : m_state(state), m_dialogs(dialogs), m_host(host) {}

void SectionTabs::Show(const QString& section)
{
    const TabPictures& pictures = TabPicturesOf(section);
    // The first activation lays out the page view although no catalog is open yet.
    if (!m_state.CatalogOpen && m_state.Activated) {
        m_dialogs.MessageBox(kNoCatalog, kBoxInformation);
        return;
    }
    // The questions come on the current section's own tab too, although nothing is left then.
    AskAboutPerson();
    AskAboutFilm();
    if (m_state.CurrentSection == section)
        return;

    // The tree cannot be used while a film is being added.
    m_host.EnableTree(section != kMovieGrab);
    m_state.CurrentSection = section;
    m_host.LoadTabPictures(pictures);
    if (section == kMovieList) {
        m_host.ShowPageView();
        m_host.Navigate({});
        if (m_host.SelectedNode())
            m_host.ShowSelection();
    } else if (section == kMovieGrab) {
        m_host.ShowAddPanel();
    } else if (section == kMovieEdit) {
        ShowFilmOfSelection();
    } else {
        ShowPersonOfSelection();
    }
}

void SectionTabs::AskAboutPerson()
{
    if (m_state.CurrentSection != kActorInfo || !m_host.PersonHasChanges())
        return;
    if (AskToSave(m_dialogs, m_host.PersonName()))
        m_host.SavePerson();
}

void SectionTabs::AskAboutFilm()
{
    if (m_state.CurrentSection != kMovieEdit || !m_host.FilmHasChanges())
        return;
    if (AskToSave(m_dialogs, m_host.FilmTitle()))
        m_host.SaveFilm(ToLong(m_host.FilmId()));
}

void SectionTabs::ShowFilmOfSelection()
{
    m_host.ShowFilmPanel();
    const std::optional<NodeRef> node = m_host.SelectedNode();
    if (!node || node->tag != kTagFilm) {
        m_dialogs.MessageBox(kNoCatalog, kBoxInformation);
        return;
    }
    m_host.LoadFilm(KeyPart(node->key, 0));
    if (!m_state.history.walking)
        m_host.PushHistory(node->key, m_state.CurrentSection, {});
}

void SectionTabs::ShowPersonOfSelection()
{
    m_host.ShowPersonPanel();
    const std::optional<NodeRef> node = m_host.SelectedNode();
    if (!node || node->tag != kTagActor) {
        m_dialogs.MessageBox(kNoCatalog, kBoxInformation);
        return;
    }
    m_host.LoadPerson(ToLong(KeyPart(node->key, 1)));
    if (!m_state.history.walking)
        m_host.PushHistory(node->key, m_state.CurrentSection, {});
}

void SectionTabs::GoBack()
{
    const Walk walk(m_state.history);
    MoveAndShow(&History::MoveBack);
    if (m_state.history.AtOldest())
        m_host.EnableButton(u"Back"_s, false);
    m_host.EnableButton(u"Forward"_s, true);
}

void SectionTabs::GoForward()
{
    const Walk walk(m_state.history);
    MoveAndShow(&History::MoveForward);
    if (m_state.history.AtNewest())
        m_host.EnableButton(u"Forward"_s, false);
    if (m_state.history.Position() > 1)
        m_host.EnableButton(u"Back"_s, true);
}

void SectionTabs::MoveAndShow(void (History::*move)())
{
    History& history = m_state.history;
    const History before = history;
    (history.*move)();
    const History::Step step = history.Current();
    if (step.key.isEmpty())
        history = before;
    m_host.SelectNode(step.key);
    if (m_state.CurrentSection != step.section)
        Show(step.section);
    if (step.section == kMovieList)
        m_host.Navigate(step.page.isEmpty() ? QString() : TempFolder() + u'/' + step.page);
}

} // namespace kelvado
