#include "web/retrieval/mIMDB.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "core/WebHosts.h"
#include "web/readers/WebText.h"
#include "web/readers/mIMDBAmazon.h"
#include "web/readers/mIMDBCompaniesParse.h"
#include "web/readers/mIMDBCreditsParse.h"
#include "web/readers/mIMDBPlotParse.h"
#include "web/readers/mIMDBTitleParse.h"
#include "web/retrieval/PictureFetch.h"

namespace kelvado {

namespace {

constexpr int kStageCount = 7;

void ReadTitlePage(const QString& page, const TitleInfo& title, const WebHosts& hosts, FilmRecord& film)
{
    film.Title = title.RawTitle;
    film.TitleNY = title.Name;
    film.Year = title.Year;
    film.Votes = title.Votes;
    film.Rating = title.Rating;
    film.IMDB = ParseTitleNumber(page);
    film.Language = ParseLanguage(page);
    film.Rated = ParseRated(page);
    film.Runtime = ParseRuntime(page);
    film.Genres = ParseGenres(page);
    film.ImageURL = ParsePosterUrl(page, hosts);
}

QString StoredNumber(FilmId movieId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    film.Open("SELECT * FROM Movie WHERE Movie_ID = "_L1 + QString::number(movieId), connection);
    return FieldString(u"IMDB"_s, film);
}

// One film on its way through its pages.
class Retrieval
{
public:
    Retrieval(const QString& number, FilmDesk& desk) : m_number(number), m_desk(desk) {}

    std::optional<FilmRecord> Run();

private:
    // A cancel during a fetch ends it; one behind it is seen here.
    bool IsCancelled() const { return m_desk.job.RetrievalCancelled; }
    QString Page(QLatin1StringView page) const { return m_desk.transport.GetUrl("http://"_L1 + m_hosts.ImdbMainHost + page + m_number); }
    void ShowStage(int step, const QString& text) const { ShowRetrievalStage(text, step, kStageCount, m_desk); }

    QString m_number;
    FilmDesk& m_desk;
    const Profile m_settings{SettingsFile()};
    const WebHosts m_hosts = ReadWebHosts(m_settings);
};

std::optional<FilmRecord> Retrieval::Run()
{
    const QString titlePage = FlattenPage(Page("/Title?"_L1));
    if (IsCancelled())
        return std::nullopt;
    const TitleInfo title = ParseTitleBlock(titlePage);
    m_desk.progress.ShowFilm(DecodeEntities(title.RawTitle));

    ShowStage(1, u"Retrieving IMDb Title Page"_s);
    FilmRecord film;
    film.Plot = ParsePlotOutline(titlePage);

    ShowStage(2, u"Parsing IMDb Title Page"_s);
    ReadTitlePage(titlePage, title, m_hosts, film);

    ShowStage(3, u"Locating High Resolution Imagery"_s);
    if (m_settings.Value(u"Options"_s, u"GetHighResImage"_s) != "0"_L1)
        film.HiResImageURL =
            GetHiResImage(film.Title, titlePage, m_hosts, [&](const QString& url) { return m_desk.transport.Get_HTML(url); });
    if (IsCancelled())
        return std::nullopt;

    const QString picture = film.HiResImageURL.isEmpty() ? film.ImageURL : film.HiResImageURL;
    if (!picture.isEmpty()) {
        ShowStage(4, u"Downloading Image"_s);
        const FetchedPicture fetched = FetchPicture(picture, TempFolder() + "/tmp.img"_L1, m_desk.transport);
        film.ImageData = fetched.data;
        film.ImageExtention = fetched.kind;
    }
    if (IsCancelled())
        return std::nullopt;

    ShowStage(5, u"Retrieving IMDb Plot Page"_s);
    const QString plot = ParsePlotPage(Page("/Plot?"_L1));
    if (plot.size() > film.Plot.size())
        film.Plot = plot;
    if (IsCancelled())
        return std::nullopt;

    ShowStage(6, u"Retrieving IMDb Companies Page"_s);
    film.Companies = ParseCompanies(FlattenPage(Page("/Companies?"_L1)));
    if (IsCancelled())
        return std::nullopt;

    ShowStage(7, u"Retrieving IMDb Credits Page"_s);
    const QString credits = FlattenPage(Page("/Credits?"_L1));
    film.Actors = ParseActors(credits).value_or(QList<FilmPerson>());
    film.Directors = ParseDirectors(credits).value_or(QList<FilmPerson>());
    film.Producers = ParseProducers(credits).value_or(QList<FilmPerson>());
    film.Writers = ParseWriters(credits).value_or(QList<FilmPerson>());
    if (IsCancelled())
        return std::nullopt;
    return film;
}

} // namespace

std::optional<FilmRecord> RetrieveFilm(const QString& number, FilmDesk& desk)
{
    desk.job.RetrievalCancelled = false;
    try {
        return Retrieval(number, desk).Run();
    } catch (const RuntimeError& error) {
        if (!WasCancelledByUser(error, desk))
            throw;
        return std::nullopt;
    }
}

void ShowRetrievalStage(const QString& text, int step, int stepCount, FilmDesk& desk)
{
    const FilmJob& job = desk.job;
    if (job.FilmCount == 0 || stepCount == 0)
        throw RuntimeError(kErrDivisionByZero);
    const double share = 1.0 / job.FilmCount;
    const double percent = 100 * ((static_cast<double>(step) / stepCount) * share + share * (job.CurrentFilm - 1));
    desk.progress.ShowStage(u"%1 / %2"_s.arg(job.CurrentFilm).arg(job.FilmCount), text, static_cast<int>(RoundHalfEven(percent)));
}

bool AskCancelRetrieval(FilmDesk& desk)
{
    if (desk.dialogs.MessageBox(u"Are you sure you wish to cancel IMDb retrieval?"_s, kBoxYesNo) != kAnswerYes)
        return false;
    CancelJob(desk);
    return true;
}

bool RetrieveOver(const std::function<QString()>& numberOf, FilmId movieId, const std::function<void(FilmRecord&)>& prepare, FilmDesk& desk)
{
    bool stored = false;
    try {
        desk.job.CurrentFilm = 1;
        desk.job.FilmCount = 1;
        RunJob(desk, desk.progress, [&] {
            std::optional<FilmRecord> film = RetrieveFilm(numberOf(), desk);
            if (!film)
                return;
            if (prepare)
                prepare(*film);
            UpdateFilm(*film, movieId, desk.state.gOptions->IMDbFilmUpdate, MakeWriter(desk), desk.shell);
            stored = true;
        });
    } catch (const IncompleteFilm&) {
        desk.shell.ShowSelection();
        throw;
    }
    if (stored)
        desk.shell.ShowSelection();
    return stored;
}

void UpdateMovieInfo(FilmId movieId, FilmDesk& desk)
{
    RetrieveOver([&] { return StoredNumber(movieId, desk.state.CatalogPath()); }, movieId, {}, desk);
}

} // namespace kelvado
