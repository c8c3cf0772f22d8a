#include "intake/UDisks.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QMap>

#include <algorithm>

namespace kelvado {

namespace {

const QString kService = u"org.freedesktop.UDisks2"_s;
const QString kServicePath = u"/org/freedesktop/UDisks2"_s;
const QString kDrive = u"org.freedesktop.UDisks2.Drive"_s;
const QString kBlock = u"org.freedesktop.UDisks2.Block"_s;
const QString kFilesystem = u"org.freedesktop.UDisks2.Filesystem"_s;
const QString kObjectManager = u"org.freedesktop.DBus.ObjectManager"_s;
const QString kProperties = u"org.freedesktop.DBus.Properties"_s;
const QString kMediaAvailable = u"MediaAvailable"_s;

using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

// The service ends its paths with a NUL.
QString PathOf(const QByteArray& bytes)
{
    return QString::fromLocal8Bit(bytes.left(bytes.indexOf('\0')));
}

bool TakesDiscs(const QVariantMap& drive)
{
    const auto media = qdbus_cast<QStringList>(drive.value(u"MediaCompatibility"_s));
    return std::any_of(media.begin(), media.end(), [](const QString& kind) { return kind.startsWith("optical"_L1); });
}

QString ReasonOf(const QDBusMessage& answer)
{
    return answer.errorMessage().isEmpty() ? u"there is no answer"_s : answer.errorMessage();
}

bool IsAnswer(const QDBusMessage& message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

[[noreturn]] void RaiseUnreadable(const QString& root, const QString& reason)
{
    throw RuntimeError::WithDetail(kErrFileAccess, root + u" ("_s + reason + u')');
}

} // namespace

struct UDisks::Drive
{
    DiscDrive shown;
    QString path;      ///< of the drive
    QString blockPath; ///< of the disc in it
    QStringList folders;
    bool holdsFiles = false;
};

UDisks::UDisks(const QDBusConnection& bus, int patience) : m_bus(bus), m_patience(patience) {}

UDisks::~UDisks() = default;

// Waits in an event loop of its own, so that the window is painted.
QDBusMessage UDisks::Ask(const QString& path, const QString& interface, const QString& method, const QVariantList& values, int patience)
{
    if (!m_bus.isConnected())
        return QDBusMessage::createError(QDBusError::Disconnected, u"the message bus of the system is not there"_s);
    QDBusMessage question = QDBusMessage::createMethodCall(kService, path, interface, method);
    question.setArguments(values);
    const QDBusPendingCall call = m_bus.asyncCall(question, patience);
    const QDBusPendingCallWatcher watcher(call);
    QEventLoop loop;
    connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!call.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return call.isFinished() ? call.reply() : QDBusMessage();
}

QDBusMessage UDisks::MoveDisc(const QString& path, const QString& interface, const QString& method)
{
    // Nobody is asked for a password: what needs one fails at once, and says so.
    const QVariantMap options{{u"auth.no_user_interaction"_s, true}};
    return Ask(path, interface, method, {options}, 3 * m_patience);
}

QList<UDisks::Drive> UDisks::ReadDrives()
{
    m_whyNone.clear();
    const QDBusMessage answer = Ask(kServicePath, kObjectManager, u"GetManagedObjects"_s, {}, m_patience);
    if (!IsAnswer(answer) || answer.signature() != "a{oa{sa{sv}}}"_L1) {
        m_whyNone = u"The disc service of the system (UDisks2) cannot be used: %1."_s.arg(ReasonOf(answer));
        return {};
    }
    Objects objects;
    answer.arguments().constFirst().value<QDBusArgument>() >> objects;

    QList<Drive> drives;
    for (auto at = objects.cbegin(); at != objects.cend(); ++at) {
        const Interfaces& object = at.value();
        const QVariantMap block = object.value(kBlock);
        const auto drivePath = qvariant_cast<QDBusObjectPath>(block.value(u"Drive"_s));
        const QVariantMap drive = objects.value(drivePath).value(kDrive);
        if (!TakesDiscs(drive) || object.contains(u"org.freedesktop.UDisks2.Partition"_s))
            continue;
        Drive found;
        found.path = drivePath.path();
        found.blockPath = at.key().path();
        found.shown.root = PathOf(block.value(u"Device"_s).toByteArray()).section(u'/', -1);
        found.shown.hasDisc = drive.value(kMediaAvailable).toBool();
        if (found.shown.hasDisc)
            found.shown.volume = block.value(u"IdLabel"_s).toString();
        found.holdsFiles = object.contains(kFilesystem);
        for (const QByteArray& folder : qdbus_cast<QByteArrayList>(object.value(kFilesystem).value(u"MountPoints"_s)))
            found.folders << PathOf(folder);
        drives << found;
    }
    // "sr2" stands before "sr10".
    std::sort(drives.begin(), drives.end(), [](const Drive& left, const Drive& right) {
        const QString& first = left.shown.root;
        const QString& second = right.shown.root;
        return first.size() != second.size() ? first.size() < second.size() : first < second;
    });
    if (drives.isEmpty())
        m_whyNone = u"This computer has no drive for discs."_s;
    return drives;
}

UDisks::Drive UDisks::DriveOf(const QString& root)
{
    const QList<Drive> drives = ReadDrives();
    const auto drive = std::find_if(drives.begin(), drives.end(), [&root](const Drive& one) { return one.shown.root == root; });
    if (drive == drives.end())
        RaiseUnreadable(root, m_whyNone.isEmpty() ? u"there is no such drive"_s : m_whyNone);
    return *drive;
}

QList<DiscDrive> UDisks::Drives()
{
    QList<DiscDrive> shown;
    for (const Drive& drive : ReadDrives())
        shown << drive.shown;
    return shown;
}

QString UDisks::FolderOf(const QString& root)
{
    const Drive drive = DriveOf(root);
    if (!drive.shown.hasDisc)
        return {};
    if (!drive.folders.isEmpty())
        return drive.folders.constFirst();
    if (!drive.holdsFiles)
        RaiseUnreadable(root, u"its disc holds no files"_s);
    const QDBusMessage answer = MoveDisc(drive.blockPath, kFilesystem, u"Mount"_s);
    if (!IsAnswer(answer) || answer.signature() != "s"_L1)
        RaiseUnreadable(root, ReasonOf(answer));
    return answer.arguments().constFirst().toString();
}

QString UDisks::Eject(const QString& root)
{
    try {
        const Drive drive = DriveOf(root);
        // A drive keeps its door shut while files of its disc can be reached.
        for (qsizetype i = 0; i < drive.folders.size(); ++i) {
            const QDBusMessage answer = MoveDisc(drive.blockPath, kFilesystem, u"Unmount"_s);
            if (!IsAnswer(answer))
                return ReasonOf(answer);
        }
        const QDBusMessage answer = MoveDisc(drive.path, kDrive, u"Eject"_s);
        return IsAnswer(answer) ? QString() : ReasonOf(answer);
    } catch (const RuntimeError& error) {
        return error.Description();
    }
}

void UDisks::Watch(std::function<void(std::int32_t action)> changed)
{
    const bool watched = bool(m_changed);
    m_changed = std::move(changed);
    if (watched == bool(m_changed))
        return;
    const QStringList ofDrives{kDrive};
    const QString signal = u"PropertiesChanged"_s;
    const char* slot = SLOT(OnDriveChanged(QString, QVariantMap, QStringList, QDBusMessage));
    if (m_changed)
        m_bus.connect(kService, {}, kProperties, signal, ofDrives, u"sa{sv}as"_s, this, slot);
    else
        m_bus.disconnect(kService, {}, kProperties, signal, ofDrives, u"sa{sv}as"_s, this, slot);
}

void UDisks::OnDriveChanged(const QString&, const QVariantMap& changed, const QStringList&, const QDBusMessage& message)
{
    if (!changed.contains(kMediaAvailable))
        return;
    const std::int32_t action = changed.value(kMediaAvailable).toBool() ? kDiscArrived : kDiscLeft;
    // The service is asked what the drive takes: readers of memory cards tell of their media in the same way.
    QDBusMessage question = QDBusMessage::createMethodCall(kService, message.path(), kProperties, u"GetAll"_s);
    question.setArguments({kDrive});
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question, m_patience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, action] {
        watcher->deleteLater();
        const QDBusPendingReply<QVariantMap> drive = *watcher;
        if (!drive.isError() && TakesDiscs(drive.value()) && m_changed)
            m_changed(action);
    });
}

} // namespace kelvado
