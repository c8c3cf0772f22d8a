#pragma once

#include <QString>

namespace kelvado {

/// When a fetch gives up.
struct NetworkLimits
{
    bool ErrorEndsWait = false;                       ///< else the wait goes on after a failed connection was told
    int TimeoutMilliseconds = 0;                      ///< for a whole fetch with its redirects; 0 for no end
    int MaxRedirects = 0;                             ///< 0 for no end
    qint64 LargestAnswer = qint64(128) * 1024 * 1024; ///< in bytes; no page or picture comes near it, an endless stream does
};

/// Reads section `Network` of the settings file: `ErrorEndsWait`, `TimeoutSeconds`, `MaxRedirects`. A key that is missing, negative or no
/// number counts as 0.
NetworkLimits ReadNetworkLimits(const QString& settingsFile);

} // namespace kelvado
