#pragma once

#include "core/TextEntry.h"
#include "store/Connection.h"

#include <QList>
#include <QString>

namespace kelvado {

/// Stands between two values of a line.
inline constexpr QLatin1StringView kTemplateMark = "<>!!"_L1;

/// A template of a text export (".tet") is a text file with one line for each entry: its eight values in the order of `TextEntry`, joined
/// by `kTemplateMark`, truth as "True" and "False", the alignment as 0, 1 or 2.

/// Reads a template whole. Raises `kErrTypeMismatch` with the file and the line for a value that is none, too few or too many of them, a
/// column that `catalog` lacks, or more lines than the list has room for; and what reading a file raises.
QList<TextEntry> ReadTextTemplate(const QString& path, Connection& catalog);

/// Writes the template beside its target and renames it when it is whole. Raises `kErrFileAccess` with the path.
void WriteTextTemplate(const QString& path, const QList<TextEntry>& entries);

} // namespace kelvado
