#pragma once

#include "core/Dialogs.h"
#include "store/Recordset.h"

#include <QString>

namespace kelvado {

/// The text of a file's bytes: UTF-16 where they begin with that mark, else UTF-8 if they are valid, else Windows-1252. Never raises.
QString TextOfBytes(const QByteArray& bytes);

/// The whole text of a file, as `TextOfBytes`. A missing file is told in a message and gives the empty text.
QString ReadWholeFile(const QString& path, Dialogs& dialogs);

/// The text of a file in the same way. Raises `kErrFileNotFound` with the path for a missing one.
QString ReadFileText(const QString& path);

/// Creates or replaces the file with the value and a line end (CR LF), as UTF-8. Raises `kErrFileAccess` with the path where it cannot be
/// written.
void WriteWholeFile(const QString& path, const QString& value);

/// One text file at a time for line-wise work; it is written beside its target and takes its place with `CloseTextFile`.
void OpenTextFile(const QString& path, bool write);
void CloseTextFile();
void PrintTextLine(const QString& text);
/// What is left of the open file.
QString ReadTextFile();

/// The desktop's folder picker; the empty text where the user cancels.
QString BrowseForFolder(const QString& title, Dialogs& dialogs);

/// The kind of a picture by its first 300 bytes: "JPG", "GIF" or "BMP"; "JPG" for anything unknown and for a missing file. Never raises.
QString ImageKindOfFile(const QString& path);
/// The same for bytes at hand.
QString ImageKindOfBytes(const QByteArray& bytes);

/// Creates every missing folder of `path`. Raises `kErrFileAccess` with the folder's name where one cannot be made.
void MakeDirs(const QString& path);

/// Writes the picture `imageId` to `basePath` + "." + its kind; `basePath` becomes that path, which is returned too.
/// Raises `kErrNoCurrentRecord` for an unknown picture.
QString ExportImageFile(QString& basePath, const QString& imageId, Connection& connection);

/// The same for the row of `picture`, which has the columns "Image" and "Extention"; returns the path.
QString ExportPicture(const QString& basePath, const Recordset& picture);

/// The bytes of a binary column's present value, taken in blocks. Empty for Null.
QByteArray BytesOf(const Field& field);

/// The whole content of a file. Raises `kErrFileNotFound` for a missing one, `kErrFileAccess` for one that cannot be read.
QByteArray ReadBytes(const QString& path);

/// Stores the picture file at `path` as a new row of `Images` and returns its `Image_ID`. The file is taken in blocks, each one byte
/// longer than its share, so a stored picture carries a few zero bytes behind its end. The file is read whole before anything is
/// written. Raises `kErrFileNotFound` for a missing file.
qint64 StoreImageFile(const QString& path, Connection& connection);

} // namespace kelvado
