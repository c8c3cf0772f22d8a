#include "store/CatalogFile.h"

#include "core/Literals.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "support/RecordingShell.h"
#include "support/ScriptedDialogs.h"
#include "support/TempHome.h"

namespace kelvado {
namespace {

class CatalogFileTest : public ::testing::Test
{
protected:
    CatalogFileTest() { home.Write(u"keldb.dat"_s, "blank"); }

    TempHome home;
    AppState state;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    CatalogFile file{state, dialogs, shell};
    const QString mine = home.Path(u"mine.kvd"_s);
    const QString other = home.Path(u"other.kvd"_s);
};

TEST_F(CatalogFileTest, NewPutsTheBlankCatalogThereAndOpensIt)
{
    dialogs.files << mine;
    file.New();
    EXPECT_EQ(home.Read(u"mine.kvd"_s), "blank");
    EXPECT_TRUE(state.CatalogOpen);
    EXPECT_EQ(shell.calls, (QStringList{u"ApplyMenuRules"_s, u"RefreshCatalogTree"_s}));
}

TEST_F(CatalogFileTest, NewAsksBeforeItOverwritesAndKeepsTheChosenPathEitherWay)
{
    home.Write(u"mine.kvd"_s, "films");
    dialogs.files << mine << mine;
    dialogs.answers << kAnswerNo << kAnswerYes;
    file.New();
    EXPECT_EQ(home.Read(u"mine.kvd"_s), "films");
    EXPECT_EQ(state.CatalogPath(), mine);
    EXPECT_FALSE(state.CatalogOpen);
    const ScriptedDialogs::Box question{u"File already exists, are you sure you wish to continue?"_s, 20, u"New File Confirmation"_s};
    EXPECT_EQ(dialogs.boxes.last(), question);
    file.New();
    EXPECT_EQ(home.Read(u"mine.kvd"_s), "blank");
}

TEST_F(CatalogFileTest, NewWithoutATemplateOrFolderEndsQuietly)
{
    dialogs.files << home.Path(u"no/folder.kvd"_s);
    file.New();
    QFile::remove(home.Path(u"keldb.dat"_s));
    home.Write(u"mine.kvd"_s, "films");
    dialogs.files << mine;
    dialogs.answers << kAnswerYes;
    file.New();
    EXPECT_EQ(home.Read(u"mine.kvd"_s), "films");
    EXPECT_FALSE(state.CatalogOpen);
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

TEST_F(CatalogFileTest, SaveAsCopiesAndWorksOnThere)
{
    file.SaveAs();
    const ScriptedDialogs::Box missing{u"Could not locate Kelvado database file, please ensure you have a valid database file open"_s, 16,
                                       u"Kelvado Save As Error"_s};
    EXPECT_EQ(dialogs.boxes.last(), missing);

    home.Write(u"mine.kvd"_s, "films");
    state.comDiagFile.fileName = mine;
    dialogs.files << other;
    file.SaveAs();
    EXPECT_EQ(home.Read(u"other.kvd"_s), "films");
    EXPECT_EQ(state.CatalogPath(), other);
    EXPECT_EQ(shell.calls, QStringList{u"RefreshCatalogTree"_s});

    // Onto itself: the copy is refused, the file stays whole.
    dialogs.files << other;
    dialogs.answers << kAnswerYes;
    file.SaveAs();
    EXPECT_EQ(dialogs.boxes.last().title, u"Kelvado Save As Confirmation");
    EXPECT_EQ(home.Read(u"other.kvd"_s), "films");
    EXPECT_EQ(shell.calls.size(), 1);
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
