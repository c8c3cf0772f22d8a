#include "MainWindow.h"
#include "render/forms/frmPageView.h"

#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QWebEngineView>

namespace kelvado {
namespace {

TEST_F(MainWindow, MenusAndButtonsFollowTheCatalogAndTheSelection)
{
    const std::initializer_list<const char*> watched = {"Back",
                                                        "Forward",
                                                        "Save",
                                                        "Print",
                                                        "Refresh",
                                                        "AddFilter",
                                                        "Delete",
                                                        "AddIMDb",
                                                        "AddManual",
                                                        "mnuEdit",
                                                        "mnuLoansE",
                                                        "mnuDeleteE",
                                                        "MnuViewNfo",
                                                        "mnuLoanMovieE",
                                                        "mnuLoanReturnE",
                                                        "mnuUpdateMovieInfo",
                                                        "mnuMovieRetrieve",
                                                        "mnuActorRetreive"};
    const auto on = [&] {
        QStringList names;
        for (const char* name : watched) {
            if (IsOn(name))
                names << QString::fromLatin1(name);
        }
        return names.join(u' ').toStdString();
    };
    const std::string always = "Save Refresh AddFilter ";
    Start();
    EXPECT_EQ(on(), always + "AddIMDb AddManual");
    ClickNode(QStringLiteral("A"));
    EXPECT_EQ(on(), always + "AddIMDb AddManual");
    ClickNode(QStringLiteral("Alien"));
    EXPECT_EQ(on(), "Back " + always + "Delete AddIMDb AddManual mnuEdit mnuLoansE mnuDeleteE MnuViewNfo mnuLoanMovieE mnuUpdateMovieInfo");
    ClickNode(QStringLiteral("2001"));
    EXPECT_EQ(on(), "Back " + always + "Delete AddIMDb AddManual mnuEdit mnuLoansE mnuDeleteE mnuLoanReturnE mnuMovieRetrieve");
    Tree().expand(Node(QStringLiteral("Alien")));
    ClickNode(QStringLiteral("Sigourney Weaver"));
    EXPECT_EQ(on(), "Back " + always + "AddIMDb AddManual mnuEdit mnuActorRetreive");
    EXPECT_EQ(Get<QLabel>("ID").text(), QStringLiteral("11"));
    Key(Qt::Key_Down); // a person without an address, by keyboard
    EXPECT_EQ(Get<QLabel>("ID").text(), QStringLiteral("12"));
    EXPECT_EQ(on(), "Back " + always + "AddIMDb AddManual mnuEdit");
    Key(Qt::Key_Home);
    EXPECT_EQ(on(), "Back " + always + "AddIMDb AddManual");
}

TEST_F(MainWindow, EveryClickOnAFilmMakesAPageAndAStep)
{
    Start();
    ClickNode(QStringLiteral("Alien"));
    EXPECT_TRUE(Page(QStringLiteral("/temp/htmltemp0.html")).contains(u"Alien"));
    EXPECT_EQ(Get<QLabel>("ID").text(), QStringLiteral("1"));
    ClickNode(QStringLiteral("Alien"));
    EXPECT_TRUE(Page(QStringLiteral("/temp/htmltemp1.html")).contains(u"Alien"));
    ClickNode(QStringLiteral("Brazil"));
    EXPECT_TRUE(Page(QStringLiteral("/temp/htmltemp2.html")).contains(u"Brazil"));
    const History& history = window->State().history;
    EXPECT_EQ(history.At(1).key, QStringLiteral("\"2\n66\""));
    EXPECT_EQ(history.At(3).page, QStringLiteral("htmltemp0.html"));

    Press("Back");
    Press("Back");
    EXPECT_TRUE(Page(QStringLiteral("/temp/htmltemp0.html")).contains(u"Alien"));
    EXPECT_EQ(Tree().Selected(), Node(QStringLiteral("Alien")));
    EXPECT_FALSE(IsOn("Back"));
    EXPECT_TRUE(IsOn("Forward"));
    Press("Back"); // disabled
    EXPECT_EQ(history.Position(), 3);
    Press("Forward");
    Press("Forward");
    EXPECT_TRUE(Page(QStringLiteral("/temp/htmltemp2.html")).contains(u"Brazil"));
    EXPECT_EQ(Tree().Selected(), Node(QStringLiteral("Brazil")));
    EXPECT_FALSE(IsOn("Forward"));
    EXPECT_FALSE(QFileInfo::exists(home.Path(QStringLiteral("temp/htmltemp3.html")))); // walking makes no page

    ClickNode(QStringLiteral("B")); // a group
    EXPECT_EQ(Page(QStringLiteral("about:blank")), QString());
}

TEST_F(MainWindow, TabsChangeTheSection)
{
    Start();
    ClickNode(QStringLiteral("Alien"));
    Press("ImgTabMovieGrab");
    EXPECT_FALSE(Tree().isEnabled());
    EXPECT_TRUE(Get("picGrabSelect").isVisible());
    EXPECT_FALSE(window->PageView().isVisible());
    Press("ImgTabMovieEdit");
    EXPECT_TRUE(Tree().isEnabled());
    EXPECT_TRUE(Get("FormScroll").isVisible());
    EXPECT_EQ(window->State().history.At(1).section, kMovieEdit);
    Press("ImgTabActorInfo"); // a film is selected, no person
    EXPECT_EQ(TakeMessages(), "64 : No Kelvado Catolog is open");
    EXPECT_EQ(window->State().CurrentSection, kActorInfo);
    ClickNode(QStringLiteral("Brazil"));
    EXPECT_EQ(window->State().CurrentSection, kMovieEdit);
    Press("ImgTabMovieList");
    EXPECT_TRUE(window->PageView().isVisible());
    EXPECT_FALSE(Get("FormScroll").isVisible());
    EXPECT_TRUE(Page(QStringLiteral("/temp/htmltemp1.html")).contains(u"Brazil"));
    Press("AddIMDb");
    EXPECT_EQ(window->State().CurrentSection, kMovieGrab);
}

TEST_F(MainWindow, PagesLeadToNodesAndCredits)
{
    home.Write(QStringLiteral("Skins/Default XP/Templates/default.html"),
               "<p><a class=brazil id=\"SendMessage:GOTO:2:66\" href=#>!!TITLE!!</a>"
               "<p><a class=person id=\"SendMessage:GOTO:1:11\" href=#>person</a>"
               "<p><a class=credits id=\"!!NAVCREDITS!!\" href=#>credits</a>");
    Start();
    ClickNode(QStringLiteral("Alien"));
    Page(QStringLiteral("/temp/htmltemp0.html"));
    ClickInPage(".person"); // the film's cast has not been fetched
    ASSERT_TRUE(QTest::qWaitFor([&] { return !dialogs.boxes.isEmpty(); }));
    EXPECT_THAT(TakeMessages(), ::testing::HasSubstr("'35601'"));
    Tree().expand(Node(QStringLiteral("Alien")));
    ClickInPage(".person");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Tree().Selected() == Node(QStringLiteral("Sigourney Weaver")); }));
    ClickInPage(".credits");
    const QString credits = Page(QStringLiteral("/temp/htmltemp1.html"));
    EXPECT_TRUE(credits.contains(u"Ripley") && credits.contains(u"Tom Skerritt")) << qPrintable(credits);
    EXPECT_EQ(window->State().history.At(1).key, QStringLiteral("\"1\n11\""));
    ClickNode(QStringLiteral("Alien"));
    Page(QStringLiteral("/temp/htmltemp2.html"));
    ClickInPage(".brazil");
    EXPECT_TRUE(Page(QStringLiteral("/temp/htmltemp3.html")).contains(u"Brazil"));
    EXPECT_EQ(Tree().Selected(), Node(QStringLiteral("Brazil")));
}

