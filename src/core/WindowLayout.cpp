#include "core/WindowLayout.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"

namespace kelvado {

namespace {

constexpr int kLeastPercent = 11;
constexpr int kMostPercent = 89;
constexpr int kLeftPaneInset = 30;
constexpr int kRightPaneInset = 60;
constexpr int kTabRowInset = 120;
constexpr int kLeastSpacer = 60;

} // namespace

int SplitterPercent(int leftPaneTwips, int windowTwips)
{
    if (windowTwips == 0)
        throw RuntimeError(kErrDivisionByZero);
    return static_cast<int>(RoundHalfEven(100.0 * leftPaneTwips / windowTwips));
}

std::optional<int> DraggedSplitterPercent(int barLeft, int pointerX, int windowTwips)
{
    const int percent = SplitterPercent(barLeft + pointerX, windowTwips);
    return percent >= kLeastPercent && percent <= kMostPercent ? std::optional(percent) : std::nullopt;
}

PaneLayout LayOutPanes(int percent, int windowTwips, int leftPaneLeft, int splitterWidth)
{
    PaneLayout panes{};
    panes.leftWidth = percent * windowTwips / 100 - kLeftPaneInset;
    panes.splitterLeft = leftPaneLeft + panes.leftWidth;
    panes.rightLeft = panes.splitterLeft + splitterWidth;
    panes.rightWidth = windowTwips - panes.rightLeft - kRightPaneInset;
    return panes;
}

int TabSpacerWidth(int windowTwips, int fixedTwips)
{
    const int width = windowTwips - fixedTwips - kTabRowInset;
    return width < 0 ? kLeastSpacer : width;
}

} // namespace kelvado
