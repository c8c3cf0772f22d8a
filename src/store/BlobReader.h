#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3_blob;

namespace kelvado {

class ConnectionImpl;

/// Reads a binary value out of the catalog piece by piece, without the whole of it in memory.
class BlobReader
{
public:
    BlobReader() = default;
    ~BlobReader() { Close(); }
    BlobReader(const BlobReader&) = delete;
    BlobReader& operator=(const BlobReader&) = delete;

    /// Turns to a value, unless it is the present one. It must be bytes or a text. Raises `kErrDatabase`.
    void Open(const ConnectionImpl& connection, const QString& table, const QString& column, qint64 rowId);
    void Close() noexcept;

    qint64 Size() const;
    /// At most `size` bytes from `offset` on. Raises `kErrDatabase`.
    QByteArray Read(qint64 offset, qint64 size) const;

private:
    const ConnectionImpl* m_connection = nullptr;
    sqlite3_blob* m_handle = nullptr;
    QString m_column;
    qint64 m_rowId = 0;
};

} // namespace kelvado
