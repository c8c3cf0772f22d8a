#include "render/pages/PageMessages.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/RuntimeError.h"

#include <QStringList>

namespace kelvado {

namespace {

const QString& Part(const QStringList& parts, qsizetype index)
{
    if (index >= parts.size())
        throw RuntimeError(kErrSubscript);
    return parts[index];
}

} // namespace

PageAction ActionOfClick(const PageClick& click)
{
    if (click.id.contains("SendMessage"_L1))
        return ActionOfMessage(click.id, click.controlDown);
    if (click.id.contains("javascript"_L1) || click.tagName.compare("A"_L1, Qt::CaseInsensitive) != 0)
        return {};
    return {PageAction::Kind::OpenOutside, {}, QUrl(click.href)};
}

PageAction ActionOfMessage(const QString& id, bool controlDown)
{
    using Kind = PageAction::Kind;
    const QStringList parts = id.split(u':');
    const QString& command = Part(parts, 1);
    if (command == "GOTO"_L1)
        return {Kind::GoTo, u'"' + Part(parts, 2) + u'\n' + Part(parts, 3) + u'"', {}};
    if (command == "PAGE_CREDITS"_L1)
        return controlDown ? PageAction{Kind::PopupMenu, {}, {}} : PageAction{Kind::Credits, {}, {}, ToFilmId(Part(parts, 2))};
    if (command == "PAGE_ADD"_L1)
        return {Kind::AddFilms, {}, {}};
    // PAGE_NFO and ACTORID are known to templates and stand for nothing yet.
    return {};
}

} // namespace kelvado
