#pragma once

#include "store/Value.h"

#include <QByteArrayView>

#include <QByteArray>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace kelvado {

/// Raises `kErrDatabase` with the engine's text for its last failure, and the path.
[[noreturn]] void RaiseEngineError(sqlite3* database, const QString& path);

/// `name` as the engine takes it for a table or a column, whatever it is called.
QString QuotedName(const QString& name);

/// One prepared statement of the engine; a text with anything behind its first statement is none. Failures raise `kErrDatabase`; the
/// statement is then reset.
class Statement
{
public:
    Statement() = default;
    Statement(sqlite3* database, const QString& path, const QString& sql);
    ~Statement();
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&& other) noexcept;

    explicit operator bool() const { return m_handle != nullptr; }
    bool IsReadOnly() const;

    /// Binds the value at `place`, 1 for the first.
    void Bind(int place, const Value& value);
    /// True where there is a row.
    bool Step();
    /// Gives back the row, the locks and the bound values.
    void Reset() noexcept;

    int ColumnCount() const;
    /// The name that the result gives the column.
    QString ColumnName(int column) const;
    /// The column of the table that it comes from; empty for an expression.
    QByteArray OriginName(int column) const;
    /// Null for an expression.
    const char* DeclaredType(int column) const;

    // The current row.
    bool IsNull(int column) const;
    QString Text(int column) const;
    /// The engine's own text of a text, a whole number or Null (empty), valid until the next step; nothing for any other value.
    std::optional<QByteArrayView> Utf8(int column) const;
    std::int64_t Integer(int column) const;
    double Number(int column) const;
    Value Get(int column) const;
    bool HoldsWhole(int column) const;
    bool HoldsNumber(int column) const;
    bool HoldsEmptyText(int column) const;

private:
    [[noreturn]] void Raise();

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_handle = nullptr;
    QString m_path;
};

} // namespace kelvado
