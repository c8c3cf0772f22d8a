// The real panels over real sockets against the page source itself.

#include "WebPanels.h"
#include "core/Literals.h"
#include "support/PageSource.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QTimer>

namespace kelvado {
namespace {

/// The parameter is the seed by which the pages get their shapes.
class EndToEnd : public FilmPanels, public testing::WithParamInterface<int>
{
protected:
    void Serve(const QStringList& options = {})
    {
        source.emplace(Folder(), QStringList{u"--seed"_s, QString::number(GetParam())} + options);
        SetHosts(source->Host());
    }

    static QString Folder() { return u"" PAGESOURCE_FOLDER ""_s; }

    void Search(const QString& text)
    {
        Get<QLineEdit>("txtSearch").setText(text);
        Press("Image1");
    }

    /// Puts the row of this film into the queue.
    void Choose(const char* number)
    {
        for (int row = 0; row < List("lstSearch").topLevelItemCount(); ++row) {
            if (List("lstSearch").topLevelItem(row)->text(1) == QLatin1StringView(number))
                return DoubleClick("lstSearch", row);
        }
        FAIL() << number << " is not in\n" << Rows("lstSearch");
    }

    /// The large picture of the page source for this film.
    static QByteArray LargePicture(const char* number)
    {
        QFile file(Folder() + u"/pagesource-images/%1-large.jpg"_s.arg(QLatin1StringView(number)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << number;
        return file.readAll();
    }

    QString Ask(const std::string& sql) const { return catalog.Ask(sql.c_str()); }

    std::optional<PageSource> source;
};

INSTANTIATE_TEST_SUITE_P(Pages, EndToEnd, testing::Values(0, 11), testing::PrintToStringParamName());

TEST_P(EndToEnd, FilmsAreFoundQueuedNamedAddedAndShown)
{
    Serve();
    Set("DefaultValues", "PromptAKA", u"1"_s);
    StartAdding();
    Search(u"of"_s);
    EXPECT_GT(List("lstSearch").topLevelItemCount(), 10);
    Choose("0317248");
    Choose("0056172");
    Search(u"der Anderen"_s); // one film has this other title: the site leads straight to its page
    EXPECT_EQ(Rows("lstSearch"), "The Lives of Others (2006)|0405094");
    Choose("0405094");
    EXPECT_EQ(List("lstSelect").topLevelItemCount(), 3);

    Get<QCheckBox>("ChkDefault").setChecked(true);
    Get<QComboBox>("cboFormat").setEditText(u"Laserdisc"_s);
    Get<QLineEdit>("txtDiscs").setText(u"3"_s);
    Get<QLineEdit>("txtIndex").setText(u"B & 12's"_s);
    QStringList offered;
    InWindow("frmAkaSet", [&](QWidget& modal) {
        auto& list = *modal.findChild<QListWidget*>(u"lstAkaSel"_s);
        for (int i = 0; i < list.count(); ++i)
            offered << list.item(i)->text();
        list.setCurrentRow(1);
        QTest::mouseClick(modal.findChild<QWidget*>(u"cmdOkay"_s), Qt::LeftButton);
    });
    Press("Command2");
    EXPECT_EQ(offered, QStringList({u"City of God (2002)"_s, u"Cidade de Deus"_s}));
    EXPECT_EQ(TakeMessages(), "0 Movie Grab Complete: Successfully Added 3 Films");

    EXPECT_EQ(NewTitles(), "Cidade de Deus) / Lawrence of Arabia (1962) / The Lives of Others (2006)");
    EXPECT_EQ(Ask("SELECT group_concat(DISTINCT Format || Number || \"Index\") FROM Movie WHERE Movie_ID > 3"), u"Laserdisc3B & 12's"_s);
    EXPECT_EQ(Ask("SELECT TitleNY || ' ' || Year || ' ' || IMDB || ' ' || Rating FROM Movie WHERE Movie_ID = 5"),
              u"Lawrence of Arabia 1962 0056172 8.5"_s);
    EXPECT_EQ(Ask("SELECT group_concat(Actor || ': ' || Character, '; ') FROM (SELECT Actor, Character FROM ActorLink JOIN Actor USING "
                  "(Actor_ID) WHERE Movie_ID = 5 ORDER BY ActorLink.rowid LIMIT 2)"),
              u"Peter O'Toole: T.E. Lawrence; Alec Guinness: Prince Faisal"_s);
    EXPECT_EQ(Ask("SELECT Director FROM DirectorLink JOIN Director USING (Director_ID) WHERE Movie_ID = 5"), u"David Lean"_s);
    for (const char* links : {"WriterLink", "ProducerLink", "GenreLink", "CompanyLink"})
        EXPECT_NE(Ask(std::string("SELECT count(*) FROM ") + links + " WHERE Movie_ID = 5"), u"0"_s) << links;
    EXPECT_EQ(Ask("SELECT lower(hex(Image)) FROM Images JOIN Movie USING (Image_ID) WHERE Movie.Movie_ID = 6").toLatin1(),
              LargePicture("0405094").toHex())
        << "the shop's larger picture is looked up";

    Press("ImgTabMovieList");
    ClickNode(u"Lawrence of Arabia (1962)"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp0.html"_s).contains(u"Peter O'Toole"));
    EXPECT_EQ(RunInPage(u"document.querySelector('img[src*=\"temp\"]').naturalWidth > 0"_s), true);
}

TEST_P(EndToEnd, StoredFilmsAreRenewed)
{
    Serve();
    catalog.Run("UPDATE Movie SET Title = 'Metropolis (1927)' WHERE Movie_ID = 2");
    Start();
    ClickNode(u"Alien"_s);
    Entry("mnuUpdateMovieInfo").trigger();
    EXPECT_TRUE(Node(u"Alien (1979)"_s).isValid()) << Shown();
    EXPECT_EQ(Ask("SELECT Format || ' ' || Nfo || ' ' || IMDB FROM Movie WHERE Movie_ID = 1"), u"DVD Seen in the dark. 0078748"_s);
    EXPECT_EQ(Ask("SELECT count(*) FROM ActorLink JOIN Actor USING (Actor_ID) WHERE Movie_ID = 1 AND Actor = 'Sigourney Weaver'"), u"1"_s);
    EXPECT_TRUE(Page(u"/temp/htmltemp1.html"_s).contains(u"Harry Dean Stanton"));

    ClickNode(u"Metropolis (1927)"_s);
    Entry("mnuMovieRetrieve").trigger();
    auto& rows = *Get("frmAddSingleIMDb").findChild<QTreeWidget*>(u"lstSearch"_s);
    ASSERT_EQ(rows.topLevelItemCount(), 1) << "the text of the node is searched for";
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualItemRect(rows.topLevelItem(0)).center());
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, rows.visualItemRect(rows.topLevelItem(0)).center());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(Ask("SELECT IMDB || ' ' || Format FROM Movie WHERE Movie_ID = 2"), u"0017136 Request"_s);
}

TEST_P(EndToEnd, TextsThatAreTooLongAreCutOrGivenToTheUser)
{
    const QString longTitle = u"The Long Film "_s.repeated(25).trimmed();
    home.Write(u"sets/title.basics.tsv"_s,
               u"tconst\ttitleType\tprimaryTitle\toriginalTitle\tisAdult\tstartYear\tendYear\truntimeMinutes\tgenres\n"
               "tt0000010\tmovie\t%1\t%1\t0\t1931\t\\N\t88\tDrama\n"_s.arg(longTitle)
                   .toUtf8());
    ASSERT_EQ(
        QProcess::execute(Folder() + u"/kelvado-pagesource"_s, {u"import"_s, home.Path(u"sets"_s), u"--data"_s, home.Path(u"long.db"_s)}),
        0);
    Serve({u"--data"_s, home.Path(u"long.db"_s)});
    for (const bool cut : {true, false}) {
        SCOPED_TRACE(cut);
        window.reset();
        catalog.Run("DELETE FROM Movie WHERE IMDB = '0000010'");
        Set("IMDb", "AutoCut", cut ? u"-1"_s : u"0"_s);
        StartAdding();
        Get<QLineEdit>("txtSearch").setText(u"long film"_s);
        QueueAll();
        EXPECT_EQ(Rows("lstSelect"), longTitle.left(37).toStdString() + " ...|0000010");
        dialogs.edits << u"Shortened"_s;
        Press("Command2");
        EXPECT_EQ(TakeMessages(), "0 Movie Grab Complete: Successfully Added 1 Films");
        EXPECT_EQ(Ask("SELECT Title FROM Movie ORDER BY Movie_ID DESC LIMIT 1"), cut ? longTitle.left(255) : u"Shortened"_s);
        EXPECT_EQ(std::exchange(dialogs.fieldEdits, {}).value(0), cut ? QString() : u"TITLE:255"_s);
        dialogs.edits.clear();
    }
}

TEST_P(EndToEnd, NumbersOfAFileAreImportedAndACancelLeavesNothing)
{
    Serve();
    home.Write(u"list.html"_s, "<a href=\"/title/tt0017136/\">Metropolis</a> and 0022100");
    Start();
    Entry("mnuImportIMDb").trigger();
    QWidget& panel = Get("frmImportIMDb");
    const auto press = [&](const char* button) {
        QTest::mouseClick(panel.findChild<QWidget*>(QString::fromLatin1(button)), Qt::LeftButton);
    };
    dialogs.files << home.Path(u"list.html"_s);
    press("cmdSelFile");
    EXPECT_EQ(panel.findChild<QListView*>(u"List1"_s)->model()->rowCount(), 2);

    // The second film is cancelled while its cast is on the way.
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        if (!window->findChild<QWidget*>(u"frmProgress"_s) || Get<QLabel>("lblFilmOf").text() != u"2 / 2"_s ||
            Get<QLabel>("lblCurrent").text() != u"Retrieving IMDb Credits Page"_s)
            return;
        watch.stop();
        dialogs.answers << kAnswerYes;
        Press("cmdCancel");
    });
    watch.start(0);
    press("Command2");
    EXPECT_FALSE(watch.isActive());
    EXPECT_EQ(TakeMessages(), "4 : Are you sure you wish to cancel IMDb retrieval? | 64 Movie Grab Complete: 1 of 2 films were added "
                              "before the cancel.");
    EXPECT_EQ(NewTitles(), "Metropolis (1927)");
    EXPECT_EQ(Ask("SELECT count(*) FROM ActorLink WHERE Movie_ID > 4"), u"0"_s);
    EXPECT_EQ(Ask("SELECT count(*) FROM Images"), u"1"_s);
    EXPECT_TRUE(window->isEnabled());
    EXPECT_TRUE(Node(u"Metropolis (1927)"_s).isValid());
    panel.close();
}

} // namespace
} // namespace kelvado
