#include "PageReaders.h"
#include "WebPages.h"

namespace kelvado {
namespace {

class SearchPage : public ::testing::Test
{
protected:
    QList<SearchRow>& Search(const QString& page)
    {
        m_page = FlattenPage(page);
        ParseSearchPage(m_page, m_rows, m_akaTitles, m_shell, m_dialogs);
        return m_rows;
    }

    static QString Hit(int number, const QString& title)
    {
        return u"<li><a href=\"/title/tt%1/\">%2</li></a><br>"_s.arg(number, 7, 10, QChar(u'0')).arg(title);
    }

    QString m_page;
    QList<SearchRow> m_rows;
    QStringList m_akaTitles{u"blah"_s};
    RecordingShell m_shell;
    ScriptedDialogs m_dialogs;
};

TEST_F(SearchPage, ListsTheHitsAndTheirOtherTitles)
{
    EXPECT_EQ(Search(FetchedPage("search")), (QList<SearchRow>{{u"The L\u00F6wen Affair (1987/II) (TV)\t0912345"_s, 1},
                                                               {u"Another Affair (1990)\t0912346"_s, 0},
                                                               {u"A Very Long Affair of the Town of Lio ...\t0912347"_s, 2}}));
    EXPECT_EQ(m_akaTitles, (QStringList{u"blah"_s, u"\nDie L\u00F6wen-Aff\u00E4re\nThe Lion Affair"_s, u"\nLong Affair"_s}));
    EXPECT_EQ(m_shell.calls, (QStringList{u"ShowWorking 1"_s, u"ShowWorking 0"_s}));
    EXPECT_FALSE(m_page.isEmpty());

    // A second search counts its rows behind those that are already there.
    m_rows.clear();
    EXPECT_EQ(Search(FetchedPage("search"))[0].AkaRow, 3);
}

TEST_F(SearchPage, TakesAFilmsOwnPageForItsOnlyHit)
{
    EXPECT_EQ(Search(u"<html><title>Caf&#233; (1999)</title>/title/tt0000042/ <a href=\"/title/tt0000043/\">Genre:</b>"_s),
              (QList<SearchRow>{{u"Caf\u00E9 (1999)\t0000042"_s, 0}}));
    EXPECT_EQ(m_akaTitles.size(), 1);
    // Letter case counts here.
    EXPECT_EQ(ErrorOf([&] { return Search(u"<TITLE>Caf&#233; (1999)</TITLE>Genre:</b>"_s); }), kErrInvalidCall);
    EXPECT_EQ(m_shell.calls.constLast(), u"ShowWorking 0");
}

TEST_F(SearchPage, SaysThatNothingWasFound)
{
    const QString words = u"Sorry there were no matches for the title"_s;
    EXPECT_TRUE(Search(u' ' + words + Hit(1, u"Film</a>"_s)).isEmpty());
    EXPECT_EQ(m_dialogs.boxes, (QList<ScriptedDialogs::Box>{{u"Sorry There Were No Matches Found"_s, kBoxPlain, QString()}}));
    // Words at the very start of a page do not count.
    EXPECT_EQ(Search(words + Hit(1, u"Film</a>"_s)).size(), 1);
    EXPECT_EQ(m_dialogs.boxes.size(), 1);
    EXPECT_EQ(Search(QString()).size(), 1);
}

TEST_F(SearchPage, EndsAtTheFiftiethHit)
{
    QString page;
    for (int i = 1; i <= 49; ++i)
        page += Hit(i, u"Film</a>"_s);
    EXPECT_EQ(Search(page).size(), 49);
    EXPECT_FALSE(m_page.isEmpty());
    m_rows.clear();
    page += Hit(50, u"Last</a>"_s) + Hit(51, u"Over</a>"_s);
    EXPECT_EQ(Search(page).constLast().Text, u"Last\t0000050");
    EXPECT_EQ(m_rows.size(), 50);
    EXPECT_TRUE(m_page.isEmpty());
}

TEST_F(SearchPage, ShortensTitlesOf37Characters)
{
    QString kept(36, u'x'), cut(38, u'x');
    EXPECT_EQ(ShortenTitle(kept), QString(36, u'x'));
    EXPECT_EQ(ShortenTitle(cut), QString(37, u'x') + " ..."_L1);
    EXPECT_EQ(cut.size(), 37);
    // Entities are decoded before the length is looked at.
    EXPECT_EQ(Search(Hit(1, QString(35, u'x') + "&#233;</a>"_L1))[0].Text, QString(35, u'x') + u"\u00E9\t0000001"_s);
}

TEST_F(SearchPage, FailsOnAHitThatIsNotClosedAndKeepsTheRowsBefore)
{
    const QString good = Hit(1, u"Film</a>"_s);
    for (const QStringView broken :
         {u"<a href=\"/title/tt0000002/\">Film</li>", u"<a href=\"/title/tt0000002/\">Film</a><br>", u"<a href=\"/title/tt0000002</a><br>",
          u"<a href=\"/title/tt2\">Film&#160;aka <em>x</a></li></a><br>"}) {
        m_rows.clear();
        EXPECT_EQ(ErrorOf([&] { return Search(good + broken.toString()); }), kErrInvalidCall) << qPrintable(broken.toString());
        EXPECT_EQ(m_rows.size(), 1);
        EXPECT_EQ(m_shell.calls.constLast(), u"ShowWorking 0");
    }
}

TEST(AkaTitles, BeginAtTheFourthCharacter)
{
    EXPECT_EQ(CollectAkaTitles(u"x&#160;aka <em>A</em>", 0), u"");
    EXPECT_EQ(CollectAkaTitles(u"xyz&#160;aka <em>A</em>abc&#160;aka <em>B</em>", 0), u"\nA\nB");
    EXPECT_EQ(CollectAkaTitles(u"xyz&#160;aka <em>A</em>abc&#160;aka <em>B</em>", 1), u"\nB");
}

} // namespace
} // namespace kelvado
