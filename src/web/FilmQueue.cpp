#include "web/FilmQueue.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"

#include <QScopeGuard>

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
    // A page that did not arrive is read like an empty one, so the parser's error is all that tells of it.
    const QString text = u"Run-time error '%1': %2"_s.arg(error.Number()).arg(error.Description());
    return error.Number() == kErrInvalidCall ? u"its pages could not be fetched or read. "_s + text : text;
}

// `next` gives the film at a place of the list, `onAdded` takes it from there.
class Batch
{
public:
    Batch(FilmDesk& desk, qsizetype count) : m_desk(desk), m_retrieval(MakeRetrieval(desk)), m_writer(MakeWriter(desk))
    {
        m_result.Asked = count;
        desk.batch.FilmCount = static_cast<std::int32_t>(count);
        desk.batch.CurrentFilm = 0;
        desk.batch.RetrievalCancelled = false;
    }

    /// False after a cancel; else `added` tells what became of the film.
    bool Add(const BatchFilm& next, bool& added)
    {
        added = false;
        ++m_desk.batch.CurrentFilm;
        m_desk.progress.ShowFilm(next.Shown);
        try {
            std::optional<FilmRecord> film = RetrieveFilm(next.Number, m_retrieval);
            if (!film)
                return !(m_result.Cancelled = true);
            if (next.Prepare)
                next.Prepare(*film);
            AddFilm(*film, m_desk.state.gOptions->IMDbFilmAdd, m_writer);
            added = true;
            ++m_result.Added;
        } catch (const RuntimeError& error) {
            if (error.Number() == kErrCancelled)
                throw;
            m_result.Failures.append({next.Shown, ReasonOf(error)});
        }
        return !(m_result.Cancelled = m_desk.batch.RetrievalCancelled);
    }

    BatchResult& Result() { return m_result; }
    bool Cancelled() { return m_result.Cancelled = m_result.Cancelled || m_desk.batch.RetrievalCancelled; }

private:
    FilmDesk& m_desk;
    Retrieval m_retrieval;
    WriterContext m_writer;
    BatchResult m_result;
};

} // namespace

RowParts PartsOf(const SearchRow& row)
{
    return {row.Text.section(u'\t', 0, 0), row.Text.section(u'\t', 1, 1)};
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
    Connection connection;
    connection.Open(ConnectionString(catalogPath));
    Recordset formats;
    formats.Open(u"SELECT DISTINCT Format FROM Movie WHERE Format <> '' ORDER BY Format"_s, connection);
    QStringList texts;
    for (; !formats.Eof(); formats.MoveNext())
        texts << FieldString(u"Format"_s, formats);
    return texts;
}

BatchResult AddQueue(QList<SearchRow>& queue, const QueueRun& run, FilmDesk& desk)
{
    desk.shell.ShowWorking(true);
    const auto idle = qScopeGuard([&desk] { desk.shell.ShowWorking(false); });
    const RetrievalRun shown(desk.shell, desk.progress);
    Batch batch(desk, queue.size());
    qsizetype at = 0;
    while (at < queue.size() && queue[at].Text.size() > 1 && !batch.Cancelled()) {
        const SearchRow row = queue[at];
        const RowParts parts = PartsOf(row);
        const auto prepare = [&](FilmRecord& film) {
            const QString otherTitles = OtherTitlesOf(row, run.otherTitles);
            if (run.chooseTitle && !otherTitles.isEmpty())
                AskTitle(film, film.Title, otherTitles, run.chooseTitle);
            if (run.defaults)
                ApplyDefaults(*run.defaults, film);
        };
        bool added = false;
        batch.Add({DecodeEntities(parts.Title), parts.Number, prepare}, added);
        if (added)
            queue.removeAt(at);
        else
            ++at;
    }
    desk.shell.RefreshCatalogTree();
    return batch.Result();
}

BatchResult AddNumbers(QStringList& numbers, const std::function<void(int milliseconds)>& pause, FilmDesk& desk)
{
    // In steps, so that a cancel need not wait for the end of the pause.
    constexpr int kPauseSteps = 30;
    constexpr int kPauseStep = 100;
    desk.shell.ShowWorking(true);
    const auto idle = qScopeGuard([&desk] { desk.shell.ShowWorking(false); });
    const RetrievalRun shown(desk.shell, desk.progress);
    Batch batch(desk, numbers.size());
    qsizetype at = 0;
    while (at < numbers.size() && !batch.Cancelled()) {
        bool added = false;
        batch.Add({u"Unknown - Ref #: "_s + numbers[at], numbers[at], {}}, added);
        if (added)
            numbers.removeAt(at);
        else
            ++at;
        for (int step = 0; step < kPauseSteps && !batch.Cancelled(); ++step)
            pause(kPauseStep);
    }
    desk.shell.RefreshCatalogTree();
    return batch.Result();
}

void TellResult(const BatchResult& result, Dialogs& dialogs)
{
    constexpr qsizetype kMostNamed = 10;
    const QString title = u"Movie Grab Complete"_s;
    if (result.Failures.isEmpty()) {
        if (!result.Cancelled)
            dialogs.MessageBox(u"Successfully Added %1 Films"_s.arg(result.Asked), kBoxPlain, title);
        return;
    }
    QString text = u"%1 of %2 films were added. These were not:\n"_s.arg(result.Added).arg(result.Asked);
    for (const BatchResult::Failure& failure : result.Failures.first(std::min(kMostNamed, result.Failures.size())))
        text.append(u"\n"_s + failure.Film + u": "_s + failure.Reason);
    if (result.Failures.size() > kMostNamed)
        text.append(u"\nand %1 more"_s.arg(result.Failures.size() - kMostNamed));
    dialogs.MessageBox(text, kBoxExclamation, title);
}

bool UpdateFromRow(const SearchRow& row, const QStringList& otherTitles, const ChooseTitle& choose, const QString& movieId, FilmDesk& desk)
{
    desk.batch.CurrentFilm = 1;
    desk.batch.FilmCount = 1;
    const RetrievalRun shown(desk.shell, desk.progress);
    const RowParts parts = PartsOf(row);
    std::optional<FilmRecord> film = RetrieveFilm(parts.Number, MakeRetrieval(desk));
    if (!film)
        return false;
    const QString others = OtherTitlesOf(row, otherTitles);
    if (choose && !others.isEmpty())
        AskTitle(*film, parts.Title, others, choose);
    UpdateFilm(*film, movieId, desk.state.gOptions->IMDbFilmUpdate, MakeWriter(desk), desk.shell);
    return true;
}

} // namespace kelvado
