#pragma once

#include "store/FilmRecord.h"

#include <QString>

#include <vector>

/// Reads films from a file with one JSON object a line (title, year, genres, cast, extract). Raises `kErrFileNotFound` for a missing file.
std::vector<kelvado::FilmRecord> ReadFilmLines(const QString& path);
