#include "web/readers/mIMDBPlotParse.h"

#include "web/readers/WebText.h"

namespace kelvado {

QString ParsePlotOutline(QStringView text)
{
    constexpr QStringView kLabel = u"Outline:</b>";
    const PageText page(text);
    // A missing label counts as one at place 0. The blank behind the label belongs to the plot, but is never taken for its end.
    const Place blank = page.Find(kLabel) + kLabel.size();
    return FlattenPage(page.Cut(blank, page.Find(u"<", blank + 1)));
}

QString ParsePlotPage(QStringView text)
{
    const PageText page(text);
    const Place start = page.FindBehind(u"<p class=\"plotpar\">");
    return start == kNowhere ? QString() : FlattenPage(page.Cut(start, page.Find(u"</p>", start)));
}

} // namespace kelvado
