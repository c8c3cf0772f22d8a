#pragma once

#include "core/Transport.h"
#include "core/WebHosts.h"
#include "store/mDBConnection.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace kelvado {

/// Where a run of retrievals stands. One copy in the program.
struct RetrievalBatch
{
    bool RetrievalCancelled = false; ///< read between the stages
    std::int32_t CurrentFilm = 1;    ///< from 1; the caller sets both numbers before each film
    std::int32_t FilmCount = 1;
};

/// What the user sees of a retrieval; `frmProgress` stands behind it.
class RetrievalProgress
{
public:
    virtual ~RetrievalProgress() = default;

    /// Shows the window centred above the main one.
    virtual void Open() = 0;
    virtual void Close() = 0;
    virtual void ShowFilm(const QString& title) = 0; ///< `lblFilm`
    /// `filmOf` ("2 / 4") goes to `lblFilmOf`, `stage` to `lblCurrent`, `percent` (0 to 100) to the bar and with "%" to `lblPercent`.
    virtual void ShowStage(const QString& filmOf, const QString& stage, int percent) = 0;
};

/// What a retrieval works with.
struct Retrieval
{
    Transport& transport;
    WebHosts hosts;
    QString settingsFile;
    QString tempFolder; ///< made where it is missing
    RetrievalBatch& batch;
    RetrievalProgress& progress;
};

/// For its lifetime the main window is disabled and the progress window shown, however the run ends.
class RetrievalRun
{
public:
    RetrievalRun(Shell& shell, RetrievalProgress& progress);
    ~RetrievalRun();
    Q_DISABLE_COPY_MOVE(RetrievalRun)

private:
    Shell& m_shell;
    RetrievalProgress& m_progress;
};

/// Fetches the film of seven digits from its four pages, with one picture. Writes nothing but "tmp.img" in the folder for temporary files.
/// Nothing after a cancel: the caller then ends its run and stores nothing. A page that cannot be read raises what its parser raises.
/// A page that could not be fetched is read like an empty one; a picture that could not be leaves the film without one.
std::optional<FilmRecord> RetrieveFilm(const QString& number, const Retrieval& retrieval);

/// Shows stage `step` of `stepCount` of the present film. Raises 11 where the batch has no films.
void ShowRetrievalStage(const QString& text, int step, int stepCount, const Retrieval& retrieval);

/// Asks whether the run is to be cancelled, and marks it so. True where the progress window is to hide.
bool AskCancelRetrieval(RetrievalBatch& batch, Dialogs& dialogs);

/// Retrieves the film of the number that `numberOf` then gives, lets `prepare` (empty: nothing) work on its record, stores it over the film
/// `movieId` and shows that one. Nothing is changed before the new record is whole. False after a cancel. Raises what retrieval and store
/// raise; main window and progress are then as they were.
bool RetrieveOver(const std::function<QString()>& numberOf, const QString& movieId, const std::function<void(FilmRecord&)>& prepare,
                  const Retrieval& retrieval, const cOptIMDbFilm& options, const WriterContext& writer, Shell& shell);

/// The same for the number that the film itself has. Raises 3021 where there is no such film.
void UpdateMovieInfo(const QString& movieId, const Retrieval& retrieval, const cOptIMDbFilm& options, const WriterContext& writer,
                     Shell& shell);

} // namespace kelvado
