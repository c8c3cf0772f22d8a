#include "core/CatalogFile.h"

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
    CatalogFileTest() { home.Write(QStringLiteral("keldb.dat"), "blank"); }

    TempHome home;
    AppState state;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    CatalogFile file{state, dialogs, shell};
    const QString mine = home.Path(QStringLiteral("mine.kvd"));
    const QString other = home.Path(QStringLiteral("other.kvd"));
};

TEST_F(CatalogFileTest, NewPutsTheBlankCatalogThereAndOpensIt)
{
    dialogs.files << mine;
    file.New();
    EXPECT_EQ(home.Read(QStringLiteral("mine.kvd")), "blank");
    EXPECT_TRUE(state.CatalogOpen);
    EXPECT_EQ(shell.calls, (QStringList{QStringLiteral("ApplyMenuRules"), QStringLiteral("RefreshCatalogTree")}));
}

TEST_F(CatalogFileTest, NewAsksBeforeItOverwritesAndKeepsTheChosenPathEitherWay)
{
    home.Write(QStringLiteral("mine.kvd"), "films");
    dialogs.files << mine << mine;
    dialogs.answers << kAnswerNo << kAnswerYes;
    file.New();
    EXPECT_EQ(home.Read(QStringLiteral("mine.kvd")), "films");
    EXPECT_EQ(state.CatalogPath(), mine);
    EXPECT_FALSE(state.CatalogOpen);
    const ScriptedDialogs::Box question{QStringLiteral("File already exists, are you sure you wish to continue?"), 20,
                                        QStringLiteral("New File Confirmation")};
    EXPECT_EQ(dialogs.boxes.last(), question);
    file.New();
    EXPECT_EQ(home.Read(QStringLiteral("mine.kvd")), "blank");
}

TEST_F(CatalogFileTest, NewWithoutATemplateOrFolderEndsQuietly)
{
    dialogs.files << home.Path(QStringLiteral("no/folder.kvd"));
    file.New();
    QFile::remove(home.Path(QStringLiteral("keldb.dat")));
    home.Write(QStringLiteral("mine.kvd"), "films");
    dialogs.files << mine;
    dialogs.answers << kAnswerYes;
    file.New();
    EXPECT_EQ(home.Read(QStringLiteral("mine.kvd")), "films");
    EXPECT_FALSE(state.CatalogOpen);
    EXPECT_TRUE(shell.calls.isEmpty());
}

TEST_F(CatalogFileTest, OpenBuildsTheTreeFirst)
{
    dialogs.files << mine;
    file.Open();
    EXPECT_EQ(shell.calls, (QStringList{QStringLiteral("RefreshCatalogTree"), QStringLiteral("ApplyMenuRules")}));
    file.Open(); // cancelled: nothing is queued
    EXPECT_EQ(shell.calls.size(), 2);
    EXPECT_EQ(state.CatalogPath(), mine);
}

TEST_F(CatalogFileTest, SaveAsCopiesAndWorksOnThere)
{
    file.SaveAs();
    const ScriptedDialogs::Box missing{
        QStringLiteral("Could not locate Kelvado database file, please ensure you have a valid database file open"), 16,
        QStringLiteral("Kelvado Save As Error")};
    EXPECT_EQ(dialogs.boxes.last(), missing);

    home.Write(QStringLiteral("mine.kvd"), "films");
    state.comDiagFile.fileName = mine;
    dialogs.files << other;
    file.SaveAs();
    EXPECT_EQ(home.Read(QStringLiteral("other.kvd")), "films");
    EXPECT_EQ(state.CatalogPath(), other);
    EXPECT_EQ(shell.calls, QStringList{QStringLiteral("RefreshCatalogTree")});

    // Onto itself: the copy is refused, the file stays whole.
    dialogs.files << other;
    dialogs.answers << kAnswerYes;
    file.SaveAs();
    EXPECT_EQ(dialogs.boxes.last().title, u"Kelvado Save As Confirmation");
    EXPECT_EQ(home.Read(QStringLiteral("other.kvd")), "films");
    EXPECT_EQ(shell.calls.size(), 1);
}

TEST_F(CatalogFileTest, SetDefaultWritesThePathOrSaysThatNothingIsOpen)
{
    home.Write(QStringLiteral("settings.INI"), "[Settings]\nDefault=\n");
    file.SetDefault();
    const ScriptedDialogs::Box nothing{QStringLiteral("A Catolog file must be open"), 64, QString()};
    EXPECT_EQ(dialogs.boxes.last(), nothing);
    state.comDiagFile.fileName = mine;
    file.SetDefault();
    EXPECT_EQ(ReadProfileValue(QStringLiteral("Settings"), QStringLiteral("Default"), home.Path(QStringLiteral("settings.INI"))), mine);
}

} // namespace
} // namespace kelvado
