#pragma once

#include <utility>

namespace kelvado {

/// Runs `action` and then `after`, also where `action` raises; its failure then goes on its way. For what shows windows, emits signals or
/// calls back, which must not run in a destructor: there it could raise nothing, and would run while a failure is under way.
template<typename Action, typename After>
void Finally(Action&& action, After&& after)
{
    try {
        std::forward<Action>(action)();
    } catch (...) {
        after();
        throw;
    }
    after();
}

} // namespace kelvado
