#pragma once

#include <QString>

namespace kelvado {

/// Puts a copy of the catalog `source` in the place of `target`, as the engine reads it: what another program still holds in its log comes
/// along. The copy is made beside the target and takes its place when it is whole, so a failure leaves the target as it was, and no side
/// file of the old one stays. Raises `kErrDatabase` with the engine's text, `kErrFileAccess` for a copy onto itself.
void CopyCatalog(const QString& source, const QString& target);

/// Removes the file and what an interrupted write left beside it.
void RemoveCatalog(const QString& path);

/// Puts the finished file in the place of `target`. The side files of the old target go: they would be played back into the new one.
/// Raises `kErrFileAccess` where that fails; `finished` is then gone, and `target` and its side files are as they were.
void PutInPlace(const QString& finished, const QString& target);

} // namespace kelvado
