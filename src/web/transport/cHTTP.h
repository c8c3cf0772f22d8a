#pragma once

#include <QString>

namespace kelvado {

class BodyFetch;

/// Fetches the bodies of pages.
class cHTTP
{
public:
    /// `bodies` must outlive this object.
    explicit cHTTP(BodyFetch& bodies, const QString& url = {});

    /// What was set, else the program's own name.
    QString UserAgent() const;
    void SetUserAgent(const QString& userAgent) { m_userAgent = userAgent; }

    const QString& Url() const { return m_url; }
    /// Keeps the present address and drops the new one: callers hand theirs to `GetUrl`.
    void SetUrl(const QString& url);

    /// The body of the page at `url`, or at `Url` where that is empty; "" without either, and where the fetch failed.
    QString GetUrl(const QString& url);

private:
    BodyFetch& m_bodies;
    QString m_url, m_userAgent;
};

} // namespace kelvado
