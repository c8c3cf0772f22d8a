#pragma once

#include "core/TextEntry.h"
#include "store/Connection.h"
#include "store/NameTables.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <span>

namespace kelvado {

/// One node in the tree of what a text export can hold. A group's key contains "MAIN"; it adds nothing.
struct TextField
{
    const char* caption;
    const char* key; ///< table and column, parted by a point, or the key of a custom text
    bool isGroup;
};

/// In the order of the tree, each group followed by its fields.
std::span<const TextField> TextFields();

/// An entry whose text the user types.
struct CustomText
{
    const char* key;
    const char* title;
    const char* prompt;
    const char* caption; ///< stands in front of the text, which a double quote closes
    QLatin1StringView table;
    const char* rowKind;
};

/// The custom text that a field stands for; null for a column.
const CustomText* CustomTextOf(const TextField& field);
/// False for a text that a template could not give back: one with a line end or the mark between two values.
bool IsStorable(const QString& text);
TextEntry CustomEntry(const CustomText& kind, const QString& text);

/// The entry for a column, padded to the column's size. Raises `kErrItemNotFound` where the catalog lacks it.
TextEntry ColumnEntry(const TextField& field, Connection& catalog);

/// The names that belong to films; null for `Movie` and for any table that is not linked to films.
const NameTable* LinkedTable(const QString& table);
/// The table that holds the column of an entry: the entry's own or, for what a link says of a film and a name, the table of the links.
/// Nothing where neither has it, or the entry names no table of films.
std::optional<QString> HomeOfColumn(const TextEntry& entry, Connection& catalog);

/// What films are sorted by: the columns of `Movie` without those that say nothing to a reader, and the link to the film site.
QStringList TextSorts(Connection& catalog);
/// The order that one of them stands for, as SQL.
QString TextOrder(const QString& sort, bool descending);

} // namespace kelvado
