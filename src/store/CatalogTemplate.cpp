#include "store/CatalogTemplate.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QFile>

#include <sqlite3.h>

#include <cstdio>
#include <memory>

namespace kelvado {

namespace {

[[noreturn]] void Raise(const QString& reason, const QString& path)
{
    throw RuntimeError(kErrDatabase, reason + u" ("_s + path + u')');
}

void RunSchema(const QString& path, const QString& schemaSql)
{
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(handle, sqlite3_close_v2);
    if (opened != SQLITE_OK || sqlite3_exec(handle, schemaSql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Raise(QString::fromUtf8(sqlite3_errmsg(handle)), path);
}

void RemoveWithSideFiles(const QString& path, bool fileToo)
{
    if (fileToo)
        QFile::remove(path);
    // A journal that an interrupted write left behind would be played back into the new file.
    for (const char* ending : {"-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1StringView(ending));
}

} // namespace

void BuildBlankCatalog(const QString& path, const QString& schemaSql)
{
    const QString unfinished = path + u".new"_s;
    RemoveWithSideFiles(unfinished, true);
    try {
        RunSchema(unfinished, schemaSql);
    } catch (...) {
        RemoveWithSideFiles(unfinished, true);
        throw;
    }
    RemoveWithSideFiles(path, false);
    if (std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(path).constData()) != 0) {
        RemoveWithSideFiles(unfinished, true);
        Raise(QString::fromUtf8(sqlite3_errstr(SQLITE_CANTOPEN)), path);
    }
}

} // namespace kelvado
