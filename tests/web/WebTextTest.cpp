#include "PageReaders.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

using namespace Qt::StringLiterals;

TEST(PageText, CountsFromOneAndFailsFromNowhere)
{
    const PageText page(u"abcABC");
    EXPECT_EQ(page.Find(u"a"), 1);
    EXPECT_EQ(page.Find(u"A", 2), 4);
    EXPECT_EQ(page.Find(u"c", 4, Qt::CaseInsensitive), 6);
    EXPECT_EQ(page.Find(u"a", 7), kNowhere);
    EXPECT_EQ(page.FindBehind(u"AB"), 6);
    EXPECT_EQ(page.FindBehind(u"x"), kNowhere);
    EXPECT_EQ(page.FindBack(u"BC", page.End()), 5);
    EXPECT_EQ(page.FindBack(u"BC", 6), kNowhere);
    EXPECT_EQ(page.Cut(6, 7), u"C");
    EXPECT_EQ(page.Cut(9, 12), u"");
    EXPECT_EQ(page.Cut(2, 2), u"");
    EXPECT_EQ(page.Take(5, 9), u"BC");
    EXPECT_EQ(ErrorOf([&] { return page.Find(u"a", kNowhere); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([&] { return page.Cut(3, 2); }), kErrInvalidCall);
    EXPECT_EQ(ErrorOf([&] { return page.Cut(kNowhere, 2); }), kErrInvalidCall);
}

TEST(WebText, FlatPagesJoinTheWordsOfTwoLines)
{
    EXPECT_EQ(FlattenPage(u"one\r\ntwo\n\rthree\tfour \r five"_s), u"onetwothreefour  five");
}

TEST(WebText, TagsGoWithEveryOccurrenceAtOnce)
{
    const struct
    {
        QString text, stripped;
    } cases[] = {
        {u"plain"_s, u"plain"_s},
        {u" <a href=\"/x/\">Name</a> <br>(as <a>N</a>)&nbsp;"_s, u" Name (as N)"_s},
        {u"this &amp; that &lt; &#38;"_s, u"this  that &lt; &#38;"_s},
        {u"&&nbsp;amp;"_s, u""_s},
        // A tag that is cut out of another one leaves that one whole.
        {u"<a>x<b<a>>y"_s, u"xy"_s},
        {u"a<b<c>d"_s, u"ad"_s},
        {u"a > b"_s, u"a > b"_s},
    };
    for (const auto& [text, stripped] : cases)
        EXPECT_EQ(StripTags(text), stripped) << qPrintable(text);
    for (const QString& broken : {u"<"_s, u"a<b"_s, u"><"_s, u"a > <b>"_s, u"<a>x>y<b>"_s})
        EXPECT_EQ(ErrorOf([&] { return StripTags(broken); }), kErrInvalidCall) << qPrintable(broken);
}

} // namespace
} // namespace kelvado
