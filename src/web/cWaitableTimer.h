#pragma once

namespace kelvado {

/// The pause between the films of a batch.
class cWaitableTimer
{
public:
    /// Returns when that time has passed, never earlier but where the program ends; events are served all along.
    void Wait(int milliseconds) const;
};

} // namespace kelvado
