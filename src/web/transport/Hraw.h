#pragma once

#include "core/Transport.h"
#include "web/transport/BodyFetch.h"
#include "web/transport/ctxHTTP.h"

#include <QString>

namespace kelvado {

/// The real web: one for the whole program, made at start.
class Hraw final : public Transport
{
public:
    /// `dialogs` must outlive this object.
    Hraw(const NetworkLimits& limits, Dialogs& dialogs);

    QString Get_HTML(const QString& url) override;
    bool FailureTold() const override { return m_http.FailureTold(); }
    QString GetUrl(const QString& url) override;
    QByteArray OpenURL(const QString& url) override;
    void Abort() override;

    /// The answer to the last `Get_HTML`.
    const QString& HTMLDoc() const { return m_htmlDoc; }

private:
    ctxHTTP m_http;
    BodyFetch m_bodies;
    QString m_htmlDoc;
};

} // namespace kelvado
