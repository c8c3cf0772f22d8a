#include "core/Guard.h"

#include "core/Literals.h"

namespace kelvado {

void ReportError(Dialogs& dialogs, const RuntimeError& error)
{
    if (error.Number() == kErrCancelled)
        return;
    dialogs.MessageBox(u"Run-time error '%1':\n\n%2"_s.arg(error.Number()).arg(error.Description()), kBoxCritical);
}

} // namespace kelvado
