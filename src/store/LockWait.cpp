#include "store/LockWait.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>

#include <sqlite3.h>

#include <chrono>
#include <thread>

namespace kelvado {

namespace {

constexpr int kStep = 20;
// A click leads to more than one operation: what one of them waited for in vain is not waited for by the next.
constexpr int kMemory = 1500;

struct GivenUp
{
    QString path;
    QElapsedTimer since;
};

GivenUp& LastGivenUp()
{
    static GivenUp last;
    return last;
}

} // namespace

LockManners& WhileLocked()
{
    static LockManners manners;
    return manners;
}

int LockWait::Install(sqlite3* database)
{
    return sqlite3_busy_handler(database, &LockWait::OnLocked, this);
}

int LockWait::OnLocked(void* wait, int) noexcept
{
    try {
        return static_cast<LockWait*>(wait)->GoOn() ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

bool LockWait::GoOn()
{
    // What `meanwhile` lets run finds the catalog locked too; it cannot wait inside of this wait.
    static bool waiting = false;
    GivenUp& last = LastGivenUp();
    if (waiting || (last.path == m_path && last.since.isValid() && last.since.elapsed() < kMemory))
        return false;
    if (m_waited >= WhileLocked().patience) {
        last.path = m_path;
        last.since.start();
        return false;
    }
    QElapsedTimer timer;
    timer.start();
    std::this_thread::sleep_for(std::chrono::milliseconds(kStep));
    if (const std::function<void()> meanwhile = WhileLocked().meanwhile) {
        const QScopedValueRollback turn(waiting, true);
        meanwhile();
    }
    m_waited += timer.elapsed();
    return true;
}

} // namespace kelvado
