#pragma once

#include "store/mDBConnection.h"

namespace kelvado {

/// Text without the blanks at its ends; other white space stays.
QString TrimBlanks(const QString& text);

enum class LinkMode { Add, Update };

/// Stores the lists of a film that `options` lets through: each name is matched to an existing row by the catalog's comparison, or added,
/// and linked to the film. `movieId` goes into the link rows; with Null the links belong to no film.
/// In the mode `Update` the film's old links of a list go first, where there are new ones to take their place and the film is known.
/// A failure names the film and the lists that are missing, in whole or in part.
void StoreFilmLinks(const FilmRecord& film, const Value& movieId, LinkMode mode, const cOptIMDbFilm& options, const WriterContext& context,
                    Connection& connection);

/// Fills the lists of `film` from the catalog.
void ReadFilmLinks(FilmRecord& film, qint64 movieId, Connection& connection);

} // namespace kelvado
