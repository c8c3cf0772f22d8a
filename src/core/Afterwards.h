#pragma once

namespace kelvado {

/// Runs `work` and then `after`, however `work` ends. For an end that shows something or calls back, and may fail itself: a destructor
/// is no place for it.
template<typename Work, typename After>
void Afterwards(const Work& work, const After& after)
{
    try {
        work();
    } catch (...) {
        after();
        throw;
    }
    after();
}

} // namespace kelvado
