#pragma once

namespace kelvado {

/// The event pump, as long jobs use it.
class Events
{
public:
    virtual ~Events() = default;

    /// Handles what the user and the system have sent so far, and returns.
    virtual void ServeEvents() = 0;

    /// Waits for about `milliseconds` while events are served.
    virtual void Pause(int milliseconds) = 0;
};

} // namespace kelvado
