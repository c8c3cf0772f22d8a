// A person's retrieval through the main window, over real sockets.

#include "WebPanels.h"
#include "browse/CatalogModel.h"
#include "support/PageSource.h"

namespace kelvado {
namespace {

class Persons : public WebPanels
{
protected:
    /// Starts with the person of this link selected in the cast of "Alien".
    void StartAt(const char* link)
    {
        catalog.Run(QByteArray("UPDATE Actor SET IMDB_LINK = '" + QByteArray(link) + "' WHERE Actor_ID = 11").constData());
        Start();
        Tree().expand(Node(u"A"_s));
        Tree().expand(Node(u"Alien"_s));
        Tree().setCurrentIndex(Tree().model()->index(0, 0, Node(u"Alien"_s)));
        Page(u"/temp/htmltemp0.html"_s);
    }
    int Image() const { return Tree().Selected().data(CatalogModel::ImageRole).toInt(); }
    QString Retrieved() { return catalog.Ask("SELECT IsRetreived FROM Actor WHERE Actor_ID = 11"); }
};

TEST_F(Persons, AreChosenByKeyboardRetrievedAndShown)
{
    const PageSource source(u"" PAGESOURCE_FOLDER ""_s);
    SetHosts(source.Host());
    Browser browser;
    StartAt("Stewart,+James");
    EXPECT_EQ(Image(), CatalogModel::kImagePerson);
    InWindow("frmActorPrompt", [](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    Entry("mnuActorRetreive").trigger();
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(Retrieved(), u"0");

    QStringList rows;
    InWindow("frmActorPrompt", [&](QWidget& modal) {
        auto* list = modal.findChild<QListWidget*>(u"lstActor"_s);
        EXPECT_EQ(modal.focusWidget(), list);
        for (const QListWidgetItem* row : list->findItems({}, Qt::MatchContains))
            rows << row->text();
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_V);
        QTest::keyClick(list, Qt::Key_Up);
        QTest::keyClick(list, Qt::Key_Return);
    });
    Entry("mnuActorRetreive").trigger();
    EXPECT_EQ(rows,
              (QStringList{u"James Stewart  (born 1908)"_s, u"James Stewart  (sound department, born 1931)"_s, u"James Stewart  "_s}));
    EXPECT_EQ(browser.opened, QStringList{u"http://%1/Name?nm9900000"_s.arg(source.Host())});
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_EQ(Image(), CatalogModel::kImagePersonRetrieved);

    const QString page = Page(u"/temp/htmltemp1.html"_s);
    for (const char16_t* fact : {u"Sigourney Weaver", u"20 May, 1908", u"Indiana, Pennsylvania, USA", u"6' 3", u"Vertigo (1958)"})
        EXPECT_TRUE(page.contains(QStringView(fact))) << qPrintable(page);
    EXPECT_FALSE(page.contains(u'<')) << qPrintable(page);
    EXPECT_EQ(RunInPage(u"document.querySelector('.cover').naturalWidth > 0"_s), true);
}

TEST_F(Persons, AreLeftAloneByACancelAndTheTurnIsFreeAgain)
{
    instead = [](const QByteArray& path) {
        return path.startsWith("/name/") ? LoopbackServer::Reply{{}, LoopbackServer::Then::Stall} : LoopbackServer::Reply{};
    };
    StartAt("nm0900031");
    QTimer::singleShot(200, window.get(), [this] {
        EXPECT_FALSE(window->isEnabled());
        QTest::mouseClick(window->findChild<QDialog*>(u"frmDisabled"_s)->findChild<QPushButton*>(u"cmdCancel"_s), Qt::LeftButton);
    });
    Entry("mnuActorRetreive").trigger();
    EXPECT_TRUE(window->isEnabled() && window->focusWidget() == &Tree());
    EXPECT_EQ(Retrieved(), u"0");
    instead = nullptr;
    Entry("mnuActorRetreive").trigger(); // answered by a page that is none of a person
    EXPECT_NE(TakeMessages().find("the pages of this person could not be fetched or read"), std::string::npos);
    EXPECT_EQ(Image(), CatalogModel::kImagePerson);
}

TEST_F(Persons, PagesKeepWhatOthersWroteHarmless)
{
    catalog.Run("UPDATE Actor SET Actor = '</title><script>document.hacked = 1</script>Ann', BirthName = '\"A\" & <i></textarea>', "
                "Biography = 'Met <A TARGET=_blank HREF=\"http://site/Name?B\">Bo</A>, 1 < 2.</p> <p class=\"biopar\">Two"
                "<script>document.hacked = 1</script><img src=x onerror=\"document.hacked = 1\"></textarea><br>"
                "<a href=\"javascript:document.hacked = 1\">no link</a>' WHERE Actor_ID = 11");
    StartAt("");
    const QString page = Page(u"/temp/htmltemp0.html"_s);
    for (const char16_t* text :
         {u"</title><script>document.hacked = 1</script>Ann", u"\"A\" & <i></textarea>", u"Met Bo, 1 < 2.", u"</textarea>\nno link"})
        EXPECT_TRUE(page.contains(QStringView(text))) << qPrintable(page);
    EXPECT_EQ(RunInPage(u"Array.from(document.querySelectorAll('#biography a'), (link) => link.href).join(' ')"_s),
              u"http://site/Name?B"_s);
    EXPECT_EQ(RunInPage(u"document.querySelectorAll('main script, main img[onerror]').length + (document.hacked || 0)"_s), 0);
}

} // namespace
} // namespace kelvado
