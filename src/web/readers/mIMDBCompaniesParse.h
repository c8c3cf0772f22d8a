#pragma once

#include "store/FilmRecord.h"

#include <QList>
#include <QStringView>

namespace kelvado {

/// The companies of the flattened companies page, each with `Company`, `Type` and the note behind its link (`Extended`) as it stands:
/// first those that produced the film, then the distributors, then the special effects; empty where the page has none of these.
/// Raises `kErrSubscript` for a row without a closed link, `kErrInvalidCall` for one without an end.
QList<FilmCompany> ParseCompanies(QStringView page);

} // namespace kelvado
