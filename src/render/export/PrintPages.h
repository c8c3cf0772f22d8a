#pragma once

#include <QString>
#include <QStringList>

namespace kelvado {

/// Writes the fixed pages of the print preview, "print1.html" and up, three films each, into `folder`, from the films of `catalog`: a
/// file of the older form, in which an actor's row has the title of the film. The first film of the table is never printed. Values stand
/// in the pages as they are. Returns the paths of the pages. Raises `kErrDatabase` where the catalog is missing or of another form,
/// `kErrFileAccess` with the path of a page that cannot be written.
QStringList WritePrintPages(const QString& catalog, const QString& folder);

} // namespace kelvado
