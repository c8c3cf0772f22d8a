#pragma once

#include "store/FilmRecord.h"

#include <QString>

#include <vector>

/// A film of the sample collection, with what a `FilmRecord` does not hold.
struct SampleFilm
{
    kelvado::FilmRecord record;
    bool movieNight = false;
    bool backCover = false;
    QString nfo;
    QString loanedTo; ///< empty for a film at home
};

/// Reads every "*.json" file of `folder`, in the order of their names. Raises `kErrFileNotFound` for an empty folder, `kErrTypeMismatch`
/// for a file that cannot be read as a list of films; both name it.
std::vector<SampleFilm> ReadSampleFilms(const QString& folder);
