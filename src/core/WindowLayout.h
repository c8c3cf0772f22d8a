#pragma once

#include <optional>

namespace kelvado {

/// Widths of the main window are kept in twips: 15 of them make one pixel at 100 % scale.
inline constexpr int kTwipsPerPixel = 15;

/// The left pane's share of the window in whole per cent. Raises `kErrDivisionByZero` for a window without width.
int SplitterPercent(int leftPaneTwips, int windowTwips);

/// The splitter's new percentage while it is dragged: the pointer stands at `barLeft + pointerX` of a window `windowTwips` wide.
/// Nothing where the pane would fall below 11 or rise above 89 per cent; the bar then stays.
std::optional<int> DraggedSplitterPercent(int barLeft, int pointerX, int windowTwips);

/// The panes of a window `windowTwips` wide, all in twips.
struct PaneLayout
{
    int leftWidth;
    int splitterLeft;
    int rightLeft;
    int rightWidth;
};
PaneLayout LayOutPanes(int percent, int windowTwips, int leftPaneLeft, int splitterWidth);

/// The width of the piece that fills the tab row between the last tab and the right end. `fixedTwips` is the sum of the other pieces.
int TabSpacerWidth(int windowTwips, int fixedTwips);

} // namespace kelvado
