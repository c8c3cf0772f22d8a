#include "render/SiteAddress.h"

#include "core/Literals.h"
#include "core/WebHosts.h"

namespace kelvado {

QString SiteAddress(const QString& settingsFile)
{
    return u"http://"_s + ReadWebHosts(settingsFile).ImdbMainHost;
}

QString MakerAddress(const QString& settingsFile)
{
    return u"http://"_s + ReadWebHosts(settingsFile).MakerHost;
}

} // namespace kelvado
