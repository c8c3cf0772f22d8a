#pragma once

#include "core/Options.h"
#include "web/FilmDesk.h"
#include "web/IMDBSearch.h"

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
    qsizetype Added = 0;
    QList<Failure> Failures;
    bool Cancelled = false;
};

/// How the films of a queue are added.
struct QueueRun
{
    const QStringList& otherTitles; ///< by the rows' `AkaRow`
    ChooseTitle chooseTitle;        ///< empty: films keep the title of their page
    std::optional<FilmDefaults> defaults;
};

/// Retrieves and adds the films of `queue` in order; the main window is disabled meanwhile and the tree filled anew at the end. A film
/// that fails is noted and the next one is tried; a cancel ends the run. Only rows whose film was added leave the queue.
/// Raises 32755 where the program ends meanwhile, and what filling the tree raises.
BatchResult AddQueue(QList<SearchRow>& queue, const QueueRun& run, FilmDesk& desk);

/// The same for bare numbers. `pause` waits for so many milliseconds and serves events: it stands behind every film, the last one too.
BatchResult AddNumbers(QStringList& numbers, const std::function<void(int milliseconds)>& pause, FilmDesk& desk);

/// Tells how many films were added and which were not. Nothing after a cancel that no failure came before.
void TellResult(const BatchResult& result, Dialogs& dialogs);

/// Retrieves the film of `row` and stores it over the film `movieId`, with the title that the user chooses where `choose` is set.
/// False after a cancel; raises what retrieval and store raise. In both cases nothing is changed.
bool UpdateFromRow(const SearchRow& row, const QStringList& otherTitles, const ChooseTitle& choose, const QString& movieId, FilmDesk& desk);

} // namespace kelvado
