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

TEST(PersonPage, TellsAllThatIsKnown)
{
    const QString page = FlattenPage(FetchedPage("person"));
    EXPECT_EQ(ParseHeadShot(page), u"http://people.test/media/38m.jpg");
    EXPECT_EQ(ParseBirthName(page), u"Flora &#34;Flo&#34; H&#233;l");
    EXPECT_EQ(BirthOf(page), u"3 July, 1962|Kiel,Germany");
    EXPECT_EQ(ParseFilmography(page), u"The L&#246;wen Affair (1987)\r\n0912345|&#34;Circus &#38; Co.&#34; (1979)\r\n0912350|");

    const QString biography = FetchedPage("biography").replace("\r\n"_L1, " "_L1).replace(u'\t', u' ');
    EXPECT_EQ(BiographyOf(biography),
              u"Grew up in a circus, beside <A TARGET=_blank HREF=\"http://main.test/Name?Ek,+Bo\">Bo Ek</A>, and played in "
              "<A TARGET=_blank HREF=\"http://main.test/Title?0912345\">a film</A>.</p><p class=\"biopar\">Lives in <b>Kiel</b>.</p> ");
    EXPECT_EQ(ParseHeight(biography), u"5' 7 (1.70 m) ");
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
        {ParseHeadShot, u"name=headshot src=\"http://a/b.jpg\""_s, failure},
        {ParseHeadShot, u"\"headshot\" src=\"/local.gif\""_s, u""_s},
        {ParseHeadShot, u"\"headshot\" src=\"http://a"_s, failure},
        {ParseBirthName, u"<dd>x</dd>"_s, u""_s},
        {ParseBirthName, u"Birth name<dd>x"_s, failure},
        {BirthOf, u"/OnThisDay?\">3 July< /BornWhere?\">Kiel<"_s, u"|"_s},
        {BirthOf, u"Date of birth /BornInYear?1\">1962<"_s, u", 1962|"_s},
        {BirthOf, u"Date of birth /OnThisDay?\">3 July"_s, failure},
        {ParseFilmography, u"<ol>"_s + film + u"</ol>"_s, failure},
        {ParseFilmography, u"filmography</b><ol></ol>"_s, u""_s},
        {ParseFilmography, u"filmography</b>"_s + film, u""_s}, // a list without its end
        {ParseFilmography, u"filmography</b>/title/tt0000001/\">A</a> 2000</ol>"_s, failure},
        // Which place lies further is asked of the numbers' texts.
        {ParseFilmography, padded(padded(u"filmography</b>"_s, 950) + film, 1050) + u"</ol>"_s, u""_s},
        {ParseFilmography, padded(padded(u"filmography</b>"_s, 950) + u"</ol>"_s, 1050) + film, u"A (2000)\r\n0000001|"_s},
        {BiographyOf, u"biopar\">x<hr"_s, u""_s},
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

TEST(MatchingNames, AreTheFirstListAloneAndFewerThanAHundred)
{
    EXPECT_EQ(ParseActorMatches(FlattenPage(FetchedPage("matches"))),
              (QList<ActorMatch>{{u"M&#252;ller, Ada"_s, u"nm0900001"_s, u"(director, born 1950)"_s},
                                 {u"M&#252;ller, Ada"_s, u"nm0900101"_s, u"()"_s},
                                 {u"M&#252;ller, Ada"_s, u"nm0900102"_s, u""_s}}));
    const QString row = u"<LI><A HREF=\"/name/nm1/\">A</A> (b)</LI>"_s;
    for (const int rows : {0, 99, 100}) {
        const auto matches = ParseActorMatches(QString(u"Matching names..."_s + row.repeated(rows) + u"</OL>"_s));
        EXPECT_EQ(matches ? matches->size() : -1, rows < 100 ? rows : -1);
    }
    EXPECT_EQ(ErrorOf([] { return ParseActorMatches(u"Matching names...HREF=\"/name/nm1/\">A</A></OL>"); }), kErrInvalidCall);
}

} // namespace
} // namespace kelvado
