#include "web/transport/Hraw.h"

#include "core/Literals.h"
#include "web/transport/HttpAnswer.h"
#include "web/transport/cHTTP.h"

#include <QNetworkAccessManager>

namespace kelvado {

Hraw::Hraw(const NetworkLimits& limits, Dialogs& dialogs) : m_limits(limits), m_http(limits, dialogs) {}

Hraw::~Hraw() = default;

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
    return cHTTP(Network(), m_limits).GetUrl(url);
}

QByteArray Hraw::OpenURL(const QString& url)
{
    constexpr int kFirstErrorStatus = 400;
    const HttpAnswer answer = FetchAnswer(Network(), url, {}, m_limits);
    return answer.status < kFirstErrorStatus ? answer.body : QByteArray();
}

QNetworkAccessManager& Hraw::Network()
{
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    return *m_network;
}

} // namespace kelvado
