#include "web/mIMDBCreditsParse.h"

#include "core/RuntimeError.h"
#include "web/WebText.h"

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

    QList<FilmPerson> people;
    const Place end = page.Find(u"</table>", cursor);
    const Place lastGuild = section.skipsGuildLink ? page.FindBack(u"WGA", page.End(), Qt::CaseInsensitive) : kNowhere;
    Place nameEnd = kNowhere;
    while (nameEnd < end) {
        nameEnd = page.Find(kLinkClose, cursor, Qt::CaseInsensitive);
        if (nameEnd >= end)
            break;
        if (lastGuild >= cursor)
            nameEnd = page.Find(kLinkClose, Behind(nameEnd, kLinkClose.size()), Qt::CaseInsensitive);

        FilmPerson person;
        Place linkEnd = kNowhere;
        Place cell = kNowhere;
        Place cellEnd = kNowhere;
        const Place link = page.FindBehind(u"<a href=\"/name/", cursor, Qt::CaseInsensitive);
        attempt([&] { linkEnd = page.Find(section.linkEnd, link); });
        attempt([&] { person.IMDB_Link = page.Cut(link, linkEnd); });
        attempt([&] { person.Name = page.Cut(Behind(linkEnd, section.linkEnd.size()), nameEnd); });
        attempt([&] { cell = page.FindBehind(u"valign=\"top\">", nameEnd, Qt::CaseInsensitive); });
        attempt([&] { cellEnd = page.Find(u"</td>", cell); });
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
