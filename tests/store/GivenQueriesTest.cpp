#include "core/RuntimeError.h"
#include "store/Recordset.h"
#include "support/TempCatalog.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace kelvado {
namespace {

using namespace Qt::StringLiterals;

// Every statement that the program's rooms pass to the catalog, on a small collection.
class GivenQueries : public ::testing::Test
{
protected:
    GivenQueries()
    {
        m_catalog.Run("INSERT INTO Movie (Movie_ID, Title, Year, Rating, Votes, IMDB, Format, Number, \"Index\", Loan_ID, MovieNight, "
                      "Image_ID) VALUES"
                      " (5, 'alpha', 1999, '9.0', '1,234', '0047478', 'DVD', 2, 'A1', 0, 1, 1),"
                      " (12, 'Beta', 2001, '10', '99', '0100001', 'Request', 1, 'B2', 0, 0, 0),"
                      " (13, '7even', NULL, 'n/a', NULL, '', NULL, NULL, NULL, 3, 0, 0),"
                      " (14, 'Été', 'soon', '8.5', '', NULL, 'dvd', 1, 'a1', 0, 0, 0);"
                      "INSERT INTO Images (Image_ID, Image, Extention) VALUES (1, x'FFD8', 'JPG');"
                      "INSERT INTO GenreLink VALUES (5, 1), (5, 2), (12, 1);"
                      "INSERT INTO Actor (Actor_ID, Actor, Image_ID) VALUES (1, 'Zoe', 1), (2, 'Abe', 0);"
                      "INSERT INTO ActorLink (Movie_ID, Actor_ID, Character, \"Order\") VALUES (5, 1, 'Queen', 1), (5, 2, 'King', 2);"
                      "INSERT INTO Writer (Writer) VALUES ('W'); INSERT INTO WriterLink VALUES (5, 1, 'novel', 1);"
                      "INSERT INTO Director (Director) VALUES ('D'); INSERT INTO DirectorLink VALUES (5, 1, NULL, 1);"
                      "INSERT INTO Producer (Producer) VALUES ('P'); INSERT INTO ProducerLink VALUES (5, 1, NULL, 1);"
                      "INSERT INTO Company (Company) VALUES ('C'); INSERT INTO CompanyLink VALUES (5, 1, 'Production', NULL);"
                      "INSERT INTO Feature_Link VALUES (5, 1);"
                      "INSERT INTO Loans (Loan_ID, Movie_ID, LoanedTo) VALUES (3, 13, 'Ann'), (4, 5, 'ann');");
        m_connection = OpenCatalog(m_catalog.Path());
    }

    // The first column of all rows, joined by "|".
    QString Ask(const QString& sql)
    {
        Recordset rows;
        QStringList values;
        for (rows.Open(sql, m_connection); !rows.Eof(); rows.MoveNext())
            values.append(rows.Text(0));
        EXPECT_EQ(rows.RecordCount(), values.size()) << qPrintable(sql);
        return values.join(u'|');
    }

