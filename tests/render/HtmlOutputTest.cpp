#include "render/HtmlOutput.h"

#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

/// A catalog with one film, number 1, and a program folder with the skin "Plain".
class Tokens : public ::testing::Test
{
protected:
    Tokens()
    {
        catalog.Run("INSERT INTO Movie(Movie_ID, Title) VALUES (1, 'One')");
        connection = OpenCatalog(catalog.Path());
    }
    /// Sets one column of the film; `value` is an SQL expression.
    void Set(const char* column, const char* value)
    {
        catalog.Run((QByteArray("UPDATE Movie SET \"") + column + "\" = " + value + " WHERE Movie_ID = 1").constData());
    }

    /// `text` with the film's single tokens filled and the program folder's path cut to "HOME".
    std::string Film(const char* text, bool exported = false)
    {
        QString page = QString::fromUtf8(text);
        Recordset film;
        film.Open(u"SELECT * FROM Movie WHERE Movie_ID = 1"_s, connection);
        FillFilmTokens(page, film, {u"Plain"_s, u"http://site"_s, exported});
        return page.replace(home.Path({}), u"HOME"_s).toStdString();
    }

    std::string Fill(void (*fill)(QString&, Connection&, FilmId), const char* text)
    {
        QString page = QString::fromUtf8(text);
        fill(page, connection, 1);
        return page.toStdString();
    }

    TempHome home;
    TempCatalog catalog;
    Connection connection;
};

TEST_F(Tokens, NullBecomesNoneAndAnEmptyTextIsAValue)
{
    EXPECT_EQ(Film("!!TITLE!!|!!YEAR!!|!!PLOT!!|!!IMDB!!|!!IMDBNUM!!|!!title!!|!!TITLE!!|!!UNKNOWN!!"),
              "One|N/A|N/A|http://site||!!title!!|One|!!UNKNOWN!!");
    Set("Plot", "''");
    Set("Title", "'Cops & <Robbers>'");
    Set("IMDB", "'0047478'");
    Set("LastViewing", "'1899-12-30'");
    EXPECT_EQ(Film("!!TITLE!!|!!PLOT!!|!!IMDB!!|!!IMDBNUM!!|!!LASTVIEWING!!"), "Cops & <Robbers>||http://site/Title?0047478|0047478|");
}

TEST_F(Tokens, AValueIsScannedForLaterTokensOnly)
{
    Set("Year", "1954");
    Set("Index", "'C-07'");
    Set("Language", "'!!TRAILERURL!! !!QUALITY!!'");
    Set("Plot", "'!!INDEX!! !!YEAR!!'");
    Set("Rating", "'N/A'");
    Set("TrailerURL", "'!!RATING!!'");
    EXPECT_EQ(Film("!!PLOT!!|!!LANGUAGE!!"), "C-07 !!YEAR!!|N/A !!QUALITY!!");
    Set("Plot", "'!!IN'");
    Set("Comments", "''");
    EXPECT_EQ(Film("!!PLOT!!DEX!!|!!!COMMENTS!!!CUSTOM1!!"), "C-07|N/A");
}

TEST_F(Tokens, YesAndNo)
{
    const std::pair<const char*, const char*> cases[] = {{"0", "No"},          {"'0'", "No"}, {"' 0.0 '", "No"}, {"1", "Yes"},
                                                         {"'English'", "Yes"}, {"''", "Yes"}, {"NULL", "Yes"}};
    for (const auto& [value, word] : cases) {
        Set("SubTitles", value);
        EXPECT_EQ(Film("!!SUBTITLES!!"), word) << value;
    }
}

