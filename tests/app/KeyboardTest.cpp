#include "MainWindow.h"
#include "core/Literals.h"
#include "render/forms/frmPageView.h"
#include "ui/Accessibility.h"
#include "ui/ContextKey.h"
#include "ui/PaneSplitter.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QWebEngineView>

namespace kelvado {
namespace {

TEST_F(MainWindow, EveryControlIsReachedByTabAndHasAName)
{
    Start();
    Page(u"about:blank"_s);
    QWidget* page = window->PageView().WebBrowser1();
    const auto name = [&](const QWidget* control) {
        return page == control || page->isAncestorOf(control) ? page->objectName() : control->objectName();
    };
    Tree().setFocus();
    QStringList passed;
    do {
        QWidget* before = QApplication::focusWidget();
        ASSERT_NE(before, nullptr);
        passed << name(before);
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(passed.last() == page->objectName() ? page : before);
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << qPrintable(passed.last());
        QTest::keyClick(before, Qt::Key_Tab);
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() != before; })) << "stuck in " << qPrintable(passed.last());
    } while (QApplication::focusWidget() != &Tree() && passed.size() < 40);
    for (const char* control : {"New", "Open", "Save", "Refresh", "AddFilter", "AddIMDb", "AddDVDEmp", "AddManual", "ImgTabMovieList",
                                "ImgTabMovieGrab", "ImgTabMovieEdit", "ImgTabActorInfo", "TreeView1", "picSplitter", "WebBrowser1"})
        EXPECT_EQ(passed.count(QString::fromLatin1(control)), 1) << control << " in " << qPrintable(passed.join(u' '));
    EXPECT_EQ(passed.indexOf(u"WebBrowser1"_s), 1) << "the page follows the tree: " << qPrintable(passed.join(u' '));
}

TEST_F(MainWindow, AssistiveProgramsAreToldWhatTheControlsAre)
{
    InstallAccessibility();
    Start();
    ClickNode(u"Alien"_s);
    const auto spoken = [&](const char* name) { return QAccessible::queryAccessibleInterface(&Get(name)); };
    const std::pair<const char*, QAccessible::Role> roles[] = {
        {"cToolbar", QAccessible::ToolBar},        {"New", QAccessible::Button},
        {"picTabs", QAccessible::PageTabList},     {"picGrabSelect", QAccessible::PageTabList},
        {"ImgTabMovieGrab", QAccessible::PageTab}, {"StatusCells", QAccessible::StatusBar},
        {"picSplitter", QAccessible::Splitter}};
    for (const auto& [name, role] : roles) {
        EXPECT_EQ(spoken(name)->role(), role) << name;
        EXPECT_NE(spoken(name)->text(QAccessible::Description), spoken(name)->text(QAccessible::Name)) << name << " is said twice";
        EXPECT_FALSE(spoken(name)->text(QAccessible::Description).contains(u'<')) << name;
    }
    EXPECT_EQ(spoken("picTabs")->childCount(), 4) << "joints are no controls";
    EXPECT_TRUE(spoken("ImgTabMovieList")->state().selected);
    EXPECT_FALSE(spoken("ImgTabMovieGrab")->state().selected);
    spoken("ImgTabMovieGrab")->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(window->State().CurrentSection, kMovieGrab);
    EXPECT_TRUE(spoken("ImgTabMovieGrab")->state().selected);
    EXPECT_TRUE(spoken("ImgTaddIMDB")->state().selected);
    EXPECT_EQ(Node(u"Alien"_s).data(Qt::AccessibleDescriptionRole), u"DVD"_s);
}

