#include "TestDesk.h"
#include "WebPages.h"
#include "web/retrieval/mIMDB.h"

namespace kelvado {
namespace {

const QString kTitlePage = u"http://main.test/Title?0000001"_s;
const QString kPlotPage = u"http://main.test/Plot?0000001"_s;
const QString kCompaniesPage = u"http://main.test/Companies?0000001"_s;
const QString kCreditsPage = u"http://main.test/Credits?0000001"_s;
const QString kShopResults = u"http://search.test/r/5040-dvd/us"_s;
const QString kShopProduct = u"http://shop.test/exec/dvd/2"_s;
const QString kPoster = u"http://posters.test/media/12/48m.jpg"_s;
const QString kLargePicture = u"http://pictures.test/large.jpg"_s;

/// A list in a form that a failing test can show.
std::string Joined(const QStringList& lines)
{
    return lines.join(u'\n').toStdString();
}

class RetrievalTest : public TestDesk
{
protected:
    RetrievalTest()
    {
        transport.pages = {{kTitlePage, FetchedPage("title")},          {kPlotPage, FetchedPage("plot")},
                           {kCompaniesPage, FetchedPage("companies")},  {kCreditsPage, FetchedPage("credits")},
                           {kShopResults, FetchedPage("shop-results")}, {kShopProduct, FetchedPage("shop-product")}};
        transport.pictures = {{kPoster, "\xFF\xD8\xFFposter"}, {kLargePicture, "GIF89a large"}};
    }

