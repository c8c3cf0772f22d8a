#pragma once

#include "store/Value.h"

namespace kelvado {

enum class ColumnKind { Text, Whole, Number, Boolean, Date, Currency, Binary, Any, Expression };

/// True for numbers, truth, amounts and dates: an empty text in such a column, as other tools leave it, stands for Null.
bool HoldsNoTexts(ColumnKind kind);

/// What the declared type of a column says.
struct ColumnType
{
    ColumnKind kind = ColumnKind::Expression;
    qsizetype definedSize = 0; ///< see `Field::DefinedSize`
};

/// Reads the declared type of a column in any database: ours (see schema.sql), or what other tools write. A column without one, or
/// of a type that says nothing ("MEMO", "STRING"), takes any value of any size.
ColumnType TypeOfDeclaration(const char* declaration);

/// The form in which a column of that kind keeps `value`: the empty text becomes Null where the column holds no texts, dates are taken
/// as yyyy-mm-dd and mm/dd/yyyy, truth as `ToBoolean` reads it. A number column keeps a text that is no number.
/// Raises `kErrTypeMismatch` with the column's name where the value does not fit, `kErrOverflow` where a whole number is too large.
Value ToStored(ColumnKind kind, const Value& value, const QString& column);

} // namespace kelvado
