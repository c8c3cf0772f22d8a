#include "store/JetSql.h"

#include "core/Literals.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

const NumberColumns kNumberColumns{{u"rating"_s, u"year"_s}, {u"year"_s, u"loan_id"_s}, {u"loan_id"_s}};

QString Translated(const QString& sql)
{
    return TranslateJetSql(sql, kNumberColumns).sql;
}

TEST(JetSql, WritesTheDialectInTheGrammarOfTheEngine)
{
    const std::pair<QString, QString> cases[] = {
        {u"SELECT Movie.Index, Group, Order FROM Movie"_s, u"SELECT Movie.[Index], [Group], [Order] FROM Movie"_s},
        {u"SELECT x FROM Movie GROUP BY Movie.Group ORDER BY Movie.Index  DESC"_s,
         u"SELECT x FROM Movie GROUP BY Movie.[Group] ORDER BY Movie.[Index] DESC"_s},
        {u"SELECT * FROM Movie ORDER BY Order, group"_s, u"SELECT * FROM Movie ORDER BY [Order], [group]"_s},
        {u"SELECT Movie!Title FROM Movie WHERE Movie!Title <> 'a!b'"_s, u"SELECT Movie.Title FROM Movie WHERE Movie.Title <> 'a!b'"_s},
        {u"DELETE * FROM ActorLink WHERE Movie_ID = 5"_s, u"DELETE FROM ActorLink WHERE Movie_ID = 5"_s},
        {u"DELETE Images.* FROM Images"_s, u"DELETE FROM Images"_s},
        {u"SELECT Top 1 * FROM Movie;"_s, u"SELECT * FROM Movie LIMIT 1"_s},
        {u"select distinct TOP 3 Title FROM Movie ORDER BY Title"_s, u"select distinct Title FROM Movie ORDER BY Title LIMIT 3"_s},
        {u"WHERE Movie.Movie_ID = 12AND Genre.Genre = 'x'"_s, u"WHERE Movie.Movie_ID = 12 AND Genre.Genre = 'x'"_s},
        {u"WHERE a = 1.5e3AND b = 2ELSE"_s, u"WHERE a = 1.5e3 AND b = 2 ELSE"_s},
        {u"WHERE Title =\"it's \"\"so\"\"\""_s, u"WHERE Title ='it''s \"so\"'"_s},
        {u"WHERE Title = 'Top 1 Order \"Group\" 12AND'"_s, u"WHERE Title = 'Top 1 Order \"Group\" 12AND'"_s},
        {u"FROM a LEFT JOIN b ON Left(a.x,1) = Left (b.x, 1)"_s, u"FROM a LEFT JOIN b ON [Left](a.x,1) = [Left] (b.x, 1)"_s},
        {u"WHERE Movie.Rating >=\"7\" AND rating < -1.5"_s,
         u"WHERE NumberOf(Movie.Rating) >=NumberOf('7') AND NumberOf(rating) < NumberOf(-1.5)"_s},
        {u"WHERE '1999' = Movie!Year AND [Year] <> 5"_s,
         u"WHERE NumberOf('1999') = NumberOf(Movie.Year) AND NumberOf([Year]) <> NumberOf(5)"_s},
        {u"WHERE Movie.Year = Movie.Rating AND Rating Is Null"_s, u"WHERE Movie.Year = Movie.Rating AND Rating Is Null"_s},
        {u"WHERE Title = \"Été\" AND Year = \"é\" OR 'É' <> g.a"_s,
         u"WHERE FoldCase(Title) = FoldCase('Été') AND NumberOf(Year) = NumberOf('é') OR FoldCase('É') <> FoldCase(g.a)"_s},
        {u"SELECT Loan_ID, Sum(Movie.Year) FROM Movie WHERE Loan_ID = 0 AND Movie.Loan_ID <> 0 AND Loan_ID Is Null AND Loan_ID = 5 "
         "GROUP BY Year ORDER BY Movie.Loan_ID DESC"_s,
         u"SELECT Loan_ID, Sum(nullif(Movie.Year,'')) FROM Movie WHERE ifnull(nullif(Loan_ID,''),0) = 0 AND NumberOf(Movie.Loan_ID) <> "
         "NumberOf(0) AND nullif(Loan_ID,'') Is Null AND Loan_ID = 5 GROUP BY nullif(Year,'') ORDER BY nullif(Movie.Loan_ID,'') DESC"_s},
        {u"UPDATE Movie SET Year = 1999 WHERE Year = 1998"_s, u"UPDATE Movie SET Year = 1999 WHERE NumberOf(Year) = NumberOf(1998)"_s},
        {u"SELECT a FROM [Order] WHERE [Year] Is Null"_s, u"SELECT a FROM [Order] WHERE nullif([Year],'') Is Null"_s},
        {u"WHERE ActorLink.Order > 1 AND Year > 5 AND Order = 2 AND '9' < Rating ORDER BY Year"_s,
         u"WHERE ActorLink.[Order] > 1 AND NumberOf(Year) > NumberOf(5) AND [Order] = 2 AND NumberOf('9') < NumberOf(Rating) ORDER BY nullif(Year,'')"_s},
        {u"SELECT a -- it's, \"\nFROM b /* ' */WHERE c = '--' ; ;"_s, u"SELECT a FROM b WHERE c = '--'"_s},
        // What cannot be read goes to the engine as it stands.
        {u"SELECT Top 1 \"open"_s, u"SELECT Top 1 \"open"_s},
        {u"DELETE * FROM x WHERE a = 'open"_s, u"DELETE * FROM x WHERE a = 'open"_s},
        {u""_s, u""_s},
        {u"DELETE"_s, u"DELETE"_s},
        {u"SELECT Top"_s, u"SELECT Top"_s},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(Translated(given), expected) << qPrintable(given);
}

TEST(JetSql, OnlyTheRowsOfOneTableCanBeWritten)
{
    const std::pair<QString, QString> cases[] = {
        {u"SELECT * FROM Movie"_s, u"Movie"_s},
        {u"SELECT ActorLink.* FROM Actorlink WHERE ActorLink.Movie_ID = 5 ORDER BY Order"_s, u"Actorlink"_s},
        {u"SELECT Actor, Actor_ID FROM [Actor] WHERE Actor = ?"_s, u"Actor"_s},
        {u"SELECT Top 1 * FROM Movie"_s, u"Movie"_s},
        {u"SELECT DISTINCT LoanedTo FROM Loans"_s, u""_s},
        {u"SELECT Sum(Movie.Number) As SumDiscs FROM Movie"_s, u""_s},
        {u"SELECT Format FROM Movie GROUP BY Format"_s, u""_s},
        {u"SELECT Movie.* FROM Movie INNER JOIN Images ON 1 = 1"_s, u""_s},
        {u"SELECT a FROM Movie, Images"_s, u""_s},
        {u"SELECT a FROM Movie WHERE 1 = 0 UNION SELECT a FROM Images"_s, u""_s},
        {u"SELECT 1"_s, u""_s},
    };
    for (const auto& [given, table] : cases)
        EXPECT_EQ(TranslateJetSql(given, kNumberColumns).table, table) << qPrintable(given);

    const TranslatedSql plain = TranslateJetSql(u"SELECT Top 2 Title, Index FROM Movie WHERE Order > 1 ORDER BY Title"_s, kNumberColumns);
    EXPECT_EQ(plain.sqlWithRowId, u"SELECT _rowid_, Title, [Index] FROM Movie WHERE [Order] > 1 ORDER BY Title LIMIT 2"_s);
    EXPECT_EQ(plain.sqlByRowId, u"SELECT _rowid_, Title, [Index] FROM Movie WHERE _rowid_ = ?"_s);
}

} // namespace
} // namespace kelvado
