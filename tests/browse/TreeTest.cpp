#include "TreeFixture.h"

#include <QRegularExpression>

namespace kelvado {
namespace {

class TreeTest : public TreeFixture
{
protected:
    TreeTest()
    {
        catalog.Run("INSERT INTO Movie (Movie_ID, Title, Year, Format, Loan_ID) VALUES "
                    "(1, 'alien', 1979, 'DVD', 0), (2, '8 1/2', 1963, 'VHS', 4), (3, '\"Quoted\"', NULL, NULL, 0), "
                    "(4, 'Zorro', 1979, 'Request', 7), (5, NULL, 1979, 'Betamax', 0), (6, 'A&#246;x', 1963, '', 0);"
                    "INSERT INTO Genre (Genre_ID, Genre) VALUES (901, 'Tragedy'), (902, 'Farce');"
                    "INSERT INTO GenreLink (Movie_ID, Genre_ID) VALUES (1, 901), (1, 902), (2, 902);"
                    "INSERT INTO Actor (Actor_ID, Actor, IsRetreived) VALUES (21, 'Bj&#246;rn', 0), (22, 'Ann', 1), (23, 'Cy', 0);"
                    "INSERT INTO ActorLink (Movie_ID, Actor_ID, \"Order\") VALUES (1, 23, 1), (1, 21, 2), (1, 22, 3), (2, 22, 1);");
    }
};

TEST_F(TreeTest, SortedByTitleGroupsByTheFirstCharacter)
{
    Sort("Movie.Title");
    tree.FillTree();
    EXPECT_EQ(Shown(), (QStringList{u"\"1\" * #0"_s, u"  \"5|1\"  #0"_s, u"  \"3|1\" \"Quoted\" #5"_s, u"\"10\" 0-9 #0"_s,
                                    u"  \"2|10\" 8 1/2 #4"_s, u"\"65\" A #0"_s, u"  \"6|65\" Aöx #0"_s, u"  \"1|65\" alien #3"_s,
                                    u"\"90\" Z #0"_s, u"  \"4|90\" Zorro #13"_s}));
    EXPECT_EQ(shell.calls.last(), u"UpdateStatus 1");
    EXPECT_EQ(shell.lastProgress, 0);
}

TEST_F(TreeTest, SortedByPlaceHasItsThreeGroupsAndALoansKeyThatEndsLikeARequests)
{
    Sort("Movie.IsRequest");
    tree.FillTree();
    EXPECT_EQ(Shown(), (QStringList{u"\"False\" My Movies #11"_s, u"  \"5|False\"  #0"_s, u"  \"3|False\" \"Quoted\" #5"_s,
                                    u"  \"6|False\" Aöx #0"_s, u"  \"1|False\" alien #3"_s, u"\"True\" My Requests #11"_s,
                                    u"  \"4|True\" Zorro #13"_s, u"\"Loan\" Loaned Movies #11"_s, u"  \"2|True\" 8 1/2 #4"_s}));
}

TEST_F(TreeTest, OtherSortsGroupByValueAndPutEverythingWithoutOneIntoOneGroup)
{
    Sort("Movie.Year", "Movie.Format");
    tree.FillTree();
    EXPECT_EQ(Shown(), (QStringList{u"\"\" N/A #0"_s, u"  \"3|\" \"Quoted\" #5"_s, u"\"1963\" 1963 #0"_s, u"  \"6|1963\" Aöx #0"_s,
                                    u"  \"2|1963\" 8 1/2 #4"_s, u"\"1979\" 1979 #0"_s, u"  \"5|1979\"  #0"_s, u"  \"1|1979\" alien #3"_s,
                                    u"  \"4|1979\" Zorro #13"_s}));
    catalog.Run("UPDATE Movie SET Custom1 = 'n/a' WHERE Movie_ID = 1; UPDATE Movie SET Custom1 = '' WHERE Movie_ID = 2;"
                "UPDATE Movie SET Custom1 = 'Red' WHERE Movie_ID = 4; UPDATE Movie SET Custom1 = 'RED' WHERE Movie_ID = 5;"
                "UPDATE Movie SET Custom1 = 'ÄRA' WHERE Movie_ID = 3; UPDATE Movie SET Custom1 = 'ära' WHERE Movie_ID = 6;");
    Sort("Movie.Custom1");
    tree.FillTree();
    EXPECT_EQ(model.GroupCount(), 3);
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 2);
}

TEST_F(TreeTest, SortedByFormatGroupsCarryTheirPicture)
{
    Sort("Movie.Format");
    tree.FillTree();
    const QString groups = Shown().filter(QRegularExpression(u"^\""_s)).join(u' ');
    EXPECT_EQ(groups, u"\"\" N/A #0 \"Betamax\" Betamax #0 \"DVD\" DVD #3 \"Request\" Request #13 \"VHS\" VHS #4"_s);
}

TEST_F(TreeTest, SortedByGenreAFilmStandsOnceUnderEach)
{
    Sort("Genre.Genre");
    tree.FillTree();
    const QStringList shown = {u"\"Farce\" Farce #0"_s, u"  \"2|Farce\" 8 1/2 #4"_s, u"  \"1|Farce\" alien #3"_s,
                               u"\"Tragedy\" Tragedy #0"_s, u"  \"1|Tragedy\" alien #3"_s};
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(tree.FilmNodeKeys(1), (QStringList{FilmKey(1, u"Tragedy"), FilmKey(1, u"Farce")}));
    catalog.Run("INSERT INTO GenreLink (Movie_ID, Genre_ID) VALUES (2, 902)");
    tree.FillTree();
    EXPECT_EQ(Shown(), shown);
}

TEST_F(TreeTest, FilmNodeKeysHaveTheTreesOwnForm)
{
    const std::tuple<const char*, FilmId, const char16_t*> cases[] = {{"Movie.Title", 1, u"65"},        {"Movie.Title", 5, u"1"},
                                                                      {"Movie.IsRequest", 4, u"True"},  {"Movie.IsRequest", 2, u"True"},
                                                                      {"Movie.IsRequest", 1, u"False"}, {"Movie.Year", 3, u""}};
    for (const auto& [sort, film, value] : cases) {
        Sort(sort);
        tree.FillTree();
        const QStringList keys = tree.FilmNodeKeys(film);
        ASSERT_EQ(keys.size(), 1);
        EXPECT_EQ(keys[0], FilmKey(film, value)) << sort;
        EXPECT_TRUE(model.Find(keys[0]).isValid()) << sort;
    }
    EXPECT_TRUE(tree.FilmNodeKeys(99).isEmpty());
}

TEST_F(TreeTest, ExpandingFetchesTheCastInBillingOrderAndAnewEachTime)
{
    for (const char* sort : {"Movie.Title", "Genre.Genre"}) {
        Sort(sort);
        tree.FillTree();
        const QModelIndex film = model.Find(tree.FilmNodeKeys(1).constFirst());
        ASSERT_EQ(model.rowCount(film), 1);
        EXPECT_EQ(model.index(0, 0, film).data().toString(), u"");
        EXPECT_EQ(model.Tag(model.index(0, 0, film)), kTagGroup);
        tree.ExpandFilmNode(film);
        tree.ExpandFilmNode(film);
        ASSERT_EQ(model.rowCount(film), 3);
        EXPECT_EQ(model.index(0, 0, film).data().toString(), u"Cy");
        EXPECT_EQ(model.index(1, 0, film).data().toString(), u"Björn");
        EXPECT_EQ(model.index(2, 0, film).data(CatalogModel::ImageRole).toInt(), 7);
        EXPECT_EQ(model.Tag(model.index(2, 0, film)), kTagActor);
    }
    const QModelIndex actor = model.Find(u"\"1\n21\nTragedy\""_s);
    EXPECT_EQ(actor.data().toString(), u"Björn");
    EXPECT_EQ(KeyPart(model.Key(actor), 1), u"21");

    state.gOptions->Display.MaxActors = 2;
    const QModelIndex film = actor.parent();
    tree.ExpandFilmNode(film);
    EXPECT_EQ(model.rowCount(film), 2);
    const QModelIndex group = model.index(0, 0);
    tree.ExpandFilmNode(group);
    EXPECT_GT(model.rowCount(group), 0);
}

TEST_F(TreeTest, ASecondRoleGivesOneNodeAndALoanUnderThePlacesRaisesOnceTheCastStands)
{
    Sort("Movie.IsRequest");
    catalog.Run("INSERT INTO ActorLink (Movie_ID, Actor_ID) VALUES (1, 21)");
    tree.FillTree();
    const auto errorOf = [&](FilmId film) {
        return ErrorOf([&] { tree.ExpandFilmNode(model.Find(tree.FilmNodeKeys(film).constFirst())); });
    };
    EXPECT_EQ(errorOf(1), 0);
    EXPECT_EQ(model.rowCount(model.Find(FilmKey(1, u"False"))), 3);
    EXPECT_EQ(errorOf(2), kErrElementNotFound);
    EXPECT_EQ(model.rowCount(model.Find(FilmKey(2, u"True"))), 1);
    EXPECT_EQ(errorOf(3), 0);
    EXPECT_EQ(model.rowCount(model.Find(FilmKey(3, u"False"))), 0);
    EXPECT_FALSE(tree.Expanding());
}

TEST_F(TreeTest, AGenresQuotesStopNeitherItsCastsNorAFilter)
{
    catalog.Run("UPDATE Genre SET Genre = 'The \"Children''s\" Hour' WHERE Genre_ID = 902");
    Sort("Genre.Genre");
    tree.FillTree();
    const QModelIndex film = model.Find(FilmKey(1, u"the \"children's\" hour"));
    ASSERT_TRUE(film.isValid());
    tree.ExpandFilmNode(film);
    EXPECT_EQ(model.rowCount(film), 3);

    // A filter on the genre holds under every sort, and several are each met by any genre of the film.
    const QString hour = u"Genre.Genre =\"The \"\"Children's\"\" Hour\""_s;
    const QString tragedy = u"Genre.Genre =\"TRAGEDY\""_s;
    const QString title = u"Movie.Title =\"Genre.Genre =\"\"x\"\"\""_s;
    const struct
    {
        const char* sort;
        QString where;
        QString films; // the numbers
    } cases[] = {
        {"Movie.Title", hour, u"21"_s},
        {"Movie.Year", tragedy + u" AND "_s + hour, u"1"_s},
        {"Movie.IMDbLink", hour, u"21"_s}, // the number stands for its link
        {"Genre.Genre", hour, u"21"_s},
        {"Genre.Genre", tragedy + u" AND "_s + hour, u"11"_s},
        {"Movie.Title", hour + u" AND "_s + title, u""_s},
    };
    for (const char16_t* mode : {u"Movies", u"Loans"}) {
        state.gOptions->View.ViewMode = QString::fromUtf16(mode);
        for (const auto& c : cases) {
            Sort(c.sort);
            state.FilterWhere = u"WHERE "_s + c.where;
            tree.FillTree();
            QString films;
            for (int place = model.GroupCount() + 1; place <= model.NodeCount(); ++place)
                films += KeyPart(model.Key(model.NodeAt(place)), 0);
            const QString expected = mode[0] == u'M' ? c.films : QString(c.films).remove(u'1');
            EXPECT_EQ(films, expected) << c.sort << ' ' << qPrintable(c.where);
        }
    }
}

TEST_F(TreeTest, AFailureHalfWayLeavesWhatWasReadAndAFileThatIsNoCatalogFails)
{
    Sort("Movie.Title", "Movie.Nothing");
    EXPECT_NE(ErrorOf([&] { tree.FillTree(); }), 0);
    EXPECT_EQ(model.GroupCount(), 4);
    home.Write(u"text.kvd"_s, "this is no catalog, whatever its name says");
    state.comDiagFile.fileName = home.Path(u"text.kvd"_s);
    const QString shown = state.treeCatalog;
    EXPECT_NE(ErrorTextOf([&] { tree.FillTree(); }).find("text.kvd"), std::string::npos);
    EXPECT_EQ(model.GroupCount(), 4) << "the tree of the catalog before stands";
    EXPECT_EQ(state.treeCatalog, shown);
}

} // namespace
} // namespace kelvado
