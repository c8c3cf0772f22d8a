#include "store/Recordset.h"
#include "support/TempCatalog.h"

#include <QElapsedTimer>
#include <QStringList>

namespace kelvado {
namespace {

class RecordsetTest : public ::testing::Test
{
protected:
    RecordsetTest()
    {
        catalog.Run("INSERT INTO Writer (Writer, IMDB_LINK) VALUES ('a', 'x'), ('b', NULL), ('c', 'z'), ('d', 'z')");
        connection = OpenCatalog(catalog.Path());
    }

    TempCatalog catalog;
    Connection connection;
    Recordset rows;
};

TEST_F(RecordsetTest, WalksAndCounts)
{
    rows.Open(u"SELECT * FROM Writer ORDER BY Writer DESC"_s, connection);
    EXPECT_EQ(rows.AbsolutePosition(), 1);
    EXPECT_EQ(rows[u"writer"].Get(), Value(u"d"_s));
    EXPECT_EQ(rows.RecordCount(), 4);
    for (int row = 1; row < 4; ++row)
        rows.MoveNext();
    EXPECT_EQ(rows.Text(1), u"a"_s);
    EXPECT_EQ(rows.AbsolutePosition(), 4);
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.AbsolutePosition(), 0);
    EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }), kErrNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows.Text(1); }), kErrNoCurrentRecord);
    rows.MoveFirst();
    EXPECT_EQ(rows.Text(1), u"d"_s);
    EXPECT_TRUE(ErrorTextOf([&] { return rows.ColumnIndex(u"Title"); }).ends_with(": Title"));
    EXPECT_EQ(ErrorOf([&] { (void)rows[3]; }), kErrItemNotFound);
    rows.Close();
    EXPECT_EQ(ErrorOf([&] { (void)rows.Eof(); }), kErrObjectNotSet);
    for (const QString& end : {u";"_s, u" ; ; "_s, u" -- it's all"_s, u"; /* ; */"_s}) {
        rows.Open(u"SELECT * FROM Writer"_s + end, connection);
        EXPECT_EQ(rows.RecordCount(), 4) << qPrintable(end);
    }
    rows.Open(u"SELECT * FROM Writer WHERE Writer = ?"_s, {Value(u"B"_s)}, connection);
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_TRUE(rows.IsNull(2));
    EXPECT_EQ(rows.Text(2), QString());
}

TEST_F(RecordsetTest, OpeningAWholeTableReadsNothing)
{
    catalog.Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200000) INSERT INTO Company (Company) SELECT i FROM n");
    rows.Open(u"SELECT * FROM Company ORDER BY Company_ID + 0"_s, connection); // this order needs all rows
    QElapsedTimer clock;
    clock.start();
    rows.MoveFirst();
    const qint64 reading = clock.nsecsElapsed();
    clock.restart();
    rows.Open(u"SELECT * FROM Company ORDER BY Company_ID + 1"_s, connection);
    rows.AddNew();
    rows[u"Company"].Set(u"new"_s);
    rows.Update();
    EXPECT_LT(clock.nsecsElapsed(), reading / 4);
}

TEST_F(RecordsetTest, ChangesMoveNoRowOutOfTheWalk)
{
    // Each change puts the row behind the others in the very order of the walk.
    int steps = 0;
    for (rows.Open(u"SELECT * FROM Writer WHERE Writer < 'x' ORDER BY Writer"_s, connection); !rows.Eof(); rows.MoveNext(), ++steps) {
        rows[u"Writer"].Set(u"w"_s + rows.Text(1));
        rows.Update();
        EXPECT_EQ(rows.AbsolutePosition(), steps + 1);
    }
    EXPECT_EQ(steps, 4);
    int deleted = 0;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext(), ++deleted) {
        if (rows.AbsolutePosition() == 1)
            connection.Execute(u"DELETE FROM Writer WHERE Writer = ?"_s, {Value(u"wc"_s)});
        EXPECT_EQ(rows.Text(1).size(), 2);
        rows.Delete();
    }
    EXPECT_EQ(deleted, 3);
    connection.Close();
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Writer"), u"0"_s);
}

