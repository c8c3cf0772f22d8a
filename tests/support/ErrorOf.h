#pragma once

#include "core/RuntimeError.h"

namespace kelvado {

/// The number of the run-time error that `action` raises; 0 for none.
template<typename Action>
int ErrorOf(Action&& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

} // namespace kelvado
