#include "core/RuntimeError.h"
#include "store/LockWait.h"
#include "store/Recordset.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

#include <unistd.h>

namespace kelvado {
namespace {

// What opening the catalog and reading its films, or adding one, raises; empty for nothing.
QString FailureOf(const QString& path, bool write = false)
{
    return QString::fromStdString(ErrorTextOf([&] {
        Connection connection = OpenCatalog(path);
        Recordset films;
        films.Open(u"SELECT Title FROM Movie"_s, connection);
        if (write) {
            films.AddNew();
            films[u"Title"].Set(u"x"_s);
            films.Update();
        }
        while (!films.Eof())
            films.MoveNext();
        connection.Close();
    }));
}

TEST(Connection, SaysWhatIsWrongWithAFile)
{
    const TempCatalog catalog;
    catalog.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) INSERT INTO Movie (Title) SELECT 'film ' "
                "|| i FROM n");
    const TempHome home;
    const QString folder = home.Path({}) + u'/';
    QFile::copy(catalog.Path(), folder + u"cut.kvd"_s);
    QFile::resize(folder + u"cut.kvd"_s, QFileInfo(catalog.Path()).size() / 3);
    home.Write(u"text.kvd"_s, QByteArray("This is no catalog.\n").repeated(100));
    home.Write(u"empty.kvd"_s, {});
    ASSERT_TRUE(QDir(folder).mkdir(u"folder.kvd"_s));
    OtherProgram(folder + u"other.db"_s).Run("CREATE TABLE Mail (Subject TEXT); INSERT INTO Mail VALUES ('x')");
    const QByteArray other = home.Read(u"other.db"_s);

    const std::pair<QString, QString> cases[] = {
        {u"text.kvd"_s, u"This file is no Kelvado catalog: file is not a database"_s},
        {u"empty.kvd"_s, u"This file is no Kelvado catalog: no such table: Movie"_s},
        {u"other.db"_s, u"This file is no Kelvado catalog: no such table: Movie"_s},
        {u"cut.kvd"_s, u"database disk image is malformed"_s},
        {u"folder.kvd"_s, u"unable to open database file"_s},
        {u"missing.kvd"_s, u"unable to open database file"_s},
    };
    for (const auto& [name, reason] : cases) {
        EXPECT_EQ(FailureOf(folder + name), reason + u" ("_s + folder + name + u')');
        EXPECT_NE(FailureOf(folder + name, true), QString()) << qPrintable(name);
    }
    EXPECT_EQ(home.Read(u"other.db"_s), other);
    EXPECT_EQ(FailureOf(QString()), u"unable to open database file ()"_s);
    EXPECT_EQ(FailureOf(u":memory:"_s), u"unable to open database file (:memory:)"_s);
    EXPECT_FALSE(QFile::exists(folder + u"missing.kvd"_s));
    EXPECT_EQ(FailureOf(catalog.Path()), QString());
}

