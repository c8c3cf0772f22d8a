#pragma once

#include "core/Dialogs.h"
#include "core/Events.h"
#include "core/Shell.h"
#include "render/export/ExportStep.h"
#include "ui/Skinner.h"
#include "web/forms/StepRun.h"

#include <functional>

class QWidget;

namespace kelvado {

/// Runs one export at a time with a window that shows film n of m and can cancel it.
class ExportRun
{
public:
    /// What a run works on; all of it outlives this object.
    struct Context
    {
        Dialogs& dialogs;
        Events& events;
        Shell& shell;
        const Skinner& skinner;
    };
    explicit ExportRun(const Context& context);

    /// What an export says of itself.
    struct Texts
    {
        QString window;    ///< title of the progress window
        QString work;      ///< its line while films are written
        QString title;     ///< of the box at the end; empty for the product's name
        QString success;   ///< told when all is written
        QString cancelled; ///< told behind the count of films when it was cancelled: what stands now
    };
    using Job = std::function<ExportDone(const GoesOn& goesOn)>;

    /// Runs `job` while `owner` waits, and tells its end. What the job raises is raised when the window is gone. Does nothing while another
    /// run is under way.
    void Run(QWidget& owner, const Texts& texts, const Job& job);

    /// A run serves events, so other windows can be reached meanwhile.
    bool IsBusy() const { return m_steps.IsBusy(); }
    /// Cancels the run under way without a message, and does `what` when it has ended.
    void End(std::function<void()> what) { m_steps.End(std::move(what)); }

private:
    void TellEnd(const ExportDone& done, const Texts& texts);

    Context m_context;
    StepRun m_steps;
};

} // namespace kelvado
