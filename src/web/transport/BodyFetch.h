#pragma once

#include "web/transport/FetchWait.h"
#include "web/transport/NetworkLimits.h"

#include <QByteArray>
#include <QString>

namespace kelvado {

/// Fetches the bodies of http and https addresses, each over connections of its own, so that no answer depends on what a server makes of
/// the connection of the one before.
class BodyFetch
{
public:
    struct Answer
    {
        int status = 0; ///< 0 where there is no answer
        QByteArray body;
    };

    explicit BodyFetch(const NetworkLimits& limits) : m_limits(limits) {}

    /// What the address answers, redirects followed and no cache asked. No answer for any other kind of address, and where it did not
    /// arrive whole and in time. Events are served meanwhile; raises `kErrCancelled` behind an `Abort` and where the program ends.
    /// An empty `userAgent` stands for the plain one of a web reader.
    Answer Fetch(const QString& url, const QString& userAgent);
    /// Ends the `Fetch` that waits.
    void Abort();

private:
    NetworkLimits m_limits;
    FetchWait* m_wait = nullptr; ///< of the `Fetch` that waits
};

} // namespace kelvado
