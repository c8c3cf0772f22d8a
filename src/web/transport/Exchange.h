#pragma once

#include "web/transport/FetchWait.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace kelvado {

/// The numbers by which users know socket errors, as far as the fetchers name them.
inline constexpr int kSocketOtherFailure = 40006;

/// The other end of a connection.
struct Peer
{
    QString host;
    quint16 port = 80;
    bool encrypted = false;
};

/// What one connection has brought.
struct Exchanged
{
    enum class End {
        Closed, ///< by the other side, or by us as there was enough
        Failed,
        OverLimit
    };

    QByteArray bytes;
    End end = End::Closed;
    int errorNumber = 0; ///< of a failure and a limit
    QString errorText;
};

/// Sends `request` over a connection of its own and takes what comes back, until the other side closes, until `isEnough` of what has
/// come so far (empty: never), or until a limit. Events are served; raises as `FetchWait::ServeUntil`.
Exchanged Exchange(const Peer& peer, const QByteArray& request, qint64 largestAnswer, FetchWait& wait,
                   const std::function<bool(const QByteArray& bytes)>& isEnough = {});

} // namespace kelvado