TEST_F(RecordsetTest, LeavingARowStoresItAndClosingDropsIt)
{
    rows.Open(u"SELECT * FROM Writer WHERE Writer < 'c'"_s, connection);
    rows[u"IMDB_LINK"].Set(u"first"_s);
    rows.MoveNext();
    rows[u"IMDB_LINK"].Set(u"dropped"_s);
    EXPECT_EQ(rows.Text(2), u"dropped"_s);
    rows.CancelUpdate();
    EXPECT_EQ(rows.Text(2), QString());
    rows.AddNew();
    EXPECT_FALSE(rows.Eof());
    EXPECT_TRUE(rows[u"Writer"].IsNull());
    rows[u"Writer"].Set(u"e"_s);
    rows.AddNew();
    rows[u"Writer"].Set(u"never stored"_s);
    rows.Close();
    connection.Close();
    EXPECT_EQ(catalog.Ask("SELECT group_concat(Writer || ':' || coalesce(IMDB_LINK, '')) FROM Writer"), u"a:first,b:,c:z,d:z,e:"_s);
}

TEST_F(RecordsetTest, KeysAreGivenAtOnceAndNeverComeBack)
{
    Recordset other;
    rows.Open(u"SELECT * FROM Writer"_s, connection);
    other.Open(u"SELECT Writer, Writer_ID FROM writer WHERE Writer = 'none'"_s, connection);
    EXPECT_TRUE(other.Eof());
    rows.AddNew();
    other.AddNew();
    EXPECT_EQ(rows[u"Writer_ID"].Get(), Value(5));
    EXPECT_EQ(other[u"Writer_ID"].Get(), Value(6));
    other[u"Writer"].Set(u"f"_s);
    other.Update();
    rows.Update();
    EXPECT_EQ(other[u"Writer"].Get(), Value(u"f"_s));
    rows.AddNew(); // 7, dropped with the recordset
    rows.Close();
    connection.Execute(u"DELETE * FROM Writer"_s);
    connection.Close();

    const auto nextKey = [&](const QString& table) {
        rows.Open(u"SELECT * FROM "_s + table, connection);
        rows.AddNew();
        return rows[0].Get();
    };
    connection = OpenCatalog(catalog.Path());
    EXPECT_EQ(nextKey(u"Writer"_s), Value(8));
    rows.Close();
    EXPECT_EQ(nextKey(u"Loans"_s), Value(1)); // a table that never held a row
    rows.Close();
    for (const int key : {2, 3}) {
        connection.Close(); // the second time under the new row
        connection = OpenCatalog(catalog.Path());
        EXPECT_EQ(nextKey(u"Loans"_s), Value(key));
    }
}