    std::optional<FilmRecord> Retrieve() { return RetrieveFilm(u"0000001"_s, desk); }
};

TEST_F(RetrievalTest, AsksAllPagesInOrderAndShowsEachStage)
{
    ASSERT_TRUE(Retrieve());
    EXPECT_EQ(
        Joined(transport.requests),
        Joined({"GetUrl "_L1 + kTitlePage, u"The L\u00F6wen Affair (1987/II) (TV)"_s, u"1 / 1: Retrieving IMDb Title Page, 14%"_s,
                u"1 / 1: Parsing IMDb Title Page, 29%"_s, u"1 / 1: Locating High Resolution Imagery, 43%"_s, "Get_HTML "_L1 + kShopResults,
                "Get_HTML "_L1 + kShopProduct, u"1 / 1: Downloading Image, 57%"_s, "OpenURL "_L1 + kLargePicture,
                u"1 / 1: Retrieving IMDb Plot Page, 71%"_s, "GetUrl "_L1 + kPlotPage, u"1 / 1: Retrieving IMDb Companies Page, 86%"_s,
                "GetUrl "_L1 + kCompaniesPage, u"1 / 1: Retrieving IMDb Credits Page, 100%"_s, "GetUrl "_L1 + kCreditsPage}));
}

TEST_F(RetrievalTest, FillsTheRecordFromThePages)
{
    const FilmRecord film = Retrieve().value();
    EXPECT_EQ(film.Title + u'|' + film.TitleNY + u'|' + film.Year + u'|' + film.Rating + u'|' + film.Votes + u'|' + film.Rated,
              u"The L&#246;wen Affair (1987/II) (TV)|The L&#246;wen Affair|1987|7.0|41,310 votes|PG-13");
    EXPECT_EQ(film.IMDB, u"0912345") << "of the page that was reached";
    EXPECT_EQ(film.Language + film.Runtime, u" German/ French163 min  / Germany:162 min (cut version)");
    EXPECT_EQ(film.ImageURL + u' ' + film.HiResImageURL + u' ' + film.ImageExtention, kPoster + u' ' + kLargePicture + u" GIF"_s);
    EXPECT_EQ(film.ImageData, "GIF89a large");
    EXPECT_EQ(home.Read(u"temp/tmp.img"_s), "GIF89a large");
    EXPECT_EQ(film.Plot, ParsePlotPage(FetchedPage("plot")));
    ASSERT_EQ(film.Genres.size(), 3);
    EXPECT_EQ(film.Genres[0].Genre + film.Genres[1].Genre + film.Genres[2].Genre, u"DramaWarMystery");
    EXPECT_EQ(ParsePlotOutline(FlattenPage(FetchedPage("title"))), u" A lion keeper &#38; hisdaughter lose a circus. ");
    EXPECT_EQ(film.Companies.size(), 5);
    for (const auto& people : {film.Actors, film.Directors, film.Producers, film.Writers})
        EXPECT_FALSE(people.isEmpty());
    EXPECT_EQ(film.Format + film.Number + film.Index, QString()) << "these are the caller's";
}

TEST_F(RetrievalTest, OnlyTheKey0SparesTheShop)
{
    for (const char* value : {"0", "1", ""}) {
        WriteProfileValue(u"Options"_s, u"GetHighResImage"_s, QString::fromLatin1(value), home.Path(u"Settings.ini"_s));
        transport.requests.clear();
        const FilmRecord film = Retrieve().value();
        const bool asked = transport.requests.contains("Get_HTML "_L1 + kShopResults);
        EXPECT_EQ(asked, QByteArray(value) != "0") << value;
        EXPECT_EQ(film.ImageExtention, asked ? u"GIF" : u"JPG");
        EXPECT_EQ(transport.requests.contains("OpenURL "_L1 + kPoster), !asked);
        EXPECT_EQ(film.ImageURL, kPoster);
    }
}

TEST_F(RetrievalTest, APictureThatIsMissingOrAPageIsNone)
{
    const struct
    {
        QByteArray picture;
        QString kind;
    } cases[] = {
        {"", QString()}, {"\r\n <!DOCTYPE HTML PUBLIC>lost", QString()}, {"<HTML><body>lost", QString()}, {"unknown bytes", u"JPG"_s}};
    for (const auto& c : cases) {
        transport.pictures[kLargePicture] = c.picture;
        const FilmRecord film = Retrieve().value();
        EXPECT_EQ(film.ImageExtention, c.kind) << c.picture.constData();
        EXPECT_EQ(film.ImageData.isEmpty(), c.kind.isEmpty());
    }
    transport.pages[kTitlePage].remove(u"DVD available"_s).append(u"title_noposter2"_s);
    transport.requests.clear();
    EXPECT_EQ(ErrorOf([&] { return Retrieve(); }), 0);
    EXPECT_FALSE(transport.requests.join(u'|').contains(u"OpenURL"_s)) << "without an address none is asked for";
    EXPECT_FALSE(transport.requests.join(u'|').contains(u"Downloading"_s));
}

TEST_F(RetrievalTest, ThePlotPageWinsOnlyWhereItIsLonger)
{
    const QString outline = ParsePlotOutline(FlattenPage(FetchedPage("title")));
    for (const int more : {-1, 0, 1}) {
        const QString plot(outline.size() + more, u'p');
        transport.pages[kPlotPage] = "<p class=\"plotpar\">"_L1 + plot + "</p>"_L1;
        EXPECT_EQ(Retrieve().value().Plot, more > 0 ? plot : outline) << more;
    }
}

TEST_F(RetrievalTest, AFailedFetchIsReadLikeAnEmptyPage)
{
    for (const QString& page : {kShopResults, kShopProduct, kPlotPage, kCompaniesPage, kCreditsPage}) {
        const QString whole = transport.pages.take(page);
        EXPECT_TRUE(Retrieve()) << qPrintable(page);
        transport.pages[page] = whole;
    }
    transport.pages.remove(kCreditsPage);
    EXPECT_TRUE(Retrieve().value().Actors.isEmpty());
    transport.pages.remove(kTitlePage);
    EXPECT_EQ(ErrorOf([&] { return Retrieve(); }), kErrInvalidCall);
}

TEST_F(RetrievalTest, StagesShareTheBarWithTheOtherFilms)
{
    desk.job = {.CurrentFilm = 2, .FilmCount = 4};
    ShowRetrievalStage(u"a"_s, 1, 7, desk);
    ShowRetrievalStage(u"b"_s, 7, 7, desk);
    EXPECT_EQ(Joined(transport.requests), Joined({u"2 / 4: a, 29%"_s, u"2 / 4: b, 50%"_s}));
    desk.job.FilmCount = 0;
    EXPECT_EQ(ErrorOf([&] { ShowRetrievalStage(u"c"_s, 1, 7, desk); }), kErrDivisionByZero);
}

class UpdateMovieInfoTest : public RetrievalTest
{
protected:
    UpdateMovieInfoTest()
    {
        catalog.Run("INSERT INTO Movie (Movie_ID, Title, IMDB, Plot) VALUES (7, 'Old', '0000001', 'old plot');"
                    "INSERT INTO Actor (Actor_ID, Actor) VALUES (3, 'Old Actor');"
                    "INSERT INTO ActorLink (Actor_ID, Movie_ID) VALUES (3, 7)");
    }

