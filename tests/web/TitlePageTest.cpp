#include "PageReaders.h"

namespace kelvado {
namespace {

TEST(TitlePage, NameAndYearLoseTheMarksOfKindAndPlace)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {u"Film (1999)"_s, u"Film"_s, u"1999"_s},
        {u"&#34;Series&#34; (1999)"_s, u"&#34;Series&#34;"_s, u"1999"_s},
        {u"Film (1999/IV) (V)"_s, u"Film"_s, u"1999"_s},
        {u"Film (1999/III)"_s, u"Film"_s, u"1999"_s},
        {u"Film (TV) ( 1999 )"_s, u"Film"_s, u"1999"_s},
        {u"Game (VG) (1999)"_s, u"Game"_s, u"1999"_s},
        {u"War/I/Venice (1999)"_s, u"Warenice"_s, u"1999"_s},
        {u"Film (a) (1999)"_s, u"Film"_s, u"a"_s},
        {u"\tFilm (1999"_s, u"\tFilm"_s, u"1999"_s},
    };
    for (const auto& [title, name, year] : cases) {
        const TitleInfo info = ParseTitleBlock(QString("<Title>"_L1 + title + "</TITLE>"_L1));
        EXPECT_EQ(info.RawTitle, title);
        EXPECT_EQ(info.Name, name) << qPrintable(title);
        EXPECT_EQ(info.Year, year) << qPrintable(title);
    }
}

TEST(TitlePage, TheTitleTagFailsOrMisleadsWhereItIsBroken)
{
    for (const QStringView cut : {u"", u"<title>Film (1999)", u"</title><title>Film (1999)"})
        EXPECT_EQ(ErrorOf([&] { return ParseTitleBlock(cut); }), kErrInvalidCall);
    for (const QStringView bare : {u"<title>Film</title>", u"<title></title>"})
        EXPECT_EQ(ErrorOf([&] { return ParseTitleBlock(bare); }), kErrSubscript);
    EXPECT_EQ(ParseTitleBlock(u"123456Film (1999)</title>").RawTitle, u"Film (1999)");
}

TEST(TitlePage, RatingAndVotesNeedAStarInFront)
{
    const QString head = u"<title>F (1)</title><b>9.9/10</b> (1 votes)"_s;
    EXPECT_EQ(ParseTitleBlock(head).Rating, u"");
    EXPECT_EQ(ParseTitleBlock(head).Votes, u"");
    EXPECT_EQ(ParseTitleBlock(QString(head + "goldstar.gif<b>8.1/10</b> (77 votes)"_L1)).Rating, u"8.1");
    for (const QLatin1StringView broken :
         {"goldstar.gif"_L1, "goldstar.gif<b>8.1"_L1, "goldstar.gif<b>8/10</b>"_L1, "goldstar.gif<b>8/10</b> (5"_L1})
        EXPECT_EQ(ErrorOf([&] { return ParseTitleBlock(QString(head + broken)); }), kErrInvalidCall) << broken.data();
}

TEST(TitlePage, TheCertificateIsTheFirstKnownOneInAFixedOrder)
{
    const std::pair<QStringView, QStringView> cases[] = {
        {u"", u""},
        {u"Rated G, USA:G, rated R", u""},
        {u"Rated NC-17 x", u"NC-17"},
        {u"Rated PGx", u"PG"},
        {u"Rated PG-139", u"PG-13"},
        {u"USA:PG-13 USA:NC-17", u"PG-13"},
        {u"USA:NC-17 USA:PG", u"PG"},
        {u"USA:NC-17", u"NC-17"},
        {u"USA:PG-13 USA:R", u"R"},
        {u"Rated NC-17 and Rated R", u"R"},
        {u"USA:R then Rated PG", u"PG"},
        {u"Rated R then Rated PG-13", u"PG-13"},
        {u"Rated Risky", u"R"},
    };
    for (const auto& [page, rated] : cases)
        EXPECT_EQ(ParseRated(page), rated) << qPrintable(page.toString());
}

TEST(TitlePage, RunTimeNumberAndOutlineAreCutWhateverStandsThere)
{
    EXPECT_EQ(ParseRuntime(u"Runtime:</b> 90 min<br>"), u" 90 min");
    EXPECT_EQ(ParseRuntime(u"<br>runtime:</b>90 min<br>"), u"");
    EXPECT_EQ(ParseTitleNumber(u"x/title/ttabc"), u"abc");
    EXPECT_EQ(ParseTitleNumber(u"12345678ninety-nine"), u"ninety-");
    EXPECT_EQ(ParseTitleNumber(u""), u"");
    EXPECT_EQ(ParsePlotOutline(u"Outline:</b> One\r\n\ttwo <a>"), u" Onetwo ");
    EXPECT_EQ(ParsePlotOutline(u"Outline:</b><i>One</i>"), u"<i>One") << "what stands for the blank never ends the plot";
    EXPECT_EQ(ParsePlotOutline(u"12345678901stray<"), u"stray");
    EXPECT_EQ(ErrorOf([] { return ParseRuntime(u"<br>Runtime:</b> 90 min"); }), kErrInvalidCall);
    for (const QStringView broken : {u"Outline:</b> One", u""})
        EXPECT_EQ(ErrorOf([&] { return ParsePlotOutline(broken); }), kErrInvalidCall);
}