TEST_F(RecordsetTest, ANewKeyIsLargerThanAllWhateverTheCounterSays)
{
    const struct
    {
        const char* before;
        QString table;
        qint64 key; // 0 where there is none any more
    } cases[] = {
        {"UPDATE sqlite_sequence SET seq = 1", u"Writer"_s, 5},
        {"DELETE FROM sqlite_sequence", u"Writer"_s, 5},
        {"UPDATE sqlite_sequence SET seq = 'x'", u"Writer"_s, 5},
        {"INSERT INTO WriterLink (Writer_ID) VALUES (9), ('')", u"Writer"_s, 10}, // a name that is gone
        {"INSERT INTO Loans (Movie_ID) VALUES (30); INSERT INTO Feature_Link (Movie_ID) VALUES (20)", u"Movie"_s, 31},
        {"INSERT INTO Movie (Image_ID, ImageBack_ID, Loan_ID) VALUES (4, 6, 8)", u"Images"_s, 7},
        {"INSERT INTO Movie (Loan_ID) VALUES (8)", u"Loans"_s, 9},
        {"UPDATE sqlite_sequence SET seq = 9223372036854775806 WHERE name = 'Writer'", u"Writer"_s, 9223372036854775807},
        {"UPDATE sqlite_sequence SET seq = 9223372036854775807 WHERE name = 'Writer'", u"Writer"_s, 0},
        {"UPDATE sqlite_sequence SET seq = 1e30 WHERE name = 'Writer'", u"Writer"_s, 0},
        {"INSERT INTO Writer (Writer_ID) VALUES (9223372036854775807); DELETE FROM sqlite_sequence", u"Writer"_s, 0},
    };
    for (const auto& c : cases) {
        const TempCatalog fresh;
        fresh.Run("INSERT INTO Writer (Writer) VALUES ('a'), ('b'), ('c'), ('d')");
        fresh.Run(c.before);
        Connection other = OpenCatalog(fresh.Path());
        rows.Open(u"SELECT * FROM "_s + c.table, other);
        EXPECT_EQ(ErrorOf([&] { rows.AddNew(); }), c.key == 0 ? kErrDatabase : 0) << c.before;
        if (c.key != 0) {
            EXPECT_EQ(rows[0].Get(), Value(c.key)) << c.before;
        }
        EXPECT_EQ(ErrorOf([&] { rows.Update(); }), 0) << c.before;
        rows.Close();
        other.Close();
        EXPECT_EQ(fresh.Ask("SELECT count(*) FROM Writer WHERE Writer_ID < 0"), u"0"_s) << c.before;
    }
}

TEST_F(RecordsetTest, AnEmptyTextAmongNumbersIsNull)
{
    catalog.Run("INSERT INTO Movie (Title, Year, Loan_ID, Image_ID, SeenIt, LastViewing, PurchasePrice) VALUES "
                "('a', '', '', '', '', '', ''), ('b', 1950, 0, NULL, 0, '2000-01-01', 2), ('c', NULL, 7, 3, 1, NULL, NULL)");
    for (const QString& end : {u""_s, u" ORDER BY Title"_s, u" INNER JOIN Genre ON Genre_ID = 1"_s}) { // held, walked, joined
        rows.Open(u"SELECT * FROM Movie"_s + end, connection);
        for (const QString& column : {u"Year"_s, u"Loan_ID"_s, u"Image_ID"_s, u"SeenIt"_s, u"LastViewing"_s, u"PurchasePrice"_s}) {
            EXPECT_TRUE(rows[column].IsNull()) << qPrintable(column);
            EXPECT_TRUE(rows[column].Get().IsNull()) << qPrintable(column);
            EXPECT_EQ(rows.Number(rows.ColumnIndex(column)), 0) << qPrintable(column);
        }
    }
    const std::pair<QString, QString> queries[] = {
        {u"SELECT Title FROM Movie ORDER BY Movie.Year, Title"_s, u"acb"_s},
        {u"SELECT Year FROM Movie GROUP BY Year ORDER BY Year DESC"_s, u"1950"_s},
        {u"SELECT Title FROM Movie WHERE Loan_ID <> 0"_s, u"c"_s},
        {u"SELECT Title FROM Movie WHERE Movie.Loan_ID = 0 ORDER BY Title"_s, u"ab"_s},
        {u"SELECT Title FROM Movie WHERE Loan_ID = 7"_s, u"c"_s},
        {u"SELECT Title FROM Movie WHERE Year Is Null ORDER BY Title"_s, u"ac"_s},
        {u"SELECT Count(Movie.Year) FROM Movie"_s, u"1"_s},
        {u"SELECT Title FROM Movie WHERE Movie.Year >=\"1\""_s, u"b"_s},
    };
    for (const auto& [sql, expected] : queries) {
        QString texts;
        for (rows.Open(sql, connection); !rows.Eof(); rows.MoveNext())
            texts += rows.Text(0);
        EXPECT_EQ(texts, expected) << qPrintable(sql);
    }
}

