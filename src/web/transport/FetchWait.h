#pragma once

#include "web/transport/NetworkLimits.h"

#include <QDeadlineTimer>
#include <QEventLoop>

#include <functional>

namespace kelvado {

/// The wait of one fetch, over all its connections: events are served until there is an answer, the time of the fetch is up, or somebody
/// ends it.
class FetchWait
{
public:
    explicit FetchWait(const NetworkLimits& limits);

    /// Serves events until `ended`; false where the time is up first. What makes `ended` true calls `Leave` too.
    /// Raises `kErrCancelled` behind an `Abort` and where the program ends: its end leaves the loop without any of its own reasons.
    bool ServeUntil(const std::function<bool()>& ended);
    void Leave() { m_loop.quit(); }
    /// Ends the wait for good.
    void Abort();

private:
    QDeadlineTimer m_deadline;
    QEventLoop m_loop;
    bool m_aborted = false;
};

} // namespace kelvado
