#include "core/SectionTabs.h"

#include "core/History.h"
#include "support/ScriptedDialogs.h"

namespace kelvado {
namespace {

struct Panel : EditPanel
{
    explicit Panel(const QString& n) : name(n) {}
    bool HasChanges() const override { return changed; }
    QString Name() const override { return name; }
    void Save() override { ++saves; }
    void Discard() override { changed = false; }

    QString name;
    bool changed = false;
    int saves = 0;
};

class SectionTabsTest : public ::testing::Test
{
protected:
    SectionTabsTest()
    {
        state.CatalogOpen = state.Activated = true;
        tabs.SetPanels(&film, &person);
    }

    AppState state;
    ScriptedDialogs dialogs;
    Panel film{u"Ran"_s}, person{u"Ann"_s};
    SectionTabs tabs{state, dialogs};
    const NodeRef filmNode{FilmKey(5, u"65"), QString(kTagFilm)}, personNode{FilmKey(5, u"42"), QString(kTagActor)};
};

TEST_F(SectionTabsTest, WithoutACatalogATabOnlySaysSoButTheFirstActivationRunsOn)
{
    state.CatalogOpen = false;
    EXPECT_FALSE(tabs.Choose(kMovieGrab, {}));
    const ScriptedDialogs::Box box{u"No Kelvado Catolog is open"_s, 64, QString()};
    EXPECT_EQ(dialogs.boxes, QList{box});
    state.Activated = false;
    EXPECT_TRUE(tabs.Choose(kMovieList, {}));
    EXPECT_EQ(state.CurrentSection, kMovieList);
    EXPECT_EQ(dialogs.boxes.size(), 1);
}

TEST_F(SectionTabsTest, EverySectionShowsWhatSuitsIt)
{
    const struct
    {
        QLatin1StringView section;
        NodeRef node;
        const char* picture;
        bool tree, shown;
    } cases[] = {
        {kMovieGrab, filmNode, "ToolMovieGrabSel.BMP", false, true},  {kMovieEdit, filmNode, "ToolMovieEditSel.BMP", true, true},
        {kActorInfo, filmNode, "ToolActorInfoSel.BMP", true, false},  {kMovieList, personNode, "ToolMovieListSel.BMP", true, true},
        {kActorInfo, personNode, "ToolActorInfoSel.BMP", true, true}, {kMovieEdit, personNode, "ToolMovieEditSel.BMP", true, false},
    };
    for (const auto& entry : cases) {
        const std::optional<SectionView> view = tabs.Choose(entry.section, entry.node);
        ASSERT_TRUE(view) << entry.section.data();
        EXPECT_EQ(std::ranges::count_if(view->pictures, [&](const char* p) { return qstrcmp(p, entry.picture) == 0; }), 1);
        EXPECT_EQ(view->treeEnabled, entry.tree);
        EXPECT_EQ(view->node.has_value(), entry.shown) << entry.section.data();
        EXPECT_FALSE(tabs.Choose(entry.section, entry.node)) << "the current section's own tab does nothing";
    }
    // The film and the person that were shown in their panels are steps.
    EXPECT_EQ(state.history.At(1).key + state.history.At(1).section, personNode.key + kActorInfo);
    EXPECT_EQ(state.history.At(2).key + state.history.At(2).section, filmNode.key + kMovieEdit);
    EXPECT_EQ(state.history.At(3).key, QString());
}

TEST_F(SectionTabsTest, UnsavedChangesAreAskedAboutWhenAPanelIsLeftAndOnItsOwnTab)
{
    state.CurrentSection = kActorInfo;
    person.changed = film.changed = true;
    dialogs.answers << kAnswerYes << kAnswerNo << kAnswerOk << kAnswerYes;
    tabs.Choose(kMovieGrab, filmNode);
    EXPECT_EQ(dialogs.boxes.last().text, u"You Have Made Changes To Ann.  Do You Want To Save These Changes?");
    EXPECT_EQ(dialogs.boxes.last().title, u"Edit Interface");
    EXPECT_EQ(person.saves, 1);
    state.CurrentSection = kMovieEdit;
    tabs.Choose(kMovieList, filmNode);
    EXPECT_EQ(dialogs.boxes.last().text, u"Changed To Ran Have Been Disregarded.");
    EXPECT_EQ(film.saves, 0);
    EXPECT_FALSE(film.changed) << "what was disregarded is gone";
    film.changed = true;
    state.CurrentSection = kMovieEdit;
    EXPECT_FALSE(tabs.Choose(kMovieEdit, filmNode));
    EXPECT_EQ(film.saves, 1);
}

/// Twelve pages were shown, the last one is at the head.
struct Walk : ::testing::Test
{
    Walk()
    {
        for (int i = 1; i <= 12; ++i)
            history.Push(Key(i), QString(kMovieList), u"p%1"_s.arg(i));
    }
    static QString Key(int film) { return FilmKey(film, u"65"); }
    QString Back() { return Page(history.MoveBack(inTree)); }
    QString Forward() { return Page(history.MoveForward(inTree)); }
    static QString Page(const History::Step* step) { return step ? step->page : u"none"_s; }

    History history;
    QStringList gone;
    History::InTree inTree = [this](const QString& key) { return !gone.contains(key); };
};

TEST_F(Walk, GoesBackToTheTenthStepAndForwardToTheHead)
{
    EXPECT_FALSE(history.HasNewer(inTree));
    EXPECT_EQ(Forward(), u"none");
    for (int page = 11; page >= 3; --page)
        EXPECT_EQ(Back(), u"p%1"_s.arg(page));
    EXPECT_FALSE(history.HasOlder(inTree));
    EXPECT_EQ(Back(), u"none");
    EXPECT_EQ(history.Position(), 10);
    EXPECT_EQ(Forward(), u"p4");
    history.Push(Key(13), QString(kMovieList), u"p13"_s); // the walk begins there again
    EXPECT_FALSE(history.HasNewer(inTree));
    EXPECT_EQ(Back(), u"p12");
    history.walking = true;
    history.Push(Key(14), QString(kMovieList), u"p14"_s);
    EXPECT_EQ(history.At(1).page, u"p13");
}

TEST_F(Walk, PassesStepsThatCannotBeShown)
{
    history.Push(Key(20), QString(kMovieEdit), {});
    history.Push(Key(21), QString(kMovieList), u"p21"_s);
    gone = {Key(20), Key(12)};
    EXPECT_EQ(Back(), u"p12"); // its node is gone, its page is there
    EXPECT_EQ(Forward(), u"p21");
    gone.clear();
    EXPECT_EQ(history.MoveBack(inTree)->section, kMovieEdit);

    History shortOne;
    shortOne.Push(Key(1), QString(kMovieEdit), {});
    shortOne.Push(Key(2), QString(kMovieList), u"p"_s);
    gone = {Key(1)};
    EXPECT_FALSE(shortOne.HasOlder(inTree));
}

} // namespace
} // namespace kelvado
