#include "core/SafeFile.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace kelvado {

namespace {

[[noreturn]] void RaiseFileAccess(const QString& path, const QString& reason)
{
    throw RuntimeError::WithDetail(kErrFileAccess, QDir::toNativeSeparators(path) + u" ("_s + reason + u')');
}

} // namespace

void WriteFileWhole(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        RaiseFileAccess(path, file.errorString());
}

void WriteFileFast(const QString& path, const QByteArray& bytes)
{
    QFile part(path + u".part"_s);
    const bool isWhole = part.open(QIODevice::WriteOnly) && part.write(bytes) == bytes.size() && part.flush();
    const QString reason = part.errorString();
    part.close();
    if (isWhole && std::rename(QFile::encodeName(part.fileName()).constData(), QFile::encodeName(path).constData()) == 0)
        return;
    part.remove();
    RaiseFileAccess(path, isWhole ? qt_error_string() : reason);
}

void CopyFileWhole(const QString& source, const QString& target)
{
    constexpr qint64 kBlock = 1 << 20;
    QFile from(source);
    if (!QFileInfo(source).isFile())
        throw RuntimeError::WithDetail(kErrFileNotFound, source);
    if (QFileInfo(source).canonicalFilePath() == QFileInfo(target).canonicalFilePath())
        RaiseFileAccess(target, u"source and target are the same file"_s);
    if (!from.open(QIODevice::ReadOnly))
        RaiseFileAccess(source, from.errorString());
    QSaveFile to(target);
    if (!to.open(QIODevice::WriteOnly))
        RaiseFileAccess(target, to.errorString());
    while (!from.atEnd()) {
        const QByteArray block = from.read(kBlock);
        if (block.isEmpty())
            RaiseFileAccess(source, from.errorString());
        if (to.write(block) != block.size())
            RaiseFileAccess(target, to.errorString());
    }
    if (!to.commit())
        RaiseFileAccess(target, to.errorString());
}

} // namespace kelvado
