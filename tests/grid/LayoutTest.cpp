// Where the two grids lie in the control. The numbers are those of the layout's own rules: 255 for a
// horizontal scroll bar, 300 for a vertical one, borders of 15 and 60.
#include <cstdint>
#include <string>

#include "kit/PlacedGrid.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

using Sizes = LayoutSizes;

/// Eight columns of 1000 twips, so that all fit; the total row shown.
class Layout : public PlacedGrid {
  protected:
    Layout() {
        grid.Cols(8);
        setUp();
        layOut();
    }
    void layOut() { desk.resize(Sizes::Width, Sizes::Height); }
    std::int32_t top() const { return grid.totalRowRect().top; }
    /// Gives the columns widths that add up to `total`.
    void widths(std::int32_t total) {
        for (std::int32_t col = 0; col < 7; ++col) grid.ColWidth(col, 1000);
        grid.ColWidth(7, total - 7000);
    }
};

TEST_F(Layout, FillsTheControlWithTheMainGrid) {
    EXPECT_EQ(grid.gridRect(), (Rect{1, 1, Sizes::Width, Sizes::Height}));
    EXPECT_EQ(vs().Width(), Sizes::Width);
    EXPECT_EQ(vs().Height(), Sizes::Height);
    desk.resize(5000, 4000);
    EXPECT_EQ(grid.gridRect(), (Rect{1, 1, 5000, 4000}));
}

TEST_F(Layout, LaysTheTotalRowOverTheBottomEdge) {
    EXPECT_EQ(grid.totalRowRect(), (Rect{0, Sizes::LowTop, Sizes::Width, 330}));
    EXPECT_EQ(sum().Width(), Sizes::Width);
    EXPECT_EQ(sum().Height(), 330);
}

TEST_F(Layout, FillsTheControlAlsoWithoutATotalRow) {
    grid.SumRow(false);
    layOut();
    EXPECT_FALSE(grid.totalRowShown());
    EXPECT_EQ(grid.gridRect(), (Rect{1, 1, Sizes::Width, Sizes::Height}));
    grid.SumRow(true);
    EXPECT_TRUE(grid.totalRowShown());
    EXPECT_EQ(grid.gridRect(), (Rect{1, 1, Sizes::Width, Sizes::Height}));
}

TEST_F(Layout, IsRunForAFreshControl) {
    headless::Desk other;
    kxGrid& fresh = other.place();
    EXPECT_EQ(fresh.gridRect(), (Rect{1, 1, Sizes::Width, Sizes::Height}));
}

