#include "core/WindowLayout.h"

#include "core/RuntimeError.h"

#include <gtest/gtest.h>

namespace kelvado {
namespace {

TEST(WindowLayout, TheSplitterStaysBetweenElevenAndEightyNinePerCent)
{
    EXPECT_EQ(DraggedSplitterPercent(1000, 50, 10000), std::nullopt); // 10.5 rounds to the even 10
    EXPECT_EQ(DraggedSplitterPercent(1000, 51, 10000), 11);
    EXPECT_EQ(DraggedSplitterPercent(8000, 949, 10000), 89);
    EXPECT_EQ(DraggedSplitterPercent(9000, 0, 10000), std::nullopt);
    EXPECT_THROW(SplitterPercent(100, 0), RuntimeError);
}

TEST(WindowLayout, PanesAndTabRowFollowTheirInsets)
{
    const PaneLayout panes = LayOutPanes(25, 19200, 0, 90);
    EXPECT_TRUE(panes.leftWidth == 4770 && panes.splitterLeft == 4770 && panes.rightLeft == 4860 && panes.rightWidth == 14280);
    EXPECT_EQ(TabSpacerWidth(10000, 8000), 1880);
    EXPECT_EQ(TabSpacerWidth(10000, 9880), 0);
    EXPECT_EQ(TabSpacerWidth(10000, 9881), 60);
}

} // namespace
} // namespace kelvado
