#include "WebPanels.h"

#include <cmath>

namespace kelvado {
namespace {

class AddPanel : public WebPanels
{
protected:
    void LookUp(const char* number)
    {
        Get<QLineEdit>("txtIMDBnum").setText(QString::fromLatin1(number));
        Get<QLineEdit>("txtIMDBnum").setFocus();
        Key(Qt::Key_Return);
    }
};

constexpr const char* kFound = "The L\u00F6wen Affair (1987/II) (TV)|0912345\n"
                               "Another Affair (1990)|0912346\n"
                               "A Very Long Affair of the Town of Lio ...|0912347";

TEST_F(AddPanel, FilmsAreSearchedQueuedNamedAndAdded)
{
    Set("DefaultValues", "PromptAKA", u"1"_s);
    Set("DefaultValues", "Enable", u"1"_s);
    Set("DefaultValues", "Format", u"Laserdisc"_s);
    StartAdding();
    Get<QLineEdit>("txtIndex").setText(u"B & 12's"_s);
    Get<QLineEdit>("txtSearch").setFocus();
    QTest::keyClicks(QApplication::focusWidget(), u"lion affair"_s);
    Key(Qt::Key_Return);
    EXPECT_EQ(site.Paths().value(0), "/Tsearch?title=lion%20affair&type=substring&from_year=1890&to_year=2009&sort=smart&tv=off&x=20&y=9");
    EXPECT_EQ(Rows("lstSearch"), kFound);

    List("lstSearch").setFocus();
    Key(Qt::Key_Home);
    EXPECT_EQ(Get<QLabel>("lblAka").text(), u"Die L\u00F6wen-Aff\u00E4re\nThe Lion Affair"_s);
    Key(Qt::Key_Down);
    EXPECT_FALSE(Get("lblAka").isVisible());
    Key(Qt::Key_Up);
    Key(Qt::Key_Return, 2);
    DoubleClick("lstSearch", 0);
    EXPECT_EQ(Rows("lstSelect"), kFound);
    DoubleClick("lstSelect", 1);
    EXPECT_EQ(Rows("lstSearch"), "Another Affair (1990)|0912346");
    DoubleClick("lstSearch", 0); // comes to the end

    QStringList stages;
    onRequest = [&](const QByteArray& path) {
        EXPECT_TRUE(!window->isEnabled() && Get("frmProgress").isVisible() && Get("cmdCancel").isEnabled());
        stages << Get<QLabel>("lblFilmOf").text() + u' ' + Get<QLabel>("lblPercent").text() + u' ' + QString::fromLatin1(path);
    };
    QStringList offered;
    InWindow("frmAkaSet", [&](QWidget& modal) {
        auto& list = *modal.findChild<QListWidget*>(u"lstAkaSel"_s);
        for (int i = 0; i < list.count(); ++i)
            offered << list.item(i)->text();
        QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
        QApplication::sendEvent(&list, &focus);
        EXPECT_EQ(list.currentRow(), -1) << "no row looks selected that is not";
        QTest::mouseClick(modal.findChild<QWidget*>(u"cmdOkay"_s), Qt::LeftButton);
        list.setCurrentRow(1);
        InWindow("frmAkaSet", [](QWidget& second) { // the third film's; it keeps its own title
            second.findChild<QListWidget*>(u"lstAkaSel"_s)->setCurrentRow(0);
            QTest::mouseClick(second.findChild<QWidget*>(u"cmdOkay"_s), Qt::LeftButton);
        });
        QTest::mouseClick(modal.findChild<QWidget*>(u"cmdOkay"_s), Qt::LeftButton);
    });
    Press("Command2");
    EXPECT_EQ(offered, QStringList({u"The L\u00F6wen Affair (1987/II) (TV)"_s, u"Die L\u00F6wen-Aff\u00E4re"_s, u"The Lion Affair"_s}));
    EXPECT_TRUE(stages.contains(u"2 / 3 62% /Companies?0912347"_s)) << qPrintable(stages.join(u'\n'));
    EXPECT_EQ(TakeMessages(), "0 Error: AKA Selection: Please Select A Title First | 0 Movie Grab Complete: Successfully Added 3 Films");
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(Rows("lstSearch") + Rows("lstSelect"), "");
    EXPECT_EQ(Get<QPlainTextEdit>("txtLog").toPlainText().trimmed(), u"Successfully Added 3 Films."_s);

    EXPECT_EQ(NewTitles(), "Die L\u00F6wen-Aff\u00E4re) / A Very Long Affair (2001) / Another Affair (1990)");
    EXPECT_EQ(
        catalog.Ask("SELECT count(*) FROM Movie WHERE Movie_ID > 3 AND Format = 'Laserdisc' AND Number = 1 AND \"Index\" = 'B & 12''s'"),
        u"3"_s);
}

TEST_F(AddPanel, ANumberIsLookedUp)
{
    constexpr const char* kNoNumber =
        "0 : The iMDB title code you have entered is either not numeric or is not seven digits. Please re-enter "
        "the title code.";
    constexpr const char* kNoFilm = "0 : You have entered an Invalid IMDb title code.  Please re-enter the title code";
    StartAdding();
    for (const char* number : {"", "123456", "12345678", "abcdefg"}) {
        LookUp(number);
        EXPECT_EQ(TakeMessages(), kNoNumber) << number;
    }
    Press("Command2");
    EXPECT_EQ(TakeMessages(), "0 : You have not selected any movies to be added.");
    EXPECT_TRUE(site.requests.isEmpty());

    instead = [](const QByteArray& path) {
        const QByteArray number = path.mid(path.indexOf('?') + 1);
        const QByteArray title = number == "0000002" ? "0000002 - not found" : "Some\r\n L&#246;we";
        return LoopbackServer::Reply{number == "0000003" ? QByteArray("HTTP/1.0 200 OK\r\n\r\nnothing")
                                                         : "HTTP/1.0 200 OK\r\n\r\n<title>" + title + "</title>"};
    };
    LookUp("0000001");
    EXPECT_EQ(Rows("lstSearch"), "Some L&#246;we|0000001");
    LookUp("0000002");
    EXPECT_EQ(TakeMessages(), kNoFilm);
    EXPECT_TRUE(Get("Image1").isEnabled());
    const LoopbackServer closing{QByteArray()};
    SetHosts(closing.Host());
    LookUp("0000004");
    EXPECT_EQ(TakeMessages(), kNoFilm) << "no other message has told of the empty answer";
    EXPECT_TRUE(Get("Image1").isEnabled());
    SetHosts(site.Host());
    LookUp("0000003");
    EXPECT_EQ(TakeMessages(), kNoFilm);
    EXPECT_TRUE(!Get("Image1").isEnabled() && !Get("CmdByIMDBno").isEnabled());
    site.requests.clear();
    Get<QLineEdit>("txtSearch").setFocus();
    Key(Qt::Key_Return);
    EXPECT_TRUE(site.requests.isEmpty()) << "the panel is locked";
    Press("ImgTabMovieList");
    Press("ImgTabMovieGrab");
    EXPECT_TRUE(Get("Image1").isEnabled());
    instead = nullptr;
    Press("Image1");
    EXPECT_EQ(Rows("lstSearch"), kFound);
}

TEST_F(AddPanel, ASecondSearchStaysOut)
{
    StartAdding();
    instead = [](const QByteArray&) { return LoopbackServer::Reply{"HTTP/1.0 200 OK\r\n\r\n<title>A Film</title>"}; };
    LookUp("0000002");
    instead = nullptr;
    DoubleClick("lstSearch", 0);
    int during = 0;
    onRequest = [&, once = false](const QByteArray&) mutable {
        if (std::exchange(once, true))
            return;
        EXPECT_FALSE(Get("Image1").isEnabled());
        EXPECT_EQ(Rows("lstSearch"), "");
        Get<QLineEdit>("txtSearch").setFocus();
        Key(Qt::Key_Return);
        Press("Command2");
        ++during;
    };
    site.requests.clear();
    Press("Image1");
    EXPECT_EQ(during, 1);
    EXPECT_EQ(site.requests.size(), 1);
    EXPECT_EQ(TakeMessages(), "64 : Another search or retrieval is still under way.");
    EXPECT_EQ(Rows("lstSearch"), kFound);
    EXPECT_EQ(Rows("lstSelect"), "A Film|0000002");
}

TEST_F(AddPanel, RowsFilmsAndPeopleAreVisitedInTheBrowser)
{
    Browser browser;
    catalog.Run("UPDATE Movie SET iSONEWS = 'http://shop.test/item?1' WHERE Movie_ID = 1;"
                "UPDATE Actor SET IMDB_LINK = 'nm0000244' WHERE Actor_ID = 11");
    Start();
    ClickNode(u"Alien"_s);
    Entry("mnuImdbVisit").trigger();
    Entry("mnuIsonewsVisitV").trigger();
    Tree().expand(Node(u"Alien"_s));
    ClickNode(u"Sigourney Weaver"_s);
    Entry("mnuImdbVisitV").trigger();
    Press("AddIMDb");
    Press("Image1");
    const auto menu = [&](const char* list) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, List(list).rect().center(), List(list).mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&List(list), &event);
        return &Get<QMenu>("mnufrmSearch");
    };
    EXPECT_FALSE(menu("lstSelect")->isVisible()) << "no row is selected";
    QTest::mouseClick(List("lstSearch").viewport(), Qt::LeftButton, {},
                      List("lstSearch").visualItemRect(List("lstSearch").topLevelItem(1)).center());
    QMenu* popup = menu("lstSearch");
    EXPECT_TRUE(popup->isVisible());
    QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(&Entry("mnufrmSearchViewOnIMDB")).center());
    EXPECT_EQ(browser.opened, QStringList({site.Url(u"/Title?0078748"_s), u"http://shop.test/item?1"_s, site.Url(u"/name/nm0000244"_s),
                                           site.Url(u"/Title?0912346"_s)}));
}

