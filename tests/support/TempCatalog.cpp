#include "support/TempCatalog.h"

#include "core/Literals.h"
#include "store/CatalogTemplate.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace kelvado {

namespace {

QString SchemaText()
{
    QFile file(u"" KELVADO_SOURCE_DIR "/data/catalog/schema.sql"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << "no catalog schema";
    return QString::fromUtf8(file.readAll());
}

} // namespace

TempCatalog::TempCatalog()
{
    static const QString schema = SchemaText();
    BuildBlankCatalog(Path(), schema);
}

void TempCatalog::Run(const char* sql) const
{
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(Path().toUtf8().constData(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db) << " in " << sql;
    sqlite3_close(db);
}

QString TempCatalog::Ask(const char* sql) const
{
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    QString answer = u"<none>"_s;
    EXPECT_EQ(sqlite3_open(Path().toUtf8().constData(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_prepare_v2(db, sql, -1, &statement, nullptr), SQLITE_OK) << sqlite3_errmsg(db) << " in " << sql;
    if (sqlite3_step(statement) == SQLITE_ROW) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        answer = text ? QString::fromUtf8(text) : u"<null>"_s;
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return answer;
}

cOptIMDbFilm AllParts()
{
    return cOptIMDbFilm::Everything();
}

} // namespace kelvado