    int Update()
    {
        return ErrorOf([&] { UpdateMovieInfo(7, desk); });
    }
    /// The film's title, and how often the actor that it had is linked.
    QString Held() const { return catalog.Ask("SELECT Title || (SELECT count(*) FROM ActorLink WHERE Actor_ID = 3) FROM Movie"); }
};

TEST_F(UpdateMovieInfoTest, StoresTheFilmAnewAndShowsIt)
{
    desk.job.CurrentFilm = 5;
    desk.job.FilmCount = 9;
    EXPECT_EQ(Update(), 0);
    EXPECT_EQ(Held(), u"The L&#246;wen Affair (1987/II) (TV)0");
    EXPECT_EQ(catalog.Ask("SELECT count(*) > 1 FROM ActorLink WHERE Movie_ID = 7"), u"1");
    EXPECT_EQ(transport.requests.constFirst(), u"open");
    EXPECT_EQ(transport.requests.constLast(), u"close");
    EXPECT_TRUE(transport.requests.contains(u"1 / 1: Retrieving IMDb Title Page, 14%"_s));
    EXPECT_EQ(Joined(shell.calls), Joined({u"EnableMainWindow 0"_s, u"Retitle 7 The L\u00F6wen Affair (1987/II) (TV)"_s, u"Rekey 7"_s,
                                           u"EnableMainWindow 1"_s, u"ShowSelection"_s}));
}

TEST_F(UpdateMovieInfoTest, ACancelEndsTheFetchUnderWayAndLeavesTheFilmAlone)
{
    const std::pair<QString, qsizetype> cases[] = {{kTitlePage, 1}, {kShopResults, 2},   {kShopProduct, 3}, {kLargePicture, 4},
                                                   {kPlotPage, 5},  {kCompaniesPage, 6}, {kCreditsPage, 7}};
    for (const bool programEnds : {false, true}) {
        for (const auto& [during, fetches] : cases) {
            SCOPED_TRACE(qPrintable(during));
            shell.calls.clear();
            transport.requests.clear();
            dialogs.answers << kAnswerNo << kAnswerYes;
            transport.duringEach = [&] {
                if (!transport.requests.constLast().endsWith(during))
                    return;
                if (programEnds)
                    return EndJob(desk);
                EXPECT_FALSE(AskCancelRetrieval(desk));
                EXPECT_FALSE(transport.aborted);
                EXPECT_TRUE(AskCancelRetrieval(desk));
            };
            EXPECT_EQ(Update(), programEnds ? kErrCancelled : 0);
            EXPECT_EQ(transport.requests.filter(u"http://"_s).size(), fetches);
            EXPECT_EQ(Held(), u"Old1");
            EXPECT_EQ(Joined(shell.calls), Joined({u"EnableMainWindow 0"_s, u"EnableMainWindow 1"_s}));
        }
        transport.duringEach = nullptr;
        EXPECT_EQ(programEnds || Retrieve(), true) << "the next run starts afresh";
    }
    EXPECT_EQ(dialogs.boxes[0], (ScriptedDialogs::Box{u"Are you sure you wish to cancel IMDb retrieval?"_s, kBoxYesNo, QString()}));
}

TEST_F(UpdateMovieInfoTest, LeavesTheFilmAloneWhereAPageCannotBeRead)
{
    const std::pair<QString, QString> cases[] = {
        {kTitlePage, QString()},
        {kPlotPage, u"<p class=\"plotpar\">without an end"_s},
        {kCompaniesPage, u"Distributors</h2><ul><li><a href=\"/\">No link end</li></ul>"_s},
        {kCreditsPage, u"Cast</b></a><table><a href=\"/name/nm1/\">No end</a></table>"_s},
    };
    for (const auto& [page, content] : cases) {
        const QString whole = transport.pages.value(page);
        transport.pages[page] = content;
        transport.requests.clear();
        EXPECT_NE(Update(), 0) << qPrintable(page);
        EXPECT_EQ(Held(), u"Old1") << qPrintable(page);
        EXPECT_EQ(transport.requests.constLast(), u"close");
        EXPECT_EQ(shell.calls.constLast(), u"EnableMainWindow 1");
        transport.pages[page] = whole;
    }
    catalog.Run("DELETE FROM Movie");
    EXPECT_EQ(Update(), kErrNoCurrentRecord);
    EXPECT_EQ(shell.calls.constLast(), u"EnableMainWindow 1");
}

} // namespace
} // namespace kelvado
