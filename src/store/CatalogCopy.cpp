#include "store/CatalogCopy.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/LockWait.h"
#include "store/Statement.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace kelvado {

namespace {

constexpr QLatin1StringView kSideFiles[] = {"-journal"_L1, "-wal"_L1, "-shm"_L1};
constexpr QLatin1StringView kAside = ".aside"_L1;

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

} // namespace

void CopyCatalog(const QString& source, const QString& target)
{
    // Through a link, the file that it names is replaced.
    const QString existing = QFileInfo(target).canonicalFilePath();
    if (!existing.isEmpty() && QFileInfo(source).canonicalFilePath() == existing)
        throw RuntimeError::WithDetail(kErrFileAccess, target + u" (source and target are the same file)"_s);
    const QString place = existing.isEmpty() ? target : existing;
    const QString unfinished = place + u".new"_s;
    RemoveCatalog(unfinished);
    try {
        CopyPages(source, unfinished, target);
    } catch (...) {
        RemoveCatalog(unfinished);
        throw;
    }
    PutInPlace(unfinished, place);
}

void RemoveCatalog(const QString& path)
{
    QFile::remove(path);
    for (const QLatin1StringView ending : kSideFiles)
        QFile::remove(path + ending);
}

void PutInPlace(const QString& finished, const QString& target)
{
    for (const QLatin1StringView ending : kSideFiles)
        Rename(target + ending, target + ending + kAside);
    const bool isPlaced = Rename(finished, target);
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    for (const QLatin1StringView ending : kSideFiles) {
        if (isPlaced)
            QFile::remove(target + ending + kAside);
        else
            Rename(target + ending + kAside, target + ending);
    }
    if (isPlaced)
        return;
    RemoveCatalog(finished);
    throw RuntimeError::WithDetail(kErrFileAccess, target + u" ("_s + reason + u')');
}

} // namespace kelvado
