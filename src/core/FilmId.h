#pragma once

#include <QtGlobal>

namespace kelvado {

/// A film's number in the catalog, `Movie_ID`.
using FilmId = qint64;

} // namespace kelvado
