#include "store/RecordsetImpl.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <algorithm>

namespace kelvado {

namespace {

const QString& ZeroDateText()
{
    static const QString text = ZeroDate().toString(Qt::ISODate);
    return text;
}

} // namespace

RecordsetImpl::RecordsetImpl(std::shared_ptr<ConnectionImpl> connection, const QString& sql, const QList<Value>& values, LockType lock)
    : m_connection(std::move(connection)), m_query(m_connection->TakeQuery(sql)), m_values(values), m_mayWrite(lock != LockType::ReadOnly)
{
    if (m_query->columns.isEmpty()) {
        m_connection->BeginWrite();
        for (int i = 0; i < m_values.size(); ++i)
            m_query->statement.Bind(i + 1, m_values[i]);
        m_query->statement.Step();
        m_query->statement.Reset();
        m_state = State::Behind;
        m_count = 0;
    }
    m_connection->Join(this);
}

RecordsetImpl::~RecordsetImpl()
{
    if (!m_query)
        return;
    LetGo();
    m_connection->Leave(this);
    m_connection->GiveBack(std::move(m_query));
}

void RecordsetImpl::Disconnect() noexcept
{
    LetGo();
    m_query.reset();
}

void RecordsetImpl::LetGo() noexcept
{
    try {
        CancelUpdate();
    } catch (...) { // NOLINT(bugprone-empty-catch): an unused key may then be given once more
    }
    m_blob.Close();
}

// ---- the states of the walk: they change in this part alone

// The one way into a state: what does not go with it is let go.
void RecordsetImpl::Go(State next)
{
    if (next != State::Streamed && next != State::Held && next != State::HeldAhead)
        m_query->statement.Reset();
    if (next == State::Behind) {
        m_blob.Close();
        m_held.clear();
    }
    m_state = next;
}

void RecordsetImpl::Start()
{
    Statement& statement = m_query->statement;
    Go(State::NotBegun);
    for (int i = 0; i < m_values.size(); ++i)
        statement.Bind(i + 1, m_values[i]);
    m_position = 0;
    m_keys.clear();
    m_nextKey = 0;
    m_chunkAt.clear();
    StepStatement();
    // Most queries ask for one row: with the look behind it the statement is over, and holds no lock while the row is worked on.
    if (IsStreamed() && m_query->ofOneTable) {
        Hold();
        Go(statement.Step() ? State::HeldAhead : State::HeldAlone);
    }
}

void RecordsetImpl::StepStatement()
{
    if (m_state != State::HeldAhead && !m_query->statement.Step()) {
        m_count = m_position;
        Go(State::Behind);
        return;
    }
    Go(State::Streamed);
    ++m_position;
    if (m_query->ofOneTable)
        m_rowId = m_query->statement.Integer(0);
}

void RecordsetImpl::StepOn()
{
    m_chunkAt.clear();
    if (m_state != State::HeldAlone && m_state != State::Unread) {
        StepStatement();
        return;
    }
    while (m_nextKey < m_keys.size()) {
        m_rowId = m_keys[m_nextKey++];
        if (std::optional<std::vector<Value>> row = ReadByRowId(m_rowId)) {
            m_held = std::move(*row);
            Go(State::HeldAlone);
            ++m_position;
            return;
        }
    }
    Go(State::Behind);
}

void RecordsetImpl::RequireRow()
{
    if (m_state == State::NotBegun)
        Start();
    if (m_state == State::Unread) {
        std::optional<std::vector<Value>> row = ReadByRowId(m_rowId);
        if (!row)
            throw RuntimeError(kErrNoCurrentRecord);
        m_held = std::move(*row);
        Go(State::HeldAlone);
    }
    if (m_state == State::Behind)
        throw RuntimeError(kErrNoCurrentRecord);
}

void RecordsetImpl::Hold()
{
    if (!IsStreamed())
        return;
    m_held = CopyRow(m_query->statement);
    Go(State::Held);
}

// Once a row is written, the running statement could meet rows that it gave already, or miss some. From then on the walk goes by keys.
void RecordsetImpl::FreezeKeys()
{
    Hold();
    if (m_state != State::Held && m_state != State::HeldAhead)
        return;
    m_keys.clear();
    m_nextKey = 0;
    Statement& statement = m_query->statement;
    if (m_state == State::HeldAhead)
        m_keys.push_back(statement.Integer(0));
    while (statement.Step())
        m_keys.push_back(statement.Integer(0));
    Go(State::HeldAlone);
}

// A new row stands behind all others.
void RecordsetImpl::StandOnNewRow(qint64 rowId)
{
    m_rowId = rowId;
    m_keys.clear();
    m_nextKey = 0;
    m_position = 0;
    Go(State::Unread);
}

// ---- the walk

bool RecordsetImpl::Eof()
{
    if (m_adding)
        return false;
    if (m_state == State::NotBegun)
        Start();
    return m_state == State::Behind;
}

void RecordsetImpl::MoveNext()
{
    Update();
    if (Eof())
        throw RuntimeError(kErrNoCurrentRecord);
    StepOn();
}

void RecordsetImpl::MoveFirst()
{
    Update();
    if (!m_query->columns.isEmpty())
        Start();
}

qint64 RecordsetImpl::RecordCount()
{
    if (!m_count) {
        Statement counter(m_connection->Handle(), m_connection->Path(), u"SELECT count(*) FROM ("_s + m_query->translated.sql + u')');
        for (int i = 0; i < m_values.size(); ++i)
            counter.Bind(i + 1, m_values[i]);
        m_count = counter.Step() ? counter.Integer(0) : 0;
    }
    return *m_count;
}

qint64 RecordsetImpl::AbsolutePosition()
{
    if (m_adding || Eof())
        return 0;
    return m_position > 0 ? m_position : RecordCount();
}

// ---- the row

std::vector<Value> RecordsetImpl::CopyRow(const Statement& statement) const
{
    std::vector<Value> row;
    row.reserve(static_cast<std::size_t>(Columns().size()));
    for (int i = 0; i < Columns().size(); ++i) {
        const int place = StatementColumn(i);
        const ColumnKind kind = Columns()[i].type.kind;
        if (m_query->ofOneTable && kind == ColumnKind::Binary && !statement.IsNull(place))
            row.emplace_back(QByteArray());
        else if (HoldsNoTexts(kind) && statement.HoldsEmptyText(place))
            row.emplace_back();
        else
            row.push_back(statement.Get(place));
    }
    return row;
}

std::optional<std::vector<Value>> RecordsetImpl::ReadByRowId(qint64 rowId)
{
    Statement& statement = m_connection->Prepared(m_query->translated.sqlByRowId);
    statement.Bind(1, Value(rowId));
    std::optional<std::vector<Value>> row;
    if (statement.Step())
        row = CopyRow(statement);
    statement.Reset();
    return row;
}

int RecordsetImpl::ColumnIndex(QStringView name) const
{
    for (int i = 0; i < Columns().size(); ++i) {
        const QString& known = Columns()[i].name;
        if (known.size() == name.size() && name.compare(known, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

// What the row that is being added or changed will hold; nothing where the column is not touched.
std::optional<Value> RecordsetImpl::Pending(int column) const
{
    if (!IsEditing())
        return std::nullopt;
    if (const auto appended = m_appended.find(column); appended != m_appended.end())
        return Value(appended->second);
    if (const std::optional<Value>& change = m_changes[static_cast<std::size_t>(column)])
        return change;
    return m_adding ? std::optional(Value()) : std::nullopt;
}

bool RecordsetImpl::IsNull(int column)
{
    if (const std::optional<Value> pending = Pending(column))
        return pending->IsNull();
    RequireRow();
    return IsStreamed() ? StreamsNull(column) : Held(column).IsNull();
}

bool RecordsetImpl::StreamsNull(int column) const
{
    const Statement& statement = m_query->statement;
    const int place = StatementColumn(column);
    return statement.IsNull(place) || (HoldsNoTexts(Columns()[column].type.kind) && statement.HoldsEmptyText(place));
}

Value RecordsetImpl::Get(int column)
{
    Value value;
    if (const std::optional<Value> pending = Pending(column)) {
        value = *pending;
    } else {
        RequireRow();
        if (IsStreamed()) {
            if (!StreamsNull(column))
                value = m_query->statement.Get(StatementColumn(column));
        } else if (IsBlobOfRow(column)) {
            OpenBlob(column);
            value = m_blob.Read(0, m_blob.Size());
        } else {
            value = Held(column);
        }
    }
    const bool isZeroDate = Columns()[column].type.kind == ColumnKind::Date && value == Value(ZeroDateText());
    return isZeroDate ? Value(QString()) : value;
}

QByteArrayView RecordsetImpl::Utf8(int column)
{
    const bool plain = Columns()[column].type.kind != ColumnKind::Date;
    if (plain && !IsEditing() && IsStreamed()) {
        if (const std::optional<QByteArrayView> text = m_query->statement.Utf8(StatementColumn(column)))
            return *text;
    }
    m_utf8 = Text(column).toUtf8();
    return m_utf8;
}

QString RecordsetImpl::Text(int column)
{
    const bool plain = Columns()[column].type.kind != ColumnKind::Date;
    if (plain && !IsEditing() && IsStreamed())
        return m_query->statement.Text(StatementColumn(column));
    const Value value = Get(column);
    return value.IsNull() ? QString() : value.Text();
}

std::int64_t RecordsetImpl::Integer(int column)
{
    if (!IsEditing() && IsStreamed() && m_query->statement.HoldsWhole(StatementColumn(column)))
        return m_query->statement.Integer(StatementColumn(column));
    const Value value = Get(column);
    return value.IsNull() ? 0 : value.Integer();
}

double RecordsetImpl::Number(int column)
{
    if (!IsEditing() && IsStreamed() && m_query->statement.HoldsNumber(StatementColumn(column)))
        return m_query->statement.Number(StatementColumn(column));
    const Value value = Get(column);
    return value.IsNull() ? 0 : value.Number();
}

qint64 RecordsetImpl::ActualSize(int column)
{
    if (!Pending(column)) {
        RequireRow();
        if (IsHeld() && IsBlobOfRow(column)) {
            OpenBlob(column);
            return m_blob.Size();
        }
    }
    const Value value = Get(column);
    if (value.IsNull())
        return 0;
    return value.IsBytes() ? value.Bytes().size() : value.Text().size();
}

bool RecordsetImpl::IsBlobOfRow(int column) const
{
    return m_query->ofOneTable && Columns()[column].type.kind == ColumnKind::Binary && IsHeld() && !Held(column).IsNull();
}

void RecordsetImpl::OpenBlob(int column)
{
    m_blob.Open(*m_connection, m_query->translated.table, Columns()[column].origin, m_rowId);
}

QByteArray RecordsetImpl::GetChunk(int column, qint64 size)
{
    if (!Pending(column)) {
        RequireRow();
        if (IsStreamed() && m_query->ofOneTable)
            Hold();
    }
    qint64& at = m_chunkAt[column];
    QByteArray chunk;
    if (!Pending(column) && IsBlobOfRow(column)) {
        OpenBlob(column);
        chunk = m_blob.Read(at, size);
        if (at + chunk.size() >= m_blob.Size())
            m_blob.Close();
    } else if (const Value value = Get(column); !value.IsNull()) {
        chunk = value.Bytes().mid(at, std::max<qint64>(0, size));
    }
    at += chunk.size();
    return chunk;
}

// ---- writing

void RecordsetImpl::RequireWritable(int column) const
{
    const bool isColumn = column < 0 || !Columns()[column].origin.isEmpty();
    if (!m_mayWrite || !m_query->ofOneTable || !isColumn)
        m_connection->Raise(u"Cannot update. Database or object is read-only."_s);
}

void RecordsetImpl::RaiseLost() const
{
    m_connection->Raise(u"Row cannot be located for updating. Some values may have been changed since it was last read."_s);
}

void RecordsetImpl::Set(int column, const Value& value)
{
    RequireWritable(column);
    Value stored = ToStored(Columns()[column].type.kind, value, Columns()[column].name);
    if (!m_adding) {
        RequireRow();
        Hold();
    }
    m_changes.resize(static_cast<std::size_t>(Columns().size()));
    m_changes[static_cast<std::size_t>(column)] = std::move(stored);
    m_appended.erase(column);
}

void RecordsetImpl::AppendChunk(int column, const QByteArray& bytes)
{
    const auto appended = m_appended.find(column);
    if (appended != m_appended.end()) {
        appended->second.append(bytes);
        return;
    }
    Set(column, Value(QByteArray()));
    m_appended.emplace(column, bytes);
}

void RecordsetImpl::AddNew()
{
    Update();
    RequireWritable(-1);
    m_connection->BeginWrite();
    if (m_query->keyColumn >= 0)
        m_reservedKey = m_connection->ReserveKey(m_query->translated.table);
    m_changes.assign(static_cast<std::size_t>(Columns().size()), std::nullopt);
    m_adding = true;
    m_chunkAt.clear();
    if (m_reservedKey)
        m_changes[static_cast<std::size_t>(m_query->keyColumn)] = Value(*m_reservedKey);
}

void RecordsetImpl::Update()
{
    if (!IsEditing())
        return;
    m_connection->BeginWrite();
    if (m_adding)
        Insert();
    else
        Change();
}

QList<std::pair<QString, Value>> RecordsetImpl::PendingColumns() const
{
    QList<std::pair<QString, Value>> columns;
    for (int i = 0; i < Columns().size(); ++i) {
        if (m_changes[static_cast<std::size_t>(i)])
            columns.append({Columns()[i].origin, *Pending(i)});
    }
    return columns;
}

void RecordsetImpl::Run(const QString& sql, const QList<std::pair<QString, Value>>& values, std::optional<qint64> rowId)
{
    Statement& statement = m_connection->Prepared(sql);
    int place = 0;
    for (const auto& [column, value] : values)
        statement.Bind(++place, value);
    if (rowId)
        statement.Bind(++place, Value(*rowId));
    statement.Step();
    statement.Reset();
}

void RecordsetImpl::Insert()
{
    const QList<std::pair<QString, Value>> columns = PendingColumns();
    QString names;
    QString places;
    for (const auto& [name, value] : columns) {
        names += (names.isEmpty() ? u""_s : u","_s) + QuotedName(name);
        places += places.isEmpty() ? u"?"_s : u",?"_s;
    }
    const QString list = names.isEmpty() ? u" DEFAULT VALUES"_s : u" ("_s + names + u") VALUES ("_s + places + u')';
    Run(u"INSERT INTO "_s + QuotedName(m_query->translated.table) + list, columns, std::nullopt);

    const qint64 rowId = m_connection->LastRowId();
    if (m_reservedKey == rowId)
        m_reservedKey.reset();
    DropEdit();
    StandOnNewRow(rowId);
    if (m_count)
        ++*m_count;
}

void RecordsetImpl::Change()
{
    FreezeKeys();
    const std::optional<std::vector<Value>> present = ReadByRowId(m_rowId);
    if (!present || *present != m_held)
        RaiseLost();

    const QList<std::pair<QString, Value>> columns = PendingColumns();
    QString list;
    for (const auto& [name, value] : columns)
        list += (list.isEmpty() ? u""_s : u","_s) + QuotedName(name) + u"=?"_s;
    Run(u"UPDATE "_s + QuotedName(m_query->translated.table) + u" SET "_s + list + u" WHERE _rowid_=?"_s, columns, m_rowId);

    if (m_query->keyColumn >= 0) {
        if (const std::optional<Value>& key = m_changes[static_cast<std::size_t>(m_query->keyColumn)])
            m_rowId = key->Integer();
    }
    DropEdit();
    Go(State::Unread);
}

void RecordsetImpl::CancelUpdate()
{
    DropEdit();
}

void RecordsetImpl::DropEdit()
{
    m_adding = false;
    m_changes.clear();
    m_appended.clear();
    m_chunkAt.clear();
    if (const std::optional<qint64> unused = std::exchange(m_reservedKey, std::nullopt))
        m_connection->BurnKey(m_query->translated.table, *unused);
}

void RecordsetImpl::Delete()
{
    if (m_adding) {
        CancelUpdate();
        return;
    }
    RequireWritable(-1);
    RequireRow();
    DropEdit();
    m_connection->BeginWrite();
    FreezeKeys();
    Run(u"DELETE FROM "_s + QuotedName(m_query->translated.table) + u" WHERE _rowid_=?"_s, {}, m_rowId);
    if (m_connection->LastChangeCount() == 0)
        RaiseLost();
    if (m_count)
        --*m_count;
    // The row behind takes the place of this one.
    m_position = std::max<qint64>(0, m_position - 1);
}

} // namespace kelvado
