#include "web/mIMDB.h"

#include "core/Conversions.h"
#include "core/Profile.h"
#include "core/RuntimeError.h"
#include "web/PictureFetch.h"
#include "web/WebText.h"
#include "web/mIMDBAmazon.h"
#include "web/mIMDBCompaniesParse.h"
#include "web/mIMDBCreditsParse.h"
#include "web/mIMDBPlotParse.h"
#include "web/mIMDBTitleParse.h"

namespace kelvado {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStageCount = 7;

QString FetchPage(QLatin1StringView page, const QString& number, const Retrieval& retrieval)
{
    return retrieval.transport.GetUrl("http://"_L1 + retrieval.hosts.ImdbMainHost + page + number);
}

void ShowStage(int step, const QString& text, const Retrieval& retrieval)
{
    ShowRetrievalStage(text, step, kStageCount, retrieval);
}

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

QString StoredNumber(const QString& movieId, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset film;
    film.Open("SELECT * FROM Movie WHERE Movie_ID = "_L1 + movieId, connection);
    return FieldString(u"IMDB"_s, film);
}

} // namespace

RetrievalRun::RetrievalRun(Shell& shell, RetrievalProgress& progress) : m_shell(shell), m_progress(progress)
{
    m_shell.EnableMainWindow(false);
    try {
        m_progress.Open();
    } catch (...) {
        m_shell.EnableMainWindow(true);
        throw;
    }
}

RetrievalRun::~RetrievalRun()
{
    m_progress.Close();
    m_shell.EnableMainWindow(true);
}

std::optional<FilmRecord> RetrieveFilm(const QString& number, const Retrieval& retrieval)
{
    const bool& cancelled = retrieval.batch.RetrievalCancelled;
    retrieval.batch.RetrievalCancelled = false;

    const QString titlePage = FlattenPage(FetchPage("/Title?"_L1, number, retrieval));
    if (cancelled)
        return std::nullopt;
    const TitleInfo title = ParseTitleBlock(titlePage);
    retrieval.progress.ShowFilm(DecodeEntities(title.RawTitle));

    ShowStage(1, u"Retrieving IMDb Title Page"_s, retrieval);
    FilmRecord film;
    film.Plot = ParsePlotOutline(titlePage);

    ShowStage(2, u"Parsing IMDb Title Page"_s, retrieval);
    if (cancelled)
        return std::nullopt;
    ReadTitlePage(titlePage, title, retrieval.hosts, film);

    ShowStage(3, u"Locating High Resolution Imagery"_s, retrieval);
    if (ReadProfileValue(u"Options"_s, u"GetHighResImage"_s, retrieval.settingsFile) != "0"_L1) {
        film.HiResImageURL =
            GetHiResImage(film.Title, titlePage, retrieval.hosts, [&](const QString& url) { return retrieval.transport.Get_HTML(url); });
    }
    if (cancelled)
        return std::nullopt;

    const QString picture = film.HiResImageURL.isEmpty() ? film.ImageURL : film.HiResImageURL;
    if (!picture.isEmpty()) {
        ShowStage(4, u"Downloading Image"_s, retrieval);
        const FetchedPicture fetched = FetchPicture(picture, retrieval.tempFolder + "/tmp.img"_L1, retrieval.transport);
        film.ImageData = fetched.data;
        film.ImageExtention = fetched.kind;
    }

    ShowStage(5, u"Retrieving IMDb Plot Page"_s, retrieval);
    const QString plot = ParsePlotPage(FetchPage("/Plot?"_L1, number, retrieval));
    if (plot.size() > film.Plot.size())
        film.Plot = plot;
    if (cancelled)
        return std::nullopt;

    ShowStage(6, u"Retrieving IMDb Companies Page"_s, retrieval);
    film.Companies = ParseCompanies(FlattenPage(FetchPage("/Companies?"_L1, number, retrieval)));
    if (cancelled)
        return std::nullopt;

    ShowStage(7, u"Retrieving IMDb Credits Page"_s, retrieval);
    const QString credits = FlattenPage(FetchPage("/Credits?"_L1, number, retrieval));
    film.Actors = ParseActors(credits).value_or(QList<FilmPerson>());
    film.Directors = ParseDirectors(credits).value_or(QList<FilmPerson>());
    film.Producers = ParseProducers(credits).value_or(QList<FilmPerson>());
    film.Writers = ParseWriters(credits).value_or(QList<FilmPerson>());
    if (cancelled)
        return std::nullopt;
    return film;
}

void ShowRetrievalStage(const QString& text, int step, int stepCount, const Retrieval& retrieval)
{
    const RetrievalBatch& batch = retrieval.batch;
    if (batch.FilmCount == 0 || stepCount == 0)
        throw RuntimeError(kErrDivisionByZero);
    const double share = 1.0 / batch.FilmCount;
    const double percent = 100 * ((static_cast<double>(step) / stepCount) * share + share * (batch.CurrentFilm - 1));
    retrieval.progress.ShowStage(u"%1 / %2"_s.arg(batch.CurrentFilm).arg(batch.FilmCount), text, static_cast<int>(RoundHalfEven(percent)));
}

bool AskCancelRetrieval(RetrievalBatch& batch, Dialogs& dialogs)
{
    if (dialogs.MessageBox(u"Are you sure you wish to cancel IMDb retrieval?"_s, kBoxYesNo) != kAnswerYes)
        return false;
    batch.RetrievalCancelled = true;
    return true;
}

bool RetrieveOver(const std::function<QString()>& numberOf, const QString& movieId, const std::function<void(FilmRecord&)>& prepare,
                  const Retrieval& retrieval, const cOptIMDbFilm& options, const WriterContext& writer, Shell& shell)
{
    try {
        retrieval.batch.CurrentFilm = 1;
        retrieval.batch.FilmCount = 1;
        const RetrievalRun run(shell, retrieval.progress);
        std::optional<FilmRecord> film = RetrieveFilm(numberOf(), retrieval);
        if (!film)
            return false;
        if (prepare)
            prepare(*film);
        UpdateFilm(*film, movieId, options, writer, shell);
    } catch (const IncompleteFilm&) {
        shell.ShowSelection();
        throw;
    }
    shell.ShowSelection();
    return true;
}

void UpdateMovieInfo(const QString& movieId, const Retrieval& retrieval, const cOptIMDbFilm& options, const WriterContext& writer,
                     Shell& shell)
{
    const auto storedNumber = [&] { return StoredNumber(movieId, writer.catalogPath); };
    RetrieveOver(storedNumber, movieId, {}, retrieval, options, writer, shell);
}

} // namespace kelvado
