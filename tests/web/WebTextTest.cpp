#include "PageReaders.h"

namespace kelvado {
namespace {

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
