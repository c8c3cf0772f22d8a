#pragma once

#include "store/BlobReader.h"
#include "store/ConnectionImpl.h"
#include "store/Recordset.h"

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace kelvado {

/// The walk over the rows and the row under the hand.
class RecordsetImpl final : public ConnectionClient
{
public:
    RecordsetImpl(std::shared_ptr<ConnectionImpl> connection, const QString& sql, const QList<Value>& values, LockType lock);
    ~RecordsetImpl();
    RecordsetImpl(const RecordsetImpl&) = delete;
    RecordsetImpl& operator=(const RecordsetImpl&) = delete;

    bool IsConnected() const { return m_query != nullptr; }

    bool Eof();
    void MoveNext();
    void MoveFirst();
    qint64 RecordCount();
    qint64 AbsolutePosition();

    const QList<Query::Column>& Columns() const { return m_query->columns; }
    int ColumnIndex(QStringView name) const;

    bool IsNull(int column);
    QString Text(int column);
    QByteArrayView Utf8(int column);
    Value Get(int column);
    std::int64_t Integer(int column);
    double Number(int column);
    qint64 ActualSize(int column);
    QByteArray GetChunk(int column, qint64 size);

    void Set(int column, const Value& value);
    void AppendChunk(int column, const QByteArray& bytes);
    void AddNew();
    void Update();
    void CancelUpdate();
    void Delete();

private:
    enum class State {
        NotBegun,  // no row has been read yet
        Streamed,  // the row is in the statement
        Held,      // the row is in `m_held`, its bytes in the catalog; the statement stands on it still
        HeldAhead, // the same, but the statement stands on the next row
        HeldAlone, // the same, but the statement is over; the rows to come are in `m_keys`
        Unread,    // as before, but the row has to be read again, by `m_rowId`
        Behind,    // there is no row
    };

    void Disconnect() noexcept override;
    void LetGo() noexcept; // of the row that is being edited and of its bytes
    void Go(State next);
    void Start();
    void StepStatement();
    void StepOn();
    void RequireRow();
    void Hold();
    std::vector<Value> CopyRow(const Statement& statement) const;
    std::optional<std::vector<Value>> ReadByRowId(qint64 rowId);
    void FreezeKeys();
    void StandOnNewRow(qint64 rowId);

    int StatementColumn(int column) const { return column + (m_query->ofOneTable ? 1 : 0); }
    bool StreamsNull(int column) const;
    const Value& Held(int column) const { return m_held[static_cast<std::size_t>(column)]; }
    std::optional<Value> Pending(int column) const;
    bool IsBlobOfRow(int column) const;
    void OpenBlob(int column);

    bool IsStreamed() const { return m_state == State::Streamed; }
    bool IsHeld() const { return m_state == State::Held || m_state == State::HeldAhead || m_state == State::HeldAlone; }
    bool IsEditing() const { return !m_changes.empty(); }
    void RequireWritable(int column) const;
    [[noreturn]] void RaiseLost() const;
    QList<std::pair<QString, Value>> PendingColumns() const;
    void Run(const QString& sql, const QList<std::pair<QString, Value>>& values, std::optional<qint64> rowId);
    void Insert();
    void Change();
    void DropEdit();

    std::shared_ptr<ConnectionImpl> m_connection;
    std::unique_ptr<Query> m_query;
    QList<Value> m_values;
    bool m_mayWrite;

    State m_state = State::NotBegun;
    qint64 m_position = 0; // 0 for a new row, which stands behind all others
    qint64 m_rowId = 0;
    std::vector<Value> m_held;
    std::vector<qint64> m_keys; // the rows still to come, once they had to be written down
    std::size_t m_nextKey = 0;
    std::optional<qint64> m_count;

    QByteArray m_utf8; // what `Utf8` gave last, where it had to be made
    bool m_adding = false;
    std::vector<std::optional<Value>> m_changes; // by column; empty while nothing is added or changed
    std::map<int, QByteArray> m_appended;        // the same for values that come in pieces
    std::optional<qint64> m_reservedKey;

    BlobReader m_blob;
    std::map<int, qint64> m_chunkAt; // how far each column has been read in pieces
};

} // namespace kelvado
