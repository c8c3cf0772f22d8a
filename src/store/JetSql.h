#pragma once

#include <QSet>
#include <QString>

namespace kelvado {

/// A statement in SQLite's grammar, made from one in the catalog's dialect.
struct TranslatedSql
{
    QString sql;
    /// The one table that a SELECT reads from, where it is plain enough for its rows to be written to; else empty, as are the next two.
    QString table;
    /// The statement with the row's number in front of its columns.
    QString sqlWithRowId;
    /// The same columns of the one row whose number is bound to the question mark.
    QString sqlByRowId;
};

/// Columns that hold numbers, by lower-case name.
struct NumberColumns
{
    /// Compared with a literal as numbers, so that a text that is no number matches nothing.
    QSet<QString> compared;
    /// An empty text in them stands for Null, in conditions, orders, groups and arguments.
    QSet<QString> numbers;
    /// Those among them whose Null equals 0.
    QSet<QString> zeroWhereNull;
};

/// Translates a statement from the catalog's dialect, token by token; texts in quotes are left alone:
/// reserved words as column names are quoted (`Movie.Index`, `Group`, `Order`), `Movie!Title` becomes `Movie.Title`, `DELETE *` loses
/// its star, `Top n` becomes a limit, double-quoted texts become texts, a number that runs into a word is parted from it (`12AND`),
/// `Left(` is quoted, comments and the ";" at the end are left out. Number columns compare as `NumberColumns` says, and a comparison with a
/// text that holds letters beyond A to Z is blind to the case of these too. A text that cannot be read is passed on as it stands, so that
/// the engine reports it.
TranslatedSql TranslateJetSql(const QString& sql, const NumberColumns& numberColumns);

} // namespace kelvado
