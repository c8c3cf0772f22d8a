#pragma once

#include "core/AppState.h"
#include "core/Clock.h"
#include "core/Dialogs.h"

namespace kelvado {

/// What the windows of the loans work with; all of it outlives them.
struct LoanContext
{
    const AppState& state; ///< names the open catalog
    Dialogs& dialogs;
    const Clock& clock;
};

} // namespace kelvado
