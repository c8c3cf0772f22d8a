#include "PageReaders.h"
#include "WebPages.h"

#include <QElapsedTimer>

#include <functional>

namespace kelvado {
namespace {

// A failure that is no run-time failure ends the test.
TEST(BrokenPages, EndInAValueOrARunTimeFailure)
{
    for (const PageReader& reader : kPageReaders) {
        for (const PageReader& other : kPageReaders) {
            const QString page = FetchedPage(other.page);
            // Own pages are cut closely among their facts, which follow the noise; the others here and there.
            const qsizetype facts = reader.page == other.page ? page.size() * 2 / 3 : page.size();
            for (qsizetype size = 0; size <= page.size(); size += size < facts ? 199 : 3)
                ASSERT_NO_THROW(reader.read(page.left(size))) << reader.page << " of " << other.page << " cut at " << size;
        }
    }
}

QString Many(int count, const std::function<QString(int number)>& piece)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += piece(i);
    return text;
}

// Pages of a million characters that keep a reader searching or removing; one that reads the rest of the page for each row takes minutes.
TEST(BrokenPages, LargeOnesAreReadInLittleTime)
{
    constexpr int kPieces = 60'000;
    const auto always = [](const QString& piece) { return [piece](int) { return piece; }; };
    const QString cell = u"Directed by</b></a><a href=\"/name/1/\">N</a></td><td valign=\"top\">"_s;
    const QString end = u"</td></table></a>"_s;
    const QString pages[] = {
        cell + Many(kPieces, [](int i) { return u"<b class=%1>x"_s.arg(i); }) + end,
        cell + Many(kPieces, [](int i) { return u"<i%1<b>x"_s.arg(i); }) + end,
        u"Cast</b></a>"_s +
            Many(30,
                 [](int row) {
                     return u"<a href=\"/name/1/\">N</a></td><td valign=\"top\">"_s +
                            Many(4000, [](int i) { return u"<i%1<b>x"_s.arg(i); }) + (row < 29 ? u"</td>"_s : QString());
                 }) +
            end,
        u"<title>"_s + Many(kPieces, [](int i) { return u"&#65.%1;"_s.arg(i, 6, 10, QChar(u'0')); }) +
            u"(1999)</title>/title/tt0000001 Genre:</b>"_s,
        u"Directed by</b></a>"_s + Many(kPieces, always(u"</a>------------- valign=\"top\">--</td>"_s)) + end,
        u"Cast</b></a>"_s + Many(kPieces, always(u"<a href=\"/name/1/\">N</a></td><td valign=\"top\">&amp;</td>"_s)) + end,
        u"Distributors</h2>"_s + Many(kPieces, always(u"<li><a href=\"/c/\">C</a> (note)</li>"_s)) + u"</ul>\"></li>"_s,
        Many(kPieces, always(u"Sections/Languages/English/\">"_s)),
        u"Genre:</b>"_s + Many(kPieces, always(u"<a href=\"/Genres/Drama/\">Drama</a> / "_s)) + u"</a><br><br></a>/\"></a>"_s,
    };
    for (const QString& page : pages) {
        QElapsedTimer clock;
        clock.start();
        for (const PageReader& reader : kPageReaders)
            ASSERT_NO_THROW(reader.read(page));
        EXPECT_LT(clock.elapsed(), 15'000) << qPrintable(page.left(100));
    }
}

} // namespace
} // namespace kelvado
