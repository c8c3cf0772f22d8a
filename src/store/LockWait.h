#pragma once

#include <QString>

#include <functional>

struct sqlite3;

namespace kelvado {

/// What the program does while another program has the catalog locked.
struct LockManners
{
    int patience = 5000; ///< milliseconds that an operation waits in all
    /// Called again and again while an operation waits. It must not use the connection that waits.
    std::function<void()> meanwhile;
};

/// One for the process; the main window puts its routine in.
LockManners& WhileLocked();

/// The waiting of one connection.
class LockWait
{
public:
    explicit LockWait(const QString& path) : m_path(path) {}
    LockWait(const LockWait&) = delete;
    LockWait& operator=(const LockWait&) = delete;
    /// Lets `database` wait by this object, which must outlive it. Returns the engine's result.
    int Install(sqlite3* database);

private:
    static int OnLocked(void* wait, int round) noexcept;
    bool GoOn();

    QString m_path;
    qint64 m_waited = 0; ///< milliseconds, in all waits
};

} // namespace kelvado
