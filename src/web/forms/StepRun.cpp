#include "web/forms/StepRun.h"

#include "core/Afterwards.h"
#include "web/forms/ShowAbove.h"
#include "web/forms/frmProgress.h"

#include <QTimer>

#include <utility>

namespace kelvado {

namespace {

constexpr qint64 kServeEvery = 5;  // steps
constexpr qint64 kShowEvery = 100; // milliseconds

} // namespace

StepRun::StepRun(const Context& context) : m_context(context) {}

StepRun::~StepRun() = default;

void StepRun::End(std::function<void()> what)
{
    m_afterRun = std::move(what);
    m_left = m_cancelled = true;
}

bool StepRun::Run(QWidget& owner, const Texts& texts, const std::function<void()>& job)
{
    if (IsBusy())
        return false;
    m_running = true;
    m_left = m_cancelled = false;
    m_work = texts.work;
    m_openAfter = texts.openAfter;
    m_started.start();
    m_shown.invalidate();
    m_context.shell.EnableMainWindow(false);
    m_context.shell.ShowWorking(true);
    Afterwards(
        [&] {
            m_progress = std::make_unique<frmProgress>(&owner);
            m_progress->setWindowTitle(texts.window);
            m_progress->ShowStage({}, texts.work, 0);
            m_context.skinner.SkinForm(*m_progress);
            connect(m_progress.get(), &frmProgress::CancelAsked, this, [this] { m_cancelled = true; });
            m_open = [this, &owner] { ShowAbove(*m_progress, owner); };
            OpenWhenDue();
            job();
        },
        [this] {
            CloseWindow();
            m_running = false;
            m_context.shell.ShowWorking(false);
            m_context.shell.EnableMainWindow(true);
            if (m_afterRun)
                QTimer::singleShot(0, this, std::exchange(m_afterRun, nullptr));
        });
    return true;
}

void StepRun::OpenWhenDue()
{
    if (m_progress && !m_progress->isVisible() && m_started.elapsed() >= m_openAfter)
        m_open();
}

void StepRun::CloseWindow()
{
    LetGo(std::move(m_progress));
    m_context.shell.ShowProgress(0);
}

// The step's line is painted at a pace that can be read; painting it for each step would take longer than the steps.
bool StepRun::Show(const QString& what, const QString& place, qint64 done, qint64 count)
{
    const int percent = count > 0 ? static_cast<int>(done * 100 / count) : 0;
    m_context.shell.ShowProgress(percent);
    OpenWhenDue();
    if (m_progress && (!m_shown.isValid() || m_shown.elapsed() >= kShowEvery)) {
        m_shown.start();
        m_progress->ShowFilm(what.simplified()); // in one line
        m_progress->ShowStage(place, m_work, percent);
    }
    if (done % kServeEvery == 0)
        m_context.events.ServeEvents();
    return !m_cancelled;
}

bool StepRun::ShowLong(const QString& what, const QString& place, qint64 done, qint64 count)
{
    Show(what, place, done, count);
    m_context.events.ServeEvents();
    return !m_cancelled;
}

} // namespace kelvado