TEST(Connection, AFileThatMayNotBeWrittenCanBeRead)
{
    const TempCatalog catalog;
    const QFileDevice::Permissions reading = QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;
    QFile::setPermissions(catalog.Path(), reading);
    QFile::setPermissions(catalog.Folder(), reading | QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther);
    // Permissions do not bind the administrator.
    const bool isAdministrator = geteuid() == 0;
    ASSERT_EQ(isAdministrator ? seteuid(65534) : 0, 0);
    const QString readFailure = FailureOf(catalog.Path());
    const QString writeFailure = FailureOf(catalog.Path(), true);
    ASSERT_EQ(isAdministrator ? seteuid(0) : 0, 0);
    EXPECT_EQ(readFailure, QString());
    EXPECT_EQ(writeFailure, u"attempt to write a readonly database ("_s + catalog.Path() + u')');
    QFile::setPermissions(catalog.Folder(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

TEST(Connection, StoresWhatWasWrittenAlsoWhereTheOperationFails)
{
    const TempCatalog catalog;
    const auto operation = [&] {
        Connection connection = OpenCatalog(catalog.Path());
        EXPECT_EQ(connection.Execute(u"DELETE * FROM Genre WHERE Genre_ID > 20"_s), 4);
        EXPECT_TRUE(QFile::exists(catalog.Path() + u"-journal"_s));
        connection.Execute(u"DELETE FROM Nothing"_s);
    };
    EXPECT_EQ(ErrorOf(operation), kErrDatabase);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Genre"), u"20"_s);
    EXPECT_EQ(QDir(catalog.Folder()).entryList(QDir::Files), QStringList(u"films.kvd"_s));
}

TEST(Connection, AFullDiskIsReportedAndNothingHalfIsLeft)
{
    const TempCatalog catalog;
    Connection connection = OpenCatalog(catalog.Path());
    connection.Execute(u"PRAGMA max_page_count = 60"_s);
    Recordset images;
    images.Open(u"SELECT * FROM Images"_s, connection);
    images.AddNew();
    images[u"Image"].Set(QByteArray(100, 'x'));
    images.Update();
    images.AddNew();
    images[u"Image"].Set(QByteArray(1000000, 'x'));
    EXPECT_EQ(ErrorTextOf([&] { images.Update(); }), "database or disk is full (" + catalog.Path().toStdString() + ')');
    // The engine may have had to undo everything. Then closing says so; it never passes in silence.
    const bool undone = ErrorOf([&] { connection.Close(); }) != 0;
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Images"), undone ? u"0"_s : u"1"_s);
    EXPECT_EQ(catalog.Ask("PRAGMA integrity_check"), u"ok"_s);
}

TEST(Connection, ClosesItsRecordsetsAndKnowsItsPath)
{
    const TempCatalog catalog;
    const QString odd = catalog.Folder() + u"/a;b 'c' ä.kvd"_s;
    ASSERT_TRUE(QFile::copy(catalog.Path(), odd));
    Connection connection = OpenCatalog(odd);
    EXPECT_EQ(connection.Path(), odd);
    Recordset genres;
    genres.Open(u"SELECT * FROM Genre"_s, connection);
    EXPECT_FALSE(genres.Eof());
    genres.MoveNext();
    connection.Close();
    EXPECT_FALSE(genres.IsOpen());
    EXPECT_THROW(genres.Open(u"SELECT * FROM Genre"_s, connection), RuntimeError);

    // A recordset that outlives its connection does not hold the commit back.
    {
        Connection second = OpenCatalog(odd);
        genres.Open(u"SELECT * FROM Genre"_s, second);
        genres[u"Genre"].Set(u"changed"_s);
        genres.Update();
    }
    connection = OpenCatalog(odd);
    Recordset again;
    again.Open(u"SELECT Genre FROM Genre WHERE Genre_ID = 1"_s, connection);
    EXPECT_EQ(again.Text(0), u"changed"_s);
}

TEST(Connection, OneTextIsOneStatement)
{
    const TempCatalog catalog;
    Connection connection = OpenCatalog(catalog.Path());
    const QString second = u"DELETE FROM Genre"_s;
    for (const QString& behind : {u"; DELETE FROM Movie"_s, u";x"_s, u"; ; SELECT 1 -- c"_s, u"; '"_s, u";/* c */ SELECT 1"_s,
                                  u";\n-- c\nSELECT 1"_s, u"; -"_s, u"; \0 SELECT 1"_s}) {
        Recordset rows;
        EXPECT_EQ(ErrorTextOf([&] { connection.Execute(second + behind); }),
                  "Characters found after end of SQL statement. (" + catalog.Path().toStdString() + ')');
        EXPECT_THROW(rows.Open(u"SELECT * FROM Genre"_s + behind, connection), RuntimeError);
    }
    for (const QString& behind : {u";"_s, u" ;;\n"_s, u"; -- it's all"_s, u";/* ; */ ;"_s})
        connection.Execute(u"UPDATE Genre SET Genre = 'x' WHERE Genre_ID = 1"_s + behind);
    connection.Close();
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Genre"), u"24"_s);
}

TEST(Connection, WhatStandsInACatalogCannotUseTheProgramsFunctions)
{
    const TempCatalog catalog;
    catalog.Run("CREATE VIEW Odd AS SELECT [Left](Genre, 1) FROM Genre;"
                "CREATE TRIGGER t AFTER INSERT ON Writer BEGIN UPDATE Writer SET Writer = Ucase(Writer); END");
    Connection connection = OpenCatalog(catalog.Path());
    Recordset rows;
    EXPECT_THROW(rows.Open(u"SELECT * FROM Odd"_s, connection), RuntimeError);
    EXPECT_THROW(connection.Execute(u"INSERT INTO Writer (Writer) VALUES ('a')"_s), RuntimeError);
    rows.Open(u"SELECT Left(Genre, 1) FROM Genre WHERE Genre_ID = 1"_s, connection);
    EXPECT_EQ(rows.Text(0).size(), 1);
}

TEST(Connection, ALockedFileIsWaitedForOnceAndNamed)
{
    const TempCatalog catalog;
    OtherProgram other(catalog.Path());
    other.Run("BEGIN EXCLUSIVE");
    int rounds = 0;
    QString nested;
    WhileLocked() = {50, [&] {
                         if (++rounds == 1)
                             nested = FailureOf(catalog.Path()); // what runs meanwhile never waits inside of the wait
                     }};
    const QString locked = u"database is locked ("_s + catalog.Path() + u')';
    EXPECT_EQ(FailureOf(catalog.Path()), locked);
    EXPECT_EQ(nested, locked);
    EXPECT_GE(rounds, 1);
    EXPECT_LE(rounds, 3);
    // The next part of the same click does not wait all over again.
    rounds = 0;
    EXPECT_EQ(FailureOf(catalog.Path(), true), locked);
    EXPECT_EQ(rounds, 0);
    WhileLocked() = {};
}

TEST(Connection, ARowTypedInWithAnotherToolIsAFilm)
{
    const TempCatalog catalog;
    catalog.Run("INSERT INTO Movie (Title) VALUES ('By hand')");
    EXPECT_EQ(catalog.Ask("SELECT Image_ID || ImageBack_ID || Loan_ID || MovieNight || SeenIt FROM Movie"), u"00000"_s);
    EXPECT_EQ(catalog.Ask("SELECT IsRetreived FROM (SELECT 1) LEFT JOIN Actor"), u"<null>"_s);
    EXPECT_EQ(catalog.Ask("PRAGMA application_id"), u"1263944771"_s);
}

} // namespace
} // namespace kelvado
