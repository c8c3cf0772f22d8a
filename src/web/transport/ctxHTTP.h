#pragma once

#include "core/Dialogs.h"
#include "web/transport/NetworkLimits.h"

#include <QObject>
#include <QString>
#include <QStringView>

namespace kelvado {

class FetchWait;

/// An address as the request needs it.
struct SplitAddress
{
    QString HostAddress;  ///< host or host:port
    QString HostLocation; ///< the path with its leading "/"
    friend bool operator==(const SplitAddress&, const SplitAddress&) = default;
};

/// Parts an address at its first "/", with "/" for "\", "%20" for blanks and every "http://" and "HTTP://" gone. Without a path the
/// location is "/" and the host is the address as it was given, its scheme included.
SplitAddress SplitUrl(const QString& url);

/// The target of the redirect that an answer asks for; "" without one. Its status is not looked at: a "Location: " that begins among the
/// first 1199 characters decides, in the body too. Raises `kErrInvalidCall` where no end of line follows.
QString RedirectTarget(QStringView answer);

/// Fetches pages over a socket, in HTTP/1.0, where the end of the connection is the end of the answer.
class ctxHTTP : public QObject
{
    Q_OBJECT

public:
    /// `dialogs` must outlive this object.
    ctxHTTP(const NetworkLimits& limits, Dialogs& dialogs, QObject* parent = nullptr);

    const QString& UserAgent() const { return m_userAgent; }
    void SetUserAgent(const QString& userAgent) { m_userAgent = userAgent; }
    /// The port of hosts that name none themselves; 80 from the start. It stays over redirects.
    quint16 Port() const { return m_port; }
    void SetPort(quint16 port) { m_port = port; }
    /// After a fetch that was redirected, the address that was reached.
    const QString& Url() const { return m_url; }
    void SetUrl(const QString& url);
    bool Busy() const { return m_busy; }
    /// Whether a message told of the last fetch that it failed.
    bool FailureTold() const { return m_failureTold; }

    /// Fetches `Url`, follows redirects and returns the last answer whole. Events are served meanwhile.
    /// A failed connection is told in a message. The wait then ends with what has arrived, or, as the limits say, goes on until the time
    /// is up. What goes beyond a limit is told and ends in the same way.
    /// Raises `kErrInvalidCall` for a redirect without an end of line, `kErrCancelled` where the program ends meanwhile.
    QString GetData();
    /// Ends the `GetData` that waits: it raises `kErrCancelled`.
    void Abort();

Q_SIGNALS:
    /// Comes for each answer of a chain whose connection was closed by the other side, when the last one is there and with that one.
    void Completed(const QString& answer);

private:
    void TellFailure(int number, const QString& description);

    NetworkLimits m_limits;
    Dialogs& m_dialogs;
    QString m_url, m_userAgent;
    SplitAddress m_address;
    quint16 m_port = 80;
    bool m_busy = false;
    bool m_failureTold = false;
    FetchWait* m_wait = nullptr; ///< of the `GetData` that waits
};

} // namespace kelvado
