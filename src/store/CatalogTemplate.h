#pragma once

#include <QString>

namespace kelvado {

/// Builds a blank catalog at `path` from the schema and seed rows in `schemaSql` (statements of the engine's own grammar), over
/// whatever stands there. Raises `kErrDatabase` with the engine's text, `kErrFileAccess` where it cannot take its place.
void BuildBlankCatalog(const QString& path, const QString& schemaSql);

} // namespace kelvado
