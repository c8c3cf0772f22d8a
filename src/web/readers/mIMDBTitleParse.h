#pragma once

#include "core/WebHosts.h"
#include "store/FilmRecord.h"

#include <QList>
#include <QString>
#include <QStringView>

namespace kelvado {

/// The digits of a film's number on the film site.
inline constexpr qsizetype kNumberDigits = 7;

/// What the head of a film's page tells. Entities stand as they are in the page.
struct TitleInfo
{
    QString RawTitle; ///< the whole text of the title tag
    QString Year;     ///< what stood in its first parentheses
    QString Name;     ///< what stood in front of them
    QString Rating;   ///< "7.0", or empty
    QString Votes;    ///< the text in the parentheses behind the rating, or empty
};

/// All of these read the flattened page of a film. A marker that stands behind a missing one, and a text without its end, raise
/// `kErrInvalidCall`; where the marker of a whole fact is missing, the result is told with each.

/// Raises `kErrSubscript` for a title tag without "(". Without "<title>" the title begins at the seventh character of the page.
TitleInfo ParseTitleBlock(QStringView page);

/// The certificate: "PG-13", "R", "NC-17", "PG", or "" for none of the known ones; never raises.
QString ParseRated(QStringView page);

/// The run time as it stands, with a blank in front where the page has one; "" without.
QString ParseRuntime(QStringView page);

/// " English/ Russian". More than 150 characters are no languages and give "". Without any language link the text from place 19 to the
/// next link end is returned, if it is that short.
QString ParseLanguage(QStringView page);

/// The film's seven digits, whatever really stands there. Without a link to a film, the seven characters from place 9.
QString ParseTitleNumber(QStringView page);

/// Empty without a genre. Where the end of the list is not found, the first genre alone.
QList<FilmGenre> ParseGenres(QStringView page);

/// The poster's address with its scheme; "" where the page says that there is none. Raises `kErrInvalidCall` where it says neither.
QString ParsePosterUrl(QStringView page, const WebHosts& hosts);

} // namespace kelvado
