#include "web/FilmQueue.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"

namespace kelvado {

using namespace Qt::StringLiterals;

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

// True where the film is in the catalog. A failure is noted; a cancel is seen in the batch.
bool AddOne(const BatchFilm& next, FilmDesk& desk, BatchResult& result)
{
    desk.progress.ShowFilm(next.Shown);
    ShowRetrievalStage(u"Waiting for the film site…"_s, 0, 1, MakeRetrieval(desk));
    std::optional<FilmRecord> film;
    try {
        film = RetrieveFilm(next.Number, MakeRetrieval(desk));
    } catch (const RuntimeError& error) {
        if (error.Number() == kErrCancelled)
            throw;
        const QString what = IsReadersError(error) ? u"its pages could not be fetched or read. "_s : QString();
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

// Walks a list whose rows leave it when their film is in the catalog.
template<typename Row>
BatchResult AddRows(QList<Row>& rows, const std::function<BatchFilm(const Row&)>& filmOf, const std::function<void()>& behindEach,
                    FilmDesk& desk)
{
    BatchResult result;
    result.Asked = rows.size();
    // A retrieval clears the mark of a cancel when it begins, so the mark is read in front of each.
    RetrievalBatch& batch = desk.batch;
    batch = {.RetrievalCancelled = false, .CurrentFilm = 0, .FilmCount = static_cast<std::int32_t>(rows.size())};
    for (qsizetype at = 0; at < rows.size() && !batch.RetrievalCancelled;) {
        ++batch.CurrentFilm;
        if (AddOne(filmOf(rows[at]), desk, result))
            rows.removeAt(at);
        else
            ++at;
        behindEach();
    }
    result.Cancelled = batch.RetrievalCancelled;
    return result;
}

// One line a film; a long list ends in the number of those that are left out.
QString Named(const QList<BatchResult::Failure>& films)
{
    constexpr qsizetype kMostNamed = 10;
    QString lines;
    for (const BatchResult::Failure& film : films.first(std::min(kMostNamed, films.size())))
        lines.append(u'\n' + film.Film + u": "_s + film.Reason);
    if (films.size() > kMostNamed)
        lines.append(u"\nand %1 more"_s.arg(films.size() - kMostNamed));
    return lines;
}

} // namespace

RowParts PartsOf(const SearchRow& row)
{
    // A title may hold a tab of its own, made of an entity.
    return {row.Text.section(u'\t', 0, -2), row.Text.section(u'\t', -1)};
}

FilmRun::FilmRun(FilmDesk& desk) : m_shell(desk.shell), m_shown(desk.shell, desk.progress)
{
    m_shell.ShowWorking(true);
}

FilmRun::~FilmRun()
{
    m_shell.ShowWorking(false);
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

QStringList FormatsInUse(const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset formats;
    formats.Open(u"SELECT DISTINCT Format FROM Movie WHERE Format <> '' ORDER BY Format"_s, connection);
    QStringList texts;
    for (; !formats.Eof(); formats.MoveNext())
        texts << FieldString(u"Format"_s, formats);
    return texts;
}

BatchResult AddQueue(QList<SearchRow>& queue, const QueueRun& run, FilmDesk& desk)
{
    const auto filmOf = [&run](const SearchRow& row) {
        const auto prepare = [&run, otherTitles = OtherTitlesOf(row, run.otherTitles)](FilmRecord& film) {
            if (run.chooseTitle && !otherTitles.isEmpty())
                AskTitle(film, film.Title, otherTitles, run.chooseTitle);
            if (run.defaults)
                ApplyDefaults(*run.defaults, film);
        };
        const RowParts parts = PartsOf(row);
        return BatchFilm{DecodeEntities(parts.Title), parts.Number, prepare};
    };
    return AddRows<SearchRow>(
        queue, filmOf, [] {}, desk);
}

BatchResult AddNumbers(QStringList& numbers, FilmDesk& desk)
{
    // In steps, so that a cancel need not wait for the end of the pause.
    constexpr int kPauseSteps = 30;
    constexpr int kPauseStep = 100;
    const auto filmOf = [&desk](const QString& number) {
        desk.events.ServeEvents();
        return BatchFilm{u"Unknown - Ref #: "_s + number, number, {}};
    };
    const auto wait = [&] {
        for (int step = 0; step < kPauseSteps && !desk.batch.RetrievalCancelled; ++step)
            desk.events.Pause(kPauseStep);
    };
    return AddRows<QString>(numbers, filmOf, wait, desk);
}

void TellResult(const BatchResult& result, Dialogs& dialogs)
{
    const QString title = u"Movie Grab Complete"_s;
    const bool isWhole = result.Failures.isEmpty() && result.Incomplete.isEmpty();
    if (isWhole && !result.Cancelled) {
        dialogs.MessageBox(u"Successfully Added %1 Films"_s.arg(result.Asked), kBoxPlain, title);
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
    dialogs.MessageBox(text, isWhole ? kBoxInformation : kBoxExclamation, title);
}

bool UpdateFromRow(const SearchRow& row, const QStringList& otherTitles, const ChooseTitle& choose, const QString& movieId, FilmDesk& desk)
{
    const RowParts parts = PartsOf(row);
    const auto prepare = [&](FilmRecord& film) {
        const QString others = OtherTitlesOf(row, otherTitles);
        // A title that was shortened for its row is none to store.
        if (choose && !others.isEmpty())
            AskTitle(film, IsShortened(parts.Title) ? film.Title : parts.Title, others, choose);
    };
    return RetrieveOver([&parts] { return parts.Number; }, movieId, prepare, MakeRetrieval(desk), desk.state.gOptions->IMDbFilmUpdate,
                        MakeWriter(desk), desk.shell);
}

} // namespace kelvado