TEST_F(AddPanel, HintsAreReadable)
{
    StartAdding();
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    for (const char* control : {"txtLog", "lstSearch"}) {
        const QPalette colors = Get(control).palette();
        const double hint = luminance(colors.color(QPalette::PlaceholderText));
        const double back = luminance(colors.color(QPalette::Base));
        const double ratio = (std::max(hint, back) + 0.05) / (std::min(hint, back) + 0.05);
        EXPECT_GE(ratio, 4.5) << control;
        EXPECT_LT(ratio, 10) << control << ": a hint is not taken for a value";
    }
}

TEST_F(AddPanel, EveryControlIsReachedByTabAndHasAName)
{
    StartAdding();
    QStringList passed;
    Get("txtSearch").setFocus();
    do {
        const QWidget* at = QApplication::focusWidget();
        passed << at->objectName();
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << qPrintable(passed.last());
        Key(Qt::Key_Tab);
    } while (passed.last() != u"Command2"_s && passed.size() < 30);
    EXPECT_EQ(passed.join(u' '), u"txtSearch Image1 txtIMDBnum CmdByIMDBno lstSearch lstSelect ChkAKA ChkDefault cboFormat txtDiscs "
                                 "txtIndex txtLog Command2"_s);
}

} // namespace
} // namespace kelvado
