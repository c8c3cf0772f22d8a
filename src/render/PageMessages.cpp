#include "render/PageMessages.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "render/Pages.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace kelvado {

namespace {

constexpr std::array<QLatin1StringView, 3> kOutsideSchemes{{"http"_L1, "https"_L1, "mailto"_L1}};

const QString& Part(const QStringList& parts, qsizetype index)
{
    if (index >= parts.size())
        throw RuntimeError(kErrSubscript);
    return parts[index];
}

} // namespace

void PageMessages::OnClick(const PageClick& click)
{
    if (click.id.contains("SendMessage"_L1)) {
        HandlePageMessage(click.id, click.controlDown);
        return;
    }
    // The page's own script takes care of these.
    if (click.id.contains("javascript"_L1))
        return;
    if (click.tagName.compare("A"_L1, Qt::CaseInsensitive) != 0)
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
    if (command == "GOTO"_L1) {
        m_host.SelectNode(u'"' + Part(parts, 2) + u'\n' + Part(parts, 3) + u'"');
        m_host.ShowSelection();
    } else if (command == "PAGE_CREDITS"_L1) {
        if (controlDown)
            m_host.PopupMenuAtCursor();
        else
            m_pages.ShowCreditsPage(Part(parts, 2)); // which also navigates to the page
    }
    // PAGE_NFO and ACTORID are known to templates and stand for nothing yet.
}

} // namespace kelvado
