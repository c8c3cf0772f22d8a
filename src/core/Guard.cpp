#include "core/Guard.h"

namespace kelvado {

void ReportError(Dialogs& dialogs, const RuntimeError& error)
{
    if (error.Number() == kErrCancelled)
        return;
    dialogs.MessageBox(QStringLiteral("Run-time error '%1':\n\n%2").arg(error.Number()).arg(error.Description()), kBoxCritical);
}

} // namespace kelvado
