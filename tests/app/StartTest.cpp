#include "MainWindow.h"
#include "app/OnlyProgram.h"
#include "core/DeliveredFiles.h"
#include "core/Literals.h"
#include "core/Profile.h"
#include "ui/BusyPicture.h"
#include "ui/PaneSplitter.h"
#include "ui/SectionTabRow.h"

#include <QScreen>

namespace kelvado {
namespace {

constexpr const char* kThreeFilms = "0-9\n 2001\nA\n Alien\nB\n Brazil";

TEST_F(MainWindow, ComesUpWithTheDefaultCatalog)
{
    Start();
    EXPECT_EQ(Shown(), kThreeFilms);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), u"films – Kelvado 2.0 (Beta)"_s);
    EXPECT_EQ(window->State().CatalogPath(), catalog.Path());
    EXPECT_FALSE(Get<BusyPicture>("Working").IsBusy());
    EXPECT_FALSE(Entry("mnuExportWebWizard").isEnabled());
    EXPECT_FALSE(Get("FormScroll").isVisible());
    EXPECT_FALSE(Get("picGrabSelect").isVisible());
    EXPECT_EQ(Page(u"about:blank"_s), QString());
}

TEST_F(MainWindow, ComesUpOnceAndPaintsByTheOptions)
{
    Set("View", "PrimaryExpand", u"1"_s);
    Set("Display", "WindowState", u"2"_s);
    for (const bool skinTree : {true, false}) {
        Set("Display", "SkinTree", QString::number(skinTree));
        Start();
        EXPECT_TRUE(window->isMaximized());
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return std::abs(Get("picLeftPane").width() - 4950 / 15) < 10; })); // the width is kept in twips, whatever the window's
        EXPECT_TRUE(Tree().isExpanded(Node(u"B"_s)));
        EXPECT_FALSE(Tree().isExpanded(Node(u"Brazil"_s)));
        EXPECT_EQ(Node(u"Brazil"_s).data(Qt::ForegroundRole).isValid(), skinTree);
        EXPECT_EQ(Get("PicForm").palette().color(QPalette::Window), QColor(0xF7, 0xF8, 0xFA));
        catalog.Run("DELETE FROM Movie WHERE Movie_ID = 3");
        const std::string before = Shown();
        window->hide(); // a later activation opens nothing
        window->show();
        QCoreApplication::processEvents();
        EXPECT_EQ(Shown(), before);
        window.reset();
    }
}

TEST_F(MainWindow, TheTabsStandSideBySideAtEveryWidth)
{
    Start();
    const QWidget& row = Get("picTabs");
    for (const int width : {1280, 640, 1900}) {
        window->resize(width, 700);
        ASSERT_TRUE(QTest::qWaitFor([&] { return row.width() == width; }));
        int left = 0;
        for (const char* piece : {"ImgTabLeft", "ImgTabMovieList", "ImgTabTabber1", "ImgTabMovieGrab", "ImgTabTabber2", "ImgTabMovieEdit",
                                  "ImgTabTabber3", "ImgTabActorInfo", "ImgTabTabber4", "ImgTabSpacer", "ImgTabRight"}) {
            EXPECT_EQ(Get(piece).x(), left) << piece << " at " << width;
            EXPECT_GT(Get(piece).width(), 0) << piece;
            left += Get(piece).width();
        }
        EXPECT_EQ(left, width);
    }
}

TEST_F(MainWindow, WithoutACatalogComesUpSilentlyAndTheTabsSaySo)
{
    for (const QString& setting : {QString(), home.Path(u"deleted.kvd"_s), home.Path(u"Skins"_s)}) {
        SCOPED_TRACE(qPrintable(setting));
        Set("Settings", "Default", setting);
        Start();
        EXPECT_EQ(Shown(), "");
        EXPECT_EQ(TakeMessages(), "");
        EXPECT_FALSE(window->State().CatalogOpen);
        for (const char* tab : {"ImgTabMovieList", "ImgTabMovieGrab", "ImgTabMovieEdit", "ImgTabActorInfo"}) {
            Press(tab);
            EXPECT_EQ(TakeMessages(), "64 : No Kelvado Catolog is open") << tab;
        }
        EXPECT_EQ(window->State().CurrentSection, kMovieList);
        for (const char* off : {"Back", "Save", "AddIMDb", "mnuDeleteE", "MnuFilterRemoveSingle_0", "mnuStatus"})
            EXPECT_FALSE(IsOn(off)) << off;
        for (const char* on : {"New", "Open", "mnuNew", "mnuFileOpen", "mnuExit", "mnuHelpAbout"})
            EXPECT_TRUE(IsOn(on)) << on;
        window.reset();
    }
    EXPECT_FALSE(QFileInfo::exists(home.Path(u"deleted.kvd"_s)));
}