    TempCatalog m_catalog;
    Connection m_connection;
};

const QString kGenreFilms = u"FROM (Movie INNER JOIN GenreLink ON Movie.Movie_ID = GenreLink.Movie_ID) INNER JOIN Genre ON "
                            "GenreLink.Genre_ID = Genre.Genre_ID "_s;
const QString kCast = u"FROM Movie INNER JOIN (Actor INNER JOIN ActorLink ON Actor.Actor_ID = ActorLink.Actor_ID) ON Movie.Movie_ID = "
                      "ActorLink.Movie_ID "_s;

TEST_F(GivenQueries, GiveTheirRows)
{
    const struct
    {
        QString sql;
        QString expected;
    } cases[] = {
        {u"SELECT * FROM Movie WHERE Movie_ID  = 5"_s, u"5"_s},
        {u"SELECT Genre.Genre, Genre.Genre_ID FROM Genre INNER JOIN GenreLink ON Genre.Genre_ID = GenreLink.Genre_ID WHERE "
         "GenreLink.Movie_ID = 5"_s,
         u"Action|Adult"_s},
        {u"SELECT Genre_ID, Genre FROM Genre WHERE Genre = 'ACTION'"_s, u"1"_s},
        {u"SELECT Actor, Actor_ID FROM Actor WHERE Actor = 'zoe'"_s, u"Zoe"_s},
        // Billing order is the order of storing, not the alphabet's.
        {u"SELECT ActorLink.Movie_ID, ActorLink.Character, Actor.Actor, Actor.Actor_ID FROM Actor INNER JOIN ActorLink ON Actor.Actor_ID = "
         "ActorLink.Actor_ID WHERE ActorLink.Movie_ID  = 5"_s,
         u"5|5"_s},
        {u"SELECT Character, Order FROM Actorlink WHERE Movie_ID = 5"_s, u"Queen|King"_s},
        {u"SELECT Producer.*, ProducerLink.* FROM Producer INNER JOIN ProducerLink ON Producer.Producer_ID = ProducerLink.Producer_ID "
         "WHERE ProducerLink.Movie_ID  = 5"_s,
         u"1"_s},
        {u"SELECT Company.Company, CompanyLink.Type FROM Company INNER JOIN CompanyLink ON Company.Company_ID = CompanyLink.Company_ID "
         u"WHERE "
         "CompanyLink.Movie_ID = 5"_s,
         u"C"_s},
        {u"SELECT Features.Feature FROM Features INNER JOIN Feature_Link ON Features.Feature_ID = Feature_Link.Feature_ID WHERE "
         "Feature_Link.Movie_ID = 5"_s,
         u"Scene Access"_s},
        {u"SELECT Images.* FROM Images WHERE Image_ID  = 1"_s, u"1"_s},
        {u"SELECT ProducerLink.* FROM ProducerLink WHERE Movie_ID = 5"_s, u"5"_s},
        {u"SELECT * FROM Movie WHERE MovieNight = 1"_s, u"5"_s},
        // The status bar.
        {u"SELECT Title FROM Movie WHERE ((Movie.Format <> 'Request' AND Movie.Loan_ID = 0) OR Movie.Format Is Null) ORDER BY Title"_s,
         u"7even|alpha|Été"_s},
        {u"SELECT Title FROM Movie WHERE Format = 'Request'"_s, u"Beta"_s},
        {u"SELECT Title FROM Movie WHERE Movie.Loan_ID <> 0"_s, u"7even"_s},
        {u"SELECT Sum(Movie.Number) As SumDiscs FROM Movie"_s, u"4"_s},
        {u"SELECT Sum(Movie.Number) As SumDiscs FROM Movie WHERE Movie_ID = 0"_s, u""_s},
        // The tree: groups differ by more than case; the cast of a film in a genre, with no blank in front of AND.
        {u"SELECT Movie.Format, Count(Movie.Format) As lCount FROM Movie GROUP BY Movie.Format ORDER BY Movie.Format "_s,
         u"|DVD|Request"_s},
        {u"SELECT Genre.Genre, Count(Genre.Genre) AS lCount FROM Movie INNER JOIN (Genre INNER JOIN GenreLink ON Genre.Genre_ID = "
         "GenreLink.Genre_ID) ON Movie.Movie_ID = GenreLink.Movie_ID GROUP BY Genre.Genre ORDER BY Genre.Genre DESC"_s,
         u"Adult|Action"_s},
        {u"SELECT Movie.IsRequest, Loan_ID FROM Movie ORDER BY Movie.IsRequest "_s, u"0|0|0|0"_s},
        {u"SELECT Actor.*, Genre.Genre, Movie.Title, Movie.Movie_ID, Genre.Genre, Movie.Loan_ID, Movie.Format FROM ((Movie INNER JOIN "
         u"GenreLink "
         "ON Movie.Movie_ID = GenreLink.Movie_ID) INNER JOIN Genre ON GenreLink.Genre_ID = Genre.Genre_ID) INNER JOIN (Actor INNER JOIN "
         "ActorLink ON Actor.Actor_ID = ActorLink.Actor_ID) ON Movie.Movie_ID = ActorLink.Movie_ID WHERE Movie.Movie_ID = 5AND Genre.Genre "
         "= "
         "'Action'"_s,
         u"1|2"_s},
        {u"SELECT Movie.Title, Movie.Title,Movie.Movie_ID, Movie.Title, Actor.*, Movie.Loan_ID, Movie.Format "_s + kCast +
             u"WHERE Movie.Movie_ID = 5"_s,
         u"alpha|alpha"_s},
        {u"SELECT Genre.Genre , Movie.Format, Movie.Loan_ID, Movie.Movie_ID "_s + kGenreFilms + u"WHERE Movie.Movie_ID = 5"_s,
         u"Action|Adult"_s},
        {u"SELECT Movie.Movie_ID, Genre.Genre FROM (GenreLink INNER JOIN Genre ON GenreLink.Genre_ID = Genre.Genre_ID) INNER JOIN Movie ON "
         "GenreLink.Movie_ID = Movie.Movie_ID WHERE Movie.Movie_ID = 5"_s,
         u"5|5"_s},
        // Export by view.
        {u"SELECT DISTINCT Movie.Format, Movie.Title, Movie.Movie_ID, Movie.Title, Movie.Format, Movie.Loan_ID FROM Movie  ORDER BY Movie.Title "_s,
         u"|DVD|Request|dvd"_s},
        {u"SELECT Movie.* "_s + kGenreFilms + u" ORDER BY Movie.Title"_s, u"5|5|12"_s},
        {u"SELECT Title FROM Movie WHERE (Asc(Left(Ucase(Movie!Title),1)) < 65 OR Asc(Left(Ucase(Movie!Title),1)) > 90) AND NOT "
         "IsNumeric(Left(Ucase(Movie!Title),1))"_s,
         u"Été"_s},
        {u"SELECT Title FROM Movie WHERE Asc(Left(Ucase(Movie!Title),1)) >= 47 AND Asc(Left(Ucase(Movie!Title),1)) <= 57"_s, u"7even"_s},
        {u"SELECT Title FROM Movie WHERE Asc(Left(Ucase(Movie!Title),1)) = 65"_s, u"alpha"_s},
        {u"SELECT Title FROM Movie WHERE Movie.Format = 'DVD' AND MovieNight = 1 ORDER BY Title"_s, u"alpha"_s},
        {u"SELECT Movie.Image_ID, Images.* FROM Movie INNER JOIN Images ON Movie.Image_ID = Images.Image_ID WHERE Movie.Image_ID = 1"_s,
         u"1"_s},
        // People, loans, lists and codecs.
        {u"SELECT Actor.Actor_ID, Images.Image_ID, Images.Image, Images.Extention FROM Actor INNER JOIN Images ON Actor.Image_ID = "
         "Images.Image_ID WHERE Actor.Actor_ID = 1"_s,
         u"1"_s},
        {u"SELECT Actor.Actor "_s + kCast + u"WHERE Movie.Movie_ID = 5 AND Actor.Actor_ID <> 1"_s, u"Abe"_s},
        {u"SELECT Genre.Genre,Movie.Movie_ID, Actor.*, Movie.Title, Movie.Format, ActorLink.Character FROM Movie INNER JOIN (Actor INNER "
         u"JOIN "
         "ActorLink ON Actor.Actor_ID = ActorLink.Actor_ID) ON Movie.Movie_ID = ActorLink.Movie_ID WHERE Actor.Actor_ID = 1"_s,
         u"!no such column: Genre.Genre"_s},
        {u"SELECT Movie.Movie_ID, Actor.*, Movie.Title, Movie.Format, ActorLink.Character "_s + kCast +
             u"WHERE Actor.Actor_ID = 1 ORDER BY Movie.Title"_s,
         u"5"_s},
        {u"SELECT ActorLink.Actor_ID, ActorLink.Character, Movie.Title, Movie.IMDB FROM ActorLink INNER JOIN Movie ON ActorLink.Movie_ID = "
         "Movie.Movie_ID WHERE ActorLink.Actor_ID = 2"_s,
         u"2"_s},
        {u"SELECT Actor.* FROM Actor ORDER BY Actor"_s, u"2|1"_s},
        {u"SELECT Loans.*, Movie.Title FROM Loans INNER JOIN Movie ON Loans.Movie_ID = Movie.Movie_ID"_s, u"3|4"_s},
        {u"SELECT DISTINCT LoanedTo FROM Loans"_s, u"Ann"_s},
        {u"SELECT Top 1 * FROM Movie"_s, u"5"_s},
        {u"SELECT * FROM Features Order by Feature_ID"_s, u"1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16|17|18|19|20|21"_s},
        {u"SELECT DisplayName FROM VideoCodecs WHERE Codec_ID = 'DX50'"_s, u"DivX 5"_s},
        {u"SELECT DisplayName FROM AudioCodecs WHERE Codec_ID = -3668"_s, u"FLAC"_s},
        {u"SELECT Title FROM Movie WHERE Movie.IMDbLink =\"1\""_s, u"!no such column: Movie.IMDbLink"_s},
        {u"SELECT * FROM Films"_s, u"!no such table: Films"_s},
        {u"SELECT \"Titel\" FROM Movie WHERE [Titel] = 1"_s, u"!no such column: Titel"_s},
    };
    for (const auto& [sql, expected] : cases) {
        try {
            EXPECT_EQ(Ask(sql), expected) << qPrintable(sql);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), kErrDatabase);
            EXPECT_EQ(error.Description(), expected.mid(1) + u" ("_s + m_catalog.Path() + u')') << qPrintable(sql);
        }
    }
}

