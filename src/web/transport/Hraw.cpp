#include "web/transport/Hraw.h"

#include "core/Literals.h"
#include "web/transport/cHTTP.h"

namespace kelvado {

Hraw::Hraw(const NetworkLimits& limits, Dialogs& dialogs) : m_http(limits, dialogs), m_bodies(limits) {}

void Hraw::Abort()
{
    m_http.Abort();
    m_bodies.Abort();
}

QString Hraw::Get_HTML(const QString& url)
{
    if (!url.isEmpty()) {
        m_http.SetUrl(url);
        m_http.SetUserAgent(u"Mozilla/4.0 (compatible; MSIE 5.0; Windows 98; DigExt)"_s);
        m_htmlDoc = m_http.GetData();
    }
    return m_htmlDoc;
}

QString Hraw::GetUrl(const QString& url)
{
    return cHTTP(m_bodies).GetUrl(url);
}

QByteArray Hraw::OpenURL(const QString& url)
{
    constexpr int kFirstErrorStatus = 400;
    const BodyFetch::Answer answer = m_bodies.Fetch(url, {});
    return answer.status < kFirstErrorStatus ? answer.body : QByteArray();
}

} // namespace kelvado
