#include "store/BlobReader.h"

#include "store/ConnectionImpl.h"

#include <sqlite3.h>

#include <algorithm>

namespace kelvado {

void BlobReader::Open(const ConnectionImpl& connection, const QString& table, const QString& column, qint64 rowId)
{
    // A handle expires when its row is written; it then cannot read even nothing.
    if (m_handle && m_column == column && m_rowId == rowId && sqlite3_blob_read(m_handle, nullptr, 0, 0) == SQLITE_OK)
        return;
    Close();
    m_connection = &connection;
    m_column = column;
    m_rowId = rowId;
    const int result =
        sqlite3_blob_open(connection.Handle(), "main", table.toUtf8().constData(), column.toUtf8().constData(), rowId, 0, &m_handle);
    if (result != SQLITE_OK) {
        Close();
        connection.RaiseEngineError();
    }
}

void BlobReader::Close() noexcept
{
    sqlite3_blob_close(m_handle);
    m_handle = nullptr;
}

qint64 BlobReader::Size() const
{
    return sqlite3_blob_bytes(m_handle);
}

QByteArray BlobReader::Read(qint64 offset, qint64 size) const
{
    QByteArray bytes(std::clamp<qint64>(size, 0, Size() - offset), Qt::Uninitialized);
    if (!bytes.isEmpty() &&
        sqlite3_blob_read(m_handle, bytes.data(), static_cast<int>(bytes.size()), static_cast<int>(offset)) != SQLITE_OK)
        m_connection->RaiseEngineError();
    return bytes;
}

} // namespace kelvado
