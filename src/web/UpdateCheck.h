#pragma once

#include "core/Dialogs.h"
#include "core/Transport.h"
#include "core/WebHosts.h"

#include <QString>

#include <functional>

namespace kelvado {

/// Asks the maker's server for the newest build, shows its answer, and offers an update where the answer is newer than this build; where
/// it is not, says so unless `quiet`. On Yes `startUpdater` is called, and true is returned: the main window is then to be unloaded.
/// Raises `kErrTypeMismatch` for an answer that is no number, an empty one included.
bool CheckForUpdate(bool quiet, Transport& transport, const WebHosts& hosts, Dialogs& dialogs, const std::function<void()>& startUpdater);

/// Starts the updater that lies in the program's folder, a program of its own. Raises `kErrFileNotFound` where there is none.
void StartUpdater(const QString& appPath);

} // namespace kelvado
