#include "web/retrieval/FilmQueue.h"

#include "core/Afterwards.h"
#include "core/Conversions.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "web/readers/mIMDBTitleParse.h"
#include "web/retrieval/mIMDB.h"

#include <QHash>
#include <QSet>

namespace kelvado {

namespace {

struct BatchFilm
{
    QString Shown;
    QString Number;
    std::function<void(FilmRecord&)> Prepare;
};

QString ReasonOf(const RuntimeError& error)
{
    return u"Run-time error '%1': %2"_s.arg(error.Number()).arg(error.Description());
}

// A page that did not arrive is read like an empty one, so the reader's error is all that tells of it.
bool IsReadersError(const RuntimeError& error)
{
    return error.Number() == kErrInvalidCall || error.Number() == kErrSubscript;
}

const QString kPagesUnread = u"its pages could not be fetched or read. "_s;

// True where the film is in the catalog. A failure is noted; a cancel is seen in the batch.
bool AddOne(const BatchFilm& next, FilmDesk& desk, JobResult& result)
{
    desk.progress.ShowFilm(next.Shown);
    ShowRetrievalStage(u"Waiting for the film site…"_s, 0, 1, desk);
    std::optional<FilmRecord> film;
    try {
        film = RetrieveFilm(next.Number, desk);
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrCancelled)
            throw;
        const QString what = IsReadersError(error) ? kPagesUnread : QString();
        result.Failures.append({next.Shown, what + ReasonOf(error)});
    }
    if (!film)
        return false;
    try {
        if (next.Prepare)
            next.Prepare(*film);
        AddFilm(*film, desk.state.gOptions->IMDbFilmAdd, MakeWriter(desk));
    } catch (const IncompleteFilm& error) {
        result.Incomplete.append({next.Shown, ReasonOf(error)});
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrCancelled)
            throw;
        result.Failures.append({next.Shown, ReasonOf(error)});
        return false;
    }
    ++result.Added;
    return true;
}

// One line a film; a long list ends in the number of those that are left out.
QString Named(const QList<JobResult::Failure>& films)
{
    constexpr qsizetype kMostNamed = 10;
    QString lines;
    for (const JobResult::Failure& film : films.first(std::min(kMostNamed, films.size())))
        lines.append(u'\n' + film.Film + u": "_s + film.Reason);
    if (films.size() > kMostNamed)
        lines.append(u"\nand %1 more"_s.arg(films.size() - kMostNamed));
    return lines;
}

// The film's own seven digits, however another tool has stored them.
QString SevenDigits(const QString& number)
{
    return number.trimmed().rightJustified(kNumberDigits, u'0');
}

// The titles of the catalog's films by number, without the film `exceptMovieId`.
QHash<QString, QString> StoredFilms(const QString& catalogPath, FilmId exceptMovieId = 0)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset films;
    films.Open(u"SELECT Movie_ID, Title, IMDB FROM Movie WHERE IMDB IS NOT NULL"_s, connection);
    QHash<QString, QString> titles;
    for (; !films.Eof(); films.MoveNext()) {
        if (films.Integer(0) != exceptMovieId && !films.Text(2).isEmpty())
            titles.insert(SevenDigits(films.Text(2)), DecodeEntities(films.Text(1)));
    }
    return titles;
}

// Asks where the catalog has the film of `row` as one other than `exceptMovieId`.
bool MayStoreTwice(const SearchRow& row, FilmId exceptMovieId, const QString& question, FilmDesk& desk)
{
    const QHash<QString, QString> films = StoredFilms(desk.state.CatalogPath(), exceptMovieId);
    const auto film = films.constFind(SevenDigits(PartsOf(row).Number));
    return film == films.constEnd() ||
           desk.dialogs.ConfirmLoss(u"The catalog has this film already:\n%1\n\n%2"_s.arg(*film, question), kBoxYesNoExclamation, {});
}

