#include "web/search/TitleSearch.h"

#include "core/Conversions.h"
#include "core/Paths.h"
#include "web/readers/WebText.h"
#include "web/readers/mIMDBTitleParse.h"

namespace kelvado {

using namespace Qt::StringLiterals;

// However a search ends, the next one can begin; a locked one stays so.
class TitleSearch::Running
{
public:
    explicit Running(TitleSearch& search) : m_search(search)
    {
        search.m_running = search.m_waiting = true;
        search.m_rows.clear();
        search.m_onChange();
    }
    ~Running()
    {
        m_search.m_waiting = false;
        m_search.m_running = m_locked;
        m_search.m_onChange();
    }
    Q_DISABLE_COPY_MOVE(Running)

    void Lock() { m_locked = true; }

private:
    TitleSearch& m_search;
    bool m_locked = false;
};

TitleSearch::TitleSearch(FilmDesk& desk, std::function<void()> onChange) : m_desk(desk), m_onChange(std::move(onChange)) {}

void TitleSearch::Search(const QString& title)
{
    if (m_running)
        return;
    const FetchTurn turn(m_desk);
    if (!TakeTurn(turn, m_desk.dialogs))
        return;
    const Running running(*this);
    m_otherTitles.append(u"blah"_s);
    QString page = Fetch("/Tsearch?title="_L1 + title + "&type=substring&from_year=1890&to_year=2009&sort=smart&tv=off&x=20&y=9"_L1);
    ParseSearchPage(page, m_rows, m_otherTitles, m_desk.shell, m_desk.dialogs);
}

void TitleSearch::LookUp(const QString& number)
{
    if (number.size() != kNumberDigits || !IsNumeric(number)) {
        m_desk.dialogs.MessageBox(
            u"The iMDB title code you have entered is either not numeric or is not seven digits. Please re-enter the title code."_s,
            kBoxPlain);
        return;
    }
    if (m_running) {
        Unlock();
        return m_onChange();
    }
    const FetchTurn turn(m_desk);
    if (!TakeTurn(turn, m_desk.dialogs))
        return;
    Running running(*this);
    const QString page = Fetch("/Title?"_L1 + number);
    if (page.isEmpty())
        return; // the connection failed, which was told
    const auto sayInvalid = [this] {
        m_desk.dialogs.MessageBox(u"You have entered an Invalid IMDb title code.  Please re-enter the title code"_s, kBoxPlain);
    };
    const PageText text(page);
    const Place begin = text.FindBehind(u"<title>");
    if (begin == kNowhere) {
        running.Lock();
        return sayInvalid();
    }
    const QString title = text.Cut(begin, text.Find(u"</title>"));
    if (title.contains(number))
        return sayInvalid();
    m_rows.append({.Text = title + u'\t' + number});
}

void TitleSearch::Clear()
{
    m_rows.clear();
    m_otherTitles.clear();
}

QString TitleSearch::Fetch(const QString& url)
{
    return FlattenPage(m_desk.transport.Get_HTML("http://"_L1 + ReadWebHosts(SettingsFile()).ImdbSearchHost + url));
}

} // namespace kelvado
