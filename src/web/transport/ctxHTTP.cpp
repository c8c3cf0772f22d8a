#include "web/transport/ctxHTTP.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"
#include "web/readers/WebText.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QNetworkProxy>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTcpSocket>
#include <QTimer>

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace kelvado {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kRequestTemplate =
    "GET HOSTLOCATION HTTP/1.0\r\n"
    "Accept: image/gif, image/x-xbitmap, image/jpeg, image/pjpeg, application/vnd.ms-powerpoint, application/vnd.ms-excel, "
    "application/msword, application/x-comet, */*\r\n"
    "Accept-Language: en\r\n"
    "Cache-Control: no-cache\r\n"
    "User-Agent: USERAGENT\r\n"
    "Host: HOSTADDRESS\r\n"
    "Proxy-Connection: Keep-Alive\r\n"
    "\r\n"_L1;

// The numbers by which users know socket errors.
constexpr int kNetworkUnreachable = 10051;
constexpr int kConnectionReset = 10054;
constexpr int kMessageTooBig = 10040;
constexpr int kTimedOut = 10060;
constexpr int kOtherFailure = 40006;

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
    return kOtherFailure;
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

struct Answer
{
    enum class End { Open, Closed, Failed, OverLimit };

    QByteArray bytes;
    End end = End::Open;
    int errorNumber = 0;
    QString errorText;
};

std::pair<QString, quint16> HostAndPort(const QString& hostAddress, quint16 port)
{
    const qsizetype colon = hostAddress.lastIndexOf(u':');
    bool ok = false;
    const quint16 ownPort = QStringView(hostAddress).sliced(colon + 1).toUShort(&ok);
    QString host = colon >= 0 && ok ? hostAddress.first(colon) : hostAddress;
    if (host.startsWith(u'[') && host.endsWith(u']')) // an address of IPv6
        host = host.sliced(1, host.size() - 2);
    return {host, colon >= 0 && ok ? ownPort : port};
}

// Serves events until `loop` is left or the time is up; false for the latter.
// Raises 32755 where the program ends: its end leaves the loop without any of its own reasons.
bool ServeUntil(QEventLoop& loop, const QDeadlineTimer& deadline, const std::function<bool()>& ended)
{
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    bool timeIsUp = false;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        timeIsUp = true;
        loop.quit();
    });
    if (!deadline.isForever())
        timer.start(static_cast<int>(deadline.remainingTime()));
    loop.exec();
    if (!timeIsUp && !ended())
        throw RuntimeError(kErrCancelled);
    return !timeIsUp;
}

Answer Exchange(QEventLoop& loop, const QString& hostAddress, quint16 defaultPort, const QByteArray& request,
                const QDeadlineTimer& deadline, qint64 largestAnswer)
{
    Answer answer;
    ConnectionState connection;
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);

    const auto end = [&](Answer::End how, int number, const QString& text) {
        if (answer.end != Answer::End::Open)
            return;
        answer.end = how;
        answer.errorNumber = number;
        answer.errorText = text;
        loop.quit();
    };
    QObject::connect(&socket, &QTcpSocket::connected, &loop, [&] {
        connection.Watch(socket.socketDescriptor());
        socket.write(request);
    });
    QObject::connect(&socket, &QTcpSocket::readyRead, &loop, [&] {
        answer.bytes.append(socket.readAll());
        if (answer.bytes.size() > largestAnswer)
            end(Answer::End::OverLimit, kMessageTooBig, u"The answer is too large"_s);
    });
    QObject::connect(&socket, &QTcpSocket::errorOccurred, &loop, [&](QAbstractSocket::SocketError error) {
        answer.bytes.append(socket.readAll());
        if (error != QAbstractSocket::RemoteHostClosedError)
            end(Answer::End::Failed, ErrorNumber(error), socket.errorString());
        else if (connection.WasReset())
            end(Answer::End::Failed, kConnectionReset, u"Connection reset by peer"_s);
        else
            end(Answer::End::Closed, 0, {});
    });

    const auto [host, port] = HostAndPort(hostAddress, defaultPort);
    socket.connectToHost(host, port);
    if (answer.end == Answer::End::Open && !ServeUntil(loop, deadline, [&] { return answer.end != Answer::End::Open; }))
        end(Answer::End::OverLimit, kTimedOut, u"The time for an answer is up"_s);
    return answer;
}

} // namespace

