#include "web/transport/NetworkLimits.h"

#include "core/Literals.h"
#include "core/Profile.h"

#include <algorithm>

namespace kelvado {

NetworkLimits ReadNetworkLimits(const QString& settingsFile)
{
    constexpr int kLongestTimeout = 24 * 60 * 60;
    const auto value = [&](const QString& key) { return std::max(0, ReadProfileValue(u"Network"_s, key, settingsFile).toInt()); };
    NetworkLimits limits;
    limits.ErrorEndsWait = value(u"ErrorEndsWait"_s) > 0;
    limits.TimeoutMilliseconds = std::min(value(u"TimeoutSeconds"_s), kLongestTimeout) * 1000;
    limits.MaxRedirects = value(u"MaxRedirects"_s);
    return limits;
}

} // namespace kelvado
