#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

namespace kelvado {

/// One row of a list of people who share a name. Entities stand as they are in the page.
struct ActorMatch
{
    QString Name;
    QString Link; ///< "nm0000001"
    QString Note; ///< what tells this one from the others, with its parentheses; may be empty
    friend bool operator==(const ActorMatch&, const ActorMatch&) = default;
};

struct BirthDetails
{
    QString Date; ///< "3 July, 1962"
    QString Location;
};

/// The first four read the flattened page of a person, the other two the page of the biography, in which a blank stands for each line
/// end and tab. What the page does not tell is empty. A marker behind a missing one, and a text without its end, raise `kErrInvalidCall`.

/// The address of the picture, with its scheme; "" where it has none of the web. Raises for a page without the picture's place.
QString ParseHeadShot(QStringView page);
QString ParseBirthName(QStringView page);
BirthDetails ParseBirthDetails(QStringView page);
/// For each film its title, " (", the year, ")", CR LF, the seven digits, "|". Raises for a page without any list of films.
/// The places of the film and of the list's end are compared as texts, so that the first list may run on or end early where the two
/// have not the same number of digits.
QString ParseFilmography(QStringView page);

/// The text with its markup; links to films and people lead to `mainHost`, and into a window of their own.
QString ParseBiography(QStringView page, const QString& mainHost);
/// Without the sign of inches.
QString ParseHeight(QStringView page);

/// More rows than these are a page that is no list of names.
inline constexpr qsizetype kMostMatches = 99;
/// True for a page that offers several people of the name that was asked for.
bool IsMatchingNamesPage(QStringView page);
/// The people of such a page, flattened, in page order; nothing where there are more than `kMostMatches`.
std::optional<QList<ActorMatch>> ParseActorMatches(QStringView page);

} // namespace kelvado
