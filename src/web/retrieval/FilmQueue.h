#pragma once

#include "core/FilmId.h"
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

/// How a job of films went.
struct JobResult
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
    qsizetype Skipped = 0;     ///< rows that named a film of the run a second time
    bool Cancelled = false;
};
/// Tells how many films were added and which were not. Nothing where a cancel came before the first one.
void TellResult(const JobResult& result, Dialogs& dialogs);

/// What is done with each film of a queue before it is stored.
struct QueueChoices
{
    const QStringList& otherTitles; ///< by the rows' `AkaRow`
    ChooseTitle chooseTitle;        ///< empty: films keep the title of their page
    std::optional<FilmDefaults> defaults;
};

/// Retrieves and adds the films of `queue` in order, within a `RunJob`, shows them in the tree and tells how it went. First it asks once
/// about those whose number the catalog has already; what is then left out, and what is stored, leaves the queue. So does a row that
/// names a film a second time, unless the catalog has that film and the user wants it stored again. A film that fails is noted and the
/// next one is tried; a cancel ends the job.
/// Returns nothing where no film was tried. `log` is called with the result before it is told.
/// Raises `kErrCancelled` where the program ends meanwhile.
std::optional<JobResult> AddQueue(QList<SearchRow>& queue, const QueueChoices& choices, FilmDesk& desk,
                                  const std::function<void(const JobResult&)>& log = {});

/// The same for bare numbers, with a pause of three seconds behind every film, the last one too. A cancel ends the pause.
std::optional<JobResult> AddNumbers(QStringList& numbers, FilmDesk& desk);

/// Asks whether the film of `row` is to be stored over the film `movieId` although the catalog has it as another one; true where it has
/// not.
bool MayStoreOver(const SearchRow& row, FilmId movieId, FilmDesk& desk);

/// Asks whether the film of `row` is to be stored although the catalog has it; true where it has not.
bool MayStoreAgain(const SearchRow& row, FilmDesk& desk);

/// The failure of a retrieval as the user is told it: a reader's own error says that the film's pages could not be fetched or read.
RuntimeError RetrievalFailure(const RuntimeError& error);

/// Retrieves the film of `row` and stores it over the film `movieId`, with the title that the user chooses where `choose` is set; as
/// `RetrieveOver`.
bool UpdateFromRow(const SearchRow& row, const QStringList& otherTitles, const ChooseTitle& choose, FilmId movieId, FilmDesk& desk);

} // namespace kelvado
