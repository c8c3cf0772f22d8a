#pragma once

namespace kelvado {

/// The event pump, as long jobs use it.
class Events
{
public:
    virtual ~Events() = default;

    /// Handles what the user and the system have sent so far, and returns.
    virtual void ServeEvents() = 0;

    /// The same without the user's input, which waits for its turn: for a job that must not be reached by clicks and keys meanwhile,
    /// as it holds the catalog open. The window is painted and timers run.
    virtual void ServeWithoutInput() = 0;

    /// Returns when that time has passed, never earlier; events are served all along. Raises `kErrCancelled` where the program ends
    /// meanwhile.
    virtual void Pause(int milliseconds) = 0;
};

} // namespace kelvado
