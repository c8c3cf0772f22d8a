#pragma once

#include <QLatin1StringView>
#include <QString>

namespace kelvado {

/// Where a picture belongs: one row of `Movie` or `Actor`, and the column that names the picture.
struct PictureSlot
{
    QLatin1StringView table, keyColumn, column;
    qint64 id;
};

PictureSlot FrontCover(qint64 movieId);
PictureSlot BackCover(qint64 movieId);
PictureSlot Portrait(qint64 actorId);

/// A picture as a panel shows it.
struct ShownPicture
{
    bool isSet = false;   ///< the row names a picture
    bool isThere = false; ///< and the catalog holds it
    QString file;         ///< empty where the row names none; the skin's "No Image.jpg" where the catalog lacks it
};

/// Writes the picture of a row to `basePath` and a dot and the picture's kind. Raises `kErrNoCurrentRecord` where the row that owns the
/// picture is missing.
ShownPicture ReadPicture(const PictureSlot& slot, const QString& basePath, const QString& skin, const QString& catalogPath);

/// The message for the user where the file at `path` is missing or empty; the empty text for any other. Raises `kErrFileAccess` for one
/// that is too large.
QString PictureFault(const QString& path);

/// Stores the picture file at `path` in the place of the row's present picture, whole or not at all. Returns the message for the user
/// where the file is missing or empty, and nothing is stored then; the empty text once the picture is stored. Raises
/// `kErrNoCurrentRecord` where the owning row is missing, `kErrFileAccess` for a file that cannot be read or is too large.
QString ReplacePicture(const PictureSlot& slot, const QString& path, const QString& catalogPath);

} // namespace kelvado
