#include "web/transport/ctxHTTP.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "web/readers/WebText.h"
#include "web/transport/Exchange.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace kelvado {

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

Peer PeerAt(const QString& hostAddress, quint16 port)
{
    const qsizetype colon = hostAddress.lastIndexOf(u':');
    bool ok = false;
    const quint16 ownPort = QStringView(hostAddress).sliced(colon + 1).toUShort(&ok);
    QString host = colon >= 0 && ok ? hostAddress.first(colon) : hostAddress;
    if (host.startsWith(u'[') && host.endsWith(u']')) // an address of IPv6
        host = host.sliced(1, host.size() - 2);
    return {host, colon >= 0 && ok ? ownPort : port, false};
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
    m_failureTold = false;
    FetchWait wait(m_limits);
    const QScopedValueRollback waiting(m_wait, &wait);
    const QScopedValueRollback busy(m_busy, true);

    for (int answers = 1;; ++answers) {
        QString request(kRequestTemplate);
        request.replace("HOSTADDRESS"_L1, m_address.HostAddress);
        request.replace("HOSTLOCATION"_L1, m_address.HostLocation);
        request.replace("USERAGENT"_L1, m_userAgent);
        const SplitAddress address = m_address;
        const Exchanged answer = Exchange(PeerAt(address.HostAddress, m_port), ToWindows1252(request), m_limits.LargestAnswer, wait);
        QString text = FromWindows1252(answer.bytes);

        if (answer.end != Exchanged::End::Closed) {
            TellFailure(answer.errorNumber, answer.errorText);
            if (answer.end == Exchanged::End::Failed && !m_limits.ErrorEndsWait)
                wait.ServeUntil([] { return false; });
            return text;
        }

        const QString target = RedirectTarget(text);
        const bool follow = !target.isEmpty() && (m_limits.MaxRedirects == 0 || answers <= m_limits.MaxRedirects);
        if (follow) {
            SetUrl(target.contains("http"_L1) ? target : "http://"_L1 + address.HostAddress + target);
            continue;
        }
        if (!target.isEmpty())
            TellFailure(kSocketOtherFailure, u"Too many redirects"_s);
        m_busy = false;
        for (int i = 0; i < answers; ++i)
            Q_EMIT Completed(text);
        return text;
    }
}

void ctxHTTP::Abort()
{
    if (m_wait)
        m_wait->Abort();
}

void ctxHTTP::TellFailure(int number, const QString& description)
{
    constexpr quint32 kCodeOfControls = 0x800A0000;
    const auto code = static_cast<qint32>(kCodeOfControls | static_cast<quint32>(number));
    const QString text = "Kelvado encontured the following error while attempting \r\nto reach: "_L1 + m_url + "ErrNumber: "_L1 +
                         QString::number(number) + "\r\nDescription "_L1 + description + "\r\nScode : "_L1 + QString::number(code) +
                         "\r\nSource : WS_HTTP"_L1;
    m_failureTold = true;
    m_dialogs.MessageBox(text, kBoxPlain);
}

} // namespace kelvado
