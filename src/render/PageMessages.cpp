#include "render/PageMessages.h"

#include "core/RuntimeError.h"
#include "render/Pages.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace kelvado {

namespace {

constexpr std::array<QLatin1StringView, 3> kOutsideSchemes{
    {QLatin1StringView("http"), QLatin1StringView("https"), QLatin1StringView("mailto")}};

const QString& Part(const QStringList& parts, qsizetype index)
{
    if (index >= parts.size())
        throw RuntimeError(kErrSubscript);
    return parts[index];
}

} // namespace

void PageMessages::OnClick(const PageClick& click)
{
    if (click.id.contains(QLatin1StringView("SendMessage"))) {
        HandlePageMessage(click.id, click.controlDown);
        return;
    }
    // The page's own script takes care of these.
    if (click.id.contains(QLatin1StringView("javascript")))
        return;
    if (click.tagName.compare(QLatin1StringView("A"), Qt::CaseInsensitive) != 0)
        return;
    const QUrl address(click.href);
    if (std::find(kOutsideSchemes.begin(), kOutsideSchemes.end(), address.scheme()) != kOutsideSchemes.end())
        m_host.OpenOutside(address);
}

void PageMessages::OnContextMenu()
{
    m_host.ShowFilmMenu();
}

void PageMessages::HandlePageMessage(const QString& id, bool controlDown)
{
    const QStringList parts = id.split(u':');
    const QString& command = Part(parts, 1);
    if (command == QLatin1StringView("GOTO")) {
        m_host.SelectNode(u'"' + Part(parts, 2) + u'\n' + Part(parts, 3) + u'"');
        m_host.ShowSelection();
    } else if (command == QLatin1StringView("PAGE_CREDITS")) {
        if (controlDown)
            m_host.PopupMenuAtCursor();
        else
            m_pages.ShowCreditsPage(Part(parts, 2)); // which also navigates to the page
    }
    // PAGE_NFO and ACTORID are known to templates and stand for nothing yet.
}

} // namespace kelvado