SplitAddress SplitUrl(const QString& url)
{
    QString address = url;
    address.replace(u'\\', u'/').remove("http://"_L1).remove("HTTP://"_L1).replace(" "_L1, "%20"_L1);
    const qsizetype slash = address.indexOf(u'/');
    if (slash < 0)
        return {url, u"/"_s};
    return {address.first(slash), address.sliced(slash)};
}

QString RedirectTarget(QStringView answer)
{
    constexpr Place kLastPlace = 1199;
    const PageText text(answer);
    // The second marker counts where the first one begins just too late.
    for (const QStringView marker : {QStringView(u"Location: "), QStringView(u"GMTLocation: ")}) {
        const PageText head(answer.first(std::min(answer.size(), kLastPlace - 1 + marker.size())));
        if (const Place target = head.FindBehind(marker); target != kNowhere)
            return text.Cut(target, text.Find(u"\r\n", target));
    }
    return {};
}

ctxHTTP::ctxHTTP(const NetworkLimits& limits, Dialogs& dialogs, QObject* parent) : QObject(parent), m_limits(limits), m_dialogs(dialogs) {}

void ctxHTTP::SetUrl(const QString& url)
{
    m_url = url;
    m_address = SplitUrl(url);
}

QString ctxHTTP::GetData()
{
    const QDeadlineTimer deadline =
        m_limits.TimeoutMilliseconds > 0 ? QDeadlineTimer(m_limits.TimeoutMilliseconds) : QDeadlineTimer(QDeadlineTimer::Forever);
    m_busy = true;
    const auto idle = qScopeGuard([this] { m_busy = false; });
    QEventLoop loop;
    const QScopedValueRollback waiting(m_loop, &loop);

    for (int answers = 1;; ++answers) {
        QString request(kRequestTemplate);
        request.replace("HOSTADDRESS"_L1, m_address.HostAddress);
        request.replace("HOSTLOCATION"_L1, m_address.HostLocation);
        request.replace("USERAGENT"_L1, m_userAgent);
        const SplitAddress address = m_address;
        const Answer answer = Exchange(loop, address.HostAddress, m_port, ToWindows1252(request), deadline, m_limits.LargestAnswer);
        QString text = FromWindows1252(answer.bytes);

        if (answer.end != Answer::End::Closed) {
            TellFailure(answer.errorNumber, answer.errorText);
            if (answer.end == Answer::End::Failed && !m_limits.ErrorEndsWait) {
                ServeUntil(loop, deadline, [] { return false; });
            }
            return text;
        }

        const QString target = RedirectTarget(text);
        const bool follow = !target.isEmpty() && (m_limits.MaxRedirects == 0 || answers <= m_limits.MaxRedirects);
        if (follow) {
            SetUrl(target.contains("http"_L1) ? target : "http://"_L1 + address.HostAddress + target);
            continue;
        }
        if (!target.isEmpty())
            TellFailure(kOtherFailure, u"Too many redirects"_s);
        m_busy = false;
        for (int i = 0; i < answers; ++i)
            Q_EMIT Completed(text);
        return text;
    }
}

void ctxHTTP::Abort()
{
    if (m_loop)
        m_loop->quit();
}

void ctxHTTP::TellFailure(int number, const QString& description) const
{
    constexpr quint32 kCodeOfControls = 0x800A0000;
    const auto code = static_cast<qint32>(kCodeOfControls | static_cast<quint32>(number));
    const QString text = "Kelvado encontured the following error while attempting \r\nto reach: "_L1 + m_url + "ErrNumber: "_L1 +
                         QString::number(number) + "\r\nDescription "_L1 + description + "\r\nScode : "_L1 + QString::number(code) +
                         "\r\nSource : WS_HTTP"_L1;
    m_dialogs.MessageBox(text, kBoxPlain);
}

} // namespace kelvado
