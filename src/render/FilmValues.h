#pragma once

#include "store/Value.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>

namespace kelvado {

// What the pages and the XML of a film have in common.

/// "No" for 0 and a text that reads as 0, "Yes" for everything else, Null included.
QString YesNo(const Value& value);

inline constexpr QLatin1StringView kNoCertificate{"NA.Gif"};
/// The picture of the certificate `rated`, matched to the letter; empty for Null and for one that has none.
QLatin1StringView CertificatePicture(const Value& rated);

inline constexpr QLatin1StringView kNoRatingBar{"barna.gif"};
/// The pictures of a rating's bar from left to right.
struct RatingPictures
{
    QList<QLatin1StringView> pictures;
    qsizetype middle = -1; ///< the place of the piece that stands for the rating's last digit; -1 where there is none
};
/// The bar of a rating such as "7.4". Only its first and its last character count, so "10" draws one segment. A last digit of exactly 5
/// draws neither a half nor an empty segment, and the bar is one segment shorter. `kNoRatingBar` alone for Null and for a text that does
/// not begin with a digit. Raises `kErrTypeMismatch` for one that begins with a digit and does not end with one.
RatingPictures RatingBarOf(const Value& rating);

/// The people of a film in one table. The film's number follows the query.
struct Crew
{
    QLatin1StringView query;
    QLatin1StringView column; ///< of the name
};
inline constexpr Crew kProducers{QLatin1StringView("SELECT Producer.*, ProducerLink.* FROM Producer INNER JOIN "
                                                   "ProducerLink ON Producer.Producer_ID = ProducerLink.Producer_ID "
                                                   "WHERE ProducerLink.Movie_ID  = "),
                                 QLatin1StringView("Producer")};
inline constexpr Crew kDirectors{QLatin1StringView("SELECT Director.*, DirectorLink.* FROM Director INNER JOIN "
                                                   "DirectorLink ON Director.Director_ID = DirectorLink.Director_ID "
                                                   "WHERE DirectorLink.Movie_ID  = "),
                                 QLatin1StringView("Director")};
inline constexpr Crew kWriters{QLatin1StringView("SELECT Writer.*, WriterLink.* FROM Writer INNER JOIN "
                                                 "WriterLink ON Writer.Writer_ID = WriterLink.Writer_ID "
                                                 "WHERE WriterLink.Movie_ID  = "),
                               QLatin1StringView("Writer")};

} // namespace kelvado
