#include "TreeFixture.h"
#include "browse/FilmCommands.h"
#include "browse/Filters.h"
#include "browse/Find.h"
#include "browse/Sorting.h"
#include "support/ScriptedDialogs.h"

namespace kelvado {
namespace {

class SortingTest : public TreeFixture
{
protected:
    QString answer = u"0"_s;
    Sorting sorting{state, marks, shell, [this] { return answer; }};
    int Refreshes() const { return static_cast<int>(shell.calls.count(u"RefreshCatalogTree"_s)); }
};

TEST_F(SortingTest, AnEntryMovesTheMarkAndRebuildsTheTree)
{
    const cOptView& view = state.gOptions->View;
    sorting.ChoosePrimary(4);
    sorting.ChooseSecondary(3);
    sorting.ChooseViewMode(2);
    sorting.ToggleSecondaryDirection();
    EXPECT_EQ(view.PrimarySort + view.SecondarySort + view.ViewMode + view.SecondaryOrder, u"Movie.YearMovie.YearLoansDESC");
    EXPECT_TRUE(marks.IsChecked(u"mnuSortPrimDetail"_s, 4) && !marks.IsChecked(u"mnuSortPrimDetail"_s, 1));
    EXPECT_TRUE(marks.IsChecked(u"mnuViewMode"_s, 2));
    sorting.ToggleSecondaryDirection();
    EXPECT_EQ(view.SecondaryOrder, u"");
    EXPECT_EQ(Refreshes(), 5);
    sorting.TogglePrimaryExpanded();
    EXPECT_TRUE(marks.IsChecked(u"mnuSortPrimExpanded"_s, -1));
    EXPECT_EQ(Refreshes(), 5);
    EXPECT_THROW(sorting.ChoosePrimary(8), RuntimeError);
}

TEST_F(SortingTest, TheCustomEntryStaysMarkedAlsoWhereNothingWasChosen)
{
    sorting.ChoosePrimary(7);
    EXPECT_EQ(state.gOptions->View.PrimarySort, u"Movie.Title");
    EXPECT_TRUE(marks.IsChecked(u"mnuSortPrimDetail"_s, 7) && !marks.IsChecked(u"mnuSortPrimDetail"_s, 1));
    EXPECT_EQ(Refreshes(), 0);
    answer = u"Movie.Country"_s;
    sorting.ChoosePrimary(7);
    EXPECT_EQ(state.gOptions->View.PrimarySort, u"Movie.Country");
    sorting.ChoosePrimary(1);
    EXPECT_TRUE(marks.IsChecked(u"mnuSortPrimDetail"_s, 7));
}

const FilmElement& Element(const char* caption)
{
    for (const FilmElement& element : FilterElements())
        if (QByteArrayView(element.caption) == caption && element.kind != ElementKind::Group)
            return element;
    throw RuntimeError(kErrElementNotFound);
}

TEST(FilterDialog, SaysWhatIsMissingInItsOrder)
{
    const FilmElement& year = Element("Year");
    const FilmElement& title = Element("Title");
    EXPECT_EQ(FilterFault(nullptr, -1, {}), u"You must enter a filter criteria");
    EXPECT_EQ(FilterFault(nullptr, -1, u"x"_s), u"You must select an element to filter");
    EXPECT_EQ(FilterFault(&year, -1, u"x"_s), u"You must select an operand");
    EXPECT_EQ(FilterFault(&year, 0, u"x"_s), u"Yearmust be numeric.");
    EXPECT_EQ(FilterFault(&year, 0, u"1e3"_s), u"");
    EXPECT_EQ(FilterFault(&title, -1, u"x"_s), u"");
    for (const char* text : {"Runtime", "Index", "Audio Bitrate", "Video Bitrate"})
        EXPECT_EQ(Element(text).kind, ElementKind::Text) << text;
    for (const char* number : {"Year", "Discs/Tapes", "IMDb Rating", "IMDb Votes", "IMDb Number", "IMDb Link", "Audio Channels"})
        EXPECT_EQ(Element(number).kind, ElementKind::Number) << number;
}

TEST(FilterDialog, PutsTheValueInQuotesAndIncludesItInGreaterAndLess)
{
    const FilterRecord year = MakeFilter(Element("Year"), 1, u" 1979 "_s);
    EXPECT_EQ(year.WhereText + year.Caption, u"Movie.Year >=\"1979\"Year Greater Than  1979 ");
    const FilterRecord title = MakeFilter(Element("Title"), 2, u"\tit's \"so\" "_s);
    EXPECT_EQ(title.WhereText + title.Caption, u"Movie.Title =\"\tit's \"\"so\"\"\"Title contains \tit's \"so\" ");
}

class FiltersTest : public TreeFixture
{
protected:
    void Add(const char* value)
    {
        next = MakeFilter(Element("Title"), -1, QString::fromLatin1(value));
        filters.Add();
    }
    bool Visible(int entry) const { return marks.visible.value(u"MnuFilterRemoveSingle_%1"_s.arg(entry)); }
    bool CanAdd() const { return state.canAddFilter; }

