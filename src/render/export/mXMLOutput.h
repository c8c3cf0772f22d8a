#pragma once

#include "render/export/ExportStep.h"
#include "store/Recordset.h"

#include <QString>

#include <functional>

namespace kelvado {

/// What the XML of a film needs beside its row.
struct XmlSettings
{
    QString skin;
    QString siteAddress; ///< as `SiteAddress` gives it
};

/// Puts the picture with this number, 0 for none, where the document's reader finds it, and gives the text that the document has for it.
using XmlPicture = std::function<QString(std::int64_t imageId)>;

/// The document of one film, for a page with the style sheet at this path. `film` stands on the film's row of `Movie`. Every value is
/// written so that the document is well-formed; what XML cannot hold becomes U+FFFD. Raises `kErrTypeMismatch` for a rating that begins
/// with a digit and does not end with one.
QString BuildFilmXml(const QString& styleSheet, Connection& catalog, const Recordset& film, const XmlSettings& settings,
                     const XmlPicture& picture);

/// Writes all films to "MyMovies.XML" in `folder`, and their pictures to "images" beside it. `goesOn` is called behind each film and
/// cancels with false. The document takes its place when it is whole, so after a cancel or a failure an older one stands as it was;
/// pictures that were written by then stay. Raises as `BuildFilmXml`, and `kErrFileAccess` with the path of what cannot be written.
ExportDone BuildCatalogXml(const QString& folder, Connection& catalog, const XmlSettings& settings, const GoesOn& goesOn);

} // namespace kelvado