TEST_F(Tokens, CertificatesMatchToTheLetter)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"NULL", "N/A HOME/Skins/Plain/ratings/NA.Gif", "N/A Images\\NA.Gif"},
        {"'PG-13'", "PG-13 HOME/Skins/Plain/ratings/PG-13.Gif", "PG-13 Images\\PG-13.Gif"},
        {"'NC17'", "NC17 HOME/Skins/Plain/ratings/NC-17.Gif", "NC17 Images\\NC-17.Gif"},
        {"'NC-17'", "NC-17 HOME/Skins/Plain/ratings/NA.Gif", "NC-17 !!RATEDIMG!!"},
        {"''", " HOME/Skins/Plain/ratings/NA.Gif", " !!RATEDIMG!!"},
    };
    for (const auto& [rated, page, exported] : cases) {
        Set("Rated", rated);
        EXPECT_EQ(Film("!!RATEDTXT!! !!RATEDIMG!!"), page);
        EXPECT_EQ(Film("!!RATEDTXT!! !!RATEDIMG!!", true), exported);
    }
}

TEST_F(Tokens, RatingBars)
{
    const auto count = [](const std::string& text, const char* part) {
        return QString::fromStdString(text).count(QLatin1StringView(part));
    };
    const std::tuple<const char*, int, int, int> cases[] = {{"'7.4'", 7, 0, 3}, {"'7.5'", 7, 0, 2}, {"'7.6'", 7, 1, 2},
                                                            {"'10'", 1, 0, 9},  {"'9.9'", 9, 1, 0}, {"'0.0'", 0, 0, 10}};
    for (const auto& [rating, yes, half, no] : cases) {
        Set("Rating", rating);
        const std::string bar = Film("!!RATINGBAR!!", true);
        EXPECT_EQ(count(bar, "barYes.gif\"/>"), yes) << rating;
        EXPECT_EQ(count(bar, "barHalf.gif\"/>"), half) << rating;
        EXPECT_EQ(count(bar, "barNo.gif\"/>"), no) << rating;
    }
    Set("Rating", "'9.0'");
    EXPECT_TRUE(Film("!!RATINGBAR!!").starts_with("<NOBR><IMG SRC=\"HOME/Skins/Plain/RatingBar/barLeft.gif\"/><IMG SRC="));
    EXPECT_TRUE(Film("!!RATINGBAR!!!!RATING!!").ends_with("RatingBar/barRight.gif\"/></NOBR>9.0"));
    Set("Rating", "NULL"); // the one tag that does not close itself
    EXPECT_EQ(Film("!!RATINGBAR!! !!RATING!!", true), "<IMG SRC=\"Images\\RatingBar\\barna.gif\"> N/A");
    for (const char* text : {"N/A", "", "(7)"}) {
        Set("Rating", ("'" + QByteArray(text) + "'").constData());
        EXPECT_EQ(Film("!!RATINGBAR!! !!RATING!!", true), std::string("<IMG SRC=\"Images\\RatingBar\\barna.gif\"/> ") + text);
    }
    Set("Rating", "'7.x'");
    EXPECT_THROW(Film(""), RuntimeError);
}

TEST(PathForPage, KeepsMarksOfAddressesOut)
{
    EXPECT_EQ(PathForPage(u"C:\\100% #1\\a?&lt;.gif"_s), u"C:/100%25 %231/a%3F%26lt;.gif"_s);
}

TEST_F(Tokens, GenresKeepTheBlankInFront)
{
    EXPECT_EQ(Fill(FillGenreToken, "!!GENRE!!"), "N/A");
    catalog.Run("DELETE FROM Genre; INSERT INTO Genre(Genre_ID, Genre) VALUES (1, 'Zombie'), (2, 'Action');"
                "INSERT INTO GenreLink(Movie_ID, Genre_ID) VALUES (1, 1)");
    EXPECT_EQ(Fill(FillGenreToken, "!!GENRE!!"), " Zombie");
    catalog.Run("INSERT INTO GenreLink(Movie_ID, Genre_ID) VALUES (1, 2)");
    EXPECT_EQ(Fill(FillGenreToken, "!!GENRE!!"), " Zombie, Action");
}

