#pragma once

#include "core/Options.h"
#include "support/ErrorOf.h"

#include <QString>
#include <QTemporaryDir>

struct sqlite3;

namespace kelvado {

/// Another program that has the catalog at `path` open, with the engine's own calls; the test fails where they do.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& path);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void Run(const char* sql);
    /// The first column of the first row as text, "<null>" for Null, "<none>" without a row.
    QString Ask(const char* sql);

private:
    sqlite3* m_db = nullptr;
};

/// A folder of its own with a blank catalog, which goes with the object.
class TempCatalog
{
public:
    TempCatalog();
    QString Path() const { return m_folder.filePath(u"films.kvd"_s); }
    QString Folder() const { return m_folder.path(); }
    void Run(const char* sql) const { OtherProgram(Path()).Run(sql); }
    QString Ask(const char* sql) const { return OtherProgram(Path()).Ask(sql); }

private:
    QTemporaryDir m_folder;
};

/// Options with every part on.
cOptIMDbFilm AllParts();

} // namespace kelvado