TEST_F(GivenQueries, FiltersCompareNumbers)
{
    const struct
    {
        const char16_t* where;
        QString expected;
    } cases[] = {
        {u"Movie.Rating >=\"8.5\"", u"alpha|Beta|Été"_s}, // as texts, "10" would stand in front of "8.5"
        {u"Movie.Rating =\"9\"", u"alpha"_s},
        {u"Movie.rating <> 9", u"Beta|Été"_s},
        {u"Movie.Votes >=\"1000\"", u"alpha"_s},
        {u"Movie.IMDb =\"47478\"", u"alpha"_s},
        {u"Movie.Year <=\"2,000\"", u"alpha"_s},
        {u"Movie.Year >=\"1\"", u"alpha|Beta"_s}, // a year that is no number matches nothing
        {u"Movie.Year >=\"abc\"", u""_s},
        {u"Movie.Number =\"1\" AND Movie.Year =\"2001\"", u"Beta"_s},
        {u"Movie.Title =\"ALPHA\"", u"alpha"_s},
        {u"Movie.Index =\"A1\"", u"alpha|Été"_s},
    };
    for (const auto& [where, expected] : cases)
        EXPECT_EQ(Ask(u"SELECT Movie.Title FROM Movie WHERE "_s + QString::fromUtf16(where) + u" ORDER BY Movie.Title"_s), expected)
            << qPrintable(QString::fromUtf16(where));
    // A double quote in a filter's value ends the text early.
    EXPECT_THROW(Ask(u"SELECT Movie.Title FROM Movie WHERE Movie.Title =\"a\"b\""_s), RuntimeError);
}

