#include "web/retrieval/PictureFetch.h"

#include "core/SafeFile.h"
#include "store/mFileAccess.h"

#include <QFileInfo>

namespace kelvado {

namespace {

// Stored, such a page would take the place of a good picture.
bool IsWebPage(const QByteArray& bytes)
{
    constexpr qsizetype kLongestBegin = 64;
    const QByteArray begin = bytes.first(qMin(bytes.size(), kLongestBegin)).trimmed().toLower();
    return begin.startsWith("<!doctype html") || begin.startsWith("<html");
}

} // namespace

FetchedPicture FetchPicture(const QString& url, const QString& path, Transport& transport)
{
    const QByteArray bytes = transport.OpenURL(url);
    if (bytes.isEmpty() || IsWebPage(bytes))
        return {};
    MakeDirs(QFileInfo(path).path());
    WriteFileWhole(path, bytes);
    return {bytes, ImageKindOfFile(path)};
}

} // namespace kelvado
