#pragma once

#include "core/Dialogs.h"
#include "core/RuntimeError.h"

#include <utility>

namespace kelvado {

/// Shows a run-time failure in a message box with its number and text; says nothing of a cancel.
void ReportError(Dialogs& dialogs, const RuntimeError& error);

/// Runs a handler: what it raises ends it here and is shown, so that nothing crosses the event loop and the window lives on.
template<typename Handler>
void Guarded(Dialogs& dialogs, Handler&& handler)
{
    try {
        std::forward<Handler>(handler)();
    } catch (const RuntimeError& error) {
        ReportError(dialogs, error);
    } catch (const std::exception& error) {
        ReportError(dialogs, RuntimeError(kErrOutOfMemory, QString::fromUtf8(error.what())));
    }
}

} // namespace kelvado
