#include "store/CatalogFile.h"

#include "core/Profile.h"
#include "store/LockWait.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempCatalog.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

class CatalogFileTest : public ::testing::Test
{
protected:
    CatalogFileTest()
    {
        QFile::copy(catalog.Path(), home.Path(u"keldb.dat"_s));
        catalog.Run("INSERT INTO Movie (Title) VALUES ('Alien')");
    }
    ~CatalogFileTest() override { WhileLocked() = {}; }

    /// A catalog of one film that is not the open one, with what a crash left beside it.
    QString Put(const QString& name)
    {
        QFile::copy(catalog.Path(), home.Path(name));
        for (const char* ending : {"-journal", "-wal", "-shm"})
            home.Write(name + QLatin1StringView(ending), "left over");
        return home.Path(name);
    }
    static QString FilmsOf(const QString& path) { return OtherProgram(path).Ask("SELECT group_concat(Title) FROM Movie"); }
    QStringList Files() const { return QDir(home.Path({})).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

    TempHome home;
    TempCatalog catalog;
    AppState state;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    CatalogFile file{state, dialogs, shell};
    const QString mine = home.Path(u"mine.kvd"_s);
};

TEST_F(CatalogFileTest, NewAsksBeforeItOverwritesAndKeepsTheChosenPathEitherWay)
{
    const QString old = Put(u"old.kvd"_s);
    dialogs.files << old << old;
    dialogs.answers << kAnswerNo << kAnswerYes;
    file.New();
    EXPECT_EQ(Files().size(), 5);
    EXPECT_EQ(state.CatalogPath(), old);
    EXPECT_FALSE(state.CatalogOpen);
    const QString question = u"File already exists, are you sure you wish to continue?"_s;
    EXPECT_EQ(dialogs.boxes, (QList<ScriptedDialogs::Box>{{question, 20, u"New File Confirmation"_s}}));
    EXPECT_EQ(dialogs.lossQuestions, QStringList(question));
    // Files of the user's own, whatever they are called.
    home.Write(u"old.kvd.new"_s, "mine");
    home.Write(u"old.kvd-wal.aside"_s, "mine");
    file.New();
    EXPECT_EQ(Files(), (QStringList{u"keldb.dat"_s, u"old.kvd"_s, u"old.kvd-wal.aside"_s, u"old.kvd.new"_s}));
    EXPECT_EQ(home.Read(u"old.kvd.new"_s) + home.Read(u"old.kvd-wal.aside"_s), "minemine");
    EXPECT_EQ(FilmsOf(old), u"<null>");
    EXPECT_TRUE(state.CatalogOpen);
    EXPECT_EQ(shell.calls, (QStringList{u"ApplyMenuRules"_s, u"RefreshCatalogTree"_s}));
    EXPECT_EQ(dialogs.proposed.last(), home.Path(u"New Catalog.kvd"_s));
}

TEST_F(CatalogFileTest, AFailedCopyLeavesAllAsItWasAndGoesBackToTheTreesCatalog)
{
    const QString old = Put(u"old.kvd"_s);
    state.treeCatalog = catalog.Path();
    QDir(home.Path({})).mkdir(u"folder.kvd"_s);
    QStringList before = Files();
    for (const QString& target : {home.Path(u"no/folder.kvd"_s), home.Path(u"folder.kvd"_s)}) {
        for (void (CatalogFile::*routine)() : {&CatalogFile::New, &CatalogFile::SaveAs}) {
            state.comDiagFile.fileName = catalog.Path();
            dialogs.files << target;
            dialogs.answers << kAnswerYes;
            EXPECT_THROW((file.*routine)(), RuntimeError);
            EXPECT_EQ(state.CatalogPath(), catalog.Path());
            dialogs.answers.clear();
        }
    }
    QFile::remove(home.Path(u"keldb.dat"_s));
    dialogs.files << old;
    dialogs.answers << kAnswerYes;
    EXPECT_THROW(file.New(), RuntimeError);
    before.removeOne(u"keldb.dat"_s);
    EXPECT_EQ(Files(), before);
    EXPECT_TRUE(shell.calls.isEmpty());
}

TEST_F(CatalogFileTest, OpenBuildsTheTreeFirst)
{
    dialogs.files << mine;
    file.Open();
    EXPECT_EQ(shell.calls, (QStringList{u"RefreshCatalogTree"_s, u"ApplyMenuRules"_s}));
    file.Open(); // cancelled: nothing is queued
    EXPECT_EQ(shell.calls.size(), 2);
    EXPECT_EQ(state.CatalogPath(), mine);
}

TEST_F(CatalogFileTest, SaveAsTakesAlongWhatAnotherProgramHoldsInItsLog)
{
    file.SaveAs();
    const ScriptedDialogs::Box missing{u"Could not locate Kelvado database file, please ensure you have a valid database file open"_s, 16,
                                       u"Kelvado Save As Error"_s};
    EXPECT_EQ(dialogs.boxes.last(), missing);

    OtherProgram other(catalog.Path());
    other.Run("PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0; INSERT INTO Movie (Title) VALUES ('Brazil')");
    state.comDiagFile.fileName = catalog.Path();
    const QString old = Put(u"old.kvd"_s);
    dialogs.files << old;
    dialogs.answers << kAnswerYes;
    file.SaveAs();
    EXPECT_EQ(dialogs.boxes.last().title, u"Kelvado Save As Confirmation");
    EXPECT_EQ(Files(), (QStringList{u"keldb.dat"_s, u"old.kvd"_s}));
    EXPECT_EQ(FilmsOf(old), u"Alien,Brazil");
    EXPECT_EQ(OtherProgram(old).Ask("PRAGMA journal_mode"), u"delete");
    EXPECT_EQ(state.CatalogPath(), old);
    EXPECT_EQ(shell.calls, QStringList{u"RefreshCatalogTree"_s});
    EXPECT_EQ(QFileInfo(dialogs.proposed.last()).fileName(), u"films copy.kvd");

    // Onto itself: refused, and the file stays whole.
    dialogs.files << old;
    dialogs.answers << kAnswerYes;
    EXPECT_THROW(file.SaveAs(), RuntimeError);
    EXPECT_EQ(FilmsOf(old), u"Alien,Brazil");
}

TEST_F(CatalogFileTest, SaveAsWaitsForAnotherWriter)
{
    OtherProgram other(catalog.Path());
    other.Run("BEGIN EXCLUSIVE; INSERT INTO Movie (Title) VALUES ('Brazil')");
    state.comDiagFile.fileName = catalog.Path();
    WhileLocked().patience = 1;
    dialogs.files << mine << mine;
    EXPECT_THROW(file.SaveAs(), RuntimeError);
    EXPECT_EQ(Files(), QStringList(u"keldb.dat"_s));

    state.comDiagFile.fileName = catalog.Path();
    const QString link = home.Path(u"link.kvd"_s); // another path: the one that was waited for in vain is not waited for at once again
    QFile::link(catalog.Path(), link);
    state.comDiagFile.fileName = link;
    WhileLocked().patience = 5000;
    int rounds = 0;
    WhileLocked().meanwhile = [&] {
        if (++rounds == 2)
            other.Run("COMMIT");
    };
    file.SaveAs();
    EXPECT_EQ(rounds, 2);
    EXPECT_EQ(FilmsOf(mine), u"Alien,Brazil");

    // Through a link, the file that it names is replaced.
    const QString old = Put(u"old.kvd"_s);
    other.Run("DELETE FROM Movie");
    const QString linkToOld = home.Path(u"to old.kvd"_s);
    QFile::link(old, linkToOld);
    dialogs.files << linkToOld;
    dialogs.answers << kAnswerYes;
    file.SaveAs();
    EXPECT_TRUE(QFileInfo(linkToOld).isSymLink());
    EXPECT_EQ(FilmsOf(old), u"Alien,Brazil");
}

TEST_F(CatalogFileTest, SetDefaultWritesThePathOrSaysThatNothingIsOpen)
{
    home.Write(u"settings.INI"_s, "[Settings]\nDefault=\n");
    file.SetDefault();
    const ScriptedDialogs::Box nothing{u"A Catolog file must be open"_s, 64, QString()};
    EXPECT_EQ(dialogs.boxes.last(), nothing);
    state.comDiagFile.fileName = mine;
    file.SetDefault();
    EXPECT_EQ(ReadProfileValue(u"Settings"_s, u"Default"_s, home.Path(u"settings.INI"_s)), mine);
}

} // namespace
} // namespace kelvado
