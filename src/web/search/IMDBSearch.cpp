#include "web/search/IMDBSearch.h"

#include "core/Afterwards.h"
#include "core/Conversions.h"
#include "core/Literals.h"
#include "web/readers/WebText.h"
#include "web/readers/mIMDBTitleParse.h"

namespace kelvado {

namespace {

constexpr QStringView kAka = u"&#160;aka";
constexpr int kMostRows = 50;
constexpr qsizetype kLongestTitle = 37;
constexpr QLatin1StringView kCutMark = " ..."_L1;

QString RowText(QString title, const QString& number)
{
    title = DecodeEntities(title);
    return ShortenTitle(title) + u'\t' + number;
}

void AddTitlePage(const PageText& page, QStringView text, QList<SearchRow>& lstSearch)
{
    const QString title = page.Cut(page.FindBehind(u"<title>"), page.Find(u"</title>"));
    lstSearch.append({.Text = RowText(title, ParseTitleNumber(text))});
}

void ReadSearchPage(QString& page, QList<SearchRow>& lstSearch, QStringList& lstAka, Dialogs& dialogs)
{
    if (HasNoMatches(page)) {
        dialogs.MessageBox(u"Sorry There Were No Matches Found"_s, kBoxPlain);
        return;
    }
    const PageText text(page);
    if (IsTitlePage(page)) {
        AddTitlePage(text, page, lstSearch);
        return;
    }

    Place cursor = 1;
    for (int row = 0; row < kMostRows; ++row) {
        const Place link = text.Find(u"<a href=\"/title/tt", cursor);
        if (link == kNowhere)
            return;
        const Place number = text.FindBehind(u"<a href=\"/title/tt", link);
        const QString digits = text.CutShort(number, text.Find(u"</a><", link), kNumberDigits);
        const Place start = text.FindBehind(u"\">", link);
        cursor = text.Find(u"</li>", start);
        const QString hit = text.Cut(start, cursor);
        const QString akaTitles = hit.contains(kAka) ? CollectAkaTitles(hit, 0) : QString();

        QString title = hit.left(hit.indexOf("<br>"_L1));
        lstSearch.append({.Text = RowText(title.remove("</a>"_L1), digits)});
        if (!akaTitles.isEmpty()) {
            lstSearch.last().AkaRow = lstAka.size();
            lstAka.append(akaTitles);
        }
    }
    page.clear();
}

} // namespace

QString ShortenTitle(QString& text)
{
    if (text.size() < kLongestTitle)
        return text;
    text.truncate(kLongestTitle);
    return text + kCutMark;
}

bool IsShortened(QStringView text)
{
    return text.size() == kLongestTitle + kCutMark.size() && text.endsWith(kCutMark);
}

bool IsTitlePage(QStringView page)
{
    return page.contains(u"Genre:</b>");
}

bool HasNoMatches(QStringView page)
{
    return PageText(page).Find(u"Sorry there were no matches for the title") > 1;
}

QString CollectAkaTitles(QStringView text, qsizetype start)
{
    constexpr qsizetype kStep = 4;
    const PageText row(text);
    QString titles;
    Place aka = row.Find(kAka, start + kStep);
    while (aka != kNowhere) {
        const Place title = row.FindBehind(u"<em>", aka);
        const Place titleEnd = row.Find(u"</em>", title);
        titles.append(u'\n').append(row.Cut(title, titleEnd));
        aka = row.Find(kAka, titleEnd + kStep);
    }
    titles.remove(u'"').remove("<B>"_L1).remove("</B>"_L1);
    return DecodeEntities(titles);
}

void ParseSearchPage(QString& page, QList<SearchRow>& lstSearch, QStringList& lstAka, Shell& shell, Dialogs& dialogs)
{
    shell.ShowWorking(true);
    Afterwards([&] { ReadSearchPage(page, lstSearch, lstAka, dialogs); }, [&] { shell.ShowWorking(false); });
}

} // namespace kelvado
