#pragma once

#include "core/FilmId.h"
#include "store/Recordset.h"

#include <QString>

#include <functional>
#include <optional>

namespace kelvado {

/// The second part of the key that a film has in the present tree, of the first node where it has several; nothing where the tree does
/// not show it.
using FilmValueInTree = std::function<std::optional<QString>(FilmId movieId)>;

/// The single values of a person and `!!HISTORY!!`, a link to the film site for each film of the person's filmography. `person` stands on
/// the person's row of `Actor`. "N/A" for Null. Values are put in as they stand, but for the end tag of a text area: the templates keep
/// values in such.
void FillPersonTokens(QString& text, const Recordset& person, const QString& siteAddress);

/// `!!INFILM!!`: a table row for each role of the person in the films of the catalog. A film that is only wanted has a link without effect,
/// the others one that leads to their node.
void FillInFilmToken(QString& text, Connection& connection, qint64 actorId, const FilmValueInTree& valueInTree);

} // namespace kelvado
