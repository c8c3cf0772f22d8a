#include "core/Literals.h"
#include "intake/UDisks.h"
#include "support/ErrorOf.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QTemporaryDir>

namespace kelvado {
namespace {

constexpr int kStartUp = 15'000;

/// A message bus of the test's own, with a disc service where it is wanted.
class PrivateBus
{
public:
    PrivateBus()
    {
        m_daemon.start(u"dbus-daemon"_s,
                       {u"--session"_s, u"--nofork"_s, u"--print-address"_s, u"--address=unix:tmpdir="_s + m_folder.path()});
        m_daemon.waitForReadyRead(kStartUp);
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~PrivateBus()
    {
        QDBusConnection::disconnectFromBus(m_address);
        for (QProcess* process : {&m_service, &m_daemon}) {
            process->terminate();
            process->waitForFinished(kStartUp);
        }
    }
    Q_DISABLE_COPY_MOVE(PrivateBus)

    QDBusConnection Connection() const { return QDBusConnection::connectToBus(m_address, m_address); }
    void StartService()
    {
        m_service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_service.start(u"/usr/bin/env"_s, {u"DBUS_SESSION_BUS_ADDRESS="_s + m_address, u"/usr/bin/python3"_s, u"-m"_s, u"dbusmock"_s,
                                            u"-t"_s, u"" KELVADO_SOURCE_DIR "/tests/intake/udisks_mock.py"_s});
        const QDeadlineTimer deadline(kStartUp);
        while (UDisks(Connection()).Drives().isEmpty())
            ASSERT_FALSE(deadline.hasExpired());
    }
    void TellMedia(const QString& drive, bool available) const
    {
        QDBusMessage change = QDBusMessage::createMethodCall(u"org.freedesktop.UDisks2"_s, u"/org/freedesktop/UDisks2/drives/"_s + drive,
                                                             u"org.freedesktop.DBus.Mock"_s, u"UpdateProperties"_s);
        change.setArguments({u"org.freedesktop.UDisks2.Drive"_s, QVariantMap{{u"MediaAvailable"_s, available}}});
        EXPECT_EQ(Connection().call(change).type(), QDBusMessage::ReplyMessage);
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
    UDisks discs(bus.Connection(), 400), noBus(QDBusConnection(u"nowhere"_s));
    for (const auto& [none, reason] : {std::pair(&discs, "UDisks2"_L1), {&noBus, "message bus"_L1}}) {
        EXPECT_EQ(Shown(none->Drives()), QString());
        EXPECT_TRUE(none->WhyNoDrives().contains(reason)) << none->WhyNoDrives().toStdString();
        EXPECT_TRUE(none->Eject(u"sr0"_s).contains(reason));
    }
    bus.StartService();
    EXPECT_EQ(Shown(discs.Drives()), u"sr0:FILM1+ sr1:- sr2:SCRATCH+ sr3:SLOW+ sr10:FILM2+");
    EXPECT_EQ(discs.WhyNoDrives(), QString());

    QList<int> actions;
    discs.Watch([&](std::int32_t action) { actions << action; });
    for (const QString& root : {u"sr0"_s, u"sr0"_s, u"sr1"_s}) // made ready, ready, without a disc
        EXPECT_EQ(discs.FolderOf(root), root == u"sr0" ? u"/media/FILM1"_s : QString());
    for (const auto& [root, reason] : {std::pair(u"sr2"_s, "sr2 (the disc is scratched)"),
                                       {u"sr10"_s, "sr10 (its disc holds no files)"},
                                       {u"mmcblk0"_s, "mmcblk0 (there is no such drive)"}})
        EXPECT_NE(ErrorTextOf([&, &drive = root] { return discs.FolderOf(drive); }).find(reason), std::string::npos);

    bus.TellMedia(u"mmcblk0"_s, false);
    bus.TellMedia(u"sr1"_s, true);
    EXPECT_EQ(discs.Eject(u"sr0"_s), QString()); // the folder is given up before
    for (const QDeadlineTimer deadline(kStartUp); actions.size() < 2 && !deadline.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    EXPECT_EQ(Shown(discs.Drives()), u"sr0:- sr1:+ sr2:SCRATCH+ sr3:SLOW+ sr10:FILM2+");
    discs.Watch({});
    bus.TellMedia(u"sr0"_s, true);
    discs.Drives();
    EXPECT_EQ(actions, QList<int>({kDiscArrived, kDiscLeft}));

    const QDeadlineTimer answer(1400); // by then the slow one would have answered
    EXPECT_EQ(ErrorOf([&] { return UDisks(bus.Connection(), 100).FolderOf(u"sr3"_s); }), kErrFileAccess);
    EXPECT_FALSE(answer.hasExpired());
}

} // namespace
} // namespace kelvado
