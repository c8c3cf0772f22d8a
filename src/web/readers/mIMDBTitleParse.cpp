#include "web/readers/mIMDBTitleParse.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "web/readers/WebText.h"

namespace kelvado {

namespace {

constexpr QStringView kTitleOpen = u"<title>";
constexpr QStringView kTitleClose = u"</title>";
constexpr QStringView kGoldStar = u"goldstar.gif";
constexpr QStringView kLinkEnd = u"/\">";
constexpr QStringView kLinkClose = u"</a>";

// Marks of a title's kind and of its place among others of that name, in the order in which they are taken out: "/IV" goes before "/I"
// could leave a "V" behind.
constexpr QLatin1StringView kTitleMarks[] = {"/IV"_L1, "/III"_L1, "/II"_L1, "/I"_L1, "/V"_L1, "(V)"_L1, "(VG)"_L1, "(TV)"_L1};

// The first one on the page decides; the value is what follows its label. "Rated R" and "USA:R" outrank "NC-17" on purpose.
struct RatedMarker
{
    QStringView marker;
    qsizetype labelLength;
};
constexpr RatedMarker kRatedMarkers[] = {
    {u"Rated PG-13", 6}, {u"Rated R", 6},   {u"Rated NC-17", 6}, {u"Rated PG", 6},
    {u"USA:R", 4},       {u"USA:PG-13", 4}, {u"USA:PG", 4},      {u"USA:NC-17", 4},
};

QString RatingOf(const PageText& page)
{
    const Place star = page.Find(kGoldStar);
    if (star == kNowhere)
        return {};
    const Place start = page.FindBehind(u"<b>", star);
    return page.Cut(start, page.Find(u"/10", start));
}

QString VotesOf(const PageText& page)
{
    const Place star = page.Find(kGoldStar);
    if (star == kNowhere)
        return {};
    const Place start = page.FindBehind(u"</b> (", star);
    return page.Cut(start, page.Find(u")", start));
}

} // namespace

TitleInfo ParseTitleBlock(QStringView text)
{
    const PageText page(text);
    TitleInfo info;
    const Place start = page.Find(kTitleOpen, 1, Qt::CaseInsensitive) + kTitleOpen.size();
    info.RawTitle = page.Cut(start, page.Find(kTitleClose, 1, Qt::CaseInsensitive));

    QString bare = info.RawTitle;
    for (const QLatin1StringView mark : kTitleMarks)
        bare.remove(mark);
    const qsizetype open = bare.indexOf(u'(');
    if (open < 0)
        throw RuntimeError(kErrSubscript);
    info.Name = TrimBlanks(bare.first(open));
    info.Year = TrimBlanks(bare.section(u'(', 1, 1).remove(u')'));

    info.Rating = RatingOf(page);
    info.Votes = VotesOf(page);
    return info;
}

QString ParseRated(QStringView page)
{
    for (const auto& [marker, labelLength] : kRatedMarkers) {
        if (page.contains(marker))
            return marker.sliced(labelLength).toString();
    }
    return {};
}

QString ParseRuntime(QStringView text)
{
    constexpr QStringView kLabel = u"Runtime:</b>";
    const PageText page(text);
    const Place start = page.FindBehind(kLabel);
    return start == kNowhere ? QString() : page.Cut(start, page.Find(u"<br>", start));
}

QString ParseLanguage(QStringView text)
{
    constexpr QStringView kLanguage = u"Sections/Languages/";
    constexpr qsizetype kLongest = 150;
    const PageText page(text);
    QString languages;
    // A missing link counts as one at place 0: such a page gives the text that stands behind its first characters.
    Place start = page.Find(kLanguage) + kLanguage.size();
    for (;;) {
        const Place stop = page.Find(kLinkEnd, start);
        languages.append("/ "_L1).append(page.Cut(start, stop));
        const Place next = page.Find(kLanguage, stop) + kLanguage.size();
        if (next < stop)
            break;
        if (next <= start)
            throw RuntimeError(kErrInvalidCall);
        start = next;
    }
    languages.remove(0, 1);
    return languages.size() > kLongest ? QString() : languages;
}

QString ParseTitleNumber(QStringView text)
{
    constexpr QStringView kTitleLink = u"/title/tt";
    const PageText page(text);
    const Place link = page.Find(kTitleLink);
    return page.Take(link + kTitleLink.size(), kNumberDigits);
}

QList<FilmGenre> ParseGenres(QStringView text)
{
    // From the end of one genre's link, the next one's lies further than this.
    constexpr qsizetype kStep = 19;
    const PageText page(text);
    const Place label = page.Find(u"Genre:</b>");
    if (label == kNowhere)
        return {};
    const Place end = page.Find(u"</a><br><br>", label);
    const Place first = page.Find(kLinkEnd, label);
    Place close = page.Find(kLinkClose, first);
    QList<FilmGenre> genres{{.Genre = page.Cut(Behind(first, kLinkEnd.size()), close)}};
    if (end == kNowhere)
        return genres;

    for (Place next = page.Find(kLinkEnd, first + kStep); next <= end; next = page.Find(kLinkEnd, close + kStep)) {
        close = page.Find(kLinkClose, next);
        genres.append({.Genre = page.Cut(Behind(next, kLinkEnd.size()), close)});
    }
    return genres;
}

QString ParsePosterUrl(QStringView text, const WebHosts& hosts)
{
    const QString scheme = u"http://"_s;
    const PageText page(text);
    if (page.Holds(QString(scheme + hosts.ImdbHeadsHost + "/Heads/npa.gif"_L1)) || page.Holds(u"title_noposter2"))
        return {};

    QString url;
    if (const Place poster = page.Find(u"\"poster\""); poster != kNowhere) {
        const Place start = page.Find(QString(scheme + hosts.ImdbPosterHost), poster);
        url = page.Cut(start, page.Find(u"\"", start));
    } else if (const Place old = page.Find(QString(scheme + hosts.ImdbOldPosterHost)); old != kNowhere) {
        url = page.Cut(old, page.Find(u"\"", old));
    } else {
        const Place shop = page.Find(hosts.AmazonImageHost);
        url = page.Cut(shop, page.Find(u"\"><", shop)).section(u'"', 0, 0);
    }
    url = TrimBlanks(url);
    return url.size() >= 2 && !url.startsWith("http"_L1) ? scheme + url : url;
}

} // namespace kelvado
