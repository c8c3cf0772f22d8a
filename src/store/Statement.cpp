#include "store/Statement.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <sqlite3.h>

#include <utility>

namespace kelvado {

void RaiseEngineError(sqlite3* database, const QString& path)
{
    throw RuntimeError(kErrDatabase, QString::fromUtf8(sqlite3_errmsg(database)) + u" ("_s + path + u')');
}

namespace {

// The engine names a table that it does not know; where the table of the films is missing, the file is at fault.
[[noreturn]] void RaiseStatementError(sqlite3* database, const QString& path)
{
    const int code = sqlite3_errcode(database);
    const QString reason = QString::fromUtf8(sqlite3_errmsg(database));
    const bool isCatalog =
        code != SQLITE_NOTADB && (code != SQLITE_ERROR || sqlite3_table_column_metadata(database, "main", "Movie", nullptr, nullptr,
                                                                                        nullptr, nullptr, nullptr, nullptr) == SQLITE_OK);
    throw RuntimeError(kErrDatabase, (isCatalog ? QString() : u"This file is no Kelvado catalog: "_s) + reason + u" ("_s + path + u')');
}

} // namespace

QString QuotedName(const QString& name)
{
    QString inner = name;
    return u'"' + inner.replace(u'"', u"\"\""_s) + u'"';
}

Statement::Statement(sqlite3* database, const QString& path, const QString& sql) : m_database(database), m_path(path)
{
    const QByteArray text = sql.toUtf8();
    const char* rest = nullptr;
    if (sqlite3_prepare_v2(database, text.constData(), static_cast<int>(text.size()), &m_handle, &rest) != SQLITE_OK)
        RaiseStatementError(database, path);
    if (!m_handle)
        throw RuntimeError(kErrDatabase, u"the statement is empty ("_s + path + u')');
    if (rest != text.constEnd()) {
        sqlite3_finalize(m_handle);
        throw RuntimeError(kErrDatabase, u"Characters found after end of SQL statement. ("_s + path + u')');
    }
}

Statement::~Statement()
{
    sqlite3_finalize(m_handle);
}

Statement::Statement(Statement&& other) noexcept
    : m_database(std::exchange(other.m_database, nullptr)), m_handle(std::exchange(other.m_handle, nullptr)),
      m_path(std::move(other.m_path))
{
}

Statement& Statement::operator=(Statement&& other) noexcept
{
    std::swap(m_database, other.m_database);
    std::swap(m_handle, other.m_handle);
    std::swap(m_path, other.m_path);
    return *this;
}

bool Statement::IsReadOnly() const
{
    return sqlite3_stmt_readonly(m_handle) != 0;
}

void Statement::Raise()
{
    try {
        RaiseStatementError(m_database, m_path);
    } catch (...) {
        Reset();
        throw;
    }
}

void Statement::Bind(int place, const Value& value)
{
    struct Binder
    {
        sqlite3_stmt* statement;
        int place;
        int operator()(std::monostate) const { return sqlite3_bind_null(statement, place); }
        int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, place, number); }
        int operator()(double number) const { return sqlite3_bind_double(statement, place, number); }
        int operator()(const QString& text) const
        {
            const QByteArray bytes = text.toUtf8();
            return sqlite3_bind_text64(statement, place, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT,
                                       SQLITE_UTF8);
        }
        int operator()(const QByteArray& bytes) const
        {
            // An empty value is bytes of length 0; only a null pointer would be Null.
            return sqlite3_bind_blob64(statement, place, bytes.isEmpty() ? "" : bytes.constData(),
                                       static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
        }
    };
    if (std::visit(Binder{m_handle, place}, value.Data()) != SQLITE_OK)
        Raise();
}

bool Statement::Step()
{
    const int result = sqlite3_step(m_handle);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        Raise();
    return false;
}

void Statement::Reset() noexcept
{
    sqlite3_reset(m_handle);
    sqlite3_clear_bindings(m_handle);
}

int Statement::ColumnCount() const
{
    return sqlite3_column_count(m_handle);
}

QString Statement::ColumnName(int column) const
{
    return QString::fromUtf8(sqlite3_column_name(m_handle, column));
}

QByteArray Statement::OriginName(int column) const
{
    return sqlite3_column_origin_name(m_handle, column);
}

const char* Statement::DeclaredType(int column) const
{
    return sqlite3_column_decltype(m_handle, column);
}

bool Statement::IsNull(int column) const
{
    return sqlite3_column_type(m_handle, column) == SQLITE_NULL;
}

QString Statement::Text(int column) const
{
    switch (sqlite3_column_type(m_handle, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_FLOAT:
        return NumberText(sqlite3_column_double(m_handle, column));
    default:
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_handle, column));
        return QString::fromUtf8(text, sqlite3_column_bytes(m_handle, column));
    }
}

std::optional<QByteArrayView> Statement::Utf8(int column) const
{
    switch (sqlite3_column_type(m_handle, column)) {
    case SQLITE_NULL:
        return QByteArrayView();
    case SQLITE_TEXT:
    case SQLITE_INTEGER: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_handle, column));
        return QByteArrayView(text, sqlite3_column_bytes(m_handle, column));
    }
    default:
        return std::nullopt;
    }
}

std::int64_t Statement::Integer(int column) const
{
    return sqlite3_column_int64(m_handle, column);
}

double Statement::Number(int column) const
{
    return sqlite3_column_double(m_handle, column);
}

Value Statement::Get(int column) const
{
    switch (sqlite3_column_type(m_handle, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_column_int64(m_handle, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(m_handle, column);
    case SQLITE_BLOB: {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_handle, column));
        return QByteArray(bytes, sqlite3_column_bytes(m_handle, column));
    }
    default:
        return Text(column);
    }
}

bool Statement::HoldsWhole(int column) const
{
    return sqlite3_column_type(m_handle, column) == SQLITE_INTEGER;
}

bool Statement::HoldsNumber(int column) const
{
    const int type = sqlite3_column_type(m_handle, column);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

bool Statement::HoldsEmptyText(int column) const
{
    return sqlite3_column_type(m_handle, column) == SQLITE_TEXT && sqlite3_column_bytes(m_handle, column) == 0;
}

} // namespace kelvado
