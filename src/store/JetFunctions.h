#pragma once

struct sqlite3;

namespace kelvado {

/// The number that a value holds or reads as; Null for a text that is no number.
inline constexpr char kNumberFunction[] = "NumberOf";

/// Makes the dialect's functions known to a connection: `Asc`, `Left`, `Right`, `Ucase`, `IsNumeric`, and `kNumberFunction`.
/// Returns the engine's result code.
int RegisterJetFunctions(sqlite3* database);

} // namespace kelvado
