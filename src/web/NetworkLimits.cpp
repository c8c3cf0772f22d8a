#include "web/NetworkLimits.h"

#include "core/Profile.h"

#include <algorithm>

namespace kelvado {

NetworkLimits ReadNetworkLimits(const QString& settingsFile)
{
    constexpr int kLongestTimeout = 24 * 60 * 60;
    const auto value = [&](const QString& key) {
        return std::max(0, ReadProfileValue(QStringLiteral("Network"), key, settingsFile).toInt());
    };
    NetworkLimits limits;
    limits.ErrorEndsWait = value(QStringLiteral("ErrorEndsWait")) > 0;
    limits.TimeoutMilliseconds = std::min(value(QStringLiteral("TimeoutSeconds")), kLongestTimeout) * 1000;
    limits.MaxRedirects = value(QStringLiteral("MaxRedirects"));
    return limits;
}

} // namespace kelvado
