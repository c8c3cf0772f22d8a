#include "MainWindow.h"

#include "ui/BusyPicture.h"

namespace kelvado {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr const char* kThreeFilms = "0-9\n 2001\nA\n Alien\nB\n Brazil";

TEST_F(MainWindow, NewMakesABlankCatalogAndAsksBeforeItOverwrites)
{
    Set("Settings", "Default", {});
    Start();
    const QString fresh = home.Path(u"fresh.kvd"_s);
    dialogs.files << fresh;
    Choose("mnuFile", "mnuNew");
    EXPECT_EQ(window->State().CatalogPath(), fresh);
    EXPECT_EQ(OtherProgram(fresh).Ask("SELECT count(*) FROM Genre"), u"24"_s);
    EXPECT_TRUE(IsOn("AddManual"));
    Press("ImgTabMovieGrab"); // a catalog is open now
    Press("ImgTabMovieList");

    dialogs.files << catalog.Path();
    Press("New"); // answered with No
    EXPECT_EQ(TakeMessages(), "20 New File Confirmation: File already exists, are you sure you wish to continue?");
    EXPECT_EQ(Shown(), "");
    Press("Refresh"); // shows the file that the path names
    EXPECT_EQ(Shown(), kThreeFilms);
}

TEST_F(MainWindow, SaveAsWorksOnInTheCopy)
{
    Start();
    ClickNode(u"Alien"_s);
    dialogs.files << home.Path(u"copy.kvd"_s);
    Choose("mnuFile", "mnuFileSaveAs");
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s)) << "the copy has the same films";
    EXPECT_TRUE(Tree().isExpanded(Node(u"A"_s)));
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
    catalog.Run("DELETE FROM Movie");
    Press("Refresh");
    EXPECT_EQ(Shown(), kThreeFilms);
    dialogs.files << catalog.Path();
    Press("Save"); // answered with No
    EXPECT_EQ(TakeMessages(), "20 Kelvado Save As Confirmation: File already exists, are you sure you wish to continue?");
}

TEST_F(MainWindow, SetDefaultIsWhatTheNextStartOpens)
{
    Set("Settings", "Default", {});
    Start();
    Choose("mnuFile", "mnuFileDefault");
    EXPECT_EQ(TakeMessages(), "64 : A Catolog file must be open");
    dialogs.files << catalog.Path();
    Choose("mnuFile", "mnuFileOpen");
    Choose("mnuFile", "mnuFileDefault");
    EXPECT_EQ(Setting("Settings", "Default"), catalog.Path());
    window->close();
    Start();
    EXPECT_EQ(Shown(), kThreeFilms);
}

TEST_F(MainWindow, AFileThatIsNoCatalogIsNamedAndTheWindowLivesOn)
{
    home.Write(u"holiday.jpg"_s, QByteArray(5000, 'j'));
    home.Write(u"empty.kvd"_s, {});
    Set("Settings", "Default", {});
    Start();
    for (const char* name : {"holiday.jpg", "empty.kvd", "missing.kvd"}) {
        dialogs.files << home.Path(QString::fromLatin1(name));
        QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
        EXPECT_THAT(TakeMessages(), AllOf(HasSubstr("Run-time error"), HasSubstr(name)));
        EXPECT_FALSE(window->State().CatalogOpen) << name;
        EXPECT_TRUE(Tree().isVisible() && !IsOn("AddManual")) << name;
    }
    EXPECT_EQ(home.Read(u"empty.kvd"_s), "");
    dialogs.files << catalog.Path();
    Press("Open");
    EXPECT_EQ(Shown(), kThreeFilms);
    ClickNode(u"Alien"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
    dialogs.files << home.Path(u"holiday.jpg"_s);
    Press("Open"); // the catalog that is open stays so
    EXPECT_EQ(dialogs.boxes.size(), 1);
    TakeMessages();
    EXPECT_EQ(window->State().CatalogPath(), catalog.Path());
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
}

TEST_F(MainWindow, ACatalogThatVanishedIsNamedOnceForEachClick)
{
    Start();
    ClickNode(u"Alien"_s);
    const QString away = catalog.Path() + u".away"_s;
    ASSERT_TRUE(QFile::rename(catalog.Path(), away));
    ClickNode(u"Brazil"_s);
    EXPECT_EQ(dialogs.boxes.size(), 1);
    EXPECT_THAT(TakeMessages(), HasSubstr("films.kvd"));
    Tree().expand(Node(u"Brazil"_s));
    EXPECT_THAT(TakeMessages(), HasSubstr("films.kvd"));
    const auto expectTheOldTree = [this] {
        EXPECT_EQ(dialogs.boxes.size(), 1);
        EXPECT_THAT(TakeMessages(), HasSubstr("films.kvd"));
        EXPECT_EQ(Shown(), kThreeFilms);
        EXPECT_EQ(Tree().Selected(), Node(u"Brazil"_s));
        EXPECT_TRUE(Tree().isVisible() && Tree().isExpanded(Node(u"A"_s)) && !Tree().isExpanded(Node(u"0-9"_s)));
    };
    Press("Refresh");
    expectTheOldTree();
    dialogs.answers << kAnswerYes;
    Press("Delete");
    dialogs.boxes.removeFirst(); // the question
    expectTheOldTree();
    EXPECT_FALSE(QFileInfo::exists(catalog.Path()));
    ASSERT_TRUE(QFile::rename(away, catalog.Path()));
    Press("Refresh");
    EXPECT_EQ(Shown(), kThreeFilms);
}

TEST_F(MainWindow, ACatalogThatIsLockedIsWaitedForWithTheWindowAlive)
{
    Start();
    OtherProgram other(catalog.Path());
    other.Run("BEGIN EXCLUSIVE");
    bool busy = false;
    events.hook = [&] {
        events.hook = nullptr;
        busy = Get<BusyPicture>("Working").IsBusy();
        other.Run("COMMIT");
    };
    ClickNode(u"Alien"_s);
    EXPECT_TRUE(busy);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Get<BusyPicture>("Working").IsBusy(); }));
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
}

TEST_F(MainWindow, APageThatCannotBeWrittenIsNamed)
{
    home.Write(u"temp"_s, "a file in the folder's place");
    Start();
    ClickNode(u"Alien"_s);
    EXPECT_THAT(TakeMessages(), HasSubstr(home.Path(u"temp"_s).toStdString()));
    EXPECT_TRUE(IsOn("Delete"));
    EXPECT_FALSE(IsOn("Back"));
    ASSERT_TRUE(QFile::remove(home.Path(u"temp"_s)));
    ClickNode(u"Alien"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
}

} // namespace
} // namespace kelvado
