#include "PageReaders.h"
#include "WebPages.h"

namespace kelvado {
namespace {

QString Row(const QString& name, const QString& cell)
{
    return "<tr><td valign=\"top\"><A HREF=\"/name/nm"_L1 + name + "/\">"_L1 + name + "</A></td><td VALIGN=\"top\">"_L1 + cell +
           "</td></tr>"_L1;
}

TEST(CreditsPage, TellsThePeopleOfEachSection)
{
    const QString page = FlattenPage(FetchedPage("credits"));
    EXPECT_EQ(
        Lines(ParseActors(page), &FilmPerson::Character),
        (QStringList{u"Bo Ek|nm0900002|Keeper"_s, u"Flo H&#233;l|nm0900031|The Lion (as Flora H&#233;l)"_s, u"Gus Ito|nm0900032|"_s}));
    EXPECT_EQ(Lines(ParseDirectors(page)), (QStringList{u"Ada M&#252;ller|nm0900001|"_s, u"Cy Dent|nm0900011|(uncredited)"_s}));
    EXPECT_EQ(Lines(ParseProducers(page)),
              (QStringList{u"Hal Jay|nm0900041/|executive producer"_s, u"Ada M&#252;ller|nm0900001/|producer &#38; more"_s}));
    EXPECT_EQ(Lines(ParseWriters(page)),
              (QStringList{u"Dee Fox|nm0900021|(novel \"L&#246;wen\")"_s, u"Eve Gray|nm0900022|(screenplay) and"_s}));
    EXPECT_EQ(ParseActors(page)->constFirst().Extended, u"");
}

TEST(CreditsPage, AMissingSectionIsNoListAndOneWithoutItsTableAnEmptyOne)
{
    const struct
    {
        decltype(&ParseActors) parse;
        QString marker;
    } sections[] = {{ParseActors, u"Cast</b></a>"_s},
                    {ParseDirectors, u"Directed by</b></a>"_s},
                    {ParseProducers, u"Produced by</b></a>"_s},
                    {ParseWriters, u"Writing credits</b></a>"_s}};
    for (const auto& [parse, marker] : sections) {
        EXPECT_FALSE(parse(QString(marker.toLower() + Row(u"A"_s, u"x"_s) + "</table>"_L1))) << qPrintable(marker);
        EXPECT_EQ(Lines(parse(QString(marker + Row(u"A"_s, u"x"_s)))), QStringList()) << qPrintable(marker);
        EXPECT_EQ(Lines(parse(QString(marker + "</table></a>"_L1))), QStringList()) << qPrintable(marker);
        // A page that ends with its last row lacks the link that tells the end.
        EXPECT_EQ(ErrorOf([&] { return parse(QString(marker + Row(u"A"_s, u"x"_s) + "</table>"_L1)); }), kErrInvalidCall);
    }
}

TEST(CreditsPage, EachWriterInFrontOfTheGuildSkipsAClosingTag)
{
    const QString rows = Row(u"A"_s, u"a"_s) + Row(u"B"_s, u"b"_s) + Row(u"C"_s, u"c"_s);
    const QString page = "Writing credits</b></a>"_L1 + rows + "</table></a></td><td valign=\"top\">end</td></a> "_L1;
    EXPECT_EQ(Lines(ParseWriters(page)), (QStringList{u"A|nmA|a"_s, u"B|nmB|b"_s, u"C|nmC|c"_s}));
    // The first name runs on to the second link, and the last one beyond the table, which ends the list.
    const QStringList skipped = Lines(ParseWriters(QString(page + "wga"_L1)));
    ASSERT_EQ(skipped.size(), 2);
    EXPECT_TRUE(skipped[0].startsWith(u"A</A></td>") && skipped[0].endsWith(u">B|nmA|b")) << qPrintable(skipped[0]);
    EXPECT_TRUE(skipped[1].startsWith(u"C</A></td>") && skipped[1].endsWith(u"</table>|nmC|end")) << qPrintable(skipped[1]);
    // The guild's own link in front of the rows takes that step.
    const QString tail = "</table></a></td><td valign=\"top\">end</td></a> "_L1;
    EXPECT_EQ(Lines(ParseWriters(QString("Writing credits</b></a>WGA</a>"_L1 + rows + tail))),
              (QStringList{u"A|nmA|a"_s, u"B|nmB|b"_s, u"C|nmC|c"_s}));
}

TEST(CreditsPage, TheCellBeginsBehindTheName)
{
    const QString tail = "</table></a></td><td valign=\"top\">end</td></a> "_L1;
    const QString near = u"<a href=\"/name/nmC/\">C</a><td valign=\"top\">near</td><td valign=\"top\">c</td>"_s;
    EXPECT_EQ(Lines(ParseActors(QString("Cast</b></a>"_L1 + near + tail)), &FilmPerson::Character), QStringList{u"C|nmC|c"_s});
}

TEST(CreditsPage, DirectorsGoOnThroughRowsThatCannotBeRead)
{
    // No link of a person, and a cell that holds a stray bracket.
    const QString rows = u"<a href=\"/company/\">X</a></td><td valign=\"top\">x</td>"_s + Row(u"A"_s, u"a > b <i>"_s) + Row(u"B"_s, u"b"_s);
    const QString tail = "</table></a>"_L1;
    EXPECT_EQ(Lines(ParseDirectors(QString("Directed by</b></a>"_L1 + rows + tail))),
              (QStringList{u"|nmA|x"_s, u"A|nmA|"_s, u"B|nmB|b"_s}));
    EXPECT_EQ(ErrorOf([&] { return ParseActors(QString("Cast</b></a>"_L1 + rows + tail)); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([&] { return ParseDirectors(QString("Directed by</b></a><a href=\"/name/nmA/\">A</a>"_L1 + tail)); }),
              kErrInvalidCall);
}

// Each row's link would run to the only end of a link, which stands behind the last row: gigabytes for a page of this size.
TEST(CreditsPage, ALinkWithoutItsEndIsCut)
{
    const QString row = u"<a href=\"/name/nmA\">A</a></td><td valign=\"top\">x</td>"_s;
    const auto people = ParseDirectors(QString("Directed by</b></a>"_L1 + row.repeated(20'000) + "</table></a><a href=\"/\">"_L1));
    ASSERT_EQ(people->size(), 20'000);
    EXPECT_EQ(people->constFirst().IMDB_Link.size(), 1000);
}

TEST(PlotPage, GivesItsFirstParagraphFlatAndWithTags)
{
    EXPECT_EQ(ParsePlotPage(FetchedPage("plot")), u"A lion keeper and his daughter <a href=\"/name/nm0900031/\">Flo</a> losea circus &#38; "
                                                  u"finda town. Written by <a href=\"/SearchPlotWriters?x\">A. Visitor</a>");
    EXPECT_EQ(ParsePlotPage(u"<p class=\"plot\">x</p>"), u"");
    EXPECT_EQ(ErrorOf([] { return ParsePlotPage(u"<p class=\"plotpar\">x"); }), kErrInvalidCall);
}

TEST(CompaniesPage, JoinsTheThreeSectionsInAFixedOrder)
{
    EXPECT_EQ(Lines(ParseCompanies(FlattenPage(FetchedPage("companies")))),
              (QStringList{u"Production|Zirkus Film| (in association with)"_s, u"Production|Ada &#38; Co.|"_s,
                           u"Distributor|Nord Verleih| (1987) (Germany)"_s, u"Distributor|S&#252;d Film|"_s,
                           u"Special Effects|Rauch GmbH| (lions)"_s}));
}

TEST(CompaniesPage, FailsOnARowThatIsNotClosed)
{
    EXPECT_EQ(Lines(ParseCompanies(u"")), QStringList());
    EXPECT_EQ(Lines(ParseCompanies(u"Distributors</h2><a href=\"x\">A</a></li>")), QStringList());
    EXPECT_EQ(Lines(ParseCompanies(u"Distributors</h2><a href=\"x\">A</a> b</a>c</li>\"></ul></li>")), QStringList{u"Distributor|A| b"_s});
    const std::pair<QString, int> broken[] = {{u""_s, kErrInvalidCall},
                                              {u"<a href=\"x\">A</li></ul>\">"_s, kErrSubscript},
                                              {u"<a href=\"x\"></li></ul>\">"_s, kErrSubscript},
                                              {u"<a href=\"x\">A</a></ul>\">"_s, kErrInvalidCall},
                                              {u"<a href=\"x\">A</a></li></ul>"_s, kErrInvalidCall}};
    for (const auto& [rows, error] : broken)
        EXPECT_EQ(ErrorOf([&] { return ParseCompanies(QString("Distributors</h2>"_L1 + rows)); }), error) << qPrintable(rows);
}

} // namespace
} // namespace kelvado
