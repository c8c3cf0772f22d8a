#include "intake/TitleImport.h"
#include "core/Literals.h"
#include "support/ErrorOf.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

class TitleImports : public ::testing::Test
{
protected:
    QStringList Read(const QByteArray& bytes) const
    {
        home.Write(u"titles.txt"_s, bytes);
        return ReadTitles(home.Path(u"titles.txt"_s));
    }
    QString Stored() const
    {
        return catalog.Ask(
            "SELECT count(*) || ':' || ifnull(group_concat(Title, '|'), '') FROM (SELECT Title FROM Movie ORDER BY Movie_ID)");
    }

    TempHome home;
    TempCatalog catalog;
    RecordingShell shell;
    ScriptedDialogs dialogs;
};

TEST_F(TitleImports, LinesAreReadInAnyTextFile)
{
    const QList<QPair<QByteArray, QStringList>> kFiles{
        {"Alien\r\n\r\n  \r\nDiva", {u"Alien"_s, u"  "_s, u"Diva"_s}},
        {"Alien\nDiva\n", {u"Alien"_s, u"Diva"_s}},
        {"Alien\r Diva \r", {u"Alien"_s, u" Diva "_s}},
        {"\xEF\xBB\xBF\xC3\x89t\xC3\xA9\nb", {u"Été"_s, u"b"_s}},
        {"\xC9t\xE9\nb", {u"Été"_s, u"b"_s}},
        {QByteArray("\xFF\xFE\xC9\0t\0\n\0b\0", 10), {u"Ét"_s, u"b"_s}},
        {"", {}},
    };
    for (const auto& [bytes, lines] : kFiles)
        EXPECT_EQ(Read(bytes), lines) << bytes.toStdString();
    EXPECT_EQ(ErrorOf([&] { return ReadTitles(home.Path(u"none"_s)).size(); }), kErrFileNotFound);
    Read(QByteArray(3 << 20, 'x'));
    int steps = 0;
    EXPECT_EQ(ErrorOf([&] { return ReadTitles(home.Path(u"titles.txt"_s), [&](qsizetype, qsizetype) { return ++steps < 3; }).size(); }),
              kErrCancelled);
    EXPECT_EQ(steps, 3);
}

TEST_F(TitleImports, EachLineIsAFilmOfItsOwnAndTheTreeIsFilledAnew)
{
    QStringList shown;
    ImportTitles({u"O'Brien"_s, u" "_s, u"O'Brien"_s}, catalog.Path(), shell, dialogs, [&](qsizetype done, qsizetype count) {
        shown << TitleProgress(done, count);
        return true;
    });
    EXPECT_EQ(Stored(), u"3:O'Brien| |O'Brien");
    EXPECT_EQ(shown.join(u'|'), u"Proccessing 1 of 3|Proccessing 2 of 3|Proccessing 3 of 3");
    EXPECT_EQ(shell.calls, QStringList({u"ShowWorking 1"_s, u"RefreshCatalogTree"_s, u"ShowWorking 0"_s}));
    EXPECT_EQ(dialogs.boxes, QList<ScriptedDialogs::Box>({{u"Import Complete"_s, kBoxPlain, u"Import Status"_s}}));
    EXPECT_EQ(catalog.Ask("SELECT ifnull(Format, '-') || Image_ID || IsRequest FROM Movie LIMIT 1"), u"-00");
}

TEST_F(TitleImports, AFailureAndACancelStoreNothing)
{
    const QStringList titles{u"a"_s, QString(255, u'b'), QString(256, u'c'), u"d"_s};
    const auto import = [&] { return ImportTitles(titles, catalog.Path(), shell, dialogs), 0; };
    EXPECT_EQ(ErrorTextOf(import),
              u"Title 3 has 256 characters, and the column takes 255: \"%1…\"\r\n\r\nStored: 0 of 4 titles."_s.arg(QString(60, u'c'))
                  .toStdString());
    EXPECT_EQ(shell.calls, QStringList({u"ShowWorking 1"_s, u"ShowWorking 0"_s}));
    EXPECT_EQ(ErrorOf([&] { return StoreTitles(titles, catalog.Path(), [](qsizetype done, qsizetype) { return done < 2; }), 0; }),
              kErrCancelled);
    EXPECT_EQ(Stored(), u"0:");
    StoreTitles(titles.first(2), catalog.Path());
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM Movie"), u"2");
}

} // namespace
} // namespace kelvado