TEST_F(RecordsetTest, ALostUpdateIsReportedAndChangesNothing)
{
    const auto change = [&](const char* behindOurBack) {
        rows.Open(u"SELECT * FROM Writer WHERE Writer_ID = 2"_s, connection);
        EXPECT_EQ(rows.Text(1), u"b"_s);
        catalog.Run(behindOurBack); // works: a query of one row holds no lock
        rows[u"IMDB_LINK"].Set(u"ours"_s);
        const int number = ErrorOf([&] { rows.Update(); });
        rows.Close();
        connection.Close();
        connection = OpenCatalog(catalog.Path());
        return number;
    };
    EXPECT_EQ(change("UPDATE Writer SET Writer = 'b', IMDB_LINK = NULL WHERE Writer_ID = 2"), 0); // written, but not changed
    EXPECT_EQ(change("UPDATE Writer SET IMDB_LINK = 'OURS' WHERE Writer_ID = 2"), kErrDatabase);
    EXPECT_EQ(catalog.Ask("SELECT IMDB_LINK FROM Writer WHERE Writer_ID = 2"), u"OURS"_s);
    EXPECT_EQ(change("DELETE FROM Writer WHERE Writer_ID = 2"), kErrDatabase);
}

TEST_F(RecordsetTest, OnlyColumnsOfOneTableCanBeWritten)
{
    rows.Open(u"SELECT Count(Writer) As n FROM Writer"_s, connection);
    EXPECT_EQ(rows[u"n"].DefinedSize(), 0);
    EXPECT_EQ(ErrorOf([&] { rows[u"n"].Set(1); }), kErrDatabase);
    EXPECT_EQ(ErrorOf([&] { rows.AddNew(); }), kErrDatabase);
    rows.Open(u"SELECT Writer, 1 As One FROM Writer"_s, connection, LockType::Optimistic);
    EXPECT_EQ(ErrorOf([&] { rows[u"One"].Set(2); }), kErrDatabase);
    EXPECT_EQ(ErrorOf([&] { rows[u"Writer"].Set(u"ok"_s); }), 0);
    rows.Open(u"SELECT * FROM Writer"_s, connection, LockType::ReadOnly);
    EXPECT_EQ(ErrorOf([&] { rows.Delete(); }), kErrDatabase);
}

TEST_F(RecordsetTest, ColumnsKeepValuesInTheirOwnForm)
{
    const struct
    {
        QString column;
        Value given;
        const char* stored; // with its type
        int error;
    } cases[] = {
        {u"Rating"_s, Value(u"9.0"_s), "text:9.0", 0},
        {u"Votes"_s, Value(1234), "text:1234", 0},
        {u"Year"_s, Value(u"1999"_s), "integer:1999", 0},
        {u"Year"_s, Value(u"1,999.5"_s), "real:1999.5", 0},
        {u"Year"_s, Value(u"about 1930"_s), "text:about 1930", 0},
        {u"Year"_s, Value(QString()), "null:", 0},
        {u"Title"_s, Value(u"O'Hara \"&<\n</>\u0416\u4e2d"_s), "text:O'Hara \"&<\n</>\u0416\u4e2d", 0},
        {u"SeenIt"_s, Value(true), "integer:1", 0},
        {u"SeenIt"_s, Value(u"False"_s), "integer:0", 0},
        {u"SeenIt"_s, Value(u"maybe"_s), "integer:0", kErrTypeMismatch},
        {u"Loan_ID"_s, Value(u"7"_s), "integer:7", 0},
        {u"Loan_ID"_s, Value(2.5), "integer:2", 0},
        {u"Loan_ID"_s, Value(1e30), "integer:0", kErrOverflow},
        {u"PurchasePrice"_s, Value(Currency{125000}), "real:12.5", 0},
        {u"PurchasePrice"_s, Value(u"3"_s), "integer:3", 0},
        {u"PurchasePrice"_s, Value(u"cheap"_s), "null:", kErrTypeMismatch},
        {u"LastViewing"_s, Value(QDate(2004, 2, 29)), "text:2004-02-29", 0},
        {u"LastViewing"_s, Value(u"03/09/2004"_s), "text:2004-03-09", 0},
        {u"LastViewing"_s, Value(u"yesterday"_s), "null:", kErrTypeMismatch},
    };
    rows.Open(u"SELECT * FROM Movie"_s, connection);
    for (const auto& c : cases) {
        rows.AddNew();
        EXPECT_EQ(ErrorOf([&] { rows[c.column].Set(c.given); }), c.error) << c.stored;
        rows.Update();
        Recordset check;
        check.Open(u"SELECT typeof(x) || ':' || coalesce(x, '') FROM (SELECT "_s + c.column + u" AS x FROM Movie WHERE Movie_ID = ?)"_s,
                   {rows[u"Movie_ID"].Get()}, connection);
        EXPECT_EQ(check.Text(0), QString::fromUtf8(c.stored));
    }
    rows[u"LastViewing"].Set(ZeroDate());
    rows.Update();
    EXPECT_FALSE(rows[u"LastViewing"].IsNull());
    EXPECT_EQ(rows.Text(rows.ColumnIndex(u"LastViewing")), QString());
    rows[u"Year"].Set(u"soon"_s);
    EXPECT_EQ(ErrorOf([&] { rows.Integer(rows.ColumnIndex(u"Year")); }), kErrTypeMismatch);
    EXPECT_EQ(rows.Integer(rows.ColumnIndex(u"Number")), 0);

    const std::pair<QString, qsizetype> sizes[] = {{u"Title"_s, 255},      {u"Rating"_s, 20}, {u"Plot"_s, 536870910}, {u"Year"_s, 64},
                                                   {u"LastViewing"_s, 64}, {u"SeenIt"_s, 64}, {u"Loan_ID"_s, 64}};
    for (const auto& [column, size] : sizes)
        EXPECT_EQ(rows[column].DefinedSize(), size) << qPrintable(column);
}

