#include "core/WebHosts.h"

#include "core/Literals.h"

#include <utility>

namespace kelvado {

namespace {

constexpr QLatin1StringView kPageSource = "127.0.0.1:8047"_L1;

constexpr std::pair<QLatin1StringView, QString WebHosts::*> kKeys[] = {
    {"ImdbMainHost"_L1, &WebHosts::ImdbMainHost},     {"ImdbSearchHost"_L1, &WebHosts::ImdbSearchHost},
    {"ImdbPersonHost"_L1, &WebHosts::ImdbPersonHost}, {"ImdbHeadsHost"_L1, &WebHosts::ImdbHeadsHost},
    {"ImdbPosterHost"_L1, &WebHosts::ImdbPosterHost}, {"ImdbOldPosterHost"_L1, &WebHosts::ImdbOldPosterHost},
    {"AmazonMainHost"_L1, &WebHosts::AmazonMainHost}, {"AmazonImageHost"_L1, &WebHosts::AmazonImageHost},
    {"DvdEmpireHost"_L1, &WebHosts::DvdEmpireHost},   {"DvdEmpireImageHost"_L1, &WebHosts::DvdEmpireImageHost},
    {"UpdateHost"_L1, &WebHosts::UpdateHost},         {"MakerHost"_L1, &WebHosts::MakerHost},
};

} // namespace

WebHosts ReadWebHosts(const Profile& settings)
{
    WebHosts hosts;
    for (const auto& [key, host] : kKeys) {
        const QString value = settings.Value(u"Hosts"_s, key);
        hosts.*host = value.isEmpty() ? QString(kPageSource) : value;
    }
    return hosts;
}

WebHosts ReadWebHosts(const QString& settingsFile)
{
    return ReadWebHosts(Profile(settingsFile));
}

} // namespace kelvado
