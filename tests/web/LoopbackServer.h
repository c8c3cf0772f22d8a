#pragma once

#include "core/Literals.h"

#include <QByteArrayList>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <functional>

#include <gtest/gtest.h>
#include <sys/socket.h>

namespace kelvado {

/// A web server on a free port of this machine, which answers as it is told and keeps the requests.
class LoopbackServer
{
public:
    enum class Then { Close, Reset, Stall, Trickle };
    struct Reply
    {
        QByteArray bytes;
        Then then = Then::Close;
    };

    explicit LoopbackServer(std::function<Reply(const QByteArray& path)> answer) : m_answer(std::move(answer))
    {
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { Read(*socket); });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }
    /// Answers everything with the same bytes.
    explicit LoopbackServer(const QByteArray& bytes, Then then = Then::Close)
        : LoopbackServer([bytes, then](const QByteArray&) {
              return Reply{bytes, then};
          })
    {
    }

    QString Host() const { return u"127.0.0.1:%1"_s.arg(m_server.serverPort()); }
    QString Url(const QString& path) const { return u"http://"_s + Host() + path; }
    quint16 Port() const { return m_server.serverPort(); }

    QByteArrayList requests;

    QByteArrayList Paths() const
    {
        QByteArrayList paths;
        for (const QByteArray& request : requests)
            paths << request.split(' ').value(1);
        return paths;
    }

private:
    void Read(QTcpSocket& socket)
    {
        const QByteArray request = socket.property("request").toByteArray() + socket.readAll();
        socket.setProperty("request", request);
        if (!request.endsWith("\r\n\r\n"))
            return;
        requests << request;
        const Reply reply = m_answer(request.split(' ').value(1));
        socket.write(reply.bytes);
        switch (reply.then) {
        case Then::Close:
            socket.disconnectFromHost();
            break;
        case Then::Reset: {
            socket.flush();
            const linger atOnce{1, 0};
            ::setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
            socket.abort();
            break;
        }
        case Then::Stall:
            break;
        case Then::Trickle: {
            auto* timer = new QTimer(&socket);
            QObject::connect(timer, &QTimer::timeout, &socket, [&socket] { socket.write("x"); });
            timer->start(10);
            break;
        }
        }
    }

    std::function<Reply(const QByteArray& path)> m_answer;
    QTcpServer m_server;
};

} // namespace kelvado
