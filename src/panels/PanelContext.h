#pragma once

#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/Shell.h"

namespace kelvado {

/// What the editing panels work with; all of it outlives them.
struct PanelContext
{
    AppState& state; ///< names the open catalog
    Dialogs& dialogs;
    Shell& shell;
};

} // namespace kelvado
