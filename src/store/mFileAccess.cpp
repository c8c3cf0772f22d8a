#include "store/mFileAccess.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>
#include <memory>

namespace kelvado {

namespace {

constexpr qint64 kBlockSize = 100000;
constexpr qint64 kKindBytes = 300;
const QString kLineEnd = u"\r\n"_s;

QString WithSlashes(QString path)
{
    return path.replace(u'\\', u'/');
}

[[noreturn]] void RaiseAccess(const QString& path, const QString& reason)
{
    throw RuntimeError::WithDetail(kErrFileAccess, path + u" ("_s + reason + u')');
}

// The one text file that can be open: one of the two, or none.
struct SharedFile
{
    std::unique_ptr<QFile> reader;
    std::unique_ptr<QSaveFile> writer;
};

SharedFile& Shared()
{
    static SharedFile file;
    return file;
}

} // namespace

QString TextOfBytes(const QByteArray& bytes)
{
    // The mark at its start tells a text of two bytes a letter.
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return QStringDecoder(QStringDecoder::Utf16)(bytes);
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    // Bytes that are still waiting for the rest of their character are no UTF-8 either.
    text += utf8(QByteArrayView("\0", 1));
    if (utf8.hasError())
        return FromWindows1252(bytes);
    text.chop(1);
    return text;
}

QString ReadWholeFile(const QString& path, Dialogs& dialogs)
{
    const QString name = WithSlashes(path);
    if (!QFileInfo::exists(name)) {
        dialogs.MessageBox(u"File does not exist."_s + kLineEnd + path, kBoxCritical, u"File Access Error"_s);
        return {};
    }
    return ReadFileText(name);
}

QString ReadFileText(const QString& path)
{
    return TextOfBytes(ReadBytes(WithSlashes(path)));
}

void WriteWholeFile(const QString& path, const QString& value)
{
    WriteFileFast(WithSlashes(path), (value + kLineEnd).toUtf8());
}

void OpenTextFile(const QString& path, bool write)
{
    // A file that an interrupted operation left open is dropped: what it wrote never takes its target's place.
    SharedFile opened;
    const QString name = WithSlashes(path);
    if (write) {
        opened.writer = std::make_unique<QSaveFile>(name);
        if (!opened.writer->open(QIODevice::WriteOnly))
            RaiseAccess(name, opened.writer->errorString());
    } else {
        if (!QFileInfo(name).isFile())
            throw RuntimeError::WithDetail(kErrFileNotFound, name);
        opened.reader = std::make_unique<QFile>(name);
        if (!opened.reader->open(QIODevice::ReadOnly))
            RaiseAccess(name, opened.reader->errorString());
    }
    Shared() = std::move(opened);
}

void CloseTextFile()
{
    const SharedFile closing = std::move(Shared());
    Shared() = {};
    if (closing.writer)
        CommitWhole(*closing.writer);
}

void PrintTextLine(const QString& text)
{
    SharedFile& file = Shared();
    if (!file.writer)
        throw RuntimeError::WithDetail(kErrInvalidCall, u"no text file is open for writing"_s);
    WriteInto(*file.writer, (text + kLineEnd).toUtf8());
}

QString ReadTextFile()
{
    SharedFile& file = Shared();
    if (!file.reader)
        throw RuntimeError::WithDetail(kErrInvalidCall, u"no text file is open for reading"_s);
    return TextOfBytes(file.reader->readAll());
}

QString BrowseForFolder(const QString& title, Dialogs& dialogs)
{
    const QString folder = dialogs.BrowseForFolder(title);
    return folder.left(folder.indexOf(QChar(u'\0')));
}

QString ImageKindOfFile(const QString& path)
{
    QFile file(WithSlashes(path));
    return ImageKindOfBytes(file.open(QIODevice::ReadOnly) ? file.read(kKindBytes) : QByteArray());
}

QString ImageKindOfBytes(const QByteArray& bytes)
{
    const QByteArray head = bytes.left(kKindBytes);
    if (head.contains("GIF89") || head.contains("GIF87") || head.startsWith("GIF"))
        return u"GIF"_s;
    // Stands in front of the test for a bitmap. Pictures of the usual JPEG kind pass it too, and count as "GIF".
    if (head.size() >= 5 && head[0] == '\xFF' && head[4] == '\0')
        return u"GIF"_s;
    return head.startsWith("BM") ? u"BMP"_s : u"JPG"_s;
}

void MakeDirs(const QString& path)
{
    const QString whole = WithSlashes(path);
    QString folder;
    for (const QString& part : whole.split(u'/')) {
        folder += part + u'/';
        if (part.isEmpty() || QDir(folder).exists())
            continue;
        if (!QDir().mkdir(folder))
            RaiseAccess(folder, u"the folder cannot be created"_s);
    }
}

QString ExportImageFile(QString& basePath, const QString& imageId, Connection& connection)
{
    Recordset picture;
    picture.Open(u"SELECT * FROM Images WHERE Image_ID = "_s + imageId, connection);
    basePath = ExportPicture(basePath, picture);
    return basePath;
}

QString ExportPicture(const QString& basePath, const Recordset& picture)
{
    const Value extention = picture[u"Extention"].Get();
    const QString kind = extention.IsNull() ? QString() : extention.Text();
    QString path = WithSlashes(basePath) + u'.' + kind;
    if (kind.contains(u'/') || kind.contains(u'\\'))
        RaiseAccess(path, u"the picture's kind leads out of the folder"_s);
    WriteFileFast(path, BytesOf(picture[u"Image"]));
    return path;
}

QByteArray BytesOf(const Field& field)
{
    const qint64 size = field.ActualSize();
    QByteArray bytes = field.GetChunk(size % kBlockSize);
    bytes.reserve(size);
    for (qint64 block = 0; block < size / kBlockSize; ++block)
        bytes += field.GetChunk(kBlockSize);
    return bytes;
}

QByteArray ReadBytes(const QString& path)
{
    if (!QFileInfo(path).isFile())
        throw RuntimeError::WithDetail(kErrFileNotFound, path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        RaiseAccess(path, file.errorString());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        RaiseAccess(path, file.errorString());
    return bytes;
}

qint64 StoreImageFile(const QString& path, Connection& connection)
{
    const QString name = WithSlashes(path);
    const QByteArray bytes = ReadBytes(name);

    Recordset pictures;
    pictures.Open(u"SELECT * FROM Images"_s, connection);
    pictures.AddNew();
    const Field image = pictures[u"Image"];
    // Each block is one byte longer than its share; the last ones run over the end of the file and bring zeros.
    qint64 at = 0;
    const auto append = [&](qint64 size) {
        QByteArray block = bytes.mid(at, size);
        block.append(size - block.size(), '\0');
        image.AppendChunk(block);
        at += size;
    };
    append(bytes.size() % kBlockSize + 1);
    for (qint64 block = 0; block < bytes.size() / kBlockSize; ++block)
        append(kBlockSize + 1);
    pictures[u"Extention"].Set(QFileInfo(name).fileName().right(3));
    const qint64 imageId = pictures[u"Image_ID"].Get().Integer();
    pictures.Update();
    return imageId;
}

} // namespace kelvado