TEST_F(MainWindow, TheTreeIsBrowsedByKeys)
{
    Start();
    Tree().setFocus();
    Key(Qt::Key_Home);
    Key(Qt::Key_Down); // the group A
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
    QSignalSpy opened(&Tree(), &QTreeView::activated);
    Key(Qt::Key_Return);
    Key(Qt::Key_Enter);
    EXPECT_EQ(opened.count(), 0);
    Tree().setFocus();
    Key(Qt::Key_Right);
    EXPECT_TRUE(Tree().isExpanded(Node(u"Alien"_s)));
    EXPECT_TRUE(Tree().hasFocus());
    EXPECT_EQ(Tree().model()->rowCount(Node(u"Alien"_s)), 2);
    EXPECT_FALSE(QFileInfo::exists(home.Path(u"temp/htmltemp1.html"_s)));
    Key(Qt::Key_Down);
    EXPECT_EQ(Get<QLabel>("ID").text(), u"11"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp1.html"_s).contains(u"Sigourney Weaver"));
    Key(Qt::Key_Up);
    EXPECT_TRUE(Page(u"/temp/htmltemp2.html"_s).contains(u"Alien"));
}

TEST_F(MainWindow, TheTreeHasTheFocusAtStartAndTakesDeleteAndTheMenuKeys)
{
    ContextKey contextKey;
    qApp->installEventFilter(&contextKey);
    Start();
    EXPECT_EQ(QApplication::focusWidget(), &Tree());
    Key(Qt::Key_Delete); // on nothing
    Key(Qt::Key_Down);
    EXPECT_EQ(Tree().Selected(), Tree().model()->index(0, 0)) << "the first key reaches the first row";
    ClickNode(u"Alien"_s);
    QTest::keyClick(&Tree(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(Get<QMenu>("mnuTreeview").isVisible());
    Get<QMenu>("mnuTreeview").close();
    Key(Qt::Key_Delete);
    EXPECT_EQ(TakeMessages(), "4 Confirm Delete: Are you sure you want to delete Alien");
}

TEST_F(MainWindow, TabsAndButtonsArePressedByKeys)
{
    Start();
    ClickNode(u"Alien"_s);
    Get("ImgTabMovieEdit").setFocus();
    Key(Qt::Key_Space);
    EXPECT_EQ(window->State().CurrentSection, kMovieEdit);
    Get("ImgTabMovieList").setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(window->State().CurrentSection, kMovieList);
    Get("AddIMDb").setFocus();
    Key(Qt::Key_Enter);
    EXPECT_EQ(window->State().CurrentSection, kMovieGrab);
}

TEST_F(MainWindow, AboutOpensFromTheMenuAndClosesByAnyKey)
{
    Start();
    Choose("mnuHelp", "mnuHelpAbout");
    QPointer<QWidget> about = window->findChild<QWidget*>(u"frmAbout"_s);
    ASSERT_TRUE(about && about->isVisible());
    QTest::keyClick(about, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return about.isNull(); }));
    EXPECT_TRUE(window->isVisible());
}

TEST_F(MainWindow, TheDividerStaysBetween11And89PerCent)
{
    Start();
    auto& divider = Get<PaneSplitter>("picSplitter");
    const QWidget& panes = Get("picPanes");
    QWindow* handle = window->windowHandle();
    const auto at = [&](int percent) {
        return panes.mapTo(window.get(), QPoint(panes.width() * percent / 100 + divider.width() / 2, panes.height() / 2));
    };
    const auto drag = [&](std::initializer_list<int> stops) {
        QTest::mousePress(handle, Qt::LeftButton, {}, divider.mapTo(window.get(), divider.rect().center()));
        for (const int percent : stops)
            QTest::mouseMove(handle, at(percent));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, at(*(stops.end() - 1)));
    };
    const auto sideBySide = [&] {
        EXPECT_NEAR(Get("picLeftPane").width() * 100.0 / panes.width(), divider.Tag(), 1);
        EXPECT_EQ(Get("picLeftPane").geometry().right() + 1, divider.x());
        EXPECT_EQ(divider.geometry().right() + 1, Get("picRightPane").x());
        EXPECT_LE(Get("picRightPane").geometry().right(), panes.width());
    };
    drag({30, 40});
    EXPECT_NEAR(divider.Tag(), 40, 1);
    sideBySide();
    drag({20, 13, 9, 3});
    EXPECT_NEAR(divider.Tag(), 13, 1);
    sideBySide();
    drag({50, 86, 95, 120});
    EXPECT_NEAR(divider.Tag(), 86, 1);
    sideBySide();
    QTest::mouseClick(handle, Qt::RightButton, {}, divider.mapTo(window.get(), divider.rect().center()));
    QTest::mouseMove(handle, at(50)); // without a button
    EXPECT_NEAR(divider.Tag(), 86, 1);

    divider.setFocus();
    Key(Qt::Key_Right, 10);
    EXPECT_EQ(divider.Tag(), 89);
    sideBySide();
    Key(Qt::Key_Left, 100);
    EXPECT_EQ(divider.Tag(), 11);
    sideBySide();
    window->resize(1000, 700);
    ASSERT_TRUE(QTest::qWaitFor([&] { return panes.width() == 1000 && divider.height() == panes.height(); }));
    QCoreApplication::processEvents();
    sideBySide();
}

} // namespace
} // namespace kelvado
