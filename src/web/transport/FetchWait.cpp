#include "web/transport/FetchWait.h"

#include "core/RuntimeError.h"

#include <QTimer>

namespace kelvado {

FetchWait::FetchWait(const NetworkLimits& limits)
    : m_deadline(limits.TimeoutMilliseconds > 0 ? QDeadlineTimer(limits.TimeoutMilliseconds) : QDeadlineTimer(QDeadlineTimer::Forever))
{
}

bool FetchWait::ServeUntil(const std::function<bool()>& ended)
{
    bool timeIsUp = false;
    if (!m_aborted && !ended()) {
        QTimer timer;
        timer.setSingleShot(true);
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &m_loop, [&] {
            timeIsUp = true;
            m_loop.quit();
        });
        if (!m_deadline.isForever())
            timer.start(static_cast<int>(m_deadline.remainingTime()));
        m_loop.exec();
    }
    if (m_aborted || (!timeIsUp && !ended()))
        throw RuntimeError(kErrCancelled);
    return !timeIsUp;
}

void FetchWait::Abort()
{
    m_aborted = true;
    m_loop.quit();
}

} // namespace kelvado
