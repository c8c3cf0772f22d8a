#pragma once

namespace kelvado {

/// The pause between the films of a batch.
class cWaitableTimer
{
public:
    /// Returns when that time has passed, never earlier; events are served all along. Raises `kErrCancelled` where the program ends
    /// meanwhile.
    void Wait(int milliseconds) const;
};

} // namespace kelvado
