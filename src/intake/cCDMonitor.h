#pragma once

#include "core/Discs.h"

#include <QObject>

namespace kelvado {

/// Tells a window that a disc has gone into a drive or come out of one.
class cCDMonitor : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    /// Ends the watch.
    ~cCDMonitor() override;

    /// Begins to watch `discs`, which must outlive the watch. Does nothing where it watches already.
    void SubClass(Discs& discs);
    void UnSubClass();

Q_SIGNALS:
    /// `action` is `kDiscArrived` or `kDiscLeft`.
    void CDROMChanged(std::int32_t action);

private:
    Discs* m_discs = nullptr;
};

} // namespace kelvado
