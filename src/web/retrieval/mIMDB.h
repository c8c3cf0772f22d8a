#pragma once

#include "web/retrieval/FilmDesk.h"

#include <QString>

#include <functional>
#include <optional>

namespace kelvado {

/// Fetches the film of seven digits from its four pages, with one picture. Writes nothing but "tmp.img" in the folder for temporary files.
/// Nothing after a cancel: the caller then ends its run and stores nothing. A page that cannot be read raises what its parser raises.
/// A page that could not be fetched is read like an empty one; a picture that could not be leaves the film without one.
/// Raises `kErrCancelled` where the program ends.
std::optional<FilmRecord> RetrieveFilm(const QString& number, FilmDesk& desk);

/// Shows stage `step` of `stepCount` of the present film. Raises `kErrDivisionByZero` where the job has no films.
void ShowRetrievalStage(const QString& text, int step, int stepCount, FilmDesk& desk);

/// Asks whether the job is to be cancelled, and cancels it. True where the progress window is to hide.
bool AskCancelRetrieval(FilmDesk& desk);

/// Retrieves the film of the number that `numberOf` then gives, lets `prepare` (empty: nothing) work on its record, stores it over the film
/// `movieId` and shows that one. Nothing is changed before the new record is whole. False after a cancel. Raises what retrieval and store
/// raise; main window and progress are then as they were.
bool RetrieveOver(const std::function<QString()>& numberOf, const QString& movieId, const std::function<void(FilmRecord&)>& prepare,
                  FilmDesk& desk);

/// The same for the number that the film itself has. Raises `kErrNoCurrentRecord` where there is no such film.
void UpdateMovieInfo(const QString& movieId, FilmDesk& desk);

} // namespace kelvado
