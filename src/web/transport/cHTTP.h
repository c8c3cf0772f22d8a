#pragma once

#include "web/transport/NetworkLimits.h"

#include <QString>

class QNetworkAccessManager;

namespace kelvado {

/// Fetches the bodies of pages.
class cHTTP
{
public:
    /// `network` must outlive this object.
    cHTTP(QNetworkAccessManager& network, const NetworkLimits& limits, const QString& url = {});

    /// What was set, else the program's own name.
    QString UserAgent() const;
    void SetUserAgent(const QString& userAgent) { m_userAgent = userAgent; }

    const QString& Url() const { return m_url; }
    /// Keeps the present address and drops the new one: callers hand theirs to `GetUrl`.
    void SetUrl(const QString& url);

    /// The body of the page at `url`, or at `Url` where that is empty; "" without either, and where the fetch failed.
    QString GetUrl(const QString& url);

private:
    QNetworkAccessManager& m_network;
    NetworkLimits m_limits;
    QString m_url, m_userAgent;
};

} // namespace kelvado
