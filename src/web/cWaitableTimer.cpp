#include "web/cWaitableTimer.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>

namespace kelvado {

void cWaitableTimer::Wait(int milliseconds) const
{
    QEventLoop loop;
    // The coarse kind may come up to a twentieth too early.
    QTimer::singleShot(std::max(0, milliseconds), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace kelvado
