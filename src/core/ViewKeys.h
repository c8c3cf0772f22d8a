#pragma once

#include "core/Literals.h"

namespace kelvado {

/// The column keys behind the entries of `mnuSortPrimDetail` and `mnuSortSecDetail`, and the view modes behind those of `mnuViewMode`,
/// by entry. The custom dialog is the entry behind the last key.
inline constexpr const char* kPrimarySorts[] = {"Movie.IsRequest", "Movie.Title", "Movie.Format", "Genre.Genre",
                                                "Movie.Year",      "Movie.Index", "Movie.Custom1"};
inline constexpr const char* kSecondarySorts[] = {"Movie.Title", "Movie.Index", "Movie.Format", "Movie.Year"};
inline constexpr const char* kViewModes[] = {"Movies", "Requests", "Loans", "MovieNight"};

/// The column that a key of a sort or a filter stands for, with its table: a link to the film site is made of the film's number there.
inline QString ColumnOfKey(const QString& key)
{
    return key == "Movie.IMDbLink"_L1 ? u"Movie.IMDb"_s : key;
}

} // namespace kelvado
