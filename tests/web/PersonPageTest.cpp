#include "PageReaders.h"
#include "WebPages.h"

namespace kelvado {
namespace {

QString BirthOf(QStringView page)
{
    return ParseBirthDetails(page).Date + u'|' + ParseBirthDetails(page).Location;
}

QString BiographyOf(QStringView page)
{
    return ParseBiography(page, u"main.test"_s);
}

TEST(PersonPage, WithoutAMarkerAValueIsEmptyOrTheReadingEnds)
{
    const QString failure = u"<failure>"_s;
    const QString film = u"/title/tt0000001/\">A</a> (2000)"_s;
    const auto padded = [](const QString& text, qsizetype place) { return text.leftJustified(place - 1); };
    const struct
    {
        QString (*read)(QStringView page);
        QString page, expected;
    } cases[] = {
        {ParseHeadShot, u""_s, failure},
        {ParseHeadShot, u"\"headshot\" src=\"/local.gif\""_s, u""_s},
        {ParseHeadShot, u"\"headshot\" src=\"http://a"_s, failure},
        {ParseBirthName, u"Birth name<dd>x"_s, failure},
        {BirthOf, u"/OnThisDay?\">3 July< /BornWhere?\">Kiel<"_s, u"|"_s},
        {BirthOf, u"Date of birth /BornInYear?1\">1962<"_s, u", 1962|"_s},
        {BirthOf, u"Date of birth /OnThisDay?\">3 July"_s, failure},
        {ParseFilmography, u"<ol>"_s + film + u"</ol>"_s, failure},
        {ParseFilmography, u"filmography</b>"_s + film, u""_s}, // a list without its end
        {ParseFilmography, u"filmography</b>/title/tt0000001/\">A</a> 2000</ol>"_s, failure},
        // Which place lies further is asked of the numbers' texts.
        {ParseFilmography, padded(padded(u"filmography</b>"_s, 950) + film, 1050) + u"</ol>"_s, u""_s},
        {ParseFilmography, padded(padded(u"filmography</b>"_s, 950) + u"</ol>"_s, 1050) + film, u"A (2000)\r\n0000001|"_s},
        {BiographyOf, u">Mini biography<biopar\">x"_s, failure},
        {ParseHeight, u">Height<<dd>170 cm<br>tall<hr"_s, u"170 cm"_s},
        {ParseHeight, u">Height<<dd>170 cm"_s, failure},
    };
    for (const auto& [read, page, expected] : cases) {
        QString value = failure;
        EXPECT_EQ(ErrorOf([&, read = read] { return value = read(page); }), expected == failure ? kErrInvalidCall : 0) << qPrintable(page);
        EXPECT_EQ(value, expected) << qPrintable(page);
    }
}

TEST(MatchingNames, AreTheFirstListAlone)
{
    EXPECT_EQ(ParseActorMatches(FlattenPage(FetchedPage("matches"))),
              (QList<ActorMatch>{{u"M&#252;ller, Ada"_s, u"nm0900001"_s, u"(director, born 1950)"_s},
                                 {u"M&#252;ller, Ada"_s, u"nm0900101"_s, u"()"_s},
                                 {u"M&#252;ller, Ada"_s, u"nm0900102"_s, u""_s}}));
    EXPECT_EQ(ErrorOf([] { return ParseActorMatches(u"Matching names...HREF=\"/name/nm1/\">A</A></OL>"); }), kErrInvalidCall);
}

} // namespace
} // namespace kelvado