// Asks once about all rows whose film is stored, takes those out that are to be left out, and then the rows that name another film a
// second time. Returns how many rows these were; nothing after a cancel.
template<typename Row>
std::optional<qsizetype> SortOut(QList<Row>& rows, const std::function<QString(const Row&)>& numberOf, FilmDesk& desk)
{
    const QHash<QString, QString> stored = StoredFilms(desk.state.CatalogPath());
    const auto isStored = [&](const Row& row) { return stored.contains(SevenDigits(numberOf(row))); };
    QList<JobResult::Failure> films;
    for (const Row& row : std::as_const(rows)) {
        if (const QString number = SevenDigits(numberOf(row)); stored.contains(number))
            films.append({stored[number], number});
    }
    if (!films.isEmpty()) {
        const int answer = desk.dialogs.MessageBox(u"The catalog has these films already:%1\n\nShall they be stored a second time? "
                                                   "\"No\" leaves them out."_s.arg(Named(films)),
                                                   kBoxYesNoCancel | kBoxExclamation | kBoxDefaultNo);
        if (answer != kAnswerYes && answer != kAnswerNo)
            return std::nullopt;
        if (answer == kAnswerNo)
            rows.removeIf(isStored);
    }
    QSet<QString> seen;
    return rows.removeIf([&](const Row& row) {
        const qsizetype before = seen.size();
        seen.insert(SevenDigits(numberOf(row)));
        return seen.size() == before && !numberOf(row).isEmpty() && !isStored(row);
    });
}

// Tries the films of all rows; those that are in the catalog then leave the list.
template<typename Row>
void AddRows(QList<Row>& rows, const std::function<BatchFilm(const Row&)>& filmOf, const std::function<void()>& behindEach, FilmDesk& desk,
             JobResult& result)
{
    // A retrieval clears the mark of a cancel when it begins, so the mark is read in front of each.
    FilmJob& job = desk.job;
    for (qsizetype at = 0; at < rows.size() && !job.RetrievalCancelled;) {
        ++job.CurrentFilm;
        const BatchFilm film = filmOf(rows[at]);
        if (job.RetrievalCancelled)
            break; // events were served
        if (AddOne(film, desk, result))
            rows.removeAt(at);
        else
            ++at;
        behindEach();
    }
    if (job.ProgramEnds)
        throw RuntimeError(kErrCancelled);
    result.Cancelled = job.RetrievalCancelled;
}

// The whole job, of which each kind of row says only what its films are.
template<typename Row>
std::optional<JobResult> RunAdding(QList<Row>& rows, const std::function<BatchFilm(const Row&)>& filmOf,
                                   const std::function<QString(const Row&)>& numberOf, const std::function<void()>& behindEach,
                                   FilmDesk& desk, const std::function<void(const JobResult&)>& log)
{
    const std::optional<qsizetype> skipped = SortOut(rows, numberOf, desk);
    if (!skipped || rows.isEmpty())
        return std::nullopt;
    JobResult result;
    result.Skipped = *skipped;
    result.Asked = rows.size();
    desk.job.RetrievalCancelled = false;
    desk.job.CurrentFilm = 0;
    desk.job.FilmCount = static_cast<std::int32_t>(rows.size());
    const auto add = [&] {
        desk.shell.ShowWorking(true);
        AddRows(rows, filmOf, behindEach, desk, result);
        if (log)
            log(result);
        // A tree that cannot be filled is no reason to keep quiet about the films.
        Guarded(desk.dialogs, [&] { desk.shell.RefreshCatalogTree(); });
        desk.progress.Close();
        TellResult(result, desk.dialogs);
    };
    RunJob(desk, desk.progress, [&] { Afterwards(add, [&] { desk.shell.ShowWorking(false); }); });
    return result;
}

} // namespace

RowParts PartsOf(const SearchRow& row)
{
    // A title may hold a tab of its own, made of an entity.
    return {row.Text.section(u'\t', 0, -2), row.Text.section(u'\t', -1)};
}

QString OtherTitlesOf(const SearchRow& row, const QStringList& otherTitles)
{
    return row.AkaRow == 0 ? QString() : otherTitles.value(row.AkaRow).mid(1);
}

QStringList TitleChoices(const QString& ownTitle, const QString& otherTitles)
{
    return QStringList(ownTitle) + otherTitles.split(u'\n', Qt::SkipEmptyParts);
}

QString ChosenTitle(const QString& choice)
{
    return choice.section(u')', 0, 0) + u')';
}

void AskTitle(FilmRecord& film, const QString& ownTitle, const QString& otherTitles, const ChooseTitle& choose)
{
    const QStringList titles = TitleChoices(ownTitle, otherTitles);
    QStringList shown;
    for (const QString& title : titles)
        shown << DecodeEntities(title);
    if (const std::optional<qsizetype> choice = choose(shown))
        film.Title = ChosenTitle(titles.value(*choice));
}

