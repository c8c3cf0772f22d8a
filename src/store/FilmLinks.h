#pragma once

#include "core/RuntimeError.h"
#include "store/mDBConnection.h"

#include <QStringList>

#include <optional>

namespace kelvado {

enum class LinkMode { Add, Update };

/// Why the lists of a film could not be stored.
struct LinkFailure
{
    RuntimeError error;
    QStringList lists; ///< those that are not in the catalog, or not all of them; after an update, those that are as they were
};

/// The number of the row that is called `name` in a table of names ("Actor"), whatever the case of any of its letters.
std::optional<qint64> FindName(const QString& table, const QString& name, Connection& connection);

/// Whether a text can be the name of a person or a company: it has three letters or more and no markup that a page left in it.
bool IsUsableName(const QString& text);

/// Stores the lists of a film that `options` lets through: each name is matched to an existing row, or added,
/// and linked to the film. `movieId` goes into the link rows; with Null the links belong to no film.
/// In the mode `Update` the film's old links of a list go first, where there are new ones to take their place and the film is known.
/// A list that cannot be stored then stays as it was. Stops at the first failure and returns it.
std::optional<LinkFailure> StoreFilmLinks(const FilmRecord& film, const Value& movieId, LinkMode mode, const cOptIMDbFilm& options,
                                          const WriterContext& context, Connection& connection);

/// Fills the lists of `film` from the catalog.
void ReadFilmLinks(FilmRecord& film, FilmId movieId, Connection& connection);

} // namespace kelvado
