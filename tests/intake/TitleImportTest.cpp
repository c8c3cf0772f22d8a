#include "intake/TitleImport.h"
#include "core/Literals.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

class TitleImports : public ::testing::Test
{
protected:
    QStringList Read(const QByteArray& bytes, const TitleStep& step = {}) const
    {
        home.Write(u"titles.txt"_s, bytes);
        return ReadTitles(home.Path(u"titles.txt"_s), step);
    }
    QString Stored() const
    {
        return catalog.Ask(
            "SELECT group_concat(Title || ifnull(Format, '-') || Image_ID, '|') FROM (SELECT * FROM Movie ORDER BY Movie_ID)");
    }

    TempHome home;
    TempCatalog catalog;
    RecordingShell shell;
    ScriptedDialogs dialogs;
};

TEST_F(TitleImports, LinesAreReadInAnyTextFile)
{
    for (const auto& [bytes, lines] : {std::pair(QByteArray("Alien\r\n\r\n  \r\nDiva"), u"Alien|  |Diva"_s),
                                       {"Alien\n Diva \n\r", u"Alien| Diva "_s},
                                       {"\xEF\xBB\xBF\xC3\x89t\xC3\xA9\rb", u"Été|b"_s},
                                       {"\xC9t\xE9\nb", u"Été|b"_s},
                                       {QByteArray("\xFF\xFE\xC9\0t\0\n\0b\0", 10), u"Ét|b"_s},
                                       {"", {}}})
        EXPECT_EQ(Read(bytes).join(u'|'), lines);
    EXPECT_EQ(ErrorOf([&] { return ReadTitles(home.Path(u"none"_s)).size(); }), kErrFileNotFound);
    int steps = 0;
    EXPECT_EQ(ErrorOf([&] { return Read(QByteArray(3 << 20, 'x'), [&](qsizetype, qsizetype) { return ++steps < 3; }); }), kErrCancelled);
}

TEST_F(TitleImports, EachLineIsAFilmOfItsOwnAndTheTreeIsFilledAnew)
{
    QStringList shown;
    ImportTitles({u"O'Brien"_s, u" "_s, u"O'Brien"_s}, catalog.Path(), shell, dialogs, [&](qsizetype done, qsizetype count) {
        shown << TitleProgress(done, count);
        return true;
    });
    EXPECT_EQ(Stored(), u"O'Brien-0| -0|O'Brien-0");
    EXPECT_EQ(shown.join(u'|'), u"Proccessing 1 of 3|Proccessing 2 of 3|Proccessing 3 of 3");
    EXPECT_EQ(shell.calls, QStringList({u"ShowWorking 1"_s, u"RefreshCatalogTree"_s, u"ShowWorking 0"_s}));
    EXPECT_EQ(dialogs.boxes, QList<ScriptedDialogs::Box>({{u"Import Complete"_s, kBoxPlain, u"Import Status"_s}}));
}

TEST_F(TitleImports, ATreeThatCannotBeFilledDoesNotHideThatTheTitlesAreStored)
{
    class NoTree : public RecordingShell
    {
        void RefreshCatalogTree() override { throw RuntimeError(kErrDatabase, u"no tree"_s); }
    } noTree;
    ImportTitles({u"a"_s}, catalog.Path(), noTree, dialogs);
    EXPECT_EQ(dialogs.boxes.value(1).text, u"Import Complete"_s) << "behind the failure";
}

TEST_F(TitleImports, AFailureAndACancelStoreNothing)
{
    const QStringList titles{u"a"_s, QString(255, u'b'), QString(256, u'c'), u"d"_s};
    EXPECT_EQ(ErrorTextOf([&] { return ImportTitles(titles, catalog.Path(), shell, dialogs), 0; }),
              "Title 3 has 256 characters, and the column takes 255: \"" + std::string(60, 'c') + "…\"\r\n\r\nStored: 0 of 4 titles.");
    EXPECT_EQ(shell.calls, QStringList({u"ShowWorking 1"_s, u"ShowWorking 0"_s}));
    const auto cancel = [](qsizetype done, qsizetype) { return done < 2; };
    EXPECT_EQ(ErrorOf([&] { return StoreTitles(titles, catalog.Path(), cancel), 0; }), kErrCancelled);
    EXPECT_EQ(Stored(), u"<null>");
    StoreTitles(titles.first(2), catalog.Path());
    EXPECT_EQ(Stored().size(), 1 + 255 + 5);
}

} // namespace
} // namespace kelvado
