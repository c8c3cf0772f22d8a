#include "WebPanels.h"

namespace kelvado {
namespace {

using RetrievalWindow = WebPanels;

LoopbackServer::Reply Silence()
{
    return {{}, LoopbackServer::Then::Stall};
}

TEST_F(RetrievalWindow, ACancelEndsAFetchThatIsNeverAnswered)
{
    StartAdding();
    QueueAll();
    const std::string queue = Rows("lstSelect");
    dialogs.answers << kAnswerNo << kAnswerYes;
    instead = [&](const QByteArray& path) {
        if (!path.startsWith("/Plot?0912346"))
            return LoopbackServer::Reply{};
        QTimer::singleShot(0, window.get(), [&] {
            Press("cmdCancel");
            EXPECT_TRUE(Get("frmProgress").isVisible());
            Get("cmdCancel").setFocus();
            QTest::keyClick(&Get("cmdCancel"), Qt::Key_Escape);
            EXPECT_FALSE(Get("frmProgress").isVisible());
        });
        return Silence();
    };
    Press("Command2");
    EXPECT_EQ(TakeMessages(), "4 : Are you sure you wish to cancel IMDb retrieval? | 4 : Are you sure you wish to cancel IMDb retrieval? | "
                              "64 Movie Grab Complete: 1 of 3 films were added before the cancel.");
    EXPECT_EQ(NewTitles(), "The L&#246;wen Affair (1987/II) (TV)");
    EXPECT_EQ(Rows("lstSelect"), queue.substr(queue.find('\n') + 1));
    EXPECT_TRUE(window->isEnabled());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    instead = nullptr;
    Press("Command2");
    EXPECT_EQ(TakeMessages(), "0 Movie Grab Complete: Successfully Added 2 Films");
}

TEST_F(RetrievalWindow, ASearchEndsByItsButtonAndWithItsPanel)
{
    StartAdding();
    EXPECT_FALSE(Get("cmdStop").isEnabled());
    for (const char* leave : {"cmdStop", "ImgTaddDVDEmp", "ImgTabMovieList"}) {
        SCOPED_TRACE(leave);
        instead = [&](const QByteArray&) {
            QTimer::singleShot(0, window.get(), [&] { Press(leave); });
            return Silence();
        };
        QElapsedTimer clock;
        clock.start();
        Press("Image1");
        EXPECT_LT(clock.elapsed(), 5000);
        instead = nullptr;
        Press("ImgTabMovieGrab");
        Press("ImgTaddIMDB");
        EXPECT_EQ(Rows("lstSearch"), "");
        EXPECT_TRUE(Get("Image1").isEnabled() && !Get("cmdStop").isEnabled());
        Press("Image1");
        EXPECT_EQ(List("lstSearch").topLevelItemCount(), 3);
    }

    Press("ImgTabMovieList");
    ClickNode(u"Brazil"_s);
    bool enabled = false;
    instead = [&](const QByteArray&) {
        Get<QWidget>("frmAddSingleIMDb").close();
        enabled = window->isEnabled();
        Entry("mnuMovieRetrieve").trigger();
        return Silence();
    };
    Entry("mnuMovieRetrieve").trigger();
    EXPECT_TRUE(enabled);
    EXPECT_EQ(TakeMessages(), "64 : Another search or retrieval is still under way.");
    EXPECT_TRUE(!Get("frmAddSingleIMDb").isVisible() && window->isEnabled());
}

TEST_F(RetrievalWindow, AStoredFilmIsUpdated)
{
    Start();
    ClickNode(u"Alien"_s);
    onRequest = [&](const QByteArray&) { EXPECT_TRUE(!window->isEnabled() && Get("frmProgress").isVisible()); };
    Get<QLabel>("ID").setText(u"2"_s); // of a page that was shown before; the tree says which film is meant
    Entry("mnuUpdateMovieInfo").trigger();
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(window->focusWidget(), &Tree()) << "the keys go where they went before";
    EXPECT_TRUE(Node(u"Alien Renewed (1979)"_s).isValid()) << Shown();
    EXPECT_TRUE(Page(u"/temp/htmltemp1.html"_s).contains(u"Alien Renewed"));
    EXPECT_EQ(catalog.Ask("SELECT Format || ' ' || Nfo || ' ' || IMDB FROM Movie WHERE Movie_ID = 1"), u"DVD Seen in the dark. 0078748"_s);
    EXPECT_EQ(catalog.Ask("SELECT count(*) FROM ActorLink WHERE Movie_ID = 1 AND Actor_ID IN (11, 12)"), u"0"_s);
    onRequest = nullptr;
    Entry("mnuHelpUpdate").trigger();
    EXPECT_EQ(TakeMessages(), "0 The newest build of Kelvado (yours is 2247): 2247 | 0 : Kelvado is currently upto date.");
}

TEST_F(RetrievalWindow, AFilmOfACatalogThatIsNoLongerOpenIsNotStoredOverAnotherOne)
{
    const TempCatalog other;
    other.Run("INSERT INTO Movie (Movie_ID, Title, IMDB) VALUES (1, 'Not Alien', '0912346')");
    Start();
    ClickNode(u"Alien"_s);
    for (const char* entry : {"mnuUpdateMovieInfo", "mnuMovieRetrieve"}) {
        window->State().comDiagFile.fileName = other.Path(); // as a new file leaves it that is not written over this one
        Entry(entry).trigger();
        EXPECT_TRUE(site.requests.isEmpty()) << entry;
        EXPECT_TRUE(Node(u"Not Alien"_s).isValid()) << "the tree shows what is open";
        window->State().comDiagFile.fileName = catalog.Path();
        window->RefreshCatalogTree();
        ClickNode(u"Alien"_s);
    }
    EXPECT_EQ(other.Ask("SELECT Title FROM Movie"), u"Not Alien"_s);
}

TEST_F(RetrievalWindow, AFilmWithoutANumberIsFoundAndUpdated)
{
    catalog.Run("UPDATE Movie SET Format = 'VHS' WHERE Movie_ID = 2");
    Start();
    ClickNode(u"Brazil"_s);
    Entry("mnuMovieRetrieve").trigger();
    EXPECT_EQ(site.Paths().value(0).left(21), "/Tsearch?title=Brazil");
    EXPECT_FALSE(window->isEnabled());
    QWidget& panel = Get("frmAddSingleIMDb");
    auto& rows = *panel.findChild<QTreeWidget*>(u"lstSearch"_s);
    EXPECT_EQ(rows.topLevelItemCount(), 3);
    QTest::keyClick(&rows, Qt::Key_Escape);
    EXPECT_TRUE(!panel.isVisible() && window->isEnabled());
    EXPECT_EQ(window->focusWidget(), &Tree());

    catalog.Run("UPDATE Movie SET IMDB = '0912346' WHERE Movie_ID = 3");
    Entry("mnuMovieRetrieve").trigger();
    panel.findChild<QCheckBox*>(u"ChkAKA"_s)->setChecked(false);
    QTest::keyClick(&rows, Qt::Key_Down);
    QTest::keyClick(&rows, Qt::Key_Return);
    EXPECT_TRUE(panel.isVisible()) << "the film is in the catalog as another one, and No was answered";
    EXPECT_EQ(TakeMessages().find("52 : The catalog has this film already:"), 0U);
    onRequest = [&](const QByteArray&) { EXPECT_FALSE(panel.isVisible()); };
    dialogs.answers << kAnswerYes;
    QTest::keyClick(&rows, Qt::Key_Return);
    TakeMessages();
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(catalog.Ask("SELECT Title || ' ' || IMDB || ' ' || Format FROM Movie WHERE Movie_ID = 2"),
              u"Another Affair (1990) 0912346 VHS"_s);
    EXPECT_TRUE(Node(u"Another Affair (1990)"_s).isValid());
}

TEST_F(RetrievalWindow, NumbersOfAFileAreImported)
{
    home.Write(u"list.txt"_s, "Films: tt0912346, 123456, 1111111 and again 09123469");
    Start();
    Entry("mnuImportIMDb").trigger();
    QWidget& panel = Get("frmImportIMDb");
    auto& add = *panel.findChild<QWidget*>(u"Command2"_s);
    auto& list = *panel.findChild<QListView*>(u"List1"_s);
    const auto isFront = [&] { return QTest::qWaitFor([&] { return QApplication::activeWindow() == &panel; }); };
    for (const int numbers : {0, 3}) { // the first choice of a file is cancelled
        window->activateWindow();
        QTest::mouseClick(panel.findChild<QWidget*>(u"cmdSelFile"_s), Qt::LeftButton);
        EXPECT_TRUE(isFront()) << "the keys belong to the panel";
        EXPECT_EQ(list.model()->rowCount(), numbers);
        EXPECT_EQ(add.isEnabled(), numbers > 0);
        dialogs.files << home.Path(u"list.txt"_s);
    }
    list.setCurrentIndex(list.model()->index(1, 0));
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(list.model()->rowCount(), 2);
    QString film;
    onRequest = [&](const QByteArray& path) {
        if (path == "/Title?0912346" && film.isEmpty())
            film = Get<QLabel>("lblFilm").text();
        EXPECT_FALSE(window->isEnabled());
        panel.close();
        EXPECT_TRUE(panel.isVisible()) << "a run keeps its window";
    };
    events.pauses = false;
    QTest::mouseClick(&add, Qt::LeftButton);
    EXPECT_EQ(events.paused, 3000);
    EXPECT_EQ(film, u"Unknown - Ref #: 0912346"_s);
    EXPECT_EQ(TakeMessages(), "0 Movie Grab Complete: Successfully Added 1 Films\n\nRows left out that named a film a second time: 1");
    EXPECT_EQ(NewTitles(), "Another Affair (1990)");
    EXPECT_TRUE(!panel.isVisible() && window->isEnabled());
    EXPECT_TRUE(Node(u"Another Affair (1990)"_s).isValid());
}

TEST_F(RetrievalWindow, ClosingTheProgramEndsTheWait)
{
    StartAdding();
    QueueAll();
    instead = [&](const QByteArray& path) {
        if (!path.startsWith("/Plot?"))
            return LoopbackServer::Reply{};
        QTimer::singleShot(0, window.get(), &QWidget::close);
        return Silence();
    };
    bool returned = false;
    QTimer::singleShot(0, window.get(), [&] {
        Press("Command2");
        returned = true;
    });
    QApplication::exec();
    EXPECT_TRUE(returned);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(NewTitles() + TakeMessages(), "<null>");
}

} // namespace
} // namespace kelvado
