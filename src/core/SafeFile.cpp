#include "core/SafeFile.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>
#include <utility>

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
    FastFile file(path);
    file.Write(bytes);
    file.Commit();
}

FastFile::FastFile(QString path) : m_path(std::move(path)), m_part(m_path + u".part"_s)
{
    if (!m_part.open(QIODevice::WriteOnly))
        Raise(m_part.errorString());
}

FastFile::~FastFile()
{
    if (m_committed)
        return;
    m_part.close(); // which may fail; `QFile::remove` would then leave the file
    QFile::remove(m_part.fileName());
}

void FastFile::Write(const QByteArray& bytes)
{
    if (m_part.write(bytes) != bytes.size())
        Raise(m_part.errorString());
}

void FastFile::Flush()
{
    if (!m_part.flush())
        Raise(m_part.errorString());
}

void FastFile::Commit()
{
    Flush();
    m_part.close();
    if (std::rename(QFile::encodeName(m_part.fileName()).constData(), QFile::encodeName(m_path).constData()) != 0)
        Raise(qt_error_string());
    m_committed = true;
}

void FastFile::Raise(const QString& reason) const
{
    RaiseFileAccess(m_path, reason);
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