TEST_F(GivenQueries, BothLevelsOfTheTreeRunForEverySortViewAndFilter)
{
    const QStringList columns =
        u"Title Year Format Runtime Number Index Rated Color Country Language SubLanguage Rating Votes IMDb ISONEWS UserURL1 UserURL2 "
        "TrailerURL AudType VidType AudBitrate VidBitrate AudChannels Resolution Filename Filesize Group Custom1 Custom2 Custom3 IsRequest"_s
            .split(u' ');
    const QStringList views{u""_s, u"MovieNight = 1"_s, u"Format = 'Request'"_s, u"Loan_ID <> 0"_s};
    for (const QString& column : columns) {
        const QString key = u"Movie."_s + column;
        Ask(u"SELECT "_s + key + u", Count("_s + key + u") As lCount FROM Movie GROUP BY "_s + key + u" ORDER BY "_s + key + u" DESC"_s);
        for (const QString& view : views) {
            const QString condition = u"WHERE "_s + (view.isEmpty() ? view : view + u" AND "_s) + key + u" <=\"5\""_s;
            for (const QString& where : {condition, view.isEmpty() ? view : u"WHERE "_s + view}) {
                Ask(u"SELECT "_s + key + u", "_s + key + u", Movie.Movie_ID, Movie.Title, Movie.Format, Movie.Loan_ID FROM Movie "_s +
                    where + u" ORDER BY "_s + key + u" DESC"_s);
                Ask(u"SELECT Genre.Genre, "_s + key + u", Movie.Movie_ID, Movie.Title, Movie.Format, Movie.Loan_ID "_s + kGenreFilms +
                    where + u" ORDER BY "_s + key + u' ');
            }
        }
    }
}

} // namespace
} // namespace kelvado
