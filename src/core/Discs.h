#pragma once

#include <QList>
#include <QString>

#include <cstdint>
#include <functional>

namespace kelvado {

/// What a change of discs is told by.
inline constexpr std::int32_t kDiscArrived = 1;
inline constexpr std::int32_t kDiscLeft = 2;

/// A drive for discs.
struct DiscDrive
{
    QString root;   ///< names the drive to all routines: "sr0"
    QString volume; ///< the name of the disc's volume; empty without a disc, and for a disc without a name
    bool hasDisc = false;
};

/// The drives for discs and what goes into them. Each routine returns within seconds; the window is painted meanwhile, and the user's input
/// waits.
class Discs
{
public:
    virtual ~Discs() = default;

    /// All drives, ordered by their roots. Never raises: without drives the list is empty, and `WhyNoDrives` says why.
    virtual QList<DiscDrive> Drives() = 0;
    /// A sentence for the user on the last empty list; empty where the last list was not.
    virtual QString WhyNoDrives() const = 0;

    /// The folder in which the drive's disc can be read, which is made ready for reading where it is not yet. Empty where the drive has no
    /// disc. Raises `kErrFileAccess` with the drive and the reason where its disc cannot be read.
    virtual QString FolderOf(const QString& root) = 0;

    /// Opens the drive; its disc is let go before. Never raises: returns the reason where it fails, and the empty text where it does not.
    virtual QString Eject(const QString& root) = 0;

    /// From now on `changed` is called with `kDiscArrived` or `kDiscLeft` when a disc goes into a drive or comes out; memory sticks and
    /// shares of the network are none. It is called from the event loop, also while a modal window is open. The empty function ends it.
    virtual void Watch(std::function<void(std::int32_t action)> changed) = 0;
};

} // namespace kelvado
