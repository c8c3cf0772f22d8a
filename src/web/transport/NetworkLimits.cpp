#include "web/transport/NetworkLimits.h"

#include "core/Literals.h"
#include "core/Options.h"
#include "core/Profile.h"

#include <algorithm>

namespace kelvado {

NetworkLimits ReadNetworkLimits(const QString& settingsFile)
{
    constexpr int kLongestTimeout = 24 * 60 * 60;
    const Profile settings(settingsFile);
    const auto value = [&](const QString& key) { return std::max(0, settings.Value(u"Network"_s, key).toInt()); };
    NetworkLimits limits;
    limits.ErrorEndsWait = IsOn(value(u"ErrorEndsWait"_s));
    limits.TimeoutMilliseconds = std::min(value(u"TimeoutSeconds"_s), kLongestTimeout) * 1000;
    limits.MaxRedirects = value(u"MaxRedirects"_s);
    return limits;
}

} // namespace kelvado
