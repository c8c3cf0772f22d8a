#pragma once

#include "core/Profile.h"

#include <QString>

namespace kelvado {

/// The hosts that pages are asked of and that stand in their markers: a host or host:port, no scheme, never empty.
struct WebHosts
{
    QString ImdbMainHost;
    QString ImdbSearchHost;
    QString ImdbPersonHost;
    QString ImdbHeadsHost;     ///< of the picture that stands in for a missing one
    QString ImdbPosterHost;    ///< of the newer posters
    QString ImdbOldPosterHost; ///< of the older ones
    QString AmazonMainHost;
    QString AmazonImageHost;
    QString DvdEmpireHost;
    QString DvdEmpireImageHost;
    QString UpdateHost;
    QString MakerHost; ///< of the maker's page, which exported pages link to
};

/// Reads section `Hosts` of the settings file, a key a host. A key that is missing or empty stands for the local page source.
WebHosts ReadWebHosts(const Profile& settings);
WebHosts ReadWebHosts(const QString& settingsFile);

} // namespace kelvado
