#pragma once

#include <QString>

namespace kelvado {

/// Gives the program folder `home`, where it is missing or empty, what lies beside the program in `delivered`: settings, blank catalog,
/// sample, skins and pictures. The sample becomes the catalog that is opened at start. A folder that holds anything is left alone.
/// Raises `kErrFileAccess` with the path where something cannot be written.
void FurnishHome(const QString& home, const QString& delivered);

} // namespace kelvado
