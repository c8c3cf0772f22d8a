#pragma once

#include <QString>

namespace kelvado {

/// Gives the program folder `home`, where it holds nothing but its temp folder, what lies beside the program in `delivered`: settings,
/// blank catalog, sample, skins and pictures. The sample becomes the catalog that is opened at start. What was broken off is finished the
/// next time; a folder that holds anything else is left alone. Raises `kErrFileAccess` with the path where something cannot be written.
void FurnishHome(const QString& home, const QString& delivered);

} // namespace kelvado
