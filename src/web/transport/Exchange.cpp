#include "web/transport/Exchange.h"

#include "core/Literals.h"

#include <QNetworkProxy>
#include <QSslSocket>

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <memory>
#include <utility>

namespace kelvado {

namespace {

constexpr int kNetworkUnreachable = 10051;
constexpr int kConnectionReset = 10054;
constexpr int kMessageTooBig = 10040;
constexpr int kTimedOut = 10060;

constexpr std::pair<QAbstractSocket::SocketError, int> kErrorNumbers[] = {
    {QAbstractSocket::ConnectionRefusedError, 10061},
    {QAbstractSocket::HostNotFoundError, 11001},
    {QAbstractSocket::NetworkError, kNetworkUnreachable},
    {QAbstractSocket::SocketTimeoutError, kTimedOut},
};

int ErrorNumber(QAbstractSocket::SocketError error)
{
    for (const auto& [known, number] : kErrorNumbers) {
        if (known == error)
            return number;
    }
    return kSocketOtherFailure;
}

// Qt tells a connection that was reset as one that was closed. The system's own state of the connection parts the two, as long as a
// descriptor of it is open.
class ConnectionState
{
public:
    ConnectionState() = default;
    ~ConnectionState()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(ConnectionState)

    void Watch(qintptr descriptor) { m_descriptor = ::fcntl(static_cast<int>(descriptor), F_DUPFD_CLOEXEC, 0); }

    bool WasReset() const
    {
        tcp_info info{};
        socklen_t size = sizeof info;
        return m_descriptor >= 0 && ::getsockopt(m_descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) == 0 && info.tcpi_state == TCP_CLOSE;
    }

private:
    int m_descriptor = -1;
};

} // namespace

Exchanged Exchange(const Peer& peer, const QByteArray& request, qint64 largestAnswer, FetchWait& wait,
                   const std::function<bool(const QByteArray& bytes)>& isEnough)
{
    Exchanged answer;
    bool ended = false;
    ConnectionState connection;
    const std::unique_ptr<QTcpSocket> plain = peer.encrypted ? nullptr : std::make_unique<QTcpSocket>();
    const std::unique_ptr<QSslSocket> secured = peer.encrypted ? std::make_unique<QSslSocket>() : nullptr;
    QTcpSocket& socket = secured ? *secured : *plain;
    socket.setProxy(QNetworkProxy::NoProxy);

    const auto end = [&](Exchanged::End how, int number, const QString& text) {
        if (std::exchange(ended, true))
            return;
        answer.end = how;
        answer.errorNumber = number;
        answer.errorText = text;
        wait.Leave();
    };
    const auto take = [&] {
        if (ended)
            return;
        answer.bytes.append(socket.readAll());
        if (isEnough && isEnough(answer.bytes))
            end(Exchanged::End::Closed, 0, {});
        else if (answer.bytes.size() > largestAnswer)
            end(Exchanged::End::OverLimit, kMessageTooBig, u"The answer is too large"_s);
    };
    QObject::connect(&socket, &QAbstractSocket::connected, &socket, [&] {
        connection.Watch(socket.socketDescriptor());
        if (!secured)
            socket.write(request);
    });
    if (secured)
        QObject::connect(secured.get(), &QSslSocket::encrypted, &socket, [&] { socket.write(request); });
    QObject::connect(&socket, &QIODevice::readyRead, &socket, take);
    QObject::connect(&socket, &QAbstractSocket::errorOccurred, &socket, [&](QAbstractSocket::SocketError error) {
        take();
        if (error != QAbstractSocket::RemoteHostClosedError)
            end(Exchanged::End::Failed, ErrorNumber(error), socket.errorString());
        else if (connection.WasReset())
            end(Exchanged::End::Failed, kConnectionReset, u"Connection reset by peer"_s);
        else
            end(Exchanged::End::Closed, 0, {});
    });

    if (secured)
        secured->connectToHostEncrypted(peer.host, peer.port);
    else
        socket.connectToHost(peer.host, peer.port);
    if (!wait.ServeUntil([&] { return ended; }))
        end(Exchanged::End::OverLimit, kTimedOut, u"The time for an answer is up"_s);
    return answer;
}

} // namespace kelvado
