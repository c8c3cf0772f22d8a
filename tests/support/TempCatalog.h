#pragma once

#include "core/Literals.h"
#include "core/Options.h"

#include <QString>
#include <QTemporaryDir>

namespace kelvado {

/// A folder of its own with a blank catalog, which goes with the object.
class TempCatalog
{
public:
    TempCatalog();
    QString Path() const { return m_folder.filePath(u"films.kvd"_s); }
    QString Folder() const { return m_folder.path(); }
    /// Runs statements of the engine's own grammar on the catalog; the test fails where they do.
    void Run(const char* sql) const;
    /// The first column of the first row as text, "<null>" for Null, "<none>" without a row.
    QString Ask(const char* sql) const;

private:
    QTemporaryDir m_folder;
};

/// Options with every part on.
cOptIMDbFilm AllParts();

} // namespace kelvado
