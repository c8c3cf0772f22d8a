#include "store/Connection.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/ConnectionImpl.h"
#include "store/JetFunctions.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <sqlite3.h>

#include <algorithm>
#include <exception>
#include <limits>
#include <optional>

namespace kelvado {

namespace {

// More texts than this are those of a long walk with a query for each row, and keeping them helps nobody.
constexpr std::size_t kKeptStatements = 64;

// Where numbers of other tables' rows stand, also of rows that are gone.
struct KeyHolder
{
    QLatin1StringView keys; // the table whose numbers they are
    const char* table;
    const char* column;
};
constexpr KeyHolder kKeyHolders[] = {
    {"Movie"_L1, "GenreLink", "Movie_ID"},
    {"Movie"_L1, "ActorLink", "Movie_ID"},
    {"Movie"_L1, "WriterLink", "Movie_ID"},
    {"Movie"_L1, "DirectorLink", "Movie_ID"},
    {"Movie"_L1, "ProducerLink", "Movie_ID"},
    {"Movie"_L1, "CompanyLink", "Movie_ID"},
    {"Movie"_L1, "Feature_Link", "Movie_ID"},
    {"Movie"_L1, "Loans", "Movie_ID"},
    {"Loans"_L1, "Movie", "Loan_ID"},
    {"Images"_L1, "Movie", "Image_ID"},
    {"Images"_L1, "Movie", "ImageBack_ID"},
    {"Images"_L1, "Actor", "Image_ID"},
    {"Genre"_L1, "GenreLink", "Genre_ID"},
    {"Actor"_L1, "ActorLink", "Actor_ID"},
    {"Writer"_L1, "WriterLink", "Writer_ID"},
    {"Director"_L1, "DirectorLink", "Director_ID"},
    {"Producer"_L1, "ProducerLink", "Producer_ID"},
    {"Company"_L1, "CompanyLink", "Company_ID"},
    {"Features"_L1, "Feature_Link", "Feature_ID"},
};

// The same in every catalog, also in one whose tables were made by hand.
const NumberColumns& CatalogNumbers()
{
    static const NumberColumns columns{{u"rating"_s, u"votes"_s, u"audchannels"_s, u"imdb"_s, u"year"_s, u"number"_s},
                                       {u"year"_s, u"number"_s, u"myrating"_s, u"purchaseprice"_s, u"lastviewing"_s, u"seenit"_s,
                                        u"isrequest"_s, u"image_id"_s, u"imageback_id"_s, u"loan_id"_s, u"movienight"_s, u"isretreived"_s,
                                        u"order"_s, u"loandate"_s, u"duedate"_s, u"returndate"_s},
                                       {u"image_id"_s, u"imageback_id"_s, u"loan_id"_s, u"movienight"_s}};
    return columns;
}

// For a catalog in which no year is an empty text. A column that stands bare is sorted and grouped by its index.
const NumberColumns& NumbersWithBareYears()
{
    static const NumberColumns columns = [] {
        NumberColumns bare = CatalogNumbers();
        bare.numbers.remove(u"year"_s);
        return bare;
    }();
    return columns;
}

} // namespace

ConnectionImpl::ConnectionImpl(const QString& path) : m_path(path), m_wait(path)
{
    // The engine takes an empty name, and some that begin with a colon, for a data base that is no file.
    const QByteArray name = (path.startsWith(u'/') ? path : QDir::currentPath() + u'/' + path).toUtf8();
    const int opened = sqlite3_open_v2(name.constData(), &m_database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    const bool ready = opened == SQLITE_OK && m_wait.Install(m_database) == SQLITE_OK &&
                       sqlite3_db_config(m_database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr) == SQLITE_OK &&
                       // A catalog can come from anybody: nothing that stands in its schema is run with the program's functions.
                       sqlite3_db_config(m_database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr) == SQLITE_OK &&
                       RegisterJetFunctions(m_database) == SQLITE_OK;
    if (ready)
        return;
    const QString reason = QString::fromUtf8(sqlite3_errmsg(m_database));
    sqlite3_close_v2(m_database);
    m_database = nullptr;
    Raise(reason);
}

ConnectionImpl::~ConnectionImpl()
{
    try {
        Close();
    } catch (...) { // NOLINT(bugprone-empty-catch): as in `~Connection`
    }
}

void ConnectionImpl::Close()
{
    if (!m_database)
        return;
    for (ConnectionClient* client : m_clients)
        client->Disconnect();
    m_clients.clear();
    std::exception_ptr failure;
    try {
        if (m_writing)
            Commit();
    } catch (...) {
        failure = std::current_exception();
    }
    m_queries.clear();
    m_statements.clear();
    sqlite3_close_v2(m_database);
    m_database = nullptr;
    if (failure)
        std::rethrow_exception(failure);
}

void ConnectionImpl::Raise(const QString& reason) const
{
    throw RuntimeError(kErrDatabase, reason + u" ("_s + m_path + u')');
}

// A full disk and the like can make the engine leave the transaction on its own.
void ConnectionImpl::RaiseUndone() const
{
    Raise(u"the failure has undone all that this operation had stored"_s);
}

void ConnectionImpl::Commit()
{
    m_writing = false;
    if (sqlite3_get_autocommit(m_database) != 0)
        RaiseUndone();
    BurnKeys();
    Run(u"COMMIT"_s);
}

// What another tool made of the engine's counters is made good here too.
void ConnectionImpl::BurnKeys()
{
    if (m_burned.empty() || !RemembersKeys())
        return;
    const auto run = [this](const QString& sql, const QString& table, qint64 key) {
        Statement& statement = Prepared(sql);
        statement.Bind(1, Value(key));
        statement.Bind(2, Value(table));
        statement.Step();
        statement.Reset();
    };
    for (const auto& [table, key] : m_burned) {
        run(u"UPDATE sqlite_sequence SET seq = max(CAST(seq AS INTEGER), ?1) WHERE name = ?2 COLLATE NOCASE"_s, table, key);
        run(u"INSERT INTO sqlite_sequence (name, seq) SELECT name, ?1 FROM sqlite_master WHERE type = 'table' AND name = ?2 COLLATE NOCASE "
            "AND sql LIKE '%AUTOINCREMENT%' AND name NOT IN (SELECT name FROM sqlite_sequence)"_s,
            table, key);
    }
}

qint64 ConnectionImpl::Execute(const QString& sql, const QList<Value>& values)
{
    Statement statement(m_database, m_path, TranslateJetSql(sql, CatalogNumbers()).sql);
    const bool writes = !statement.IsReadOnly();
    if (writes)
        BeginWrite();
    for (int i = 0; i < values.size(); ++i)
        statement.Bind(i + 1, values[i]);
    while (statement.Step()) {
    }
    return writes ? LastChangeCount() : 0;
}

void ConnectionImpl::AllOrNothing(const std::function<void()>& action)
{
    BeginWrite();
    Run(u"SAVEPOINT step"_s);
    try {
        action();
    } catch (...) {
        UndoStep();
        throw;
    }
    Run(u"RELEASE step"_s);
}

// Half of a step is never stored: where it cannot be undone, the whole operation goes, and closing says so.
void ConnectionImpl::UndoStep() noexcept
{
    if (sqlite3_get_autocommit(m_database) == 0 &&
        sqlite3_exec(m_database, "ROLLBACK TO step; RELEASE step", nullptr, nullptr, nullptr) != SQLITE_OK)
        sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr);
}

// Runs a statement of the engine's own grammar that has no values and gives no rows.
void ConnectionImpl::Run(const QString& sql)
{
    Statement& statement = Prepared(sql);
    statement.Step();
    statement.Reset();
}

bool ConnectionImpl::IsTable(const QByteArray& name) const
{
    return !name.isEmpty() && sqlite3_table_column_metadata(m_database, "main", name.constData(), nullptr, nullptr, nullptr, nullptr,
                                                            nullptr, nullptr) == SQLITE_OK;
}

std::unique_ptr<Query> ConnectionImpl::TakeQuery(const QString& sql)
{
    if (const auto kept = m_queries.find(sql); kept != m_queries.end() && kept->second)
        return std::move(kept->second);

    auto query = std::make_unique<Query>();
    query->sql = sql;
    const bool bareYears = sql.contains(u"year"_s, Qt::CaseInsensitive) && !MayHoldEmptyYears();
    query->translated = TranslateJetSql(sql, bareYears ? NumbersWithBareYears() : CatalogNumbers());
    const QByteArray table = query->translated.table.toUtf8();
    if (IsTable(table)) {
        try {
            query->statement = Statement(m_database, m_path, query->translated.sqlWithRowId);
            query->ofOneTable = true;
        } catch (const RuntimeError&) { // NOLINT(bugprone-empty-catch): a table without row numbers is read as it was asked for
        }
    }
    if (!query->ofOneTable)
        query->statement = Statement(m_database, m_path, query->translated.sql);

    const Statement& statement = query->statement;
    for (int i = query->ofOneTable ? 1 : 0; i < statement.ColumnCount(); ++i) {
        const QByteArray origin = statement.OriginName(i);
        query->columns.append({statement.ColumnName(i), QString::fromUtf8(origin),
                               origin.isEmpty() ? ColumnType() : TypeOfDeclaration(statement.DeclaredType(i))});
        if (!query->ofOneTable || query->columns.back().type.kind != ColumnKind::Whole)
            continue;
        const char* type = nullptr;
        int isKey = 0;
        sqlite3_table_column_metadata(m_database, "main", table.constData(), origin.constData(), &type, nullptr, nullptr, &isKey, nullptr);
        if (isKey != 0 && qstricmp(type, "INTEGER") == 0)
            query->keyColumn = static_cast<int>(query->columns.size()) - 1;
    }
    return query;
}

void ConnectionImpl::GiveBack(std::unique_ptr<Query> query) noexcept
{
    try {
        query->statement.Reset();
        if (m_queries.size() >= kKeptStatements)
            m_queries.clear();
        const QString sql = query->sql;
        m_queries[sql] = std::move(query);
    } catch (...) { // NOLINT(bugprone-empty-catch): a query that cannot be kept is made anew
    }
}

Statement& ConnectionImpl::Prepared(const QString& sql)
{
    const auto kept = m_statements.find(sql);
    if (kept != m_statements.end())
        return kept->second;
    if (m_statements.size() >= kKeptStatements)
        m_statements.clear();
    return m_statements.emplace(sql, Statement(m_database, m_path, sql)).first->second;
}

qint64 ConnectionImpl::LastRowId() const
{
    return sqlite3_last_insert_rowid(m_database);
}

qint64 ConnectionImpl::LastChangeCount() const
{
    return sqlite3_changes64(m_database);
}

void ConnectionImpl::BeginWrite()
{
    if (m_writing) {
        if (sqlite3_get_autocommit(m_database) != 0)
            RaiseUndone();
        return;
    }
    if (sqlite3_db_readonly(m_database, "main") == 1)
        Raise(QString::fromUtf8(sqlite3_errstr(SQLITE_READONLY)));
    Run(u"BEGIN IMMEDIATE"_s);
    m_writing = true;
}

// False for a catalog of another tool in which no table has numbers that never come back.
bool ConnectionImpl::RemembersKeys()
{
    if (!m_remembersKeys)
        m_remembersKeys = WholeNumber(u"SELECT count(*) FROM sqlite_master WHERE name = 'sqlite_sequence'"_s, {}) > 0;
    return *m_remembersKeys;
}

// Without the index the answer would cost more than it saves.
bool ConnectionImpl::MayHoldEmptyYears()
{
    if (!m_mayHoldEmptyYears) {
        try {
            m_mayHoldEmptyYears = WholeNumber(u"SELECT count(*) FROM Movie INDEXED BY Movie_Year WHERE Year = ''"_s, {}) > 0;
        } catch (const RuntimeError&) {
            m_mayHoldEmptyYears = true;
        }
    }
    return *m_mayHoldEmptyYears;
}

// The first value of the first row, 0 where there is none.
qint64 ConnectionImpl::WholeNumber(const QString& sql, const QList<Value>& values)
{
    Statement& statement = Prepared(sql);
    for (int i = 0; i < values.size(); ++i)
        statement.Bind(i + 1, values[i]);
    const qint64 number = statement.Step() ? statement.Integer(0) : 0;
    statement.Reset();
    return number;
}

qint64 ConnectionImpl::ReserveKey(const QString& table)
{
    const auto [entry, isFirst] = m_reserved.try_emplace(table.toLower(), 0);
    qint64& last = entry->second;
    const auto raise = [&last](qint64 number) { last = std::max(last, number); };
    raise(WholeNumber(u"SELECT max(_rowid_) FROM "_s + QuotedName(table), {}));
    if (RemembersKeys())
        raise(WholeNumber(u"SELECT max(CAST(seq AS INTEGER)) FROM sqlite_sequence WHERE name = ? COLLATE NOCASE"_s, {table}));
    if (isFirst)
        raise(HighestHeldKey(table));
    if (last == std::numeric_limits<qint64>::max())
        Raise(u"the numbers of the table %1 are used up"_s.arg(table));
    return ++last;
}

// Another tool may have set the counter back: a new film must not get the loans or the cast of one that is gone.
qint64 ConnectionImpl::HighestHeldKey(const QString& table)
{
    const QString largest = QString::number(std::numeric_limits<qint64>::max()); // keeps texts out, which are larger than any number
    QStringList queries;
    for (const KeyHolder& holder : kKeyHolders) {
        if (table.compare(holder.keys, Qt::CaseInsensitive) != 0 ||
            sqlite3_table_column_metadata(m_database, "main", holder.table, holder.column, nullptr, nullptr, nullptr, nullptr, nullptr) !=
                SQLITE_OK)
            continue;
        queries << u"SELECT max(%1) AS held FROM %2 WHERE %1 <= %3"_s.arg(QLatin1StringView(holder.column), QLatin1StringView(holder.table),
                                                                          largest);
    }
    return queries.isEmpty() ? 0 : WholeNumber(u"SELECT max(held) FROM ("_s + queries.join(u" UNION ALL "_s) + u')', {});
}

void ConnectionImpl::BurnKey(const QString& table, qint64 key)
{
    qint64& highest = m_burned[table.toLower()];
    highest = std::max(highest, key);
}

Connection::Connection() = default;
Connection::Connection(Connection&&) noexcept = default;

Connection& Connection::operator=(Connection&& other) noexcept
{
    if (this != &other) {
        CloseQuietly();
        m_impl = std::move(other.m_impl);
    }
    return *this;
}

Connection::~Connection()
{
    CloseQuietly();
}

// A recordset that lives on must not hold the commit back.
void Connection::CloseQuietly() noexcept
{
    try {
        Close();
    } catch (...) { // NOLINT(bugprone-empty-catch): nobody is left to tell; `Close` is there for those who want to know
    }
}

Connection OpenCatalog(const QString& path)
{
    Connection connection;
    connection.m_impl = std::make_shared<ConnectionImpl>(path);
    return connection;
}

bool Connection::IsOpen() const
{
    return m_impl != nullptr;
}

void Connection::Close()
{
    if (const std::shared_ptr<ConnectionImpl> closing = std::move(m_impl))
        closing->Close();
}

qint64 Connection::Execute(const QString& sql)
{
    return Execute(sql, {});
}

qint64 Connection::Execute(const QString& sql, const QList<Value>& values)
{
    if (!m_impl)
        throw RuntimeError(kErrObjectNotSet);
    return m_impl->Execute(sql, values);
}

void Connection::AllOrNothing(const std::function<void()>& action)
{
    if (!m_impl)
        throw RuntimeError(kErrObjectNotSet);
    m_impl->AllOrNothing(action);
}

QString Connection::Path() const
{
    return m_impl ? m_impl->Path() : QString();
}

} // namespace kelvado
