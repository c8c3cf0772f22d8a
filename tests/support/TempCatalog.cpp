#include "support/TempCatalog.h"

#include "store/CatalogTemplate.h"
#include "support/TempHome.h"

#include <QFile>

#include <sqlite3.h>

namespace kelvado {

TempCatalog::TempCatalog()
{
    static const QString schema = QString::fromUtf8(FileContent(u"" KELVADO_SOURCE_DIR "/data/catalog/schema.sql"_s));
    BuildBlankCatalog(Path(), schema);
}

OtherProgram::OtherProgram(const QString& path)
{
    EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &m_db), SQLITE_OK);
}

OtherProgram::~OtherProgram()
{
    sqlite3_close(m_db);
}

void OtherProgram::Run(const char* sql)
{
    EXPECT_EQ(sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(m_db) << " in " << sql;
}

QString OtherProgram::Ask(const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    QString answer = u"<none>"_s;
    EXPECT_EQ(sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr), SQLITE_OK) << sqlite3_errmsg(m_db) << " in " << sql;
    if (sqlite3_step(statement) == SQLITE_ROW) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        answer = text ? QString::fromUtf8(text) : u"<null>"_s;
    }
    sqlite3_finalize(statement);
    return answer;
}

cOptIMDbFilm AllParts()
{
    return cOptIMDbFilm::Everything();
}

} // namespace kelvado
