#include "Database.h"

#include <sqlite3.h>

namespace pagesource {

namespace {

[[noreturn]] void Fail(sqlite3* database)
{
    throw Failure(std::string("The data file: ") + sqlite3_errmsg(database));
}

} // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string_view sql) : m_database(database.m_database.get())
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(m_database, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement, nullptr) !=
        SQLITE_OK)
        Fail(m_database);
    m_statement.reset(statement);
}

Statement& Statement::Bind(int place, std::int64_t value)
{
    sqlite3_bind_int64(m_statement.get(), place, value);
    return *this;
}

Statement& Statement::Bind(int place, std::string_view text)
{
    // A view without data would be bound as NULL.
    sqlite3_bind_text(m_statement.get(), place, text.data() ? text.data() : "", static_cast<int>(text.size()), SQLITE_STATIC);
    return *this;
}

Statement& Statement::BindNull(int place)
{
    sqlite3_bind_null(m_statement.get(), place);
    return *this;
}

bool Statement::Step()
{
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        Fail(m_database);
    return result == SQLITE_ROW;
}

void Statement::Reset()
{
    sqlite3_reset(m_statement.get());
}

void Statement::Run()
{
    Step();
    Reset();
}

bool Statement::IsNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::Int(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

std::string Statement::Text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    return text ? std::string(text, sqlite3_column_bytes(m_statement.get(), column)) : std::string();
}

void Database::Close::operator()(sqlite3* database) const
{
    sqlite3_close_v2(database);
}

Database::Database(const std::string& path, Mode mode)
{
    sqlite3* database = nullptr;
    const int flags = mode == Mode::Read ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int result = sqlite3_open_v2(path.c_str(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    m_database.reset(database);
    if (result != SQLITE_OK)
        throw Failure(path + ": " + (database ? sqlite3_errmsg(database) : "out of memory"));
    try {
        Execute("SELECT count(*) FROM sqlite_master");
    } catch (const Failure&) {
        throw Failure(path + " is no data file of the page source.");
    }
}

void Database::Execute(const std::string& sql)
{
    if (sqlite3_exec(m_database.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail(m_database.get());
}

std::int64_t Database::Changes() const
{
    return sqlite3_changes64(m_database.get());
}

} // namespace pagesource
