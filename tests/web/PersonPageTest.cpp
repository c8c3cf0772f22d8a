#include "PageReaders.h"
#include "WebPages.h"

namespace kelvado {
namespace {

TEST(PersonPage, TellsAllThatIsKnown)
{
    const QString page = FlattenPage(FetchedPage("person"));
    EXPECT_EQ(ParseHeadShot(page), u"http://people.test/media/38m.jpg");
    EXPECT_EQ(ParseBirthName(page), u"Flora &#34;Flo&#34; H&#233;l");
    EXPECT_EQ(ParseBirthDetails(page).Date, u"3 July, 1962");
    EXPECT_EQ(ParseBirthDetails(page).Location, u"Kiel,Germany");
    EXPECT_EQ(ParseFilmography(page), u"The L&#246;wen Affair (1987)\r\n0912345|&#34;Circus &#38; Co.&#34; (1979)\r\n0912350|");
}

TEST(PersonPage, WithoutAMarkerAValueIsEmptyOrTheReadingEnds)
{
    const QString failure = u"<failure>"_s;
    const auto headShot = [](const QString& page) { return ParseHeadShot(page); };
    const auto birthName = [](const QString& page) { return ParseBirthName(page); };
    const auto birth = [](const QString& page) { return ParseBirthDetails(page).Date + u'|' + ParseBirthDetails(page).Location; };
    const auto films = [](const QString& page) { return ParseFilmography(page); };
    const auto biography = [](const QString& page) { return ParseBiography(page, u"main.test"_s); };
    const auto height = [](const QString& page) { return ParseHeight(page); };
    const struct
    {
        QString (*read)(const QString& page);
        QString page, expected;
    } cases[] = {
        {headShot, u""_s, failure},
        {headShot, u"name=headshot src=\"http://a/b.jpg\""_s, failure},
        {headShot, u"\"headshot\" src=\"/local.gif\""_s, u""_s},
        {headShot, u"\"headshot\" src=\"http://a"_s, failure},
        {birthName, u"<dd>x</dd>"_s, u""_s},
        {birthName, u"Birth name"_s, failure},
        {birthName, u"Birth name<dd>x"_s, failure},
        {birth, u"/OnThisDay?\">3 July< /BornWhere?\">Kiel<"_s, u"|"_s},
        {birth, u"Date of birth /BornInYear?1\">1962<"_s, u", 1962|"_s},
        {birth, u"Date of birth /BornWhere?K\">Kiel<"_s, u"|Kiel"_s},
        {birth, u"Date of birth /OnThisDay?\">3 July"_s, failure},
        {films, u"<ol><li>/title/tt0000001/\">A</a> (2000)</ol>"_s, failure},
        {films, u"filmography</b><ol></ol>"_s, u""_s},
        {films, u"filmography</b>/title/tt0000001/\">A</a> (2000)"_s, u""_s}, // a list without its end
        {films, u"filmography</b>/title/tt0000001/\">A</a> 2000</ol>"_s, failure},
        {films, u"filmography</b>/title/tt0000001/\">A</a> (20"_s + u"</ol>"_s, u"A (20</)\r\n0000001|"_s},
        {biography, u"biopar\">x<hr"_s, u""_s},
        {biography, u">Mini biography<x<hr"_s, failure},
        {biography, u">Mini biography<biopar\">x"_s, failure},
        {biography, u">Mini biography<biopar\"> <a href='/Name?A'> <hr"_s, u" <a href='http://main.test/Name?A'> "_s},
        {height, u">Height<<dd>170 cm<br>tall<hr"_s, u"170 cm"_s},
        {height, u">Height<<dd>170 cm"_s, failure},
        {height, u"<dd>5' 7&quot;<hr"_s, u""_s},
    };
    for (const auto& [read, page, expected] : cases) {
        QString value = failure;
        EXPECT_EQ(ErrorOf([&, read = read] { return value = read(page); }), expected == failure ? kErrInvalidCall : 0) << qPrintable(page);
        EXPECT_EQ(value, expected) << qPrintable(page);
    }
}

// Which place lies further is asked of the numbers' texts.
TEST(PersonPage, TheEndOfTheFirstListIsComparedAsAText)
{
    const auto pageOf = [](qsizetype filmPlace, qsizetype endPlace) {
        const QString film = u"/title/tt0000001/\">A</a> (2000)"_s;
        QString page = u"filmography</b>"_s.leftJustified(filmPlace - 1) + film;
        page = (endPlace > filmPlace ? page.leftJustified(endPlace - 1) + u"</ol>"_s : page);
        if (endPlace < filmPlace)
            page.replace(endPlace - 1, 5, u"</ol>"_s);
        return page;
    };
    EXPECT_EQ(ParseFilmography(pageOf(100, 200)), u"A (2000)\r\n0000001|");
    EXPECT_EQ(ParseFilmography(pageOf(200, 100)), u"");
    EXPECT_EQ(ParseFilmography(pageOf(950, 1050)), u"");
    EXPECT_EQ(ParseFilmography(pageOf(1050, 950)), u"A (2000)\r\n0000001|");
}

TEST(BiographyPage, GivesTextLinksAndHeight)
{
    QString page = FetchedPage("biography");
    page.replace("\r\n"_L1, " "_L1).replace(u'\t', u' ');
    EXPECT_EQ(ParseBiography(page, u"main.test"_s),
              u"Grew up in a circus, beside <A TARGET=_blank HREF=\"http://main.test/Name?Ek,+Bo\">Bo Ek</A>, and played in "
              "<A TARGET=_blank HREF=\"http://main.test/Title?0912345\">a film</A>.</p><p class=\"biopar\">Lives in <b>Kiel</b>.</p> ");
    EXPECT_EQ(ParseHeight(page), u"5' 7 (1.70 m) ");
}

TEST(MatchingNames, AreTheFirstListAloneAndFewerThanAHundred)
{
    const QString page = FlattenPage(FetchedPage("matches"));
    EXPECT_TRUE(IsMatchingNamesPage(page));
    EXPECT_EQ(ParseActorMatches(page), (QList<ActorMatch>{{u"M&#252;ller, Ada"_s, u"nm0900001"_s, u"(director, born 1950)"_s},
                                                          {u"M&#252;ller, Ada"_s, u"nm0900101"_s, u"()"_s},
                                                          {u"M&#252;ller, Ada"_s, u"nm0900102"_s, u""_s}}));
    const QString row = u"<LI><A HREF=\"/name/nm1/\">A</A> (b)</LI>"_s;
    const auto countOf = [&](int rows) {
        const auto matches = ParseActorMatches(QString(u"Matching names..."_s + row.repeated(rows) + u"</OL>"_s));
        return matches ? matches->size() : -1;
    };
    EXPECT_EQ(countOf(0), 0);
    EXPECT_EQ(countOf(99), 99);
    EXPECT_EQ(countOf(100), -1);
    EXPECT_EQ(ErrorOf([] { return ParseActorMatches(u"names"); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([] { return ParseActorMatches(u"Matching names...HREF=\"/name/nm1/\">A</A></OL>"); }), kErrInvalidCall);
}

} // namespace
} // namespace kelvado
