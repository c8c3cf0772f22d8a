#pragma once

#include "core/Events.h"
#include "core/Shell.h"
#include "ui/Skinner.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>

class QWidget;

namespace kelvado {

class frmProgress;

/// Runs one job at a time that goes through many steps by itself, with a window that shows how far it is and can cancel it.
class StepRun : public QObject
{
    Q_OBJECT
public:
    /// What a run works on; all of it outlives this object.
    struct Context
    {
        Events& events;
        Shell& shell;
        const Skinner& skinner;
    };
    explicit StepRun(const Context& context);
    ~StepRun() override;

    struct Texts
    {
        QString window;    ///< title of the progress window
        QString work;      ///< its line while the job is under way
        int openAfter = 0; ///< milliseconds; a job that has ended by then shows no window
    };
    /// Runs `job` while `owner` waits. What the job raises is raised when the window is gone. False, and nothing is done, while another
    /// run is under way.
    bool Run(QWidget& owner, const Texts& texts, const std::function<void()>& job);

    /// For the job: shows that it is at step `done` of `count`, which `place` says in words, and serves events now and then. False where
    /// the job is to end.
    bool Show(const QString& what, const QString& place, qint64 done, qint64 count);
    /// The same for a step that takes long: events are served in any case.
    bool ShowLong(const QString& what, const QString& place, qint64 done, qint64 count);

    /// For the job: takes the window away, where a message or something that shows itself is all that is left.
    void CloseWindow();

    /// A run serves events, so other windows can be reached meanwhile.
    bool IsBusy() const { return m_running; }
    /// Whether the last run was cancelled.
    bool IsCancelled() const { return m_cancelled; }
    /// Cancels the run under way, and does `what` when it has ended.
    void End(std::function<void()> what);
    /// Whether the last run was cancelled by `End`: nothing is told of it then.
    bool IsLeft() const { return m_left; }

private:
    void OpenWhenDue();

    Context m_context;
    std::unique_ptr<frmProgress> m_progress;
    QString m_work;
    std::function<void()> m_open;
    int m_openAfter = 0;
    QElapsedTimer m_started, m_shown;
    std::function<void()> m_afterRun;
    bool m_running = false;
    bool m_cancelled = false;
    bool m_left = false;
};

} // namespace kelvado
