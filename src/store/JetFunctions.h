#pragma once

struct sqlite3;

namespace kelvado {

/// The number that a value holds or reads as; Null for a text that is no number.
inline constexpr char kNumberFunction[] = "NumberOf";

/// A text with all its letters in one case.
inline constexpr char kFoldFunction[] = "FoldCase";

/// Makes the dialect's functions known to a connection: `Asc`, `Left`, `Right`, `Ucase`, `IsNumeric`, and the two above.
/// Returns the engine's result code.
int RegisterJetFunctions(sqlite3* database);

} // namespace kelvado
