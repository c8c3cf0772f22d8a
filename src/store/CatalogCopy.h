#pragma once

#include <QString>

#include <functional>

namespace kelvado {

/// Puts a copy of the catalog `source` in the place of `target`, as the engine reads it: what another program still holds in its log comes
/// along. The copy is made beside the target and takes its place when it is whole, so a failure leaves the target as it was, and no side
/// file of the old one stays. Raises `kErrDatabase` with the engine's text, `kErrFileAccess` for a copy onto itself and where `target`
/// cannot be written.
void CopyCatalog(const QString& source, const QString& target);

/// Lets `write` make a catalog at the path that it is given, beside `target`, and puts it in the place of `target`; the side files of the
/// old target go. Raises what `write` raises, and `kErrFileAccess` where the file cannot be put there; `target` and its side files are then
/// as they were, and nothing else is left.
void WriteCatalog(const QString& target, const std::function<void(const QString& path)>& write);

} // namespace kelvado
