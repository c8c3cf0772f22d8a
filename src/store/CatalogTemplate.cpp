#include "store/CatalogTemplate.h"

#include "core/Literals.h"
#include "store/CatalogCopy.h"
#include "store/Statement.h"

#include <sqlite3.h>

#include <memory>

namespace kelvado {

namespace {

void RunSchema(const QString& path, const QString& schemaSql)
{
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(handle, sqlite3_close_v2);
    if (opened != SQLITE_OK || sqlite3_exec(handle, schemaSql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        RaiseEngineError(handle, path);
}

} // namespace

void BuildBlankCatalog(const QString& path, const QString& schemaSql)
{
    const QString unfinished = path + u".new"_s;
    RemoveCatalog(unfinished);
    try {
        RunSchema(unfinished, schemaSql);
    } catch (...) {
        RemoveCatalog(unfinished);
        throw;
    }
    PutInPlace(unfinished, path);
}

} // namespace kelvado
