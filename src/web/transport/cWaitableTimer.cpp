#include "web/transport/cWaitableTimer.h"

#include "core/RuntimeError.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>

namespace kelvado {

void cWaitableTimer::Wait(int milliseconds) const
{
    QEventLoop loop;
    // The coarse kind may come up to a twentieth too early.
    bool timeIsUp = false;
    QTimer::singleShot(std::max(0, milliseconds), Qt::PreciseTimer, &loop, [&] {
        timeIsUp = true;
        loop.quit();
    });
    loop.exec();
    if (!timeIsUp)
        throw RuntimeError(kErrCancelled);
}

} // namespace kelvado