TEST_F(MainWindow, AnArgumentStopsTheStartAndLeavesTheSettingsAlone)
{
    const QByteArray before = home.Read(u"Settings.ini"_s);
    EXPECT_TRUE(FailureOfStart({catalog.Path()}).startsWith(u"424 "));
    window.reset();
    EXPECT_EQ(home.Read(u"Settings.ini"_s), before);
}

TEST_F(MainWindow, SettingsThatAreMissingOrNoNumberAreNamed)
{
    const struct
    {
        const char* key;
        const char* value; ///< null: no file at all
    } cases[] = {{"MaxActors", nullptr}, {"LeftPane", ""}, {"WindowState", "large"}};
    const QByteArray whole = home.Read(u"Settings.ini"_s);
    for (const auto& entry : cases) {
        if (entry.value) {
            home.Write(u"Settings.ini"_s, whole);
            Set("Display", entry.key, QString::fromLatin1(entry.value));
        } else {
            QFile::remove(home.Path(u"Settings.ini"_s));
        }
        const QString failure = FailureOfStart();
        EXPECT_TRUE(failure.startsWith(entry.value ? u"13 " : u"53 ")) << qPrintable(failure);
        EXPECT_EQ(failure.contains(QString::fromLatin1(entry.key)), entry.value != nullptr) << qPrintable(failure);
        EXPECT_TRUE(failure.contains(home.Path(u"Settings.ini"_s))) << qPrintable(failure);
        window.reset();
        EXPECT_EQ(QFileInfo::exists(home.Path(u"Settings.ini"_s)), entry.value != nullptr);
    }
}

TEST_F(MainWindow, ASkinWithoutAPictureIsNamed)
{
    for (const char* picture : {"Toolbar/Refresh-over.png", "Tree/7.png", "ToolSpacer.BMP"}) {
        const QString path = home.Path(u"Skins/Default XP/"_s + QString::fromLatin1(picture));
        const QByteArray content = home.Read(QDir(home.Path({})).relativeFilePath(path));
        ASSERT_TRUE(QFile::remove(path)) << picture;
        const QString missing = FailureOfStart();
        EXPECT_TRUE(missing.startsWith(u"53 ")) << qPrintable(missing);
        EXPECT_TRUE(missing.contains(QString::fromLatin1(picture), Qt::CaseInsensitive)) << qPrintable(missing);
        home.Write(QDir(home.Path({})).relativeFilePath(path), "no picture");
        const QString broken = FailureOfStart();
        EXPECT_TRUE(broken.startsWith(u"481 ")) << qPrintable(broken);
        EXPECT_TRUE(broken.contains(QString::fromLatin1(picture))) << qPrintable(broken);
        home.Write(QDir(home.Path({})).relativeFilePath(path), content);
    }
    ASSERT_TRUE(QFile::remove(home.Path(u"Skins/Default XP/ToolMovieEdit.BMP"_s)));
    Start(); // the tabs are painted with the first activation
    EXPECT_THAT(TakeMessages(), ::testing::AllOf(::testing::HasSubstr("'53'"), ::testing::HasSubstr("ToolMovieEdit.BMP")));
    EXPECT_TRUE(window->isVisible());
}

TEST_F(MainWindow, OddSizesLeaveADividerThatCanBeMovedBack)
{
    const std::pair<const char*, Qt::Key> widths[] = {
        {"0", Qt::Key_Right}, {"-500", Qt::Key_Right}, {"2147483647", Qt::Key_Left}, {"-2147483648", Qt::Key_Right}};
    for (const auto& [width, key] : widths) {
        SCOPED_TRACE(width);
        Set("Display", "LeftPane", QString::fromLatin1(width));
        Start();
        auto& divider = Get<PaneSplitter>("picSplitter");
        EXPECT_GE(divider.visibleRegion().boundingRect().width(), 4);
        divider.setFocus();
        Key(key);
        EXPECT_EQ(divider.Tag(), key == Qt::Key_Right ? 11 : 89);
        EXPECT_TRUE(Get("picPanes").rect().contains(divider.geometry()));
        window.reset();
    }
}

TEST_F(MainWindow, ComesBackWhereItWasAndAlwaysWithinAScreen)
{
    Start();
    window->setGeometry(40, 50, 700, 450);
    Get<PaneSplitter>("picSplitter").SetTag(44);
    window->close();
    Start();
    EXPECT_EQ(window->geometry(), QRect(40, 50, 700, 450));
    EXPECT_EQ(Get<PaneSplitter>("picSplitter").Tag(), 44);
    EXPECT_NEAR(Get("picLeftPane").width(), 308, 8);
    window->setWindowState(Qt::WindowMaximized);
    window->close();
    Start();
    EXPECT_TRUE(window->isMaximized());
    EXPECT_EQ(window->normalGeometry().size(), QSize(700, 450));
    window->close();
    // The screen of that time is gone, or smaller now.
    for (const auto& [left, width] : {std::pair("-9000", "700"), {"9000", "700"}, {"300", "99999"}}) {
        Set("Window", "Left", QLatin1StringView(left));
        Set("Window", "Width", QLatin1StringView(width));
        Set("Window", "Maximised", u"0"_s);
        Start();
        EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry())) << left << ' ' << width;
        window->close();
    }
}

