#include "store/CatalogCopy.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/LockWait.h"
#include "store/Statement.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace kelvado {

namespace {

constexpr QLatin1StringView kSideFiles[] = {"-journal"_L1, "-wal"_L1, "-shm"_L1};

using Engine = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

Engine OpenEngine(const QString& path, int flags, const QString& shown)
{
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open_v2(QFileInfo(path).absoluteFilePath().toUtf8().constData(), &handle, flags, nullptr);
    Engine engine(handle, sqlite3_close_v2);
    if (opened != SQLITE_OK)
        RaiseEngineError(handle, shown);
    return engine;
}

// Failures name `target`, for which `unfinished` is made.
void CopyPages(const QString& source, const QString& unfinished, const QString& target)
{
    const Engine from = OpenEngine(source, SQLITE_OPEN_READWRITE, source);
    const Engine to = OpenEngine(unfinished, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, target);
    LockWait wait(source);
    wait.Install(from.get());
    sqlite3_backup* copy = sqlite3_backup_init(to.get(), "main", from.get(), "main");
    const int result = copy ? sqlite3_backup_step(copy, -1) : SQLITE_ERROR;
    sqlite3_backup_finish(copy);
    if (result != SQLITE_DONE) {
        const bool readingFailed = result == SQLITE_BUSY || result == SQLITE_LOCKED || result == SQLITE_NOTADB || result == SQLITE_CORRUPT;
        throw RuntimeError(kErrDatabase, QString::fromUtf8(sqlite3_errstr(result)) + u" ("_s + (readingFailed ? source : target) + u')');
    }
    // The copy of a catalog with a log says that it has one too.
    if (sqlite3_exec(to.get(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr) != SQLITE_OK)
        RaiseEngineError(to.get(), target);
}

bool Rename(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

// The side files of the old target wait in `folder`: they would be played back into the new one.
void PutInPlace(const QString& finished, const QString& target, QTemporaryDir& folder)
{
    const auto aside = [&](QLatin1StringView ending) { return folder.filePath(u"aside"_s + ending); };
    for (const QLatin1StringView ending : kSideFiles)
        Rename(target + ending, aside(ending));
    if (Rename(finished, target))
        return;
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    for (const QLatin1StringView ending : kSideFiles) {
        if (QFileInfo::exists(aside(ending)) && !Rename(aside(ending), target + ending))
            folder.setAutoRemove(false); // it may hold what a crash has left to be played back
    }
    throw RuntimeError::WithDetail(kErrFileAccess, target + u" ("_s + reason + u')');
}

} // namespace

void WriteCatalog(const QString& target, const std::function<void(const QString& path)>& write)
{
    // Another program may write to the same target, and a file that is not ours may have any name.
    QTemporaryDir folder(target + u".XXXXXX"_s);
    if (!folder.isValid())
        throw RuntimeError::WithDetail(kErrFileAccess, target + u" ("_s + folder.errorString() + u')');
    const QString unfinished = folder.filePath(u"unfinished"_s);
    write(unfinished);
    PutInPlace(unfinished, target, folder);
}

void CopyCatalog(const QString& source, const QString& target)
{
    // Through a link, the file that it names is replaced.
    const QString existing = QFileInfo(target).canonicalFilePath();
    if (!existing.isEmpty() && QFileInfo(source).canonicalFilePath() == existing)
        throw RuntimeError::WithDetail(kErrFileAccess, target + u" (source and target are the same file)"_s);
    WriteCatalog(existing.isEmpty() ? target : existing, [&](const QString& path) { CopyPages(source, path, target); });
}

} // namespace kelvado
