#include "core/SectionTabs.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

class RecordingHost : public SectionHost
{
public:
    explicit RecordingHost(History& h) : history(h) {}
    bool PersonHasChanges() const override { return personChanged; }
    QString PersonName() const override { return u"Ann"_s; }
    void SavePerson() override { calls << u"SavePerson"_s; }
    bool FilmHasChanges() const override { return filmChanged; }
    QString FilmTitle() const override { return u"Ran"_s; }
    QString FilmId() const override { return u"17"_s; }
    void SaveFilm(qint32 id) override { calls << u"SaveFilm %1"_s.arg(id); }
    std::optional<NodeRef> SelectedNode() const override { return node; }
    void SelectNode(const QString& key) override
    {
        if (key.isEmpty() || key == gone)
            throw RuntimeError(kErrElementNotFound);
        node = NodeRef{key, QString(kTagFilm)};
    }
    void EnableTree(bool enabled) override { calls << u"EnableTree %1"_s.arg(enabled); }
    void LoadTabPictures(const TabPictures& p) override { calls << QString::fromLatin1(p[0]); }
    void ShowPageView() override { calls << u"ShowPageView"_s; }
    void Navigate(const QString& path) override { calls << u"Navigate "_s + path.section(u'/', -1); }
    void ShowSelection() override { calls << u"ShowSelection"_s; }
    void ShowAddPanel() override { calls << u"ShowAddPanel"_s; }
    void ShowFilmPanel() override { calls << u"ShowFilmPanel"_s; }
    void LoadFilm(const QString& id) override { calls << u"LoadFilm "_s + id; }
    void ShowPersonPanel() override { calls << u"ShowPersonPanel"_s; }
    void LoadPerson(qint32 id) override { calls << u"LoadPerson %1"_s.arg(id); }
    void PushHistory(const QString& key, const QString& section, const QString& page) override { history.Push(key, section, page); }
    void EnableButton(const QString& key, bool enabled) override { calls << u"%1 %2"_s.arg(key).arg(enabled); }

    History& history;
    bool personChanged = false, filmChanged = false;
    QString gone;
    std::optional<NodeRef> node;
    QStringList calls;
};

class SectionTabsTest : public ::testing::Test
{
protected:
    SectionTabsTest() { state.CatalogOpen = state.Activated = true; }
    QStringList Taken() { return std::exchange(host.calls, {}); }

    AppState state;
    ScriptedDialogs dialogs;
    RecordingHost host{state.history};
    SectionTabs tabs{state, dialogs, host};
    const QString film = FilmKey(5, u"65");
};

TEST_F(SectionTabsTest, WithoutACatalogATabOnlySaysSoButTheFirstActivationRunsOn)
{
    state.CatalogOpen = false;
    tabs.Show(kMovieGrab);
    const ScriptedDialogs::Box box{u"No Kelvado Catolog is open"_s, 64, QString()};
    EXPECT_EQ(dialogs.boxes, QList{box});
    EXPECT_TRUE(host.calls.isEmpty());
    state.Activated = false;
    tabs.Show(kMovieList);
    EXPECT_EQ(state.CurrentSection, kMovieList);
    EXPECT_EQ(Taken(), (QStringList{u"EnableTree 1"_s, u"ToolLeftSel.BMP"_s, u"ShowPageView"_s, u"Navigate "_s}));
    EXPECT_EQ(dialogs.boxes.size(), 1);
}

TEST_F(SectionTabsTest, EverySectionDoesItsOwnWork)
{
    host.node = NodeRef{film, QString(kTagFilm)};
    tabs.Show(kMovieGrab);
    EXPECT_EQ(Taken(), (QStringList{u"EnableTree 0"_s, u"ToolLeft.BMP"_s, u"ShowAddPanel"_s}));
    tabs.Show(kMovieEdit);
    EXPECT_EQ(Taken(), (QStringList{u"EnableTree 1"_s, u"ToolLeft.BMP"_s, u"ShowFilmPanel"_s, u"LoadFilm 5"_s}));
    EXPECT_EQ(state.history.At(1).section, kMovieEdit);
    // A film is no person: the message of a missing catalog is used for it, and the section is left standing empty.
    tabs.Show(kActorInfo);
    EXPECT_EQ(Taken().last(), u"ShowPersonPanel");
    EXPECT_EQ(dialogs.boxes.last().text, u"No Kelvado Catolog is open");
    host.node = NodeRef{FilmKey(5, u"42"), QString(kTagActor)};
    state.CurrentSection = kMovieList;
    tabs.Show(kActorInfo);
    EXPECT_EQ(Taken().last(), u"LoadPerson 42");
}