TEST_F(MainWindow, PicturesAreSharpAtTheScreensScale)
{
    Start();
    for (const char* tab : {"ImgTabMovieList", "ImgTabRight"})
        EXPECT_EQ(Get<TabImage>(tab).PictureScale(), window->devicePixelRatioF()) << tab;
    EXPECT_EQ(Get("ImgTabMovieList").width(), Get<TabImage>("ImgTabMovieList").PictureSize().width());
    const QIcon icon = Node(u"Alien"_s).data(Qt::DecorationRole).isNull() ? Node(u"A"_s).data(Qt::DecorationRole).value<QIcon>()
                                                                          : Node(u"Alien"_s).data(Qt::DecorationRole).value<QIcon>();
    EXPECT_EQ(icon.pixmap(QSize(16, 16), window->devicePixelRatioF()).size(), QSize(16, 16) * window->devicePixelRatioF());
}

TEST_F(MainWindow, TheSecondProgramOfAFolderCallsTheFirstOne)
{
    QDir().mkpath(home.Path(u"temp"_s));
    OnlyProgram first(home.Path({}));
    ASSERT_TRUE(first.IsFirst());
    QSignalSpy called(&first, &OnlyProgram::Called);
    {
        // By another path to the same folder.
        const OnlyProgram second(home.Path(u"Skins/.."_s));
        EXPECT_FALSE(second.IsFirst());
    }
    EXPECT_TRUE(called.count() > 0 || called.wait(5000));
    QDir().mkpath(home.Path(u"other/temp"_s));
    EXPECT_TRUE(OnlyProgram(home.Path(u"other"_s)).IsFirst());
    window = std::make_unique<Form1>(dialogs, events, discs);
    window->ComeToFront(); // a call in the midst of the start
    EXPECT_FALSE(window->isVisible());
    window.reset();
    Start();
    window->setWindowState(Qt::WindowMinimized);
    window->ComeToFront();
    EXPECT_FALSE(window->isMinimized());
}

TEST_F(MainWindow, AnEmptyFolderGetsTheDeliveredFilesAndABrokenOffCopyIsFinished)
{
    const TempHome fresh;
    home.Write(u"Sample.kvd"_s, "films");
    const auto furnish = [&] { FurnishHome(fresh.Path({}), home.Path({})); };
    furnish();
    EXPECT_EQ(fresh.Read(u"Sample.kvd"_s), "films");
    EXPECT_TRUE(QFileInfo::exists(fresh.Path(u"Skins/Default XP/skin.ini"_s)));
    EXPECT_EQ(ReadProfileValue(u"Settings"_s, u"Default"_s, fresh.Path(u"Settings.ini"_s)), fresh.Path(u"Sample.kvd"_s));
    QFile::remove(fresh.Path(u"Sample.kvd"_s));
    furnish(); // it is the user's own by now
    EXPECT_FALSE(QFileInfo::exists(fresh.Path(u"Sample.kvd"_s)));
    fresh.Write(u"temp/furnishing"_s, {});
    furnish();
    EXPECT_EQ(fresh.Read(u"Sample.kvd"_s), "films");
    EXPECT_FALSE(QFileInfo::exists(fresh.Path(u"temp/furnishing"_s)));
}

TEST_F(MainWindow, ClosingWritesTheSettingsOnceAndKeepsComments)
{
    Set("Settings", "InfoTips", u"7"_s);
    Start();
    Entry("mnuSortPrimDESC").setChecked(true);
    window->State().gOptions->View.ViewMode = u"Loans"_s;
    window->State().skin = u"Other"_s;
    Choose("mnuFile", "mnuExit");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Setting("Settings", "Skin"), u"Other"_s);
    EXPECT_EQ(Setting("View", "ViewMode"), u"Loans"_s);
    EXPECT_EQ(Setting("View", "PrimaryOrder"), u"1"_s);
    EXPECT_EQ(Setting("Settings", "InfoTips"), u"7"_s);
    EXPECT_TRUE(home.Read(u"Settings.ini"_s).contains("; in twips, 15 to a pixel"));
    home.Write(u"Settings.ini"_s, "changed by hand");
    window->close();
    window.reset();
    EXPECT_EQ(home.Read(u"Settings.ini"_s), "changed by hand");
}

} // namespace
} // namespace kelvado
