#pragma once

#include "store/FilmRecord.h"

#include <QList>
#include <QStringView>

#include <optional>

namespace kelvado {

/// The people of one section of the flattened credits page, in page order, each with `Name`, `IMDB_Link` ("nm0000001") and the third
/// field: `Character` for actors, `Extended` for the others. Nothing where the page has no such section, which is not the same as a
/// section without people. A row that is not built as expected raises `kErrInvalidCall`.

std::optional<QList<FilmPerson>> ParseActors(QStringView page);
/// A value that cannot be read stays empty and the row is taken all the same; only a row without its last cell raises `kErrInvalidCall`.
std::optional<QList<FilmPerson>> ParseDirectors(QStringView page);
/// `IMDB_Link` ends in "/" here.
std::optional<QList<FilmPerson>> ParseProducers(QStringView page);
/// As long as "WGA" follows anywhere on the page, a name ends at the second "</a>" of its row.
std::optional<QList<FilmPerson>> ParseWriters(QStringView page);

} // namespace kelvado
