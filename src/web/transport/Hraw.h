#pragma once

#include "core/Transport.h"
#include "web/transport/NetworkLimits.h"
#include "web/transport/ctxHTTP.h"

#include <QString>

#include <memory>

class QNetworkAccessManager;

namespace kelvado {

/// The real web: one for the whole program, made at start. What it needs of the network is set up with the first fetch.
class Hraw final : public Transport
{
public:
    /// `dialogs` must outlive this object.
    Hraw(const NetworkLimits& limits, Dialogs& dialogs);
    ~Hraw() override;

    QString Get_HTML(const QString& url) override;
    void Abort() override { m_http.Abort(); }
    QString GetUrl(const QString& url) override;
    QByteArray OpenURL(const QString& url) override;

    /// The answer to the last `Get_HTML`.
    const QString& HTMLDoc() const { return m_htmlDoc; }

private:
    QNetworkAccessManager& Network();

    NetworkLimits m_limits;
    ctxHTTP m_http;
    std::unique_ptr<QNetworkAccessManager> m_network;
    QString m_htmlDoc;
};

} // namespace kelvado
