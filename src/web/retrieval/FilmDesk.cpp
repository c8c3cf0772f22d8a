#include "web/retrieval/FilmDesk.h"

#include "core/Afterwards.h"
#include "core/Literals.h"
#include "core/Paths.h"

namespace kelvado {

std::optional<FetchTurn> TakeTurn(FilmDesk& desk)
{
    if (!desk.fetching)
        return std::optional<FetchTurn>(std::in_place, desk.fetching, true);
    desk.dialogs.MessageBox(u"Another search or retrieval is still under way."_s, kBoxInformation);
    return std::nullopt;
}

void RunJob(FilmDesk& desk, JobWindow& window, const std::function<void()>& work)
{
    desk.shell.EnableMainWindow(false);
    Afterwards(
        [&] {
            window.Open();
            work();
        },
        [&] {
            window.Close();
            desk.shell.EnableMainWindow(true);
        });
}

void CancelJob(FilmDesk& desk)
{
    desk.job.RetrievalCancelled = true;
    desk.transport.Abort();
}

void EndJob(FilmDesk& desk)
{
    desk.job.ProgramEnds = true;
    desk.progress.Close();
    CancelJob(desk);
}

bool WasCancelledByUser(const RuntimeError& error, const FilmDesk& desk)
{
    return error.Number() == kErrCancelled && desk.job.RetrievalCancelled && !desk.job.ProgramEnds;
}

WriterContext MakeWriter(FilmDesk& desk)
{
    return {desk.state.CatalogPath(), SettingsFile(), desk.dialogs};
}

} // namespace kelvado
