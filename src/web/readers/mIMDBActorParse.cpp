#include "web/readers/mIMDBActorParse.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "web/readers/WebText.h"
#include "web/readers/mIMDBTitleParse.h"

namespace kelvado {

namespace {

constexpr QStringView kMatches = u"Matching names...";

// The text between the next `open` behind `from` and the `close` that follows it.
QString Between(const PageText& page, QStringView open, QStringView close, Place from)
{
    const Place start = page.FindBehind(open, from);
    return page.Cut(start, page.Find(close, start));
}

} // namespace

QString ParseHeadShot(QStringView text)
{
    constexpr QStringView kSource = u"src=\"http://";
    constexpr qsizetype kAttribute = 5; // src="
    const PageText page(text);
    const Place address = Behind(page.Find(kSource, page.Find(u"\"headshot\"")), kAttribute);
    return address == kNowhere ? QString() : page.Cut(address, page.Find(u"\"", address));
}

QString ParseBirthName(QStringView text)
{
    const PageText page(text);
    const Place label = page.Find(u"Birth name");
    return label == kNowhere ? QString() : Between(page, u"<dd>", u"</dd>", label);
}

BirthDetails ParseBirthDetails(QStringView text)
{
    const PageText page(text);
    BirthDetails details;
    const Place label = page.Find(u"Date of birth");
    if (label == kNowhere)
        return details;
    const auto textOfLink = [&](QStringView address) -> std::optional<QString> {
        const Place link = page.Find(address, label);
        return link == kNowhere ? std::nullopt : std::optional(Between(page, u"\">", u"<", link));
    };
    details.Date = textOfLink(u"/OnThisDay?").value_or(QString());
    if (const auto year = textOfLink(u"/BornInYear?"))
        details.Date += ", "_L1 + *year;
    details.Location = textOfLink(u"/BornWhere?").value_or(QString());
    return details;
}

QString ParseFilmography(QStringView text)
{
    constexpr QStringView kFilm = u"/title/tt";
    constexpr qsizetype kYearDigits = 4;
    const PageText page(text);
    const Place list = page.Find(u"filmography</b>");
    const QString end = QString::number(page.Find(u"</ol>", list));
    QString films;
    for (Place film = page.Find(kFilm, list); film != kNowhere && QString::number(film) <= end;) {
        const Place title = page.FindBehind(u"\">", film);
        const Place titleEnd = page.Find(u"</", title);
        const Place year = page.FindBehind(u"(", titleEnd);
        films.append(page.Cut(title, titleEnd)).append(" ("_L1).append(page.Take(year, kYearDigits)).append(")\r\n"_L1);
        films.append(page.Take(Behind(film, kFilm.size()), kNumberDigits)).append(u'|');
        film = page.Find(kFilm, year);
    }
    return films;
}

QString ParseBiography(QStringView text, const QString& mainHost)
{
    const PageText page(text);
    const Place label = page.Find(u">Mini biography<");
    if (label == kNowhere)
        return {};
    QString biography = Between(page, u"biopar\">", u"<hr", label);
    const QString site = "http://"_L1 + mainHost;
    for (const QLatin1StringView path : {"/Title?"_L1, "/Name?"_L1})
        biography.replace(path, site + path);
    return biography.replace("HREF"_L1, "TARGET=_blank HREF"_L1);
}

QString ParseHeight(QStringView text)
{
    const PageText page(text);
    const Place label = page.Find(u">Height<");
    if (label == kNowhere)
        return {};
    const QString height = Between(page, u"<dd>", u"<hr", label);
    return height.section(u'<', 0, 0).remove("&quot;"_L1);
}

bool IsMatchingNamesPage(QStringView page)
{
    return page.contains(kMatches);
}

std::optional<QList<ActorMatch>> ParseActorMatches(QStringView text)
{
    constexpr QStringView kLink = u"HREF=\"/name/";
    constexpr QStringView kLinkEnd = u"/\">";
    constexpr QStringView kNameEnd = u"</A>";
    const PageText page(text);
    const Place start = page.Find(kMatches);
    const Place end = page.Find(u"</OL>", start);
    QList<ActorMatch> matches;
    for (Place row = page.Find(kLink, start); row != kNowhere && row < end;) {
        const Place link = Behind(row, kLink.size());
        const Place linkEnd = page.Find(kLinkEnd, link);
        const Place name = Behind(linkEnd, kLinkEnd.size());
        const Place nameEnd = page.Find(kNameEnd, name);
        const Place note = Behind(nameEnd, kNameEnd.size());
        const Place noteEnd = page.Find(u"</LI>", note);
        if (matches.size() == kMostMatches)
            return std::nullopt;
        matches.append({page.Cut(name, nameEnd), page.Cut(link, linkEnd), TrimBlanks(page.Cut(note, noteEnd))});
        row = page.Find(kLink, noteEnd);
    }
    return matches;
}

} // namespace kelvado