TEST_F(SectionTabsTest, UnsavedChangesAreAskedAboutWhenAPanelIsLeft)
{
    state.CurrentSection = kActorInfo;
    host.personChanged = host.filmChanged = true;
    dialogs.answers << kAnswerYes << kAnswerNo << kAnswerOk;
    tabs.Show(kMovieGrab);
    EXPECT_EQ(dialogs.boxes.last().text, u"You Have Made Changes To Ann.  Do You Want To Save These Changes?");
    EXPECT_EQ(dialogs.boxes.last().title, u"Edit Interface");
    EXPECT_TRUE(Taken().contains(u"SavePerson"_s));
    state.CurrentSection = kMovieEdit;
    tabs.Show(kMovieList);
    EXPECT_EQ(dialogs.boxes.last().text, u"Changed To Ran Have Been Disregarded.");
    EXPECT_FALSE(Taken().contains(u"SaveFilm 17"_s));
    state.CurrentSection = kMovieEdit;
    dialogs.answers << kAnswerYes;
    tabs.Show(kActorInfo);
    EXPECT_TRUE(Taken().contains(u"SaveFilm 17"_s));
    // On the tab of the section itself the question comes too, and nothing else happens.
    state.CurrentSection = kMovieEdit;
    dialogs.answers << kAnswerYes;
    tabs.Show(kMovieEdit);
    EXPECT_EQ(Taken(), QStringList{u"SaveFilm 17"_s});
}

TEST_F(SectionTabsTest, BackWalksOldStepsAndStopsAtTheTenth)
{
    state.CurrentSection = kMovieList;
    for (int i = 1; i <= 12; ++i)
        state.history.Push(FilmKey(i, u"65"), QString(kMovieList), u"p%1"_s.arg(i));
    EXPECT_EQ(state.history.At(10).page, u"p3");
    tabs.GoBack();
    EXPECT_EQ(state.history.Position(), 2);
    EXPECT_EQ(host.node->key, FilmKey(11, u"65"));
    EXPECT_EQ(Taken(), (QStringList{u"Navigate p11"_s, u"Forward 1"_s}));
    for (int i = 0; i < 12; ++i)
        tabs.GoBack();
    EXPECT_EQ(state.history.Position(), 10);
    EXPECT_TRUE(Taken().contains(u"Back 0"_s));
    for (int i = 0; i < 12; ++i)
        tabs.GoForward();
    EXPECT_EQ(state.history.Position(), 1);
    EXPECT_EQ(host.node->key, FilmKey(12, u"65"));
    EXPECT_EQ(Taken().last(), u"Forward 0");
}

TEST_F(SectionTabsTest, AStepIntoAnotherSectionRecordsNothingAndALostNodeIsPassed)
{
    state.CurrentSection = kMovieList;
    state.history.Push(FilmKey(1, u"65"), QString(kMovieEdit), {});
    state.history.Push(FilmKey(2, u"65"), QString(kMovieList), u"p"_s);
    tabs.GoBack();
    EXPECT_EQ(state.CurrentSection, kMovieEdit);
    EXPECT_EQ(state.history.At(3).key, u"");
    EXPECT_FALSE(state.history.walking);
    tabs.GoForward();
    host.gone = FilmKey(1, u"65");
    EXPECT_THROW(tabs.GoBack(), RuntimeError);
    EXPECT_EQ(state.history.Position(), 2);
    EXPECT_FALSE(state.history.walking);
    EXPECT_THROW(tabs.GoBack(), RuntimeError); // there is no third step
    EXPECT_EQ(state.history.Position(), 2);
}

} // namespace
} // namespace kelvado
