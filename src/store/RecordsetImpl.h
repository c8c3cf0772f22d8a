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

inline constexpr qint64 kUsualPageSize = 10;

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
    void MoveTo(qint64 position);

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

    qint64 pageSize = kUsualPageSize;

private:
    // Where the current row's values are.
    enum class Place {
        Before,   // no row has been read yet
        Streamed, // in the statement
        Held,     // in `m_held`; bytes stay in the catalog
        Unread,   // in the catalog, under `m_rowId`
        Behind,   // there is none
    };

    void Disconnect() noexcept override;
    void LetGo() noexcept; // of the row that is being edited and of its bytes
    void Start();
    void StepOn();
    void ReachEnd();
    void EndStatement() noexcept;
    void RequireRow();
    void Hold();
    std::vector<Value> CopyRow(const Statement& statement) const;
    std::optional<std::vector<Value>> ReadByRowId(qint64 rowId);
    void FreezeKeys();

    int StatementColumn(int column) const { return column + (m_query->ofOneTable ? 1 : 0); }
    bool StreamsNull(int column) const;
    const Value& Held(int column) const { return m_held[static_cast<std::size_t>(column)]; }
    std::optional<Value> Pending(int column) const;
    bool IsBlobOfRow(int column) const;
    void OpenBlob(int column);

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

    Place m_place = Place::Before;
    bool m_running = false; // the statement stands on a row: the current one, or the one behind it where `m_ahead` is set
    bool m_ahead = false;
    qint64 m_position = 0; // 0 for a new row, which stands behind all others
    qint64 m_rowId = 0;
    std::vector<Value> m_held;
    std::optional<std::vector<qint64>> m_keys; // the rows still to come, once they had to be written down
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
