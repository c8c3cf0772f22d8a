#include "intake/FileAdd.h"

#include "core/Afterwards.h"
#include "core/Conversions.h"
#include "core/Guard.h"
#include "core/Literals.h"
#include "intake/MediaFile.h"
#include "web/retrieval/mIMDB.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace kelvado {

namespace {

std::optional<FilmRecord> Retrieve(const RowParts& row, FilmDesk& desk)
{
    desk.progress.ShowFilm(DecodeEntities(row.Title));
    try {
        return RetrieveFilm(row.Number, desk);
    } catch (const RuntimeError& error) {
        throw RetrievalFailure(error);
    }
}

} // namespace

std::optional<QString> AddFileFilm(AVIDetails& details, const FileChoice& choice, FilmDesk& desk)
{
    AVIDetails stored = details;
    if (choice.multiplyByDiscs)
        MultiplyByDiscs(stored, choice.entries.discs);
    if (!MayStoreAgain(choice.row, desk))
        return std::nullopt;

    desk.job.CurrentFilm = desk.job.FilmCount = 1;
    const RowParts row = PartsOf(choice.row);
    std::optional<QString> title;
    std::optional<IncompleteFilm> lack;
    const auto add = [&] {
        std::optional<FilmRecord> film = Retrieve(row, desk);
        if (!film)
            return;
        const QString otherTitles = OtherTitlesOf(choice.row, choice.otherTitles);
        // A title that was shortened for its row is none to store.
        if (choice.chooseTitle && !otherTitles.isEmpty())
            AskTitle(*film, IsShortened(row.Title) ? film->Title : row.Title, otherTitles, choice.chooseTitle);
        SetFileFilm(stored, choice.entries, *film);
        try {
            AddFilm(*film, desk.state.gOptions->IMDbFilmAdd, MakeWriter(desk));
        } catch (const IncompleteFilm& error) {
            lack = error; // the film is in the catalog: added once more, it would stand there twice
        }
        title = DecodeEntities(film->Title);
    };
    RunJob(desk, desk.progress, [&] {
        desk.shell.ShowWorking(true);
        Afterwards(add, [&] { desk.shell.ShowWorking(false); });
    });
    if (title)
        details = stored;
    if (lack)
        ReportError(desk.dialogs, *lack);
    return title;
}

bool MayHoldFilms(const QStringList& paths)
{
    return std::any_of(paths.begin(), paths.end(), [](const QString& path) { return IsVideoFile(path) || QFileInfo(path).isDir(); });
}

QStringList FilmsAmong(const QStringList& paths, const LookStep& step)
{
    QStringList found;
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const auto goesOn = [&] { return !step || step(paths[i], i + 1); };
        if (!goesOn())
            break;
        if (QFileInfo(paths[i]).isDir())
            found += FindVideoFiles(paths[i], goesOn);
        else if (IsVideoFile(paths[i]))
            found << paths[i];
    }
    return found;
}

void FilmFileQueue::Add(const QStringList& files)
{
    QSet<QString> known(m_waiting.begin(), m_waiting.end());
    known.insert(m_current);
    for (const QString& file : files) {
        if (known.contains(file))
            continue;
        known.insert(file);
        m_waiting << file;
    }
}

std::optional<QString> FilmFileQueue::TakeNext()
{
    if (m_waiting.isEmpty()) {
        Leave();
        return std::nullopt;
    }
    ++m_taken;
    m_current = m_waiting.takeFirst();
    return m_current;
}

void FilmFileQueue::Leave()
{
    m_waiting.clear();
    m_current.clear();
    m_taken = 0;
}

QString FilmFileQueue::PlaceText() const
{
    return u"File %1 of %2: "_s.arg(m_taken).arg(m_taken + m_waiting.size()) + FileNameOf(m_current);
}

void FilmFileQueue::NoteFailure(const RuntimeError& error)
{
    m_failures << error.Description();
}

QString FilmFileQueue::TakeFailures()
{
    constexpr qsizetype kMostNamed = 10;
    if (m_failures.isEmpty())
        return {};
    QString text = u"Files that cannot be read: %1\n\n"_s.arg(m_failures.size()) +
                   m_failures.first(std::min(kMostNamed, m_failures.size())).join(u'\n');
    if (m_failures.size() > kMostNamed)
        text.append(u"\nand %1 more"_s.arg(m_failures.size() - kMostNamed));
    m_failures.clear();
    return text;
}

} // namespace kelvado
