#pragma once

#include "panels/TableRows.h"

#include <QStringList>

#include <vector>

namespace kelvado {

/// A small table of the catalog as its window shows it: the second and third column. The first one, a number, is the key of a row.
struct ManagedList
{
    QStringList heads;
    std::vector<qsizetype> limits; ///< the most characters of each column
    std::vector<TableRow> rows;    ///< Null shows as one blank
};

/// Reads "AudioCodecs" or "VideoCodecs".
ManagedList List_Refresh(const QString& table, const QString& catalogPath);

/// Adds a row and returns its key. The texts are stored without outer blanks, a code in capitals. Raises `kErrInvalidCall` where one of
/// them is empty or another row has the same code, `kErrTypeMismatch` for a text in a column of numbers.
qint64 AddListRow(const QString& table, const QStringList& texts, const QString& catalogPath);
/// The same for a row that stands there; raises `kErrNoCurrentRecord` where it is gone.
void ChangeListRow(const QString& table, qint64 key, const QStringList& texts, const QString& catalogPath);
/// Does nothing where the row is gone.
void DeleteListRow(const QString& table, qint64 key, const QString& catalogPath);

} // namespace kelvado