void ApplyDefaults(const FilmDefaults& defaults, FilmRecord& film)
{
    constexpr std::pair<QString FilmDefaults::*, QString FilmRecord::*> kFields[] = {{&FilmDefaults::Format, &FilmRecord::Format},
                                                                                     {&FilmDefaults::Number, &FilmRecord::Number},
                                                                                     {&FilmDefaults::Index, &FilmRecord::Index}};
    for (const auto& [value, field] : kFields) {
        if (!(defaults.*value).isEmpty())
            film.*field = defaults.*value;
    }
}

std::optional<JobResult> AddQueue(QList<SearchRow>& queue, const QueueChoices& choices, FilmDesk& desk,
                                  const std::function<void(const JobResult&)>& log)
{
    const auto filmOf = [&choices](const SearchRow& row) {
        const auto prepare = [&choices, otherTitles = OtherTitlesOf(row, choices.otherTitles)](FilmRecord& film) {
            if (choices.chooseTitle && !otherTitles.isEmpty())
                AskTitle(film, film.Title, otherTitles, choices.chooseTitle);
            if (choices.defaults)
                ApplyDefaults(*choices.defaults, film);
        };
        const RowParts parts = PartsOf(row);
        return BatchFilm{DecodeEntities(parts.Title), parts.Number, prepare};
    };
    const auto numberOf = [](const SearchRow& row) { return PartsOf(row).Number; };
    return RunAdding<SearchRow>(
        queue, filmOf, numberOf, [] {}, desk, log);
}

std::optional<JobResult> AddNumbers(QStringList& numbers, FilmDesk& desk)
{
    // In steps, so that a cancel need not wait for the end of the pause.
    constexpr int kPauseSteps = 30;
    constexpr int kPauseStep = 100;
    const auto filmOf = [&desk](const QString& number) {
        desk.events.ServeEvents();
        return BatchFilm{u"Unknown - Ref #: "_s + number, number, {}};
    };
    const auto numberOf = [](const QString& number) { return number; };
    const auto wait = [&] {
        for (int step = 0; step < kPauseSteps && !desk.job.RetrievalCancelled; ++step)
            desk.events.Pause(kPauseStep);
    };
    return RunAdding<QString>(numbers, filmOf, numberOf, wait, desk, {});
}

bool MayStoreOver(const SearchRow& row, FilmId movieId, FilmDesk& desk)
{
    return MayStoreTwice(row, movieId, u"Shall it be stored over the present film too?"_s, desk);
}

bool MayStoreAgain(const SearchRow& row, FilmDesk& desk)
{
    return MayStoreTwice(row, 0, u"Shall it be stored a second time?"_s, desk);
}

RuntimeError RetrievalFailure(const RuntimeError& error)
{
    return IsReadersError(error) ? RuntimeError(error.Number(), error.Description() + u"\r\n\r\nThe film is not stored: "_s + kPagesUnread)
                                 : error;
}

void TellResult(const JobResult& result, Dialogs& dialogs)
{
    const QString title = u"Movie Grab Complete"_s;
    const QString skipped =
        result.Skipped == 0 ? QString() : u"\n\nRows left out that named a film a second time: %1"_s.arg(result.Skipped);
    const bool isWhole = result.Failures.isEmpty() && result.Incomplete.isEmpty();
    if (isWhole && !result.Cancelled) {
        dialogs.MessageBox(u"Successfully Added %1 Films"_s.arg(result.Asked) + skipped, kBoxPlain, title);
        return;
    }
    if (isWhole && result.Added == 0)
        return;
    QString text = u"%1 of %2 films were added"_s.arg(result.Added).arg(result.Asked);
    text.append(result.Cancelled ? u" before the cancel."_s : u"."_s);
    if (!result.Failures.isEmpty())
        text.append(u"\n\nThese could not be added:"_s + Named(result.Failures));
    if (!result.Incomplete.isEmpty())
        text.append(u"\n\nThese are in the catalog, but not complete:"_s + Named(result.Incomplete));
    text.append(skipped);
    dialogs.MessageBox(text, isWhole ? kBoxInformation : kBoxExclamation, title);
}

bool UpdateFromRow(const SearchRow& row, const QStringList& otherTitles, const ChooseTitle& choose, FilmId movieId, FilmDesk& desk)
{
    const RowParts parts = PartsOf(row);
    const auto prepare = [&](FilmRecord& film) {
        const QString others = OtherTitlesOf(row, otherTitles);
        // A title that was shortened for its row is none to store.
        if (choose && !others.isEmpty())
            AskTitle(film, IsShortened(parts.Title) ? film.Title : parts.Title, others, choose);
    };
    return RetrieveOver([&parts] { return parts.Number; }, movieId, prepare, desk);
}

} // namespace kelvado
