#include "store/CatalogTemplate.h"

#include "core/Literals.h"
#include "store/CatalogCopy.h"
#include "store/Statement.h"

#include <sqlite3.h>

#include <memory>

namespace kelvado {

namespace {

// Failures name `target`, for which `path` is made.
void RunSchema(const QString& path, const QString& schemaSql, const QString& target)
{
    sqlite3* handle = nullptr;
    const int opened = sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(handle, sqlite3_close_v2);
    if (opened != SQLITE_OK || sqlite3_exec(handle, schemaSql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        RaiseEngineError(handle, target);
}

} // namespace

void BuildBlankCatalog(const QString& path, const QString& schemaSql)
{
    WriteCatalog(path, [&](const QString& unfinished) { RunSchema(unfinished, schemaSql, path); });
}

} // namespace kelvado
