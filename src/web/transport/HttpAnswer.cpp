#include "web/transport/HttpAnswer.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <limits>
#include <memory>

namespace kelvado {

namespace {

// A page that tells of an error is an answer like any other; what broke off on its way is none.
bool IsWhole(const QNetworkReply& reply)
{
    const QNetworkReply::NetworkError error = reply.error();
    return error == QNetworkReply::NoError || (error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ProtocolFailure);
}

QNetworkRequest RequestFor(const QUrl& address, const QString& userAgent, const NetworkLimits& limits)
{
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setMaximumRedirectsAllowed(limits.MaxRedirects > 0 ? limits.MaxRedirects : std::numeric_limits<int>::max());
    if (!userAgent.isEmpty())
        request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
    return request;
}

} // namespace

HttpAnswer FetchAnswer(QNetworkAccessManager& network, const QString& url, const QString& userAgent, const NetworkLimits& limits)
{
    const QUrl address(url);
    if (!address.isValid() || (address.scheme() != "http"_L1 && address.scheme() != "https"_L1))
        return {};

    const std::unique_ptr<QNetworkReply> reply(network.get(RequestFor(address, userAgent, limits)));
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
        if (reply->bytesAvailable() > limits.LargestAnswer)
            reply->abort();
    });
    QObject::connect(&timer, &QTimer::timeout, reply.get(), &QNetworkReply::abort);
    if (limits.TimeoutMilliseconds > 0)
        timer.start(limits.TimeoutMilliseconds);
    if (!reply->isFinished())
        loop.exec();
    if (!reply->isFinished())
        throw RuntimeError(kErrCancelled);
    if (!IsWhole(*reply))
        return {};
    return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), reply->readAll()};
}

} // namespace kelvado
