#pragma once

#include <QByteArray>
#include <QFile>
#include <QSaveFile>
#include <QString>

namespace kelvado {

/// `QSaveFile::commit` says nothing of what only then goes to the system: on a full disk it puts an empty file in the target's place.
/// These two raise `kErrFileAccess` with the path and the system's reason where not all was taken; the old file then stands as it was.
void WriteInto(QSaveFile& file, const QByteArray& bytes);
void CommitWhole(QSaveFile& file);

/// Writes `bytes` to `path`: the file is made beside its target and renamed when it is whole. Raises `kErrFileAccess` with the path and the
/// system's reason; the old file then stands as it was.
void WriteFileWhole(const QString& path, const QByteArray& bytes);

/// The same for what can be made again, as pages and exported files are: it is not forced onto the disk, which would hold up each page
/// for as long as the disk takes.
void WriteFileFast(const QString& path, const QByteArray& bytes);

/// The same for a file that is written piece by piece. Every routine raises `kErrFileAccess` with the path and the system's reason.
class FastFile
{
public:
    explicit FastFile(QString path);
    /// What was not committed goes; the old file then stands as it was.
    ~FastFile();
    FastFile(const FastFile&) = delete;
    FastFile& operator=(const FastFile&) = delete;

    void Write(const QByteArray& bytes);
    /// Hands all that was written to the system, which may have no room for it.
    void Flush();
    qint64 Size() const { return m_part.pos(); }
    void Commit();

private:
    [[noreturn]] void Raise(const QString& reason) const;

    QString m_path;
    QFile m_part;
    bool m_committed = false;
};

/// Copies `source` over `target` in the same manner. Raises `kErrFileNotFound` where the source is missing, `kErrFileAccess` for a copy
/// onto itself or a failed write.
void CopyFileWhole(const QString& source, const QString& target);

} // namespace kelvado