TEST_F(MainWindow, TheNfoIsAPageAndNoStep)
{
    Start();
    ClickNode(QStringLiteral("Alien"));
    Page(QStringLiteral("/temp/htmltemp0.html"));
    Choose("mnuView", "MnuViewNfo");
    EXPECT_TRUE(Page(QStringLiteral("/htmltemp.html")).contains(u"Seen in the dark."));
    EXPECT_EQ(window->State().history.At(2).key, QString());
}

TEST_F(MainWindow, AMenuOpensOverAFilmByMouseAndKeyboard)
{
    Start();
    auto& menu = Get<QMenu>("mnuTreeview");
    Tree().expand(Node(QStringLiteral("A")));
    QWidget* viewport = Tree().viewport();
    const QPoint place = Tree().visualRect(Node(QStringLiteral("Alien"))).center();
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, viewport->mapTo(window.get(), place));
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); }));
    EXPECT_EQ(Tree().Selected(), Node(QStringLiteral("Alien")));
    EXPECT_TRUE(Entry("mnuDelete").isEnabled());
    QTest::keyClick(&menu, Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&Tree(), &byKey);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); }));
    EXPECT_TRUE(Tree().geometry().contains(Tree().parentWidget()->mapFromGlobal(menu.pos())));
    menu.close();
}

TEST_F(MainWindow, HostileTitlesShowInTreeAndPage)
{
    const QStringList titles = {QString(10000, u'x'),
                                QStringLiteral("\"Quoted\" & 'tied' <b>bold</b>"),
                                QStringLiteral("one\ntwo\r\nthree"),
                                QStringLiteral("100% %1 $& \\1"),
                                QStringLiteral("Броненосец «Потёмкин»"),
                                QStringLiteral("東京物語 🎬"),
                                QStringLiteral("'; DROP TABLE Movie; --")};
    for (QString title : titles)
        catalog.Run(QStringLiteral("INSERT INTO Movie (Title) VALUES ('%1')").arg(title.replace(u'\'', QStringLiteral("''"))).toUtf8());
    Start();
    int page = 0;
    for (const QString& title : titles) {
        SCOPED_TRACE(qPrintable(title.left(60)));
        ClickNode(title.simplified());
        const QString text = Page(QStringLiteral("/temp/htmltemp%1.html").arg(page++)).simplified();
        EXPECT_TRUE(text.contains(title.simplified())) << qPrintable(text.left(300));
    }
}

} // namespace
} // namespace kelvado
