#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Events.h"
#include "core/RuntimeError.h"
#include "core/Shell.h"
#include "core/Transport.h"
#include "store/mDBConnection.h"

#include <QScopedValueRollback>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace kelvado {

/// The window of a job that waits for the web.
class JobWindow
{
public:
    virtual ~JobWindow() = default;

    /// Shows the window centred above the main one.
    virtual void Open() = 0;
    virtual void Close() = 0;
};

/// What the user sees of the retrieval of films; `frmProgress` stands behind it.
class RetrievalProgress : public JobWindow
{
public:
    virtual void ShowFilm(const QString& title) = 0; ///< `lblFilm`
    /// `filmOf` ("2 / 4") goes to `lblFilmOf`, `stage` to `lblCurrent`, `percent` (0 to 100) to the bar and with "%" to `lblPercent`.
    virtual void ShowStage(const QString& filmOf, const QString& stage, int percent) = 0;
};

/// Where a retrieval stands, of films one after the other or of a person.
struct FilmJob
{
    bool RetrievalCancelled = false; ///< by the user, or as the program ends
    bool ProgramEnds = false;        ///< nothing is stored, shown or asked any more
    std::int32_t CurrentFilm = 1;    ///< from 1; the caller sets both numbers before each film
    std::int32_t FilmCount = 1;
};

/// What those who bring films and persons in from the web work with, one copy in the program; all of it outlives them.
struct FilmDesk
{
    AppState& state;
    Shell& shell;
    Dialogs& dialogs;
    Events& events;
    Transport& transport;
    RetrievalProgress& progress;
    FilmJob job;
    bool fetching = false; ///< a handler waits for the web; every other one that would fetch stays out
};

/// The turn of one handler at the web, which it gives back at its end.
using FetchTurn = QScopedValueRollback<bool>;
/// Takes the turn; where another handler has it, says so and returns nothing.
std::optional<FetchTurn> TakeTurn(FilmDesk& desk);

/// Runs `work` with the main window disabled and the job's window shown. Both are as before, however `work` ends.
void RunJob(FilmDesk& desk, JobWindow& window, const std::function<void()>& work);
/// Ends the job under way, its running fetch at once; what that has brought is dropped.
void CancelJob(FilmDesk& desk);
/// The same for the end of the program.
void EndJob(FilmDesk& desk);
/// Whether the user's cancel ended the job with `error`: a fetch that was cancelled raises as one does that the end of the program has
/// left.
bool WasCancelledByUser(const RuntimeError& error, const FilmDesk& desk);

/// What the writers work with: the open catalog.
WriterContext MakeWriter(FilmDesk& desk);

} // namespace kelvado
