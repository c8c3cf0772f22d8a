#pragma once

#include "store/Connection.h"
#include "store/Value.h"

#include <QStringView>

#include <memory>

namespace kelvado {

class RecordsetImpl;

enum class LockType { ReadOnly, Optimistic };

/// One column of a recordset at its current row; a light handle, valid while its recordset is open.
class Field
{
public:
    QString Name() const;
    /// The most characters that the column takes: n of a `VARCHAR(n)`, 536870910 for a memo, 64 for numbers, dates, booleans and
    /// currency, 1073741823 for bytes, 0 for a column that is an expression.
    qsizetype DefinedSize() const;
    /// The number of bytes (binary) or characters (text) of the present value; 0 for Null.
    qint64 ActualSize() const;

    bool IsNull() const;
    /// The zero date of a date column is given as the empty text.
    Value Get() const;
    /// Changes the value in the row that is being added or edited; it reaches the catalog with `Recordset::Update`.
    /// The value is brought into the column's form: the empty text becomes Null in columns that hold no texts; a date may also be given
    /// as mm/dd/yyyy. Raises `kErrTypeMismatch` where it does not fit.
    void Set(const Value& value) const;

    /// The next `size` bytes of a binary column of the current row, fewer at its end; reading begins anew with every row.
    QByteArray GetChunk(qint64 size) const;
    /// Appends to the binary value of the row that is being added or edited; the first call replaces what stood there.
    void AppendChunk(const QByteArray& bytes) const;

private:
    friend class Recordset;
    Field(RecordsetImpl* owner, int index) : m_owner(owner), m_index(index) {}
    RecordsetImpl* m_owner;
    int m_index;
};

/// The rows of one query, read lazily: opening reads no row, so that opening a whole table to add to it costs nothing. It can be written
/// to where all its columns come from one table. Its rows are those that the query finds when reading begins: what is stored through the
/// recordset moves no row out of the walk or into it. A statement that returns no rows is run by `Open`.
///
/// Leaving a row that is being added or changed, by a move or by another `AddNew`, stores it; closing the recordset drops it.
/// Every routine raises `kErrDatabase` with the engine's text and the file's path where the engine fails.
class Recordset
{
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// `sql` is given in the catalog's own dialect (see JetSql.h). The connection must stay open as long as the recordset.
    void Open(const QString& sql, Connection& connection, LockType lock = LockType::Optimistic);
    /// The same, with values for the question marks of `sql`.
    void Open(const QString& sql, const QList<Value>& values, Connection& connection, LockType lock = LockType::Optimistic);
    bool IsOpen() const;
    void Close();

    /// True behind the last row. False while a row is being added.
    bool Eof() const;
    /// Raises `kErrNoCurrentRecord` behind the last row.
    void MoveNext();
    void MoveFirst();
    /// The number of all rows of the query; it is counted by a query of its own at the first call.
    qint64 RecordCount() const;
    /// 1 for the first row; 0 where there is no current row.
    qint64 AbsolutePosition() const;

    int ColumnCount() const;
    /// The column's place from 0, found without regard to case. Raises `kErrItemNotFound` with the name where there is none.
    int ColumnIndex(QStringView name) const;
    /// Raises `kErrItemNotFound` where there is no such column.
    Field operator[](QStringView name) const;
    Field operator[](int index) const;

    /// The current row's values by place; the fast way for long walks. Raises `kErrNoCurrentRecord` where there is no current row,
    /// `kErrItemNotFound` for a place that is none.
    bool IsNull(int column) const;
    QString Text(int column) const; ///< "" for Null and for the zero date
    /// The same text as UTF-8, without a copy where that can be; valid until the next call on this recordset.
    QByteArrayView Utf8(int column) const;
    std::int64_t Integer(int column) const; ///< 0 for Null; raises `kErrTypeMismatch` for a text that is no number
    double Number(int column) const;        ///< 0 for Null; raises `kErrTypeMismatch` for a text that is no number

    /// Begins a new row. A numbered key is given at once: it can be read before `Update`, and never comes back.
    void AddNew();
    /// Stores the new or changed row; does nothing where nothing is being added or changed. Afterwards a new row is the current one.
    /// Raises `kErrDatabase` where the row was changed or deleted by another in the meantime.
    void Update();
    /// Forgets the row that is being added or changed.
    void CancelUpdate();
    /// Deletes the current row; it stays current until the next move.
    void Delete();

private:
    RecordsetImpl& Opened() const;
    RecordsetImpl& Opened(int column) const;
    std::unique_ptr<RecordsetImpl> m_impl;
};

} // namespace kelvado
