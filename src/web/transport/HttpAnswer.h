#pragma once

#include "web/transport/NetworkLimits.h"

#include <QByteArray>
#include <QString>

class QNetworkAccessManager;

namespace kelvado {

struct HttpAnswer
{
    int status = 0; ///< 0 where there is no answer
    QByteArray body;
};

/// What an http or https address answers, redirects followed and no cache asked. No answer for any other address, and where it did not
/// arrive whole and in time. Events are served meanwhile; raises 32755 where the program ends.
/// An empty `userAgent` stands for the network's own.
HttpAnswer FetchAnswer(QNetworkAccessManager& network, const QString& url, const QString& userAgent, const NetworkLimits& limits);

} // namespace kelvado
