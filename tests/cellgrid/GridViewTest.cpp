// What is in view: scrolling, scroll bars, places of cells, and what lies under a point.
#include <gtest/gtest.h>

#include <limits>

#include "kit/Dice.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

/// 101 rows of 300 and 10 columns of 1000 in a view of 5300 x 3255: ten rows and five columns, bars apart.
class View : public ::testing::Test {
  protected:
    View() {
        grid.Rows(101);
        grid.Resize(5300, 3255);
        grid.AfterScroll.connect([this](int top, int left, int newTop, int newLeft) {
            scrolls.push_back(std::to_string(top) + "," + std::to_string(left) + " -> " +
                              std::to_string(newTop) + "," + std::to_string(newLeft));
        });
    }
    using Lines = std::vector<std::string>;

    CellGrid grid;
    Lines scrolls;
};

TEST_F(View, StartsAtTheFirstScrollableRowAndColumn) {
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.LeftCol(), 1);
    EXPECT_EQ(grid.ClientWidth(), 5000);
    EXPECT_EQ(grid.ClientHeight(), 3000);
}

TEST_F(View, IsClampedSoThatTheLastRowAndColumnStandWhollyInIt) {
    EXPECT_EQ(grid.MaxTopRow(), 92);
    EXPECT_EQ(grid.MaxLeftCol(), 6);
    grid.TopRow(1000);
    grid.LeftCol(1000);
    EXPECT_EQ(grid.TopRow(), 92);
    EXPECT_EQ(grid.LeftCol(), 6);
    EXPECT_EQ(grid.CellRect(100, 9), (Rect{4000, 2700, 1000, 300}));
    grid.TopRow(-5);
    grid.LeftCol(0);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.LeftCol(), 1);
}

TEST_F(View, RaisesOneEventAfterEveryChangeAndNoneWithout) {
    grid.TopRow(10);
    grid.LeftCol(3);
    grid.ScrollTo(20, 4);
    grid.ScrollTo(20, 4);
    grid.TopRow(20);
    EXPECT_EQ(scrolls, (Lines{"1,1 -> 10,1", "10,1 -> 10,3", "10,3 -> 20,4"}));
}

TEST_F(View, KeepsTheLastRowClearOfTheStripAtTheBottom) {
    grid.BottomStrip(330);
    EXPECT_EQ(grid.MaxTopRow(), 94);
    grid.TopRow(94);
    EXPECT_LE(grid.CellRect(100, 1).bottom(), grid.ClientHeight() - 330);
}

TEST_F(View, ShowsATallLastRowFromItsTop) {
    grid.RowHeight(100, 9000);
    EXPECT_EQ(grid.MaxTopRow(), 100);
    grid.TopRow(100);
    EXPECT_EQ(grid.CellRect(100, 1).top, 300);
}

TEST_F(View, IsClampedAgainWhenRowsColumnsOrSizesChange) {
    grid.ScrollTo(92, 6);
    scrolls.clear();
    grid.Rows(51);
    EXPECT_EQ(grid.TopRow(), 42);
    grid.Cols(7);
    EXPECT_EQ(grid.LeftCol(), 3);
    grid.Resize(5300, 4755);
    EXPECT_EQ(grid.TopRow(), 37);
    grid.RowHidden(50, true);
    EXPECT_EQ(grid.TopRow(), 36);
    EXPECT_EQ(scrolls, (Lines{"92,6 -> 42,6", "42,6 -> 42,3", "42,3 -> 37,3", "37,3 -> 36,3"}));
}

TEST_F(View, StaysAtItsStartWhenTheFixedPartChanges) {
    grid.FixedRows(3);
    grid.FixedCols(2);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_EQ(grid.LeftCol(), 2);
    grid.FixedRows(0);
    grid.FixedCols(0);
    EXPECT_EQ(grid.TopRow(), 0);
    EXPECT_EQ(grid.LeftCol(), 0);
    EXPECT_EQ(scrolls, (Lines{"1,1 -> 3,1", "3,1 -> 3,2", "3,2 -> 0,2", "0,2 -> 0,0"}));
    grid.TopRow(10);
    grid.FixedRows(1);
    EXPECT_EQ(grid.TopRow(), 10);
}

TEST_F(View, TellsOfARemovedRowBeforeTheScrollThatFollows) {
    grid.TopRow(92);
    scrolls.clear();
    grid.RowMoved.connect([this](int row, bool) { scrolls.push_back("removed " + std::to_string(row)); });
    grid.RemoveRow(100);
    EXPECT_EQ(scrolls, (Lines{"removed 100", "92,1 -> 91,1"}));
}

