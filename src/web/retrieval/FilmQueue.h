#pragma once

#include "core/Options.h"
#include "web/retrieval/FilmDesk.h"
#include "web/search/IMDBSearch.h"

#include <functional>
#include <optional>

namespace kelvado {

/// The two halves of a row.
struct RowParts
{
    QString Title;
    QString Number;
};
RowParts PartsOf(const SearchRow& row);

/// The other titles of a row's film, one a line; "" where it has none.
QString OtherTitlesOf(const SearchRow& row, const QStringList& otherTitles);

/// The titles that the user may choose from: the film's own one, then its other ones.
QStringList TitleChoices(const QString& ownTitle, const QString& otherTitles);
/// A chosen title without what stands behind its year: cut at the first ")", which then ends it, also where it had none.
QString ChosenTitle(const QString& choice);

/// Lets the user choose among titles, entities decoded; nothing where the user closed the window.
using ChooseTitle = std::function<std::optional<qsizetype>(const QStringList& titles)>;
/// Asks for the title of `film`. Without a choice it keeps its own; its short title stays in any case.
void AskTitle(FilmRecord& film, const QString& ownTitle, const QString& otherTitles, const ChooseTitle& choose);

/// What each film of a run gets where its text is not empty.
struct FilmDefaults
{
    QString Format, Number, Index;
};
void ApplyDefaults(const FilmDefaults& defaults, FilmRecord& film);
/// The formats that films of the catalog have, in order of the alphabet.
QStringList FormatsInUse(const QString& catalogPath);

/// How a run of films went.
struct BatchResult
{
    struct Failure
    {
        QString Film;
        QString Reason;
    };
    qsizetype Asked = 0;
    qsizetype Added = 0;       ///< with the incomplete ones
    QList<Failure> Failures;   ///< films that are not in the catalog
    QList<Failure> Incomplete; ///< films that are, without some of their lists
    bool Cancelled = false;
};

/// How the films of a queue are added.
struct QueueRun
{
    const QStringList& otherTitles; ///< by the rows' `AkaRow`
    ChooseTitle chooseTitle;        ///< empty: films keep the title of their page
    std::optional<FilmDefaults> defaults;
};

/// For its lifetime films are being added: the main window is disabled, progress and busy picture are shown.
class FilmRun
{
public:
    explicit FilmRun(FilmDesk& desk);
    ~FilmRun();
    Q_DISABLE_COPY_MOVE(FilmRun)

private:
    Shell& m_shell;
    RetrievalRun m_shown;
};

/// Retrieves and adds the films of `queue` in order, within a `FilmRun`. A film that fails is noted and the next one is tried; a cancel
/// ends the run. Only rows whose film is in the catalog then leave the queue.
/// Raises 32755 where the program ends meanwhile.
BatchResult AddQueue(QList<SearchRow>& queue, const QueueRun& run, FilmDesk& desk);

/// The same for bare numbers, with a pause of three seconds behind every film, the last one too. A cancel ends the pause.
BatchResult AddNumbers(QStringList& numbers, FilmDesk& desk);

/// Tells how many films were added and which were not. Nothing where a cancel came before the first one.
void TellResult(const BatchResult& result, Dialogs& dialogs);

/// Retrieves the film of `row` and stores it over the film `movieId`, with the title that the user chooses where `choose` is set; as
/// `RetrieveOver`.
bool UpdateFromRow(const SearchRow& row, const QStringList& otherTitles, const ChooseTitle& choose, const QString& movieId, FilmDesk& desk);

} // namespace kelvado
