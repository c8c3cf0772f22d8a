#include "app/OnlyProgram.h"

#include "core/Literals.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QLocalSocket>

namespace kelvado {

namespace {

constexpr int kPatience = 2000; // milliseconds

// The folder by whatever path it was named; a copy of the folder is another one, the lock file that was copied along means nothing there.
QString ServerName(const QString& home)
{
    const QByteArray folder = QFileInfo(home).canonicalFilePath().toUtf8();
    return u"kelvado-"_s + QString::fromLatin1(QCryptographicHash::hash(folder, QCryptographicHash::Sha1).toHex());
}

} // namespace

OnlyProgram::OnlyProgram(const QString& home, QObject* parent)
    : QObject(parent), m_lock(home + u"/temp/"_s + ServerName(home) + u".lock"_s),
      m_isFirst(m_lock.tryLock() || m_lock.error() != QLockFile::LockFailedError)
{
    const QString name = ServerName(home);
    if (!m_isFirst) {
        QLocalSocket first;
        first.connectToServer(name);
        m_isUnheard = !first.waitForConnected(kPatience);
        return;
    }
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        delete m_server.nextPendingConnection();
        Q_EMIT Called();
    });
    QLocalServer::removeServer(name); // left behind by a program that did not end by itself
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(name);
}

} // namespace kelvado