TEST_F(View, TakesTheLargestNumbersWithoutOverflow) {
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    grid.ScrollTo(Most, Most);
    grid.ScrollTo(Least, Least);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.HitTest(Most, Least).part, GridHit::Part::Outside);
    EXPECT_EQ(grid.TopRowToShow(50, Least), 50);
    EXPECT_EQ(grid.TopRowToShow(50, Most), 1);
    grid.wheel(Least);
    grid.wheel(Most);
    EXPECT_EQ(grid.TopRow(), 92);
    grid.mouseDown(LeftButton, 0, 1990, 100);
    grid.mouseMove(LeftButton, 0, Most, Most);
    grid.mouseMove(LeftButton, 0, Least, Least);
    grid.mouseUp(LeftButton, 0, Least, Least);
    EXPECT_EQ(grid.ColWidth(1), 60);
    grid.RowHeight(100, 1'000'000'000);
    EXPECT_THROW(grid.RowHeight(100, 1'000'000'001), GridError);
    grid.BottomStrip(Most);
    grid.Resize(Most, Most);
    EXPECT_TRUE(grid.VerticalBarShown());
    EXPECT_EQ(grid.CellRect(100, 1).height, 1'000'000'000);
}

TEST_F(View, GivesScrollBarsWhenSomethingDoesNotFit) {
    EXPECT_TRUE(grid.HorizontalBarShown());
    EXPECT_TRUE(grid.VerticalBarShown());
    grid.Resize(10'000, 30'300);
    EXPECT_FALSE(grid.HorizontalBarShown());
    EXPECT_FALSE(grid.VerticalBarShown());
    EXPECT_EQ(grid.ClientWidth(), 10'000);
    EXPECT_EQ(grid.ClientHeight(), 30'300);
}

TEST_F(View, GivesBothBarsWhenOneTakesTheRoomOfTheOther) {
    grid.Resize(10'000, 30'299);  // the vertical bar takes 300 of the columns' room
    EXPECT_TRUE(grid.VerticalBarShown());
    EXPECT_TRUE(grid.HorizontalBarShown());
    grid.Resize(9999, 30'554);  // the horizontal bar takes 255 of the rows' room
    EXPECT_TRUE(grid.HorizontalBarShown());
    EXPECT_TRUE(grid.VerticalBarShown());
    grid.Resize(9999, 30'555);
    EXPECT_FALSE(grid.VerticalBarShown());
    grid.Resize(10'300, 30'299);
    EXPECT_FALSE(grid.HorizontalBarShown());
}

TEST_F(View, CountsTheStripAtTheBottomAsRoomThatRowsNeed) {
    grid.Resize(10'000, 30'300);
    grid.BottomStrip(1);
    EXPECT_TRUE(grid.VerticalBarShown());
}

TEST_F(View, HasNoScrollBarsWhenTheyAreOff) {
    grid.ScrollBars(false);
    EXPECT_FALSE(grid.HorizontalBarShown());
    EXPECT_FALSE(grid.VerticalBarShown());
    EXPECT_EQ(grid.ClientWidth(), 5300);
    EXPECT_EQ(grid.ClientHeight(), 3255);
}

TEST_F(View, AnswersSensiblyWhileItHasNoSize) {
    grid.Resize(0, 0);
    EXPECT_FALSE(grid.VerticalBarShown());
    EXPECT_EQ(grid.ClientHeight(), 0);
    EXPECT_FALSE(grid.RowIsVisible(0));
    EXPECT_FALSE(grid.ColIsVisible(1));
    EXPECT_EQ(grid.MaxTopRow(), 100);
    EXPECT_EQ(grid.HitTest(0, 0).part, GridHit::Part::Outside);
    EXPECT_EQ(grid.TopRowToShow(50, 0), 50);
    EXPECT_TRUE(grid.keyDown(34, 0));
    grid.wheel(3);
    grid.Resize(-10, -10);
    EXPECT_EQ(grid.Width(), 0);
}

TEST_F(View, HoldsRowsAndColumnsThatOverlapIt) {
    grid.ScrollTo(20, 4);
    EXPECT_TRUE(grid.RowIsVisible(0));
    EXPECT_FALSE(grid.RowIsVisible(1));
    EXPECT_FALSE(grid.RowIsVisible(19));
    EXPECT_TRUE(grid.RowIsVisible(20));
    EXPECT_TRUE(grid.RowIsVisible(28));
    EXPECT_FALSE(grid.RowIsVisible(29));
    grid.Resize(5300, 3256);
    EXPECT_TRUE(grid.RowIsVisible(29));
    EXPECT_TRUE(grid.ColIsVisible(0));
    EXPECT_FALSE(grid.ColIsVisible(3));
    EXPECT_TRUE(grid.ColIsVisible(7));
    EXPECT_FALSE(grid.ColIsVisible(8));
    grid.RowHidden(20, true);
    EXPECT_FALSE(grid.RowIsVisible(20));
    grid.ColWidth(4, 0);
    EXPECT_FALSE(grid.ColIsVisible(4));
}

TEST_F(View, PlacesCellsAlsoWhereTheyAreOutOfIt) {
    grid.ScrollTo(20, 4);
    EXPECT_EQ(grid.CellRect(20, 4), (Rect{1000, 300, 1000, 300}));
    EXPECT_EQ(grid.CellRect(0, 0), (Rect{0, 0, 1000, 300}));
    EXPECT_EQ(grid.CellRect(0, 5), (Rect{2000, 0, 1000, 300}));
    EXPECT_EQ(grid.CellRect(19, 3), (Rect{0, 0, 1000, 300}));
    EXPECT_EQ(grid.CellRect(10, 1), (Rect{-2000, -2700, 1000, 300}));
    EXPECT_EQ(grid.CellRect(100, 9), (Rect{6000, 24'300, 1000, 300}));
    grid.Select(20, 4);
    EXPECT_EQ(grid.CellLeft(), 1000);
    EXPECT_EQ(grid.CellTop(), 300);
    EXPECT_EQ(grid.CellWidth(), 1000);
    EXPECT_EQ(grid.CellHeight(), 300);
}

TEST_F(View, PlacesTheLastOfAHundredMillionRowsWithoutOverflow) {
    grid.Rows(100'000'000);
    EXPECT_EQ(grid.CellRect(99'999'999, 1).top, 1'000'000'000);
    grid.TopRow(99'999'999);
    EXPECT_EQ(grid.TopRow(), 99'999'991);
    EXPECT_TRUE(grid.RowIsVisible(99'999'999));
    EXPECT_EQ(grid.CellRect(99'999'999, 1).top, 2700);
    EXPECT_EQ(grid.CellRect(1, 1).top, -1'000'000'000);
}

TEST_F(View, ShowsARowWithTheLeastMovement) {
    grid.TopRow(50);
    EXPECT_EQ(grid.TopRowToShow(50, 3000), 50);
    EXPECT_EQ(grid.TopRowToShow(58, 3000), 50);
    EXPECT_EQ(grid.TopRowToShow(59, 3000), 51);
    EXPECT_EQ(grid.TopRowToShow(59, 2999), 52);
    EXPECT_EQ(grid.TopRowToShow(30, 3000), 30);
    EXPECT_EQ(grid.TopRowToShow(0, 3000), 50);
    EXPECT_EQ(grid.TopRowToShow(100, 3000), 92);
}

TEST_F(View, ShowsATallRowFromItsTop) {
    grid.RowHeight(60, 5000);
    EXPECT_EQ(grid.TopRowToShow(60, 3000), 60);
    grid.TopRow(60);
    EXPECT_EQ(grid.TopRowToShow(60, 3000), 60);
}

TEST_F(View, FindsTheNearestShownRowOnEitherSide) {
    for (int row = 40; row < 100; ++row) grid.RowHidden(row, true);
    grid.RowHidden(0, true);
    EXPECT_EQ(grid.ShownRowAfter(-1), 1);
    EXPECT_EQ(grid.ShownRowAfter(38), 39);
    EXPECT_EQ(grid.ShownRowAfter(39), 100);
    EXPECT_EQ(grid.ShownRowAfter(100), -1);
    EXPECT_EQ(grid.ShownRowBefore(100), 39);
    EXPECT_EQ(grid.ShownRowBefore(1), -1);
    EXPECT_EQ(grid.ShownRowBefore(-1), -1);
}

TEST_F(View, DoesNotMoveForAHiddenRow) {
    grid.RowHidden(60, true);
    EXPECT_EQ(grid.TopRowToShow(60, 3000), 1);
}

TEST_F(View, ShowsAColumnWithTheLeastMovement) {
    grid.LeftCol(3);
    EXPECT_EQ(grid.LeftColToShow(6, 5000), 3);
    EXPECT_EQ(grid.LeftColToShow(7, 5000), 4);
    EXPECT_EQ(grid.LeftColToShow(2, 5000), 2);
    EXPECT_EQ(grid.LeftColToShow(0, 5000), 3);
    EXPECT_EQ(grid.LeftColToShow(9, 5000), 6);
}

TEST_F(View, TellsWhatLiesUnderAPoint) {
    grid.ScrollTo(20, 4);
    const auto expect = [this](int x, int y, GridHit::Part part, int row, int col) {
        const GridHit hit = grid.HitTest(x, y);
        EXPECT_EQ(hit.part, part) << x << ", " << y;
        EXPECT_EQ(hit.row, row) << x << ", " << y;
        EXPECT_EQ(hit.col, col) << x << ", " << y;
    };
    using enum GridHit::Part;
    expect(500, 100, FixedCell, 0, 0);
    expect(1500, 100, FixedCell, 0, 4);
    expect(500, 400, FixedCell, 20, 0);
    expect(1000, 300, Cell, 20, 4);
    expect(1999, 599, Cell, 20, 4);
    expect(2000, 600, Cell, 21, 5);
    expect(4999, 2999, Cell, 28, 7);
    expect(5000, 400, Outside, -1, -1);
    expect(1500, 3000, Outside, -1, -1);
    expect(-1, 400, Outside, -1, -1);
    expect(400, -1, Outside, -1, -1);
}

TEST_F(View, HasNothingUnderAPointBeyondTheLastRowAndColumn) {
    grid.Rows(3);
    grid.Cols(3);
    EXPECT_EQ(grid.HitTest(500, 901).part, GridHit::Part::Outside);
    EXPECT_EQ(grid.HitTest(3001, 500).part, GridHit::Part::Outside);
    EXPECT_EQ(grid.HitTest(2999, 899).part, GridHit::Part::Cell);
}

TEST_F(View, FindsTheEdgeOfAColumnInTheFixedRowsAlone) {
    const auto edge = [this](int x, int y) {
        const GridHit hit = grid.HitTest(x, y);
        return hit.part == GridHit::Part::ColumnEdge ? hit.col : -1;
    };
    EXPECT_EQ(edge(1939, 100), -1);
    EXPECT_EQ(edge(1940, 100), 1);
    EXPECT_EQ(edge(2060, 100), 1);
    EXPECT_EQ(edge(2061, 100), -1);
    EXPECT_EQ(edge(1990, 301), -1);
    EXPECT_EQ(edge(30, 100), -1);
    grid.LeftCol(4);
    EXPECT_EQ(edge(1010, 100), 0);
    EXPECT_EQ(edge(1990, 100), 4);
    grid.ColWidth(5, 40);  // 2000 to 2040: the nearer of two edges
    EXPECT_EQ(edge(2015, 100), 4);
    EXPECT_EQ(edge(2025, 100), 5);
    grid.ColHidden(5, true);
    EXPECT_EQ(edge(2010, 100), 4);
    grid.Cols(3);
    EXPECT_EQ(edge(3050, 100), 2);
    EXPECT_EQ(edge(3070, 100), -1);
}

TEST_F(View, AgreesWithSteppingRowByRowUnderRandomHeights) {
    kit::Dice dice;
    for (std::int32_t row = 0; row < 101; ++row) {
        grid.RowHeight(row, 50 * dice.between(0, 30));
        grid.RowHidden(row, dice.oneIn(5));
    }
    for (int round = 0; round < 300; ++round) {
        grid.TopRow(dice.between(1, 100));
        const std::int32_t row = dice.between(1, 100);
        const std::int32_t bottom = dice.between(0, 3000);
        std::int32_t stepped = std::min(grid.TopRow(), row);
        const auto end = [&] { return grid.CellRect(row, 1).bottom(); };
        const std::int32_t before = grid.TopRow();
        const std::int32_t told = grid.TopRowToShow(row, bottom);
        grid.TopRow(stepped);
        while (end() > bottom && stepped < std::min(row, grid.MaxTopRow())) grid.TopRow(++stepped);
        const Rect wanted = grid.CellRect(row, 1);
        grid.TopRow(told);
        if (wanted.height > 0) {
            EXPECT_EQ(grid.CellRect(row, 1).top, wanted.top)
                << "row " << row << ", bottom " << bottom << ", from " << before << ", told " << told;
        }
    }
}
}  // namespace
}  // namespace kxVsGrid