TEST_F(Layout, LiftsTheTotalRowWhenTheLastColumnIsOutOfView) {
    widths(12'000);
    grid.ColWidth(6, 5000);
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
}

TEST_F(Layout, LiftsTheTotalRowWhenTheFirstScrollableColumnIsOutOfView) {
    grid.Cols(12);
    vs().LeftCol(vs().MaxLeftCol());
    ASSERT_TRUE(vs().ColIsVisible(11));
    ASSERT_FALSE(vs().ColIsVisible(1));
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
}

TEST_F(Layout, LiftsTheTotalRowFromTheExactWidthOn) {
    widths(8940);
    layOut();
    EXPECT_EQ(top(), Sizes::LowTop);
    widths(8941);
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
    widths(8999);
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
}

TEST_F(Layout, CountsAVerticalBarWhenRowsAreOutOfView) {
    grid.Rows(40);
    widths(8640);
    layOut();
    EXPECT_EQ(top(), Sizes::LowTop);
    widths(8641);
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
    vs().TopRow(vs().MaxTopRow());
    ASSERT_FALSE(vs().RowIsVisible(1));
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
}

TEST_F(Layout, CountsNoVerticalBarWhileAllRowsAreInView) {
    grid.Rows(10);
    widths(8940);
    layOut();
    EXPECT_EQ(top(), Sizes::LowTop);
}

TEST_F(Layout, DoesNotCountHiddenColumns) {
    widths(8500);
    grid.ColWidth(3, 2000);
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
    grid.ColHidden(3, true);
    layOut();
    EXPECT_EQ(top(), Sizes::LowTop);
}

TEST_F(Layout, TakesAHiddenLastColumnForOneOutOfView) {
    grid.ColHidden(7, true);
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
}

TEST_F(Layout, TakesAHiddenFirstScrollableColumnForOneOutOfView) {
    grid.ColHidden(1, true);
    layOut();
    EXPECT_EQ(top(), Sizes::HighTop);
}

TEST_F(Layout, LiftsNothingOverFixedColumnsAlone) {
    grid.FixedCols(8);
    widths(20'000);
    layOut();
    EXPECT_EQ(top(), Sizes::LowTop);
}

TEST_F(Layout, WithoutDataRowsCountsNoVerticalBar) {
    vs().Rows(1);
    grid.RowHeight(0, 9000);
    widths(8940);
    layOut();
    EXPECT_EQ(top(), Sizes::LowTop);
}

TEST_F(Layout, FollowsTheSizeOfTheControl) {
    desk.resize(7000, 3000);
    EXPECT_EQ(grid.totalRowRect(), (Rect{0, 3000 - 330 - 15 - 255, 7000, 330}));
    desk.resize(12'000, 3000);
    EXPECT_EQ(grid.totalRowRect(), (Rect{0, 3000 - 330 - 15, 12'000, 330}));
}

TEST_F(Layout, CopiesTheWidthOfEveryColumn) {
    for (std::int32_t col = 0; col < 8; ++col) grid.ColWidth(col, 500 + col);
    layOut();
    for (std::int32_t col = 0; col < 8; ++col) EXPECT_EQ(sum().ColWidth(col), 500 + col) << col;
}

TEST_F(Layout, FollowsAColumnThatTheUserDrags) {
    desk.dragColumn(3, 2500);
    EXPECT_EQ(grid.ColWidth(3), 2500);
    EXPECT_EQ(sum().ColWidth(3), 2500);
    EXPECT_EQ(top(), Sizes::HighTop);
    desk.dragColumn(3, 1000);
    EXPECT_EQ(top(), Sizes::LowTop);
}

TEST_F(Layout, RaisesNoEvents) {
    desk.resize(4000, 2000);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(desk.reports(), Nothing);
}

TEST_F(Layout, OfAControlWithoutRoomDoesNotFail) {
    grid.Rows(100);
    for (const std::int32_t size : {0, 1, 15, 100, 330}) {
        EXPECT_NO_THROW(desk.resize(size, size)) << size;
        EXPECT_EQ(grid.gridRect().width, size);
    }
    layOut();
    EXPECT_EQ(grid.gridRect(), (Rect{1, 1, Sizes::Width, Sizes::Height}));
    EXPECT_EQ(boxes(), Nothing);
}

class HeightOfTheTotalRow : public Layout {};

TEST_F(HeightOfTheTotalRow, IsThatOfItsRowAndItsBorder) {
    EXPECT_EQ(grid.SumRowHeight(), 300);
    grid.SumRowHeight(450);
    EXPECT_EQ(grid.SumRowHeight(), 450);
    EXPECT_EQ(sum().RowHeight(0), 450);
    EXPECT_EQ(grid.totalRowRect().height, 480);
    EXPECT_EQ(sum().Height(), 480);
    layOut();
    EXPECT_EQ(grid.totalRowRect(), (Rect{0, 6000 - 480 - 15, 9000, 480}));
}

TEST_F(HeightOfTheTotalRow, DoesNotTouchTheRowsOfTheMainGrid) {
    grid.SumRowHeight(450);
    for (std::int32_t row = 0; row < 6; ++row) EXPECT_EQ(grid.RowHeight(row), 300) << row;
}

TEST_F(HeightOfTheTotalRow, IsKeptByALayout) {
    sum().RowHeight(0, 600);
    layOut();
    EXPECT_EQ(grid.SumRowHeight(), 600);
    EXPECT_EQ(grid.totalRowRect().height, 630);
}

class ShownTotalRow : public PlacedGrid {};

TEST_F(ShownTotalRow, IsHiddenUntilTheHostAsks) {
    EXPECT_FALSE(grid.SumRow());
    EXPECT_FALSE(grid.totalRowShown());
    grid.ReDraw(true);
    EXPECT_FALSE(grid.totalRowShown());
    grid.SumRow(true);
    EXPECT_TRUE(grid.SumRow());
    EXPECT_TRUE(grid.totalRowShown());
    grid.SumRow(false);
    EXPECT_FALSE(grid.totalRowShown());
}

TEST_F(ShownTotalRow, HidesAndShowsWithoutLosingItsTotals) {
    summed(2);
    setUp();
    grid.SetCell(1, 2, "5");
    grid.SumRow(false);
    EXPECT_EQ(grid.ReadSum(2), "5");
    grid.SetCell(2, 2, "6");
    EXPECT_EQ(grid.ReadSum(2), "11");
    grid.SumRow(true);
    EXPECT_EQ(grid.ReadSum(2), "11");
}

TEST_F(ShownTotalRow, FollowsTheScrolledColumns) {
    grid.Cols(20);
    setUp();
    desk.scrollTo(1, 6);
    EXPECT_EQ(vs().LeftCol(), 6);
    EXPECT_EQ(sum().LeftCol(), 6);
    vs().LeftCol(3);
    EXPECT_EQ(sum().LeftCol(), 3);
}

TEST_F(ShownTotalRow, TakesNoKeyboardAndNoCurrentCell) {
    setUp();
    EXPECT_FALSE(sum().ShowCursor());
    desk.focusGrid();
    heard();
    const Rect rect = grid.totalRowRect();
    desk.mouseDown(LeftButton, 0, rect.left + 1500, rect.top + 100);
    desk.mouseUp(LeftButton, 0, rect.left + 1500, rect.top + 100);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}
TEST_F(Layout, IsThatOfTheSizeGivenBeforeTheControlWasPlaced) {
    headless::Desk other;
    other.resize(5000, 4000);
    EXPECT_EQ(other.place().gridRect(), (Rect{1, 1, 5000, 4000}));
    MemoryBag bag;
    EXPECT_EQ(other.load(bag).gridRect(), (Rect{1, 1, 5000, 4000}));
    other.resize(6000, 3000);
    EXPECT_EQ(other.grid().gridRect(), (Rect{1, 1, 6000, 3000})) << "the control in use, and no other";
    EXPECT_EQ(other.place().gridRect(), (Rect{1, 1, 5000, 4000}));
}
}  // namespace
}  // namespace kxVsGrid::testing
