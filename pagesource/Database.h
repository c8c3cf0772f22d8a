#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace pagesource {

/// What ends a run: a file that is missing or broken, a database that refuses. The text is for the user.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class Database;

/// One prepared statement. Bind counts parameters from 1, the columns count from 0. Texts that are bound must live until the next Step.
class Statement
{
public:
    Statement(Database& database, std::string_view sql);

    Statement& Bind(int place, std::int64_t value);
    Statement& Bind(int place, std::string_view text);
    Statement& BindNull(int place);
    /// A row to read? Raises Failure for whatever the engine refuses.
    bool Step();
    void Reset();
    /// Step for what returns no row, and Reset.
    void Run();

    bool IsNull(int column) const;
    std::int64_t Int(int column) const;
    std::string Text(int column) const;

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const;
    };
    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

class Database
{
public:
    enum class Mode { Read, Create };
    /// Raises Failure, with the path, for a file that is not there or no database.
    Database(const std::string& path, Mode mode);

    void Execute(const std::string& sql);
    /// Rows that the last statement changed.
    std::int64_t Changes() const;

private:
    friend class Statement;
    struct Close
    {
        void operator()(sqlite3* database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
};

} // namespace pagesource
