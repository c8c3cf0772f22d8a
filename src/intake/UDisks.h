#pragma once

#include "core/Discs.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace kelvado {

/// The drives of this machine, as the disc service of the desktop (UDisks2) knows them.
class UDisks : public QObject, public Discs
{
    Q_OBJECT
public:
    static constexpr int kPatience = 4000;
    /// `bus` is the bus that the service is on; neither has to be there. A question waits for `patience` milliseconds at the most, what
    /// moves a disc three times as long.
    explicit UDisks(const QDBusConnection& bus = QDBusConnection::systemBus(), int patience = kPatience);
    ~UDisks() override;

    QList<DiscDrive> Drives() override;
    QString WhyNoDrives() const override { return m_whyNone; }
    QString FolderOf(const QString& root) override;
    QString Eject(const QString& root) override;
    void Watch(std::function<void(std::int32_t action)> changed) override;

private Q_SLOTS:
    void OnDriveChanged(const QString& interface, const QVariantMap& changed, const QStringList& dropped, const QDBusMessage& message);

private:
    struct Drive;
    QList<Drive> ReadDrives();
    Drive DriveOf(const QString& root);
    QDBusMessage Ask(const QString& path, const QString& interface, const QString& method, const QVariantList& values, int patience);
    QDBusMessage MoveDisc(const QString& path, const QString& interface, const QString& method);

    QDBusConnection m_bus;
    int m_patience;
    QString m_whyNone;
    std::function<void(std::int32_t action)> m_changed;
};

} // namespace kelvado
