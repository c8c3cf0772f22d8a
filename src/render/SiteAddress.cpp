#include "render/SiteAddress.h"

#include "core/Literals.h"
#include "core/Profile.h"

namespace kelvado {

QString SiteAddress(const QString& settingsFile)
{
    const QString host = ReadProfileValue(u"Hosts"_s, u"ImdbMainHost"_s, settingsFile);
    return u"http://"_s + (host.isEmpty() ? u"127.0.0.1:8047"_s : host);
}

} // namespace kelvado
