#include "intake/cCDMonitor.h"

namespace kelvado {

cCDMonitor::~cCDMonitor()
{
    UnSubClass();
}

void cCDMonitor::SubClass(Discs& discs)
{
    if (m_discs)
        return;
    m_discs = &discs;
    discs.Watch([this](std::int32_t action) { Q_EMIT CDROMChanged(action); });
}

void cCDMonitor::UnSubClass()
{
    if (m_discs)
        m_discs->Watch({});
    m_discs = nullptr;
}

} // namespace kelvado
