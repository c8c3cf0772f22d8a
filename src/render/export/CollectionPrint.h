#pragma once

#include "browse/CatalogModel.h"
#include "render/export/ExportStep.h"
#include "store/Connection.h"

#include <QList>
#include <QString>

namespace kelvado {

enum class PrintForm { List, FilmPages };

struct PrintSettings
{
    PrintForm form = PrintForm::List;
    QString skin;
    QString siteAddress; ///< as `SiteAddress` gives it
};

/// Writes the films into one document for the printer, "collection.html" in the folder "print" for temporary files, with their covers
/// beside it; what stood in that folder goes. A list has a heading for each group. The templates are those of the skin, in
/// "Templates/Print". A film that the catalog does not have any more, or whose values cannot be shown, is named in the result.
/// Raises `kErrFileNotFound` with the path of a missing template, `kErrFileAccess` where the document cannot be written, `kErrDatabase`
/// where the catalog cannot be read.
ExportDone WriteCollectionPage(const QList<FilmGroup>& groups, Connection& catalog, const PrintSettings& settings, const GoesOn& goesOn);

} // namespace kelvado
