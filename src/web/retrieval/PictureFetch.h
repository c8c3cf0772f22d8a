#pragma once

#include "core/Transport.h"

#include <QByteArray>
#include <QString>

namespace kelvado {

struct FetchedPicture
{
    QByteArray data;
    QString kind; ///< "JPG", "GIF" or "BMP"; empty where there is no picture
};

/// Fetches a picture and writes it to the file `path`, whose folder is made where it is missing. No picture, and no file, where the
/// address gives nothing or a page of text, as servers do that have lost one. Raises `kErrFileAccess` where the file cannot be written.
FetchedPicture FetchPicture(const QString& url, const QString& path, Transport& transport);

} // namespace kelvado
