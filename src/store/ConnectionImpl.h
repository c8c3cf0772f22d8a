#pragma once

#include "store/ColumnType.h"
#include "store/JetSql.h"
#include "store/LockWait.h"
#include "store/Statement.h"

#include <QList>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace kelvado {

/// A prepared query with what is known of its columns.
struct Query
{
    struct Column
    {
        QString name;
        QString origin; ///< its name in the table; empty for an expression
        ColumnType type;
    };

    QString sql; ///< as it was given
    TranslatedSql translated;
    Statement statement;
    QList<Column> columns;
    /// True where the rows are those of one table, `translated.table`: the statement then gives the row's number in front of the columns.
    bool ofOneTable = false;
    int keyColumn = -1; ///< the column that is the row's number under a name, if it is among the columns
};

/// What must let go of the engine before a connection can close.
class ConnectionClient
{
public:
    virtual void Disconnect() noexcept = 0;

protected:
    ~ConnectionClient() = default;
};

/// The engine's side of a `Connection`. Queries that were closed are kept for the next one of the same text.
class ConnectionImpl
{
public:
    explicit ConnectionImpl(const QString& path);
    ~ConnectionImpl();
    ConnectionImpl(const ConnectionImpl&) = delete;
    ConnectionImpl& operator=(const ConnectionImpl&) = delete;

    /// Commits and closes; raises what the commit raises.
    void Close();

    const QString& Path() const { return m_path; }
    sqlite3* Handle() const { return m_database; }
    [[noreturn]] void RaiseEngineError() const { kelvado::RaiseEngineError(m_database, m_path); }
    [[noreturn]] void Raise(const QString& reason) const;

    void Join(ConnectionClient* client) { m_clients.push_back(client); }
    void Leave(ConnectionClient* client) noexcept { std::erase(m_clients, client); }

    qint64 Execute(const QString& sql, const QList<Value>& values);
    void AllOrNothing(const std::function<void()>& action);

    std::unique_ptr<Query> TakeQuery(const QString& sql);
    void GiveBack(std::unique_ptr<Query> query) noexcept;
    /// A statement of the engine's own grammar for use at once; it must be reset afterwards.
    Statement& Prepared(const QString& sql);

    qint64 LastRowId() const;
    qint64 LastChangeCount() const;

    /// Begins the write transaction, unless it has begun. Raises for a catalog that may not be written.
    void BeginWrite();
    /// A key for a new row of `table` that no row had before and no other row will get. Needs the write transaction. Raises where the
    /// numbers are used up.
    qint64 ReserveKey(const QString& table);
    /// Sees to it that a reserved key that was not used stays unused.
    void BurnKey(const QString& table, qint64 key);

private:
    void Run(const QString& sql);
    bool IsTable(const QByteArray& name) const; // a view is none
    void Commit();
    void UndoStep() noexcept;
    void BurnKeys();
    bool RemembersKeys();
    bool MayHoldEmptyYears();
    qint64 WholeNumber(const QString& sql, const QList<Value>& values);
    qint64 HighestHeldKey(const QString& table);
    [[noreturn]] void RaiseUndone() const;

    QString m_path;
    sqlite3* m_database = nullptr;
    LockWait m_wait;
    bool m_writing = false;
    std::vector<ConnectionClient*> m_clients;
    std::unordered_map<QString, std::unique_ptr<Query>> m_queries;
    std::unordered_map<QString, Statement> m_statements;
    std::map<QString, qint64> m_reserved; // the last key handed out, by table in lower case
    std::map<QString, qint64> m_burned;
    std::optional<bool> m_remembersKeys;
    std::optional<bool> m_mayHoldEmptyYears;
};

} // namespace kelvado
