#include "core/Conversions.h"

#include "support/ErrorOf.h"

namespace kelvado {
namespace {

TEST(Conversions, KnowWhichTextsAreNumbers)
{
    for (const char16_t* text : {u"0", u" 12 ", u"-3", u"+4", u"1,234.5", u".5", u"5.", u"1e3", u"1E-3", u"1d2"})
        EXPECT_TRUE(IsNumeric(text)) << qPrintable(QString::fromUtf16(text));
    for (const char16_t* text : {u"", u" ", u"abc", u"1-", u"--1", u"1.2.3", u"e5", u"1e", u"1e+", u"12a", u",1", u"x41", u"7/10"})
        EXPECT_FALSE(IsNumeric(text)) << qPrintable(QString::fromUtf16(text));
}

TEST(Conversions, RoundTiesToEvenAndGuardTheRange)
{
    const std::pair<const char16_t*, std::int32_t> cases[] = {
        {u"2.5", 2}, {u"3.5", 4}, {u"-2.5", -2}, {u"-1.5", -2}, {u"2147483647.4", 2147483647}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(ToLong(text), number) << number;
    EXPECT_EQ(ErrorOf([] { ToLong(u"2147483647.5"); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([] { ToLong(u""); }), kErrTypeMismatch);
    EXPECT_EQ(ToCurrency(u"12.34565").tenThousandths, 123456);
    EXPECT_EQ(CurrencyText({-125000}), u"-12.5");
    EXPECT_EQ(CurrencyText(ToCurrency(u"1,234.5")), u"1234.5");
}

TEST(Conversions, ShowNumbersAndDatesAsTheCatalogDoes)
{
    EXPECT_EQ(NumberText(8), u"8");
    EXPECT_EQ(NumberText(-0.0), u"0");
    EXPECT_EQ(NumberText(23.976), u"23.976");
    EXPECT_EQ(DateText(ZeroDate()), u"");
    EXPECT_EQ(DateText(QDate(2026, 1, 9)), u"2026-01-09");
    EXPECT_FALSE(DateFromText(u"2026-1-9"));
}

TEST(Conversions, TakeTextsForTruth)
{
    EXPECT_TRUE(ToBoolean(u"true") && ToBoolean(u"-1") && !ToBoolean(u"0"));
    EXPECT_EQ(ErrorOf([] { ToBoolean(u"yes"); }), kErrTypeMismatch);
    EXPECT_TRUE(EqualsTrue(u"-1") && EqualsTrue(u"True") && !EqualsTrue(u"1") && !EqualsTrue(u""));
}

TEST(DecodeEntities, ReadsDecimalCodesOfTheCodePageAndStopsAtTheFirstItCannotRead)
{
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"K&#246;nig &#38; K&#246;nigin", u"König & Königin"},
        {u"price &#128;5", u"price €5"},
        {u"&#38;#65;", u"A"},                 // what comes out is read again
        {u"a; b &#246; c", u"a; b &#246; c"}, // the first ";" stands in front
        {u"&#246; &#x41; &#228;", u"ö &#x41; &#228;"},
        {u"&#300;&#127909; &#65 ;", u"Ĭ🎥 A"},
        {u"&#55357;&#246;", u"&#55357;&#246;"},
        {u"&#1114112;&#246;", u"&#1114112;&#246;"},
        {u"&#246", u"&#246"},
        {u"&amp;", u"&amp;"},
    };
    for (const auto& [text, decoded] : cases)
        EXPECT_EQ(DecodeEntities(QString::fromUtf16(text)), QString::fromUtf16(decoded));
    QString many;
    for (int i = 0; i < 600; ++i)
        many += u"&#65.%1;"_s.arg(1000 + i);
    EXPECT_TRUE(DecodeEntities(many).startsWith(QString(512, u'A') + u"&#65.1512;"_s));
    const QString far = QString(32768, u'x') + u"&#246;"_s;
    EXPECT_EQ(DecodeEntities(far), far);
}

} // namespace
} // namespace kelvado
