#pragma once

#include "core/RuntimeError.h"

namespace kelvado {

/// The number of the run-time failure that `run` ends with; 0 for none. Any other exception goes on.
template<typename Run>
int ErrorOf(const Run& run)
{
    try {
        static_cast<void>(run());
        return 0;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

} // namespace kelvado
