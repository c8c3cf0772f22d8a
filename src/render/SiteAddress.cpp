#include "render/SiteAddress.h"

#include "core/Profile.h"

namespace kelvado {

QString SiteAddress(const QString& settingsFile)
{
    const QString host = ReadProfileValue(QStringLiteral("Hosts"), QStringLiteral("ImdbMainHost"), settingsFile);
    return QStringLiteral("http://") + (host.isEmpty() ? QStringLiteral("127.0.0.1:8047") : host);
}

} // namespace kelvado