TEST_F(RecordsetTest, ANumberReadsTheSameFromTheWalkAndFromTheRow)
{
    const struct
    {
        const char* stored;
        std::int64_t whole;
        double number;
        int error; // of the whole number
    } cases[] = {
        {"NULL", 0, 0, 0}, {"5000000000", 5000000000, 5e9, 0}, {"2.7", 3, 2.7, 0}, {"2.5", 2, 2.5, 0}, {"-2.5", -2, -2.5, 0},
        {"'7'", 7, 7, 0},  {"1e30", 0, 1e30, kErrOverflow},    {"x'37'", 7, 7, 0},
    };
    for (const auto& c : cases) {
        const QByteArray value(c.stored);
        catalog.Run("DROP TABLE IF EXISTS Loose; CREATE TABLE Loose (x)");
        catalog.Run("INSERT INTO Loose VALUES (" + value + "), (" + value + "), (" + value + ")");
        // The first row of one table is held, the second is read on the way, and a changed one comes back from the catalog.
        rows.Open(u"SELECT * FROM Loose"_s, connection);
        for (int row = 0; row < 3; ++row, rows.MoveNext()) {
            if (row == 2)
                rows.MoveFirst();
            EXPECT_EQ(ErrorOf([&] { EXPECT_EQ(rows.Integer(0), c.whole); }), c.error) << c.stored;
            EXPECT_EQ(rows.Number(0), c.number) << c.stored;
        }
        rows.Close();
    }
}

