#include "core/Literals.h"
#include "intake/UDisks.h"
#include "support/ErrorOf.h"

#include <QCoreApplication>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

namespace kelvado {
namespace {

constexpr int kStartUp = 15'000;

/// A message bus of the test's own.
class PrivateBus
{
public:
    PrivateBus()
    {
        m_daemon.start(u"dbus-daemon"_s,
                       {u"--session"_s, u"--nofork"_s, u"--print-address"_s, u"--address=unix:tmpdir="_s + m_folder.path()});
        EXPECT_TRUE(m_daemon.waitForReadyRead(kStartUp));
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~PrivateBus()
    {
        QDBusConnection::disconnectFromBus(m_folder.path());
        for (QProcess* process : {&m_service, &m_daemon}) {
            process->terminate();
            process->waitForFinished(kStartUp);
        }
    }
    Q_DISABLE_COPY_MOVE(PrivateBus)

    QDBusConnection Connection() const { return QDBusConnection::connectToBus(m_address, m_folder.path()); }

    /// Starts the disc service and waits until it is there.
    void StartService()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_address);
        m_service.setProcessEnvironment(environment);
        m_service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_service.start(u"/usr/bin/python3"_s, {u"-m"_s, u"dbusmock"_s, u"-t"_s, u"" KELVADO_SOURCE_DIR "/tests/intake/udisks_mock.py"_s});
        QElapsedTimer waited;
        waited.start();
        while (UDisks(Connection()).Drives().isEmpty())
            ASSERT_LT(waited.elapsed(), kStartUp);
    }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon, m_service;
    QString m_address;
};

QString Shown(const QList<DiscDrive>& drives)
{
    QStringList texts;
    for (const DiscDrive& drive : drives)
        texts << drive.root + u':' + drive.volume + (drive.hasDisc ? u"+"_s : u"-"_s);
    return texts.join(u' ');
}

TEST(Discs, DrivesAreListedReadWatchedAndOpened)
{
    PrivateBus bus;
    bus.StartService();
    UDisks discs(bus.Connection(), 400);
    EXPECT_EQ(Shown(discs.Drives()), u"sr0:FILM1+ sr1:- sr2:SCRATCH+ sr3:SLOW+ sr10:FILM2+");
    EXPECT_EQ(discs.WhyNoDrives(), QString());

    QList<int> actions;
    discs.Watch([&](std::int32_t action) { actions << action; });
    EXPECT_EQ(discs.FolderOf(u"sr0"_s), u"/media/FILM1"); // is made ready
    EXPECT_EQ(discs.FolderOf(u"sr0"_s), u"/media/FILM1"); // is ready
    EXPECT_EQ(discs.FolderOf(u"sr1"_s), QString());
    for (const auto& [root, reason] : {std::pair(u"sr2"_s, "sr2 (the disc is scratched)"),
                                       {u"sr10"_s, "sr10 (its disc holds no files)"},
                                       {u"sda"_s, "sda (there is no such drive)"}})
        EXPECT_NE(ErrorTextOf([&, &drive = root] { return discs.FolderOf(drive); }).find(reason), std::string::npos);

    const auto tell = [&](const QString& drive, bool available) {
        QDBusMessage change = QDBusMessage::createMethodCall(u"org.freedesktop.UDisks2"_s, u"/org/freedesktop/UDisks2/drives/"_s + drive,
                                                             u"org.freedesktop.DBus.Mock"_s, u"UpdateProperties"_s);
        change.setArguments({u"org.freedesktop.UDisks2.Drive"_s, QVariantMap{{u"MediaAvailable"_s, available}}});
        EXPECT_EQ(bus.Connection().call(change).type(), QDBusMessage::ReplyMessage);
    };
    tell(u"mmcblk0"_s, false);
    tell(u"sr1"_s, true);
    EXPECT_EQ(discs.Eject(u"sr0"_s), QString()); // the folder is given up before
    EXPECT_NE(discs.Eject(u"sr9"_s), QString());
    QElapsedTimer waited;
    waited.start();
    while (actions.size() < 2 && waited.elapsed() < kStartUp)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    EXPECT_EQ(actions, QList<int>({kDiscArrived, kDiscLeft}));
    EXPECT_EQ(Shown(discs.Drives()), u"sr0:- sr1:+ sr2:SCRATCH+ sr3:SLOW+ sr10:FILM2+");

    discs.Watch({});
    tell(u"sr0"_s, true);
    discs.Drives();
    EXPECT_EQ(actions.size(), 2);

    waited.restart();
    EXPECT_EQ(ErrorOf([&] { return UDisks(bus.Connection(), 100).FolderOf(u"sr3"_s); }), kErrFileAccess);
    EXPECT_LT(waited.elapsed(), 1400);
}

TEST(Discs, WithoutTheServiceTheListIsEmptyAndSaysWhy)
{
    const PrivateBus bus;
    UDisks alone(bus.Connection());
    EXPECT_TRUE(alone.Drives().isEmpty());
    EXPECT_TRUE(alone.WhyNoDrives().contains(u"UDisks2"_s)) << alone.WhyNoDrives().toStdString();
    UDisks noBus(QDBusConnection(u"nowhere"_s));
    EXPECT_TRUE(noBus.Drives().isEmpty());
    EXPECT_TRUE(noBus.WhyNoDrives().contains(u"message bus"_s)) << noBus.WhyNoDrives().toStdString();
    noBus.Watch([](std::int32_t) {});
    EXPECT_NE(noBus.Eject(u"sr0"_s), QString());
    EXPECT_EQ(ErrorOf([&] { return noBus.FolderOf(u"sr0"_s); }), kErrFileAccess);
}

} // namespace
} // namespace kelvado
