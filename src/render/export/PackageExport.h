#pragma once

#include "render/export/WebExportByView.h"

#include <QString>

namespace kelvado {

/// How a template package is to be used.
struct WebChoice
{
    QString package;      ///< its path
    bool details = false; ///< a page for each film, where the package has one
    int filmsPerPage = 0; ///< where the package spreads its films; 0 for all on one page
};

/// Writes the films with the pages of a template package, its style sheet ("style.css") and its files, into the folder of `site`: by title,
/// or for a package that is not of the standard kind by the groups of the view. Raises as the exports and `cTemplate` do.
ExportDone ExportPackage(const WebChoice& choice, const WebSite& site, const ExportedView& view, Connection& catalog, const GoesOn& goesOn);

} // namespace kelvado
