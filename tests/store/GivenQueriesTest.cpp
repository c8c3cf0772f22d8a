#include "core/RuntimeError.h"
#include "store/Recordset.h"
#include "support/TempCatalog.h"

namespace kelvado {
namespace {

// Statements of the catalog's dialect that other tools' engines take, on a small collection. Those that have a home in the program are
// tested there.
class GivenQueries : public ::testing::Test
{
protected:
    GivenQueries()
    {
        m_catalog.Run(
            "INSERT INTO Movie (Movie_ID, Title, Year, Rating, Votes, IMDB, Format, AudChannels, Number, \"Index\", Runtime) VALUES"
            " (5, 'alpha', 1999, '9.0', '1,234', '0047478', 'DVD', '2', 2, 'A1', '90'),"
            " (12, 'Beta', 2001, '10', '99', '0100001', 'Request', '6', 1, 'B2', '100'),"
            " (13, '7even', NULL, 'n/a', NULL, '', NULL, '', NULL, NULL, NULL),"
            " (14, 'Été', 'soon', '8.5', '', NULL, 'dvd', NULL, 1, 'a1', NULL);"
            "INSERT INTO Images (Image_ID, Image, Extention) VALUES (1, x'FFD8', 'JPG');"
            "INSERT INTO ActorLink (Movie_ID, Actor_ID, Character, \"Order\") VALUES (5, 1, 'Queen', 1), (5, 2, 'King', 2);"
            "INSERT INTO Loans (Loan_ID, Movie_ID, LoanedTo) VALUES (3, 13, 'Ann'), (4, 5, 'ann');");
        m_connection = OpenCatalog(m_catalog.Path());
    }

    // The first column of all rows, joined by "|"; a failure is "!" and its text.
    QString Ask(const QString& sql)
    {
        Recordset rows;
        QStringList values;
        const std::string failure = ErrorTextOf([&] {
            for (rows.Open(sql, m_connection); !rows.Eof(); rows.MoveNext())
                values.append(rows.Text(0));
        });
        return failure.empty() ? values.join(u'|') : u'!' + QString::fromStdString(failure).chopped(m_catalog.Path().size() + 3);
    }

    TempCatalog m_catalog;
    Connection m_connection;
};

TEST_F(GivenQueries, GiveTheirRows)
{
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"SELECT Character, Order FROM Actorlink WHERE Movie_ID = 5", u"Queen|King"}, // in the order of storing
        {u"SELECT DISTINCT Movie.Format, Movie.Title FROM Movie  ORDER BY Movie.Title ", u"|DVD|Request|dvd"},
        {u"SELECT Title FROM Movie WHERE (Asc(Left(Ucase(Movie!Title),1)) < 65 OR Asc(Left(Ucase(Movie!Title),1)) > 90) AND NOT "
         u"IsNumeric(Left(Ucase(Movie!Title),1))",
         u"Été"},
        {u"SELECT Title FROM Movie WHERE Asc(Left(Ucase(Movie!Title),1)) >= 47 AND Asc(Left(Ucase(Movie!Title),1)) <= 57", u"7even"},
        {u"SELECT Title FROM Movie WHERE Asc(Left(Ucase(Movie!Title),1)) = 65", u"alpha"},
        {u"SELECT DISTINCT LoanedTo FROM Loans", u"Ann"},
        {u"SELECT Top 1 * FROM Movie", u"5"},
        {u"SELECT Right(Feature, 5) FROM Features WHERE Feature_ID < 3 Order by Feature_ID", u"ccess|Menus"},
        {u"SELECT DisplayName FROM AudioCodecs WHERE Codec_ID = -3668", u"FLAC"},
        {u"SELECT Title FROM Movie WHERE Movie.IMDbLink =\"1\"", u"!no such column: Movie.IMDbLink"},
        {u"SELECT * FROM Films", u"!no such table: Films"},
        {u"SELECT \"Titel\" FROM Movie WHERE [Titel] = 1", u"!no such column: Titel"},
    };
    for (const auto& [sql, expected] : cases)
        EXPECT_EQ(Ask(QString::fromUtf16(sql)), QString::fromUtf16(expected)) << qPrintable(QString::fromUtf16(sql));
}

TEST_F(GivenQueries, ConditionsCompareNumbersAndAreBlindToTheCaseOfEveryLetter)
{
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"Movie.Rating >=\"8.5\"", u"alpha|Beta|Été"}, // as texts, "10" would stand in front of "8.5"
        {u"Movie.Rating =\"9\"", u"alpha"},
        {u"Movie.rating <> 9", u"Beta|Été"},
        {u"Movie.Rating >= \"1e0\"", u"alpha|Beta|Été"},
        {u"Movie.Votes >=\"1000\"", u"alpha"},
        {u"Movie.IMDb =\"47478\"", u"alpha"},
        {u"Movie.AudChannels >= \"3\"", u"Beta"},
        {u"Movie.Year <=\"2,000\"", u"alpha"},
        {u"Movie.Year >=\"1\"", u"alpha|Beta"}, // a year that is no number matches nothing
        {u"Movie.Year >=\"abc\"", u""},
        {u"Movie.Number =\"1\" AND Movie.Year =\"2001\"", u"Beta"},
        {u"Movie.Runtime = \"90\"", u"alpha"},
        {u"Movie.Title =\"ALPHA\"", u"alpha"},
        {u"Movie.Title =\"éTÉ\"", u"Été"},
        {u"Movie.Title <>\"été\" AND Movie.Number = 1", u"Beta"},
        {u"Movie.Title = \"N%\"", u""},
        {u"Movie.Index =\"A1\"", u"alpha|Été"},
    };
    for (const auto& [where, expected] : cases)
        EXPECT_EQ(Ask(u"SELECT Movie.Title FROM Movie WHERE "_s + QString::fromUtf16(where) + u" ORDER BY Movie.Title"_s),
                  QString::fromUtf16(expected))
            << qPrintable(QString::fromUtf16(where));
}

} // namespace
} // namespace kelvado