    FilterRecord next{u"0"_s, {}};
    ScriptedDialogs dialogs;
    Filters filters{state, dialogs, marks, shell, [this] { return next; }};
};

TEST_F(FiltersTest, JoinByAndUpToFive)
{
    filters.Add(); // cancelled
    EXPECT_EQ(state.FilterCount, 0);
    for (const char* value : {"a", "b", "c", "d", "e", "f"})
        Add(value);
    EXPECT_EQ(state.FilterCount, 5);
    EXPECT_FALSE(CanAdd());
    EXPECT_EQ(state.FilterWhere,
              u"WHERE Movie.Title =\"a\" AND Movie.Title =\"b\" AND Movie.Title =\"c\" AND Movie.Title =\"d\" AND Movie.Title =\"e\"");
    dialogs.answers << kAnswerNo << kAnswerYes;
    filters.RemoveAll();
    EXPECT_EQ(state.FilterCount, 5);
    filters.RemoveAll();
    EXPECT_EQ(state.FilterWhere, u"");
    EXPECT_TRUE(CanAdd() && !Visible(0) && !Visible(4));
    EXPECT_EQ(dialogs.boxes.last().title, u"Remove Filters");
}

TEST_F(FiltersTest, EntriesAndRecordsDriftApartWhenOneInTheMiddleGoes)
{
    for (const char* value : {"a", "b", "c", "d", "e"})
        Add(value);
    dialogs.answers << kAnswerYes << kAnswerYes;
    filters.RemoveSingle(1);
    EXPECT_EQ(state.FilterCount, 4);
    EXPECT_TRUE(!Visible(1) && Visible(4));
    EXPECT_FALSE(CanAdd()); // the count was looked at before it went down
    EXPECT_EQ(marks.captions.value(u"MnuFilterRemoveSingle_2"_s), u"Title contains c");
    filters.RemoveSingle(2); // the entry of "c" takes record "d"
    EXPECT_EQ(state.FilterWhere, u"WHERE Movie.Title =\"a\" AND Movie.Title =\"c\" AND Movie.Title =\"e\"");
    EXPECT_TRUE(CanAdd());
    Add("g"); // writes over the entry at the count, which is a visible one or not
    EXPECT_EQ(marks.captions.value(u"MnuFilterRemoveSingle_3"_s), u"Title contains g");
    EXPECT_THROW(filters.RemoveSingle(5), RuntimeError);
}

class FilmCommandsTest : public TreeFixture
{
protected:
    FilmCommandsTest()
    {
        catalog.Run(
            "INSERT INTO Images (Image_ID, Movie_ID) VALUES (7, 1), (8, 1);"
            "INSERT INTO Movie (Movie_ID, Title, Format, Loan_ID, Image_ID, ImageBack_ID, MovieNight) VALUES "
            "(1, 'Alien', 'DVD', 3, 7, 8, 1), (2, 'Brazil', 'VHS', 0, 0, 0, 0), (3, 'Alphaville', 'Request', 0, 0, 0, 1);"
            "INSERT INTO Actor (Actor_ID, Actor) VALUES (21, 'Ann'); INSERT INTO ActorLink (Movie_ID, Actor_ID) VALUES (1, 21), (2, 21);"
            "INSERT INTO GenreLink (Movie_ID, Genre_ID) VALUES (1, 1), (1, 2); INSERT INTO CompanyLink (Movie_ID, Company_ID) VALUES (1, "
            "1);"
            "INSERT INTO Feature_Link (Movie_ID, Feature_ID) VALUES (1, 1); INSERT INTO Loans (Loan_ID, Movie_ID) VALUES (3, 1);");
        tree.FillTree();
        shell.calls.clear();
    }
    QModelIndex Film(FilmId id) const { return model.Find(tree.FilmNodeKeys(id).value(0)); }

