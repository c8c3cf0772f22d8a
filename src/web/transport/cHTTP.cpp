#include "web/transport/cHTTP.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Version.h"
#include "web/transport/BodyFetch.h"

namespace kelvado {

cHTTP::cHTTP(BodyFetch& bodies, const QString& url) : m_bodies(bodies), m_url(url) {}

QString cHTTP::UserAgent() const
{
    if (!m_userAgent.isEmpty())
        return m_userAgent;
    return u"Mozilla/4.0 (compatible; KelDB %1.%2; Win32;)"_s.arg(kMajorVersion).arg(kMinorVersion);
}

void cHTTP::SetUrl(const QString& /*url*/) {}

QString cHTTP::GetUrl(const QString& url)
{
    const QString& address = url.isEmpty() ? m_url : url;
    return address.isEmpty() ? QString() : FromWindows1252(m_bodies.Fetch(address, UserAgent()).body);
}

} // namespace kelvado
