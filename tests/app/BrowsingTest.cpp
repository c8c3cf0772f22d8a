#include "MainWindow.h"
#include "render/forms/frmPageView.h"

#include <QDesktopServices>
#include <QWebEngineView>

namespace kelvado {
namespace {

TEST_F(MainWindow, MenusAndButtonsFollowTheCatalogAndTheSelection)
{
    const auto on = [&] {
        QString names;
        for (const char* name :
             {"Back", "Save", "Delete", "mnuEdit", "mnuLoansE", "mnuLoanReturnE", "mnuMovieRetrieve", "mnuActorRetreive"})
            names += IsOn(name) ? QLatin1StringView(name) + u' ' : QString();
        return names.toStdString();
    };
    Start();
    EXPECT_EQ(on(), "Save ");
    ClickNode(u"Alien"_s); // the first page: there is no older one
    EXPECT_EQ(on(), "Save Delete mnuEdit mnuLoansE ");
    ClickNode(u"2001"_s);
    EXPECT_EQ(on(), "Back Save Delete mnuEdit mnuLoansE mnuLoanReturnE mnuMovieRetrieve ");
    Tree().expand(Node(u"Alien"_s));
    ClickNode(u"Sigourney Weaver"_s);
    EXPECT_EQ(on(), "Back Save mnuActorRetreive "); // all of the Edit menu is off, so it does not open
    EXPECT_EQ(Get<QLabel>("ID").text(), u"11"_s);
    Key(Qt::Key_Down); // a person without an address, by keyboard
    EXPECT_EQ(Get<QLabel>("ID").text(), u"12"_s);
    Key(Qt::Key_Home);
    EXPECT_EQ(on(), "Back Save ");
}

TEST_F(MainWindow, EveryClickOnAFilmMakesAPageAndAStep)
{
    Start();
    ClickNode(u"Alien"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
    EXPECT_EQ(Get<QLabel>("ID").text(), u"1"_s);
    ClickNode(u"Alien"_s);
    ClickNode(u"Brazil"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp2.html"_s).contains(u"Brazil"));
    const History& history = window->State().history;
    EXPECT_EQ(history.At(1).key, u"\"2\n66\""_s);
    EXPECT_EQ(history.At(3).page, u"htmltemp0.html"_s);

    Press("Back");
    Press("Back");
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
    EXPECT_TRUE(!IsOn("Back") && IsOn("Forward"));
    Press("Back"); // disabled
    EXPECT_EQ(history.Position(), 3);
    Press("Forward");
    Press("Forward");
    EXPECT_TRUE(Page(u"/temp/htmltemp2.html"_s).contains(u"Brazil"));
    EXPECT_EQ(Tree().Selected(), Node(u"Brazil"_s));
    EXPECT_FALSE(IsOn("Forward"));
    EXPECT_FALSE(QFileInfo::exists(home.Path(u"temp/htmltemp3.html"_s))); // walking makes no page

    ClickNode(u"B"_s); // a group
    EXPECT_EQ(Page(u"about:blank"_s), QString());
}

TEST_F(MainWindow, BackAndForwardByKeysAndSideButtons)
{
    Start();
    ClickNode(u"Alien"_s);
    ClickNode(u"Brazil"_s);
    const QWidget& tree = *Tree().viewport();
    const QPoint place = tree.mapTo(window.get(), tree.rect().center());
    QTest::keyClick(window.get(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
    QTest::keyClick(window.get(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Tree().Selected(), Node(u"Brazil"_s));
    QTest::mouseClick(window->windowHandle(), Qt::BackButton, {}, place);
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
    window->EnableMainWindow(false); // while a run goes on
    QTest::mouseClick(window->windowHandle(), Qt::ForwardButton, {}, place);
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
    window->EnableMainWindow(true);
    QTest::mouseClick(window->windowHandle(), Qt::ForwardButton, {}, place);
    EXPECT_EQ(Tree().Selected(), Node(u"Brazil"_s));
}

TEST_F(MainWindow, ANewTreeKeepsWhatIsSelectedAndOpenOrEmptiesThePage)
{
    Start();
    Tree().expand(Node(u"0-9"_s));
    ClickNode(u"Alien"_s);
    Page(u"/temp/htmltemp0.html"_s);
    Press("Refresh");
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
    EXPECT_TRUE(Tree().isExpanded(Node(u"0-9"_s)));
    EXPECT_FALSE(Tree().isExpanded(Node(u"B"_s)));
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Alien"));
    EXPECT_EQ(window->State().history.At(2).key, QString()) << "a rebuild is no step";
    Entry("mnuSortPrimDetail_2").trigger(); // by format the film has another key
    EXPECT_FALSE(Tree().Selected().isValid());
    EXPECT_EQ(Page(u"about:blank"_s), QString());
}

TEST_F(MainWindow, ACatalogWithoutFilmsSaysHowToBegin)
{
    catalog.Run("DELETE FROM Movie");
    Start();
    EXPECT_TRUE(Page(u"/empty.html"_s).contains(u"no film yet"));
    ClickInPage("a[id*=PAGE_ADD]");
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->State().CurrentSection == kMovieGrab; }));
}

TEST_F(MainWindow, TabsChangeTheSection)
{
    Start();
    ClickNode(u"Alien"_s);
    Press("ImgTabMovieGrab");
    EXPECT_TRUE(!Tree().isEnabled() && Get("picGrabSelect").isVisible() && !window->PageView().isVisible());
    Press("ImgTabMovieEdit");
    EXPECT_TRUE(Tree().isEnabled() && Get("FormScroll").isVisible());
    EXPECT_EQ(window->State().history.At(1).section, kMovieEdit);
    Press("ImgTabActorInfo"); // a film is selected, no person
    EXPECT_EQ(TakeMessages(), "64 : No Kelvado Catolog is open");
    EXPECT_EQ(window->State().CurrentSection, kActorInfo);
    ClickNode(u"Brazil"_s);
    EXPECT_EQ(window->State().CurrentSection, kMovieEdit);
    Press("ImgTabMovieList");
    EXPECT_TRUE(window->PageView().isVisible() && !Get("FormScroll").isVisible());
    EXPECT_TRUE(Page(u"/temp/htmltemp1.html"_s).contains(u"Brazil"));
    Press("AddIMDb");
    EXPECT_EQ(window->State().CurrentSection, kMovieGrab);
}

TEST_F(MainWindow, PagesLeadToNodesAndCredits)
{
    home.Write(u"Skins/Default XP/Templates/default.html"_s, "<p><a class=brazil id=\"SendMessage:GOTO:2:66\" href=#>!!TITLE!!</a>"
                                                             "<p><a class=person id=\"SendMessage:GOTO:1:11\" href=#>person</a>"
                                                             "<p><a class=credits id=\"!!NAVCREDITS!!\" href=#>credits</a>");
    Start();
    ClickNode(u"Alien"_s);
    Page(u"/temp/htmltemp0.html"_s);
    ClickInPage(".person"); // the film's cast has not been fetched
    ASSERT_TRUE(QTest::qWaitFor([&] { return !dialogs.boxes.isEmpty(); }));
    EXPECT_THAT(TakeMessages(), ::testing::HasSubstr("'35601'"));
    Tree().expand(Node(u"Alien"_s));
    ClickInPage(".person");
    EXPECT_TRUE(Page(u"/temp/htmltemp1.html"_s).contains(u"Sigourney Weaver"));
    EXPECT_EQ(Tree().Selected(), Node(u"Sigourney Weaver"_s));
    EXPECT_EQ(window->State().history.At(1).key, u"\"1\n11\""_s);
    ClickInPage("#films a");
    Page(u"/temp/htmltemp2.html"_s);
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
    ClickInPage(".credits");
    const QString credits = Page(u"/temp/htmltemp3.html"_s);
    EXPECT_TRUE(credits.contains(u"Ripley") && credits.contains(u"Tom Skerritt")) << qPrintable(credits);
    ClickNode(u"Alien"_s);
    Page(u"/temp/htmltemp4.html"_s);
    ClickInPage(".brazil");
    EXPECT_TRUE(Page(u"/temp/htmltemp5.html"_s).contains(u"Brazil"));
    EXPECT_EQ(Tree().Selected(), Node(u"Brazil"_s));

    ClickNode(u"Alien"_s); // the page of its notes is no step
    Page(u"/temp/htmltemp6.html"_s);
    Choose("mnuView", "MnuViewNfo");
    EXPECT_TRUE(Page(u"/htmltemp.html"_s).contains(u"Seen in the dark."));
    EXPECT_EQ(window->State().history.At(1).page, u"htmltemp6.html"_s);
}

TEST_F(MainWindow, AMenuOpensOverAFilmByMouseAndKeyboard)
{
    Start();
    auto& menu = Get<QMenu>("mnuTreeview");
    Tree().expand(Node(u"A"_s));
    QWidget* viewport = Tree().viewport();
    const QPoint place = Tree().visualRect(Node(u"Alien"_s)).center();
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, viewport->mapTo(window.get(), place));
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); }));
    EXPECT_EQ(Tree().Selected(), Node(u"Alien"_s));
    EXPECT_TRUE(Entry("mnuDelete").isEnabled());
    QTest::keyClick(&menu, Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&Tree(), &byKey);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); }));
    EXPECT_TRUE(Tree().geometry().contains(Tree().parentWidget()->mapFromGlobal(menu.pos())));
    menu.close();
    ClickNode(u"B"_s); // a group: every entry would be off
    QCoreApplication::sendEvent(&Tree(), &byKey);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(MainWindow, HostileTitlesShowInTreeAndPage)
{
    const QStringList titles = {QString(10000, u'x'),        u"\"Quoted\" & 'tied' <b>bold</b>"_s, u"one\ntwo\r\nthree"_s,
                                u"100% %1 $& \\1"_s,         u"Броненосец «Потёмкин»"_s,           u"東京物語 🎬"_s,
                                u"'; DROP TABLE Movie; --"_s};
    for (QString title : titles)
        catalog.Run(u"INSERT INTO Movie (Title) VALUES ('%1')"_s.arg(title.replace(u'\'', u"''"_s)).toUtf8());
    Start();
    int page = 0;
    for (const QString& title : titles) {
        SCOPED_TRACE(qPrintable(title.left(60)));
        ClickNode(title.simplified());
        const QString text = Page(u"/temp/htmltemp%1.html"_s.arg(page++)).simplified();
        EXPECT_TRUE(text.contains(title.simplified())) << qPrintable(text.left(300));
    }
}

/// Stands in for the desktop, which would open the address.
class Desktop : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void Open(const QUrl& address) { opened << address.scheme(); }

public:
    QStringList opened;
};

TEST_F(MainWindow, OnlyAddressesOfTheWebAndOfMailLeaveTheProgram)
{
    Start();
    Desktop desktop;
    const QStringList schemes{u"http"_s, u"https"_s, u"mailto"_s, u"file"_s, u"javascript"_s, u"smb"_s, u"kelvado"_s};
    for (const QString& scheme : schemes)
        QDesktopServices::setUrlHandler(scheme, &desktop, "Open");
    for (const QString& scheme : schemes)
        window->OpenOutside(QUrl(scheme + u"://host/path"_s));
    for (const QString& scheme : schemes)
        QDesktopServices::unsetUrlHandler(scheme);
    EXPECT_EQ(desktop.opened, schemes.first(3));
}

} // namespace
} // namespace kelvado

#include "BrowsingTest.moc"