    ScriptedDialogs dialogs;
    FilmCommands films{state, dialogs, shell, model};
};

TEST_F(FilmCommandsTest, DeleteAsksTakesTheNodeAndLeavesWhatIsShared)
{
    films.Delete(Film(1));
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Movie"), u"3");
    const ScriptedDialogs::Box question{u"Are you sure you want to delete Alien"_s, 4, u"Confirm Delete"_s};
    EXPECT_EQ(dialogs.boxes.last(), question);
    dialogs.answers << kAnswerYes;
    tree.ExpandFilmNode(Film(1));
    const int nodes = model.NodeCount();
    films.Delete(Film(1));
    EXPECT_EQ(model.NodeCount(), nodes - 2);
    EXPECT_EQ(model.NodeAt(model.GroupCount() + 1).data().toString(), u"Alphaville");
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Title) FROM (SELECT Title FROM Movie ORDER BY Movie_ID)"), u"Brazil,Alphaville");
    for (const char* gone :
         {"SELECT count(*) FROM GenreLink", "SELECT count(*) FROM CompanyLink", "SELECT count(*) FROM Images WHERE Image_ID = 7"})
        EXPECT_EQ(catalog.Ask(gone), u"0") << gone;
    for (const char* left : {"SELECT count(*) FROM Feature_Link", "SELECT count(*) FROM Loans", "SELECT count(*) FROM Images",
                             "SELECT count(*) FROM Actor", "SELECT count(*) FROM ActorLink"})
        EXPECT_EQ(catalog.Ask(left), u"1") << left;
    EXPECT_EQ(shell.calls.mid(shell.calls.size() - 2), (QStringList{u"ShowSelection"_s, u"UpdateStatus 1"_s}));
    EXPECT_THROW(films.Delete({}), RuntimeError);
}

TEST_F(FilmCommandsTest, AFilmThatCannotBeDeletedStays)
{
    catalog.Run("CREATE TRIGGER full BEFORE DELETE ON Movie BEGIN SELECT RAISE(FAIL, 'disk full'); END");
    dialogs.answers << kAnswerYes;
    const QStringList before = Shown();
    EXPECT_EQ(ErrorOf([&] { films.Delete(Film(1)); }), kErrDatabase);
    EXPECT_EQ(Shown(), before);
    EXPECT_TRUE(shell.calls.isEmpty()) << "the catalog may be out of reach";

    // Another program was faster.
    const QModelIndex film = Film(1);
    catalog.Run("DROP TRIGGER full; DELETE FROM Movie WHERE Movie_ID = 1");
    dialogs.answers << kAnswerYes;
    try {
        films.Delete(film);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Description(), RuntimeError(kErrNoCurrentRecord).Description());
    }
    EXPECT_EQ(shell.calls, QStringList(u"RefreshCatalogTree"_s));
}

TEST_F(FilmCommandsTest, MovesAndTheMovieNightListWriteOneColumn)
{
    films.MoveToRequests(Film(1));
    films.MoveToMovies(Film(3));
    films.AddToMovieNight(Film(2));
    EXPECT_EQ(catalog.Ask("SELECT group_concat(coalesce(Format, '-')) FROM (SELECT Format FROM Movie ORDER BY Movie_ID)"),
              u"Request,VHS,-");
    EXPECT_EQ(catalog.Ask("SELECT Loan_ID FROM Movie WHERE Movie_ID = 1"), u"3");
    EXPECT_EQ(catalog.Ask("SELECT sum(MovieNight) FROM Movie"), u"3");
    films.ClearMovieNight();
    EXPECT_EQ(catalog.Ask("SELECT sum(MovieNight) FROM Movie"), u"0");
    EXPECT_EQ(shell.calls.size(), 2);
    state.gOptions->View.ViewMode = u"MovieNight"_s;
    films.ClearMovieNight();
    EXPECT_EQ(shell.calls.size(), 3);
    EXPECT_THROW(films.AddToMovieNight({}), RuntimeError);
    // A group's key holds a number too; no film bears the blame.
    catalog.Run("INSERT INTO Movie (Movie_ID, Title, Format) VALUES (65, 'Zulu', 'DVD')");
    EXPECT_THROW(films.MoveToRequests(model.Find(GroupKey(u"65"))), RuntimeError);
    EXPECT_EQ(catalog.Ask("SELECT Format FROM Movie WHERE Movie_ID = 65"), u"DVD");
    // The tree of one catalog says nothing of the films of another.
    state.treeCatalog = u"/other.kvd"_s;
    films.MoveToMovies(Film(2));
    EXPECT_EQ(catalog.Ask("SELECT Format FROM Movie WHERE Movie_ID = 2"), u"VHS");
    EXPECT_EQ(shell.calls.last(), u"RefreshCatalogTree");
}

TEST_F(FilmCommandsTest, FindWalksGroupsFilmsAndFetchedCastsAndTellsTheEnd)
{
    tree.ExpandFilmNode(Film(2));
    Find find(model, dialogs);
    QStringList found;
    const auto next = [&](const char16_t* text) {
        find.Next(QString::fromUtf16(text), [&](const QModelIndex& node) { found << node.data().toString(); });
    };
    for (int i = 0; i < 3; ++i)
        next(u"AL");
    EXPECT_EQ(found, (QStringList{u"Alien"_s, u"Alphaville"_s}));
    EXPECT_EQ(dialogs.boxes.last().text, u"Finished Searching The Document");
    EXPECT_EQ(find.Position(), 1);
    dialogs.boxes.clear();
    next(u"ann"); // the last node: selected, and the end is told at once
    EXPECT_EQ(found.last(), u"Ann");
    EXPECT_EQ(dialogs.boxes.size(), 1);
    EXPECT_EQ(find.Position(), 1);
    // Below the last film a row waits for its cast, which is a node as well.
    tree.FillTree();
    next(u"brazil");
    EXPECT_EQ(found.last(), u"Brazil");
    EXPECT_EQ(dialogs.boxes.size(), 1);
    next(u"brazil");
    EXPECT_EQ(dialogs.boxes.size(), 2);
    model.RemoveFilm(Film(1));
    found.clear();
    next(u"al");
    next(u"br");
    EXPECT_EQ(found, (QStringList{u"Alphaville"_s, u"Brazil"_s}));
}

} // namespace
} // namespace kelvado
