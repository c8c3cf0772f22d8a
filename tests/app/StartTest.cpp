#include "MainWindow.h"
#include "core/Profile.h"
#include "ui/BusyPicture.h"
#include "ui/PaneSplitter.h"

namespace kelvado {
namespace {

constexpr const char* kThreeFilms = "0-9\n 2001\nA\n Alien\nB\n Brazil";

TEST_F(MainWindow, ComesUpWithTheDefaultCatalog)
{
    Start();
    EXPECT_EQ(Shown(), kThreeFilms);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Kelvado 2.0 (Beta)"));
    EXPECT_EQ(window->State().CatalogPath(), catalog.Path());
    EXPECT_FALSE(Get<BusyPicture>("Working").IsBusy());
    EXPECT_FALSE(Entry("mnuExportWebWizard").isEnabled());
    EXPECT_FALSE(Get("FormScroll").isVisible());
    EXPECT_FALSE(Get("picGrabSelect").isVisible());
    EXPECT_EQ(Page(QStringLiteral("about:blank")), QString());
}

TEST_F(MainWindow, ComesUpOnceAndPaintsByTheOptions)
{
    Set("View", "PrimaryExpand", QStringLiteral("1"));
    Set("Display", "WindowState", QStringLiteral("2"));
    for (const bool skinTree : {true, false}) {
        Set("Display", "SkinTree", QString::number(skinTree));
        Start();
        EXPECT_TRUE(window->isMaximized());
        EXPECT_NEAR(Get("picLeftPane").width(), 4950 / 15, 10); // the width is kept in twips, whatever the window's
        EXPECT_TRUE(Tree().isExpanded(Node(QStringLiteral("B"))));
        EXPECT_FALSE(Tree().isExpanded(Node(QStringLiteral("Brazil"))));
        EXPECT_EQ(Node(QStringLiteral("Brazil")).data(Qt::ForegroundRole).isValid(), skinTree);
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
    for (const QString& setting : {QString(), home.Path(QStringLiteral("deleted.kvd")), home.Path(QStringLiteral("Skins"))}) {
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
        for (const char* off : {"Back",
                                "Forward",
                                "Save",
                                "Print",
                                "Refresh",
                                "AddFilter",
                                "Delete",
                                "AddIMDb",
                                "AddDVDEmp",
                                "AddManual",
                                "mnuDeleteE",
                                "MnuViewNfo",
                                "MnuPrint",
                                "mnuLoanMovieE",
                                "mnuFilterRemoveAll",
                                "MnuFilterRemoveSingle_0",
                                "mnuTreeview",
                                "mnuStatus",
                                "frmEdit",
                                "mnuExcel",
                                "mnuExportWebWizard"})
            EXPECT_FALSE(IsOn(off)) << off;
        for (const char* on : {"New", "Open", "mnuNew", "mnuFileOpen", "mnuExit", "mnuHelpAbout"})
            EXPECT_TRUE(IsOn(on)) << on;
        window.reset();
    }
    EXPECT_FALSE(QFileInfo::exists(home.Path(QStringLiteral("deleted.kvd"))));
}

TEST_F(MainWindow, AnArgumentStopsTheStartAndLeavesTheSettingsAlone)
{
    const QByteArray before = home.Read(QStringLiteral("Settings.ini"));
    EXPECT_TRUE(FailureOfStart({catalog.Path()}).startsWith(u"424 "));
    window.reset();
    EXPECT_EQ(home.Read(QStringLiteral("Settings.ini")), before);
}

TEST_F(MainWindow, SettingsThatAreMissingOrNoNumberAreNamed)
{
    const struct
    {
        const char* key;
        const char* value; ///< null: no file at all
    } cases[] = {{"MaxActors", nullptr}, {"LeftPane", ""}, {"WindowState", "large"}};
    const QByteArray whole = home.Read(QStringLiteral("Settings.ini"));
    for (const auto& entry : cases) {
        if (entry.value) {
            home.Write(QStringLiteral("Settings.ini"), whole);
            Set("Display", entry.key, QString::fromLatin1(entry.value));
        } else {
            QFile::remove(home.Path(QStringLiteral("Settings.ini")));
        }
        const QString failure = FailureOfStart();
        EXPECT_TRUE(failure.startsWith(u"13 ")) << qPrintable(failure);
        EXPECT_TRUE(failure.contains(QString::fromLatin1(entry.key))) << qPrintable(failure);
        EXPECT_TRUE(failure.contains(home.Path(QStringLiteral("Settings.ini")))) << qPrintable(failure);
        window.reset();
        EXPECT_EQ(QFileInfo::exists(home.Path(QStringLiteral("Settings.ini"))), entry.value != nullptr);
    }
}

TEST_F(MainWindow, ASkinWithoutAPictureIsNamed)
{
    for (const char* picture : {"Toolbar/Refresh-over.png", "Tree/7.png", "ToolSpacer.BMP"}) {
        const QString path = home.Path(QStringLiteral("Skins/Default XP/") + QString::fromLatin1(picture));
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
    ASSERT_TRUE(QFile::remove(home.Path(QStringLiteral("Skins/Default XP/ToolMovieEdit.BMP"))));
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

TEST_F(MainWindow, ClosingWritesTheSettingsOnceAndKeepsComments)
{
    Set("Settings", "InfoTips", QStringLiteral("7"));
    Start();
    Entry("mnuSortPrimDESC").setChecked(true);
    window->State().gOptions->View.ViewMode = QStringLiteral("Loans");
    window->State().skin = QStringLiteral("Other");
    Choose("mnuFile", "mnuExit");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Setting("Settings", "Skin"), QStringLiteral("Other"));
    EXPECT_EQ(Setting("View", "ViewMode"), QStringLiteral("Loans"));
    EXPECT_EQ(Setting("View", "PrimaryOrder"), QStringLiteral("1"));
    EXPECT_EQ(Setting("Settings", "InfoTips"), QStringLiteral("7"));
    EXPECT_TRUE(home.Read(QStringLiteral("Settings.ini")).contains("; in twips, 15 to a pixel"));
    home.Write(QStringLiteral("Settings.ini"), "changed by hand");
    window->close();
    window.reset();
    EXPECT_EQ(home.Read(QStringLiteral("Settings.ini")), "changed by hand");
}

} // namespace
} // namespace kelvado
