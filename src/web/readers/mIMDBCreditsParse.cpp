#include "web/readers/mIMDBCreditsParse.h"

#include "core/RuntimeError.h"
#include "web/readers/WebText.h"

namespace kelvado {

namespace {

struct CreditSection
{
    QStringView marker;
    QStringView linkEnd; ///< with "/" in front, the link loses its own one
    QString FilmPerson::*thirdField;
    bool skipsGuildLink;
    bool toleratesFailures;
};

constexpr CreditSection kActors{u"Cast</b></a>", u"/\">", &FilmPerson::Character, false, false};
constexpr CreditSection kDirectors{u"Directed by</b></a>", u"/\">", &FilmPerson::Extended, false, true};
constexpr CreditSection kProducers{u"Produced by</b></a>", u"\">", &FilmPerson::Extended, false, false};
constexpr CreditSection kWriters{u"Writing credits</b></a>", u"/\">", &FilmPerson::Extended, true, false};

std::optional<QList<FilmPerson>> ParseSection(QStringView text, const CreditSection& section)
{
    constexpr QStringView kLinkClose = u"</a>";
    // The cell of the third field is searched for from so far behind the name.
    constexpr qsizetype kCellLead = 13;
    // No link of a person is longer. Where the end of a link is missing, that of another row ends it, perhaps at the other end of the
    // page: every row would then hold a copy of nearly all of it.
    constexpr qsizetype kLongestLink = 1000;
    const PageText page(text);
    Place cursor = page.FindBehind(section.marker);
    if (cursor == kNowhere)
        return std::nullopt;

    const auto attempt = [&section](const auto& step) {
        try {
            step();
        } catch (const RuntimeError&) {
            if (!section.toleratesFailures)
                throw;
        }
    };

    MarkerAhead linkClose(page, kLinkClose, Qt::CaseInsensitive);
    MarkerAhead personLink(page, u"<a href=\"/name/", Qt::CaseInsensitive);
    MarkerAhead linkText(page, section.linkEnd);
    MarkerAhead cellStart(page, u"valign=\"top\">", Qt::CaseInsensitive);
    MarkerAhead cellStop(page, u"</td>");

    QList<FilmPerson> people;
    const Place end = page.Find(u"</table>", cursor);
    const Place lastGuild = section.skipsGuildLink ? page.FindBack(u"WGA", page.End(), Qt::CaseInsensitive) : kNowhere;
    Place nameEnd = kNowhere;
    while (nameEnd < end) {
        nameEnd = linkClose.Find(cursor);
        if (nameEnd >= end)
            break;
        if (lastGuild >= cursor)
            nameEnd = linkClose.Find(Behind(nameEnd, kLinkClose.size()));

        FilmPerson person;
        Place linkEnd = kNowhere;
        Place cell = kNowhere;
        Place cellEnd = kNowhere;
        const Place link = personLink.FindBehind(cursor);
        attempt([&] { linkEnd = linkText.Find(link); });
        attempt([&] { person.IMDB_Link = page.CutShort(link, linkEnd, kLongestLink); });
        attempt([&] { person.Name = page.Cut(Behind(linkEnd, section.linkEnd.size()), nameEnd); });
        attempt([&] { cell = cellStart.FindBehind(Behind(nameEnd, kCellLead)); });
        attempt([&] { cellEnd = cellStop.Find(cell); });
        attempt([&] { person.*section.thirdField = StripTags(page.Cut(cell, cellEnd)); });
        people.append(std::move(person));

        if (cellEnd <= cursor)
            throw RuntimeError(kErrInvalidCall);
        cursor = cellEnd;
    }
    return people;
}

} // namespace

std::optional<QList<FilmPerson>> ParseActors(QStringView page)
{
    return ParseSection(page, kActors);
}

std::optional<QList<FilmPerson>> ParseDirectors(QStringView page)
{
    return ParseSection(page, kDirectors);
}

std::optional<QList<FilmPerson>> ParseProducers(QStringView page)
{
    return ParseSection(page, kProducers);
}

std::optional<QList<FilmPerson>> ParseWriters(QStringView page)
{
    return ParseSection(page, kWriters);
}

} // namespace kelvado