TEST(TitlePage, LanguagesEndAt150Characters)
{
    const auto page = [](qsizetype length) { return QString(u"Sections/Languages/"_s + QString(length - 1, u'x') + "/\">"_L1); };
    EXPECT_EQ(ParseLanguage(page(150)).size(), 150);
    EXPECT_EQ(ParseLanguage(page(151)), u"");
    // Without a language, the text behind the first characters of the page stands in for one.
    EXPECT_EQ(ParseLanguage(u"123456789012345678stray/\">"), u" stray");
    // The reading of the last one would stand still.
    for (const QStringView broken : {u"1234567890123456789", u"Sections/Languages/A/\">Sections/Languages/B", u"123456789012345678/\">"})
        EXPECT_EQ(ErrorOf([&] { return ParseLanguage(broken); }), kErrInvalidCall) << qPrintable(broken.toString());
}

TEST(TitlePage, GenresEndWhereTheListDoes)
{
    const QString link = u"<a href=\"/Sections/Genres/%1/\">%1</a>"_s;
    const QString list = "Genre:</b>"_L1 + link.arg(u"Drama") + " / "_L1 + link.arg(u"War");
    const QString behind = "<br><br>"_L1 + link.arg(u"Later");
    EXPECT_EQ(GenresOf(list + behind), (QStringList{u"Drama"_s, u"War"_s}));
    EXPECT_EQ(GenresOf(list), QStringList{u"Drama"_s});
    EXPECT_EQ(GenresOf(list + link.arg(u"Later")), QStringList{u"Drama"_s});
    EXPECT_EQ(GenresOf(u"no label"_s + link + behind), QStringList());
    EXPECT_EQ(ErrorOf([&] { return ParseGenres(QString(list + "<br><br>"_L1)); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([&] { return ParseGenres(u"Genre:</b><a href=\"/Sections/Genres/Drama/\">"); }), kErrInvalidCall);
    EXPECT_EQ(GenresOf("</a><br><br>"_L1 + list + behind), (QStringList{u"Drama"_s, u"War"_s})) << "only the end behind the label counts";
    // A second link counts from 19 characters behind the first one on, any other from 19 behind the end of the one before it.
    const auto spaced = [&](int second, int third) {
        return GenresOf("Genre:</b>/\">A</a>"_L1 + QString(second - 8, u'.') + "/\">B</a>"_L1 + QString(third - 4, u'.') + "/\">C</a>"_L1 +
                        behind);
    };
    EXPECT_EQ(spaced(19, 19), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    EXPECT_EQ(spaced(18, 19), (QStringList{u"A"_s, u"C"_s}));
    EXPECT_EQ(spaced(19, 18), (QStringList{u"A"_s, u"B"_s}));
}

TEST(TitlePage, ThePosterComesFromTheFirstHostThatIsNamed)
{
    const struct
    {
        QString page, url;
    } cases[] = {
        {u"<img src=\"http://heads.test/Heads/npa.gif\"> \"poster\" http://posters.test/a.jpg\""_s, u""_s},
        {u"/rg/title_noposter2//publicity/ \"poster\" http://posters.test/a.jpg\""_s, u""_s},
        {u"http://posters.test/x.jpg\" name=\"poster\" src=\"http://posters.test/a.jpg \" x"_s, u"http://posters.test/a.jpg"_s},
        {u"http://pictures.test/x.jpg\"> <img src=\"http://oldposters.test/b.jpg\">"_s, u"http://oldposters.test/b.jpg"_s},
        {u"src=\"http://pictures.test/c.jpg\" alt=\"x\"><"_s, u"http://pictures.test/c.jpg"_s},
        {u"src=\"x pictures.test/c.jpg\"><"_s, u"http://pictures.test/c.jpg"_s},
        {u"http://posters.test/a.jpg\" pictures.test/c.jpg\"><"_s, u"http://pictures.test/c.jpg"_s},
    };
    for (const auto& [page, url] : cases)
        EXPECT_EQ(ParsePosterUrl(page, TestHosts()), url) << qPrintable(page);
    for (const QStringView broken : {u"", u"\"poster\"", u"\"poster\" http://oldposters.test/a.jpg\"", u"\"poster\" http://posters.test/a",
                                     u"http://oldposters.test/a", u"pictures.test/a\""})
        EXPECT_EQ(ErrorOf([&] { return ParsePosterUrl(broken, TestHosts()); }), kErrInvalidCall) << qPrintable(broken.toString());
}

} // namespace
} // namespace kelvado
