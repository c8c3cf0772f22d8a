#pragma once

#include "core/FilmId.h"
#include <QString>
#include <QStringList>

namespace kelvado {

/// What can be done with a stored film. Each routine works on the catalog at `catalogPath` over a connection of its own. An unknown film
/// raises `kErrNoCurrentRecord`.

/// Deletes the film's row, its front picture and its links to genres, people and companies. The people stay, and so do its features,
/// its back picture and its loans. Where one of the statements fails, nothing is deleted.
void DeleteFilm(FilmId movieId, const QString& catalogPath);

/// Makes the film a wanted one; its carrier is forgotten.
void MoveFilmToRequests(FilmId movieId, const QString& catalogPath);
/// Makes the film an owned one without a carrier.
void MoveFilmToMovies(FilmId movieId, const QString& catalogPath);

void AddToMovieNight(FilmId movieId, const QString& catalogPath);
/// Takes every film off the list.
void ClearMovieNight(const QString& catalogPath);

/// The texts that `column` of the films has, each once, by their order; the empty one left out.
QStringList ValuesInUse(const QString& column, const QString& catalogPath);

/// True for a catalog without any film.
bool CatalogIsEmpty(const QString& catalogPath);

} // namespace kelvado
