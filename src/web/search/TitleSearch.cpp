#include "web/search/TitleSearch.h"

#include "core/Afterwards.h"
#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/WebHosts.h"
#include "web/readers/WebText.h"
#include "web/readers/mIMDBTitleParse.h"

namespace kelvado {

TitleSearch::TitleSearch(FilmDesk& desk, std::function<void()> onChange) : m_desk(desk), m_onChange(std::move(onChange)) {}

void TitleSearch::Search(const QString& title)
{
    if (m_running)
        return;
    Run([&] {
        m_otherTitles.append(u"blah"_s);
        QString page = Fetch("/Tsearch?title="_L1 + title + "&type=substring&from_year=1890&to_year=2009&sort=smart&tv=off&x=20&y=9"_L1);
        ParseSearchPage(page, m_rows, m_otherTitles, m_desk.shell, m_desk.dialogs);
        return true;
    });
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
    Run([&] { return FindNumber(number); });
}

void TitleSearch::Stop()
{
    if (m_waiting)
        m_desk.transport.Abort();
}

void TitleSearch::Run(const std::function<bool()>& work)
{
    const std::optional<FetchTurn> turn = TakeTurn(m_desk);
    if (!turn)
        return;
    m_running = m_waiting = true;
    m_rows.clear();
    m_onChange();
    // However a search ends, the next one can begin; a locked one stays so.
    bool free = true;
    Afterwards([&] { free = work(); },
               [&] {
                   m_waiting = false;
                   m_running = !free;
                   m_onChange();
               });
}

bool TitleSearch::FindNumber(const QString& number)
{
    const QString page = Fetch("/Title?"_L1 + number);
    const auto sayInvalid = [this] {
        m_desk.dialogs.MessageBox(u"You have entered an Invalid IMDb title code.  Please re-enter the title code"_s, kBoxPlain);
    };
    if (page.isEmpty()) {
        if (!m_desk.transport.FailureTold())
            sayInvalid();
        return true;
    }
    const PageText text(page);
    const Place begin = text.FindBehind(u"<title>");
    if (begin == kNowhere) {
        sayInvalid();
        return false;
    }
    const QString title = text.Cut(begin, text.Find(u"</title>"));
    if (title.contains(number))
        sayInvalid();
    else
        m_rows.append({.Text = title + u'\t' + number});
    return true;
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