TEST_F(Tokens, NumberedTokensEndInNone)
{
    const char* page = "!!ACTOR0!! !!ACTOR1!! !!CHARACTER1!! !!ACTOR2!! !!ACTOR10!! !!ACTOR50!! !!ACTOR51!!";
    EXPECT_EQ(Fill(FillActorTokens, page), "N/A N/A N/A N/A N/A N/A !!ACTOR51!!");
    catalog.Run("INSERT INTO Actor(Actor_ID, Actor) VALUES (9, 'Nine'), (4, '!!CHARACTER1!!')");
    catalog.Run("INSERT INTO ActorLink(Movie_ID, Actor_ID, Character, \"Order\") VALUES (1, 9, NULL, 2), (1, 4, 'Four', 1)");
    // In the order of the links; a role that is Null is empty, and a name may not reach back.
    EXPECT_EQ(Fill(FillActorTokens, "!!ACTOR1!!|!!CHARACTER1!!|!!ACTOR2!!|!!CHARACTER2!!|!!ACTOR3!!|!!ACTOR0!!"),
              "Nine||!!CHARACTER1!!|Four|N/A|!!ACTOR0!!");
    catalog.Run("WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 60) INSERT INTO ActorLink(Movie_ID, Actor_ID) "
                "SELECT 1, 9 FROM n");
    EXPECT_EQ(Fill(FillActorTokens, "!!ACTOR51!! !!ACTOR60!! !!ACTOR61!!"), "Nine Nine !!ACTOR61!!"); // fifty bounds the filling alone

    const struct
    {
        void (*fill)(QString&, Connection&, FilmId);
        const char* role;
    } crews[] = {{FillProducerTokens, "Producer"}, {FillDirectorTokens, "Director"}, {FillWriterTokens, "Writer"}};
    for (const auto& crew : crews) {
        const QByteArray role = crew.role;
        const QByteArray stem = "!!" + role.toUpper();
        const QByteArray text = stem + "0!!|" + stem + "1!!|" + stem + "2!!|" + stem + "50!!|" + stem + "51!!";
        EXPECT_EQ(Fill(crew.fill, text.constData()), "N/A|N/A|N/A|N/A|" + stem.toStdString() + "51!!");
        catalog.Run(("INSERT INTO " + role + "(" + role + "_ID, " + role + ") VALUES (7, NULL), (3, 'Three')").constData());
        catalog.Run(("INSERT INTO " + role + "Link(Movie_ID, " + role + "_ID) VALUES (1, 7), (1, 3)").constData());
        EXPECT_EQ(Fill(crew.fill, text.constData()), stem.toStdString() + "0!!|N/A|Three|N/A|" + stem.toStdString() + "51!!");
    }
}

TEST(PageTokens, NeighboursOfAPage)
{
    const auto fill = [](qint64 page, qint64 pages) {
        QString text = u"!!NAVPREV!! !!NAVNEXT!! !!CURRENTPAGE!!/!!TOTALPAGES!! !!PAGESIZE!! !!TOTALFILMS!!"_s;
        FillPageTokens(text, page, pages, 20, 55);
        return text.toStdString();
    };
    EXPECT_EQ(fill(1, 3), "# index2.html 1/3 20 55");
    EXPECT_EQ(fill(2, 3), "index1.html index3.html 2/3 20 55");
    EXPECT_EQ(fill(3, 3), "index2.html # 3/3 20 55");
}

TEST_F(Tokens, BarPicturesAreExportedUnderTheirOwnNames)
{
    for (const QString& name : {u"barna.gif"_s, u"barYes.gif"_s})
        home.Write(u"Skins/Plain/RatingBar/"_s + name, {});
    QStringList targets;
    CopyRatingBarImages(u"Plain"_s, [&](const QString&, const QString& target) { targets << target; });
    EXPECT_EQ(targets, (QStringList{u"Images/BarNA.Gif"_s, u"Images/baryes.Gif"_s}));
}

} // namespace
} // namespace kelvado
