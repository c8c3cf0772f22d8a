#include "web/transport/BodyFetch.h"

#include "core/Literals.h"
#include "web/transport/Exchange.h"
#include "web/transport/HttpAnswer.h"

#include <QScopedValueRollback>
#include <QUrl>

#include <algorithm>

namespace kelvado {

namespace {

constexpr int kRedirects[] = {301, 302, 303, 307, 308};

bool IsOnTheWeb(const QUrl& address)
{
    return address.isValid() && !address.host().isEmpty() && (address.scheme() == "http"_L1 || address.scheme() == "https"_L1);
}

bool IsEncrypted(const QUrl& address)
{
    return address.scheme() == "https"_L1;
}

Peer PeerOf(const QUrl& address)
{
    constexpr int kPlainPort = 80;
    constexpr int kEncryptedPort = 443;
    return {address.host(QUrl::FullyEncoded), static_cast<quint16>(address.port(IsEncrypted(address) ? kEncryptedPort : kPlainPort)),
            IsEncrypted(address)};
}

QByteArray RequestFor(const QUrl& address, const QString& userAgent)
{
    QByteArray target = address.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
    if (!target.startsWith('/'))
        target.prepend('/');
    QByteArray host = address.host(QUrl::FullyEncoded).toLatin1();
    if (host.contains(':')) // an address of IPv6
        host = '[' + host + ']';
    if (address.port() >= 0)
        host.append(':').append(QByteArray::number(address.port()));
    const QByteArray agent = userAgent.isEmpty() ? QByteArray("Mozilla/5.0") : userAgent.toLatin1();
    return "GET " + target + " HTTP/1.1\r\nHost: " + host + "\r\nUser-Agent: " + agent +
           "\r\nAccept: */*\r\nAccept-Language: en\r\nAccept-Encoding: identity\r\nCache-Control: no-cache\r\nPragma: no-cache\r\n"
           "Connection: close\r\n\r\n";
}

// Where the answer leads on to, if anywhere.
QUrl RedirectOf(const HttpAnswer& answer, const QUrl& address)
{
    const QByteArray location = answer.Field("location");
    if (location.isEmpty() || std::ranges::find(kRedirects, answer.Status()) == std::ranges::end(kRedirects))
        return {};
    return address.resolved(QUrl::fromEncoded(location));
}

} // namespace

BodyFetch::Answer BodyFetch::Fetch(const QString& url, const QString& userAgent)
{
    FetchWait wait(m_limits);
    const QScopedValueRollback waiting(m_wait, &wait);
    // Room for the head and for the sizes of small chunks.
    const qint64 mostBytes = 2 * m_limits.LargestAnswer + 65536;
    QUrl address(url);
    bool encrypted = false;
    for (int redirects = 0; IsOnTheWeb(address); ++redirects) {
        if (encrypted && !IsEncrypted(address))
            return {}; // a redirect may not take the protection away
        encrypted = IsEncrypted(address);
        HttpAnswer answer(m_limits.LargestAnswer);
        // What stands behind the head of a redirect is of no use.
        const Exchanged exchanged =
            Exchange(PeerOf(address), RequestFor(address, userAgent), mostBytes, wait,
                     [&](const QByteArray& bytes) { return answer.Read(bytes) || !RedirectOf(answer, address).isEmpty(); });
        if (exchanged.end != Exchanged::End::Closed)
            return {};
        if (const QUrl next = RedirectOf(answer, address); !next.isEmpty()) {
            if (m_limits.MaxRedirects > 0 && redirects == m_limits.MaxRedirects)
                return {};
            address = next;
            continue;
        }
        const std::optional<QByteArray> body = answer.Body();
        return body ? Answer{answer.Status(), *body} : Answer{};
    }
    return {};
}

void BodyFetch::Abort()
{
    if (m_wait)
        m_wait->Abort();
}

} // namespace kelvado
