#include "PageReaders.h"

namespace kelvado {
namespace {

QString Product(const QString& link, const QString& title)
{
    return "<td width=100% valign=top><b><a href="_L1 + link + u'>' + title + "<font>"_L1;
}

QString BestLink(const QString& products, const QString& filmTitle)
{
    QStringList asked;
    GetHiResImage(filmTitle, u"<a href=\"/r\" title=\"DVD available at Amazon.com\">", TestHosts(), [&](const QString& url) {
        asked << url;
        return asked.size() == 1 ? "Sort by:"_L1 + products : QString();
    });
    return asked.size() == 2 ? asked[1].mid(16) : QString();
}

TEST(ShopPages, TheOfferOfADiscOutranksTheTape)
{
    const std::pair<QStringView, std::optional<QString>> cases[] = {
        {u"href=\"/v\" title=\"VHS available at Amazon href=\"/d\" title=\"DVD available at Amazon", u"/d"_s},
        {u"href=\"/v\" title=\"VHS available at Amazon", u"/v"_s},
        {u"href=\"/v\" title=\"DVD unavailable at Amazon", std::nullopt},
        {u"DVD available at Amazon href=\"/d\" title", std::nullopt},
        {u"href=\"/d\"  title=\"DVD available at Amazon", std::nullopt},
        {u"", std::nullopt},
    };
    for (const auto& [page, link] : cases)
        EXPECT_EQ(ParseShopLink(page), link) << qPrintable(page.toString());
}

TEST(ShopPages, ScoreWordsAndLettersThatOccurInAProduct)
{
    const QString page = "results for <"_L1 + Product(u"/full"_s, u"The Cave</a></b>(1987)"_s) + Product(u"/part"_s, u"Caveman DVD"_s) +
                         Product(u"/none"_s, u"Book"_s) + Product(u"/empty"_s, QString());
    const auto rows = ParseCandidates(page, u"the cave (1987)"_s);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0].Link, u"");
    EXPECT_EQ(rows[1].Title, u"The Cave (1987)");
    EXPECT_DOUBLE_EQ(rows[1].Score, 1);
    EXPECT_DOUBLE_EQ(rows[2].Score, 0.5 * (1.0 / 2) + 0.5 * (4.0 / 10));
    EXPECT_DOUBLE_EQ(rows[3].Score, 0);
    EXPECT_DOUBLE_EQ(rows[4].Score, 0);
    // A doubled blank is a word of no letters, which matches everywhere.
    EXPECT_DOUBLE_EQ(ParseCandidates(page, u"x  y"_s)[3].Score, 0.5);
}

TEST(ShopPages, TheFirstOfEqualProductsWinsAndNoMatchIsNone)
{
    const QString products =
        Product(u"/poor-match"_s, u"Cave of many other things"_s) + Product(u"/first"_s, u"Cave"_s) + Product(u"/second"_s, u"Cave"_s);
    EXPECT_EQ(BestLink(products, u"Cave (1987)"_s), u"/first");
    EXPECT_EQ(BestLink(products, u"Zoo"_s), u"");
    EXPECT_EQ(BestLink(Product(u"/abc"_s, u"Cave"_s), u"Cave"_s), u"");
    EXPECT_EQ(BestLink(Product(u"/abcd"_s, u"Cave"_s), u"Cave"_s), u"/abcd");
    EXPECT_EQ(
        BestLink(QString(products).replace("Sort by:"_L1, ""_L1).prepend("<tr valign=top><a href=/book1>Cave zone<font>"_L1), u"zone"_s),
        u"");
}

TEST(ShopPages, AListOpensWithEitherRowAndGoesOnWithOne)
{
    const QString other = u"<tr valign=top><a href=/other>Other<font>"_s;
    const QString row = Product(u"/usual"_s, u"Usual"_s);
    EXPECT_EQ(ParseCandidates("Sort by:"_L1 + other + row + other, {}).size(), 2U);
    EXPECT_EQ(ParseCandidates("Sort by:"_L1 + other + other, {})[1].Link, u"/other");
    EXPECT_TRUE(ParseCandidates(row, {}).empty());
    // Marks of the list's start, the later ones first: the one that outranks the others opens the list wherever it stands.
    for (const auto& [outranked, mark] :
         {std::pair("Sort by:"_L1, "you clicked on this item"_L1), std::pair("Sort by:"_L1, "clicked on this item"_L1),
          std::pair("results for <"_L1, "Sort by:"_L1)})
        EXPECT_EQ(ParseCandidates(QString(outranked + row + mark + row), {}).size(), 2U) << mark.data();
    EXPECT_EQ(ErrorOf([&] { return ParseCandidates("Sort by:"_L1 + row, QString(5000, u' ')); }), kErrInvalidCall);
}

TEST(ShopPages, FailOnAListWithoutProductsAndAProductWithoutItsText)
{
    const std::pair<QStringView, int> lists[] = {{u"Sort by:", kErrSubscript},
                                                 {u"Sort by:<tr valign=top>", kErrSubscript},
                                                 {u"Sort by:<tr valign=top><a href=x", kErrInvalidCall},
                                                 {u"Sort by:<tr valign=top><a href=x>y", kErrInvalidCall}};
    for (const auto& [page, error] : lists)
        EXPECT_EQ(ErrorOf([&] { return ParseCandidates(page, {}); }), error) << qPrintable(page.toString());
}

TEST(ShopPages, TheLargerPictureIsLookedForFrom100CharactersAhead)
{
    const QString link = u"<a href=\"http://pictures.test/l.jpg\">"_s;
    const QString words = u"see larger picture"_s;
    EXPECT_EQ(ParseLargerPicture(u"nothing"), u"");
    EXPECT_EQ(ParseLargerPicture(QString(link.leftJustified(100) + words)), u"http://pictures.test/l.jpg");
    EXPECT_EQ(ErrorOf([&] { return ParseLargerPicture(QString(link.leftJustified(99) + words)); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([&] { return ParseLargerPicture(QString(QString(120, u'x') + words)); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([&] { return ParseLargerPicture(QString(QString(120, u'x') + "href=\"http"_L1 + words)); }), kErrInvalidCall);
}

} // namespace
} // namespace kelvado
