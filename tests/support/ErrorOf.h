#pragma once

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <gtest/gtest.h>

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

/// The text of that failure; empty for none.
template<typename Run>
std::string ErrorTextOf(const Run& run)
{
    try {
        static_cast<void>(run());
        return {};
    } catch (const RuntimeError& error) {
        return error.Description().toStdString();
    }
}

} // namespace kelvado