TEST_F(RecordsetTest, TablesOfOtherToolsWorkAsFarAsTheyGo)
{
    catalog.Run("CREATE TABLE Plain (Key INTEGER PRIMARY KEY, Name VARCHAR(5), Size DOUBLE, Made DATETIME);"
                "CREATE TABLE Flat (Name TEXT PRIMARY KEY) WITHOUT ROWID; INSERT INTO Flat VALUES ('a');"
                "CREATE VIEW Seen AS SELECT Name FROM Flat; DROP TABLE Feature_Link;"
                "CREATE TABLE Untyped (Name, a MEMO, b STRING, c CHAR, d CLOB, e FLOATING POINT);"
                "CREATE TABLE \"odd \"\"name\" (\"a \"\"b\" TEXT)");
    rows.Open(u"SELECT * FROM Plain"_s, connection);
    rows.AddNew();
    EXPECT_EQ(rows[u"Key"].Get(), Value(1));
    rows[u"Size"].Set(u"2.5"_s);
    rows[u"Made"].Set(QDate(2001, 1, 2));
    rows.Update();
    EXPECT_EQ(rows[u"Name"].DefinedSize(), 5);
    EXPECT_EQ(rows.Number(2), 2.5);
    EXPECT_EQ(rows.Text(3), u"2001-01-02"_s);
    for (const QString& table : {u"Flat"_s, u"Seen"_s}) {
        rows.Open(u"SELECT * FROM "_s + table, connection);
        EXPECT_EQ(rows.Text(0), u"a"_s);
        EXPECT_EQ(ErrorOf([&] { rows[0].Set(u"b"_s); }), kErrDatabase);
        EXPECT_EQ(ErrorOf([&] { rows.Text(1); }), kErrItemNotFound);
        EXPECT_EQ(ErrorOf([&] { rows.Text(-1); }), kErrItemNotFound);
    }
    rows.Open(u"SELECT * FROM Untyped"_s, connection);
    rows.AddNew();
    for (int column = 0; column < 5; ++column) {
        EXPECT_EQ(rows[column].DefinedSize(), 536870910) << column;
        rows[column].Set(QString());
    }
    rows[5].Set(u"1.5"_s);
    rows.Update();
    EXPECT_EQ(rows[0].Get(), Value(QString()));
    EXPECT_EQ(rows[1].Get(), Value(QString()));
    EXPECT_EQ(rows[5].Get(), Value(1.5));
    rows.Open(u"SELECT * FROM [odd \"name]"_s, connection);
    rows.AddNew();
    rows[0].Set(u"x"_s);
    rows.Update();
    rows.MoveFirst();
    EXPECT_EQ(rows.Text(0), u"x"_s);
}

TEST_F(RecordsetTest, BytesGoInAndComeOutInPieces)
{
    for (const qint64 size : {0, 1, 99999, 100000, 250000}) {
        QByteArray bytes(size, '\0');
        for (qint64 i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(i * 7 % 251);
        rows.Open(u"SELECT * FROM Images"_s, connection);
        rows.AddNew();
        const Field image = rows[u"Image"];
        image.Set(QByteArray("what stood there"));
        for (qint64 at = 0; at == 0 || at < size; at += 30000)
            image.AppendChunk(bytes.mid(at, 30000));
        rows.Update();

        const qint64 id = rows[u"Image_ID"].Get().Integer();
        rows.Open(u"SELECT * FROM Images WHERE Image_ID = "_s + QString::number(id), connection);
        const Field stored = rows[u"Image"];
        EXPECT_EQ(stored.ActualSize(), size);
        EXPECT_EQ(stored.Get(), Value(bytes));
        QByteArray read;
        while (read.size() < size) {
            const QByteArray chunk = stored.GetChunk(33333);
            ASSERT_FALSE(chunk.isEmpty());
            read += chunk;
        }
        EXPECT_EQ(read, bytes);
        EXPECT_TRUE(stored.GetChunk(10).isEmpty());
        // A join has no row of its own; its pieces come all the same.
        rows.Open(u"SELECT a.Image FROM Images a INNER JOIN Images b ON a.Image_ID = b.Image_ID WHERE a.Image_ID = "_s +
                      QString::number(id),
                  connection);
        EXPECT_EQ(rows[0].GetChunk(5) + rows[0].GetChunk(size), bytes);
    }
    // The third row of a walk is read like the first.
    rows.Open(u"SELECT * FROM Images"_s, connection);
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_EQ(rows[u"Image"].GetChunk(100000).size(), 99999);
    rows[u"Extention"].Set(u"GIF"_s); // writing the row ends the reading of its bytes
    rows.Update();
    EXPECT_EQ(rows[u"Image"].GetChunk(100000).size(), 99999);
    rows.AddNew();
    rows.Update();
    EXPECT_EQ(rows[u"Image"].ActualSize(), 0);
    EXPECT_TRUE(rows[u"Image"].GetChunk(1).isEmpty());
}

} // namespace
} // namespace kelvado
