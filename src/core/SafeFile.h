#pragma once

#include <QByteArray>
#include <QString>

namespace kelvado {

/// Writes `bytes` to `path`: the file is made beside its target and renamed when it is whole. Raises `kErrFileAccess` with the path and the
/// system's reason; the old file then stands as it was.
void WriteFileWhole(const QString& path, const QByteArray& bytes);

/// The same for what can be made again, as pages and exported files are: it is not forced onto the disk, which would hold up each page
/// for as long as the disk takes.
void WriteFileFast(const QString& path, const QByteArray& bytes);

/// Copies `source` over `target` in the same manner. Raises `kErrFileNotFound` where the source is missing, `kErrFileAccess` for a copy
/// onto itself or a failed write.
void CopyFileWhole(const QString& source, const QString& target);

} // namespace kelvado
