#pragma once

namespace kelvado {

/// The column keys behind the entries of `mnuSortPrimDetail` and `mnuSortSecDetail`, and the view modes behind those of `mnuViewMode`,
/// by entry. The custom dialog is the entry behind the last key.
inline constexpr const char* kPrimarySorts[] = {"Movie.IsRequest", "Movie.Title", "Movie.Format", "Genre.Genre",
                                                "Movie.Year",      "Movie.Index", "Movie.Custom1"};
inline constexpr const char* kSecondarySorts[] = {"Movie.Title", "Movie.Index", "Movie.Format", "Movie.Year"};
inline constexpr const char* kViewModes[] = {"Movies", "Requests", "Loans", "MovieNight"};

} // namespace kelvado
