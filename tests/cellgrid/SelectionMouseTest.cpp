// Selecting with the mouse: Shift, dragging, headers.
#include <gtest/gtest.h>

#include "MoveLog.h"
#include "kit/PrintTo.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

class SelectingByMouse : public ::testing::Test {
  protected:
    SelectingByMouse() {
        grid.Rows(101);
        grid.Cols(10);
        grid.ScrollBars(false);
        grid.Resize(5000, 3000);  // rows 1 to 9, columns 1 to 4
        grid.SelectsRanges(true);
        grid.Select(5, 3);
        log.take();
    }
    using Lines = std::vector<std::string>;

    void press(std::int32_t x, std::int32_t y, std::int16_t shift = 0, std::int16_t button = LeftButton) {
        grid.mouseDown(button, shift, x, y);
    }
    void drag(std::int32_t x, std::int32_t y) { grid.mouseMove(LeftButton, 0, x, y); }
    void release(std::int32_t x, std::int32_t y) { grid.mouseUp(LeftButton, 0, x, y); }
    void expectRange(std::int32_t firstRow, std::int32_t firstCol, std::int32_t lastRow,
                     std::int32_t lastCol) {
        EXPECT_EQ(grid.Selected(), (CellRange{firstRow, firstCol, lastRow, lastCol}));
    }
    std::string at() const { return test::MoveLog::cell(grid.Row(), grid.Col()); }

    CellGrid grid;
    test::MoveLog log{grid};
};

TEST_F(SelectingByMouse, ShiftMovesTheCornerToThePressedCell) {
    press(1500, 400, ShiftKey);
    expectRange(1, 1, 5, 3);
    EXPECT_EQ(at(), "5,3");
    EXPECT_EQ(log.take(), Lines{"SelChange"});
    release(1500, 400);
    press(4500, 2500, ShiftKey);
    expectRange(5, 3, 8, 4);
    press(3500, 1600, ShiftKey);
    EXPECT_TRUE(grid.SelectsOneCell());
}

TEST_F(SelectingByMouse, DraggingExtendsFromThePressedCell) {
    press(1500, 700);
    EXPECT_EQ(log.take(), test::MoveLog::whole("5,3", "2,1"));
    drag(1600, 750);
    EXPECT_EQ(log.take(), Lines{});
    drag(2500, 1300);
    drag(2600, 1300);
    expectRange(2, 1, 4, 2);
    EXPECT_EQ(log.take(), Lines{"SelChange"});
    drag(1500, 400);
    expectRange(1, 1, 2, 1);
    drag(1500, 700);
    EXPECT_TRUE(grid.SelectsOneCell());
    drag(2500, 700);
    release(2500, 700);
    log.take();
    drag(4500, 2500);
    expectRange(2, 1, 2, 2);
    EXPECT_EQ(log.take(), Lines{});
    EXPECT_EQ(at(), "2,1");
}

TEST_F(SelectingByMouse, DraggingGoesOnAfterShift) {
    press(1500, 400, ShiftKey);
    drag(2500, 700);
    expectRange(2, 2, 5, 3);
}

TEST_F(SelectingByMouse, APressOnTheCurrentCellUnselects) {
    grid.SelectCols(1, 2);
    log.take();
    press(3500, 1600);
    EXPECT_EQ(log.take(), Lines{"SelChange"});
    EXPECT_TRUE(grid.SelectsOneCell());
    drag(3500, 1900);
    expectRange(5, 3, 6, 3);
}

TEST_F(SelectingByMouse, APressThatTheHostKeepsAwayBeginsNothing) {
    grid.SelectRange(5, 3, 6, 3);
    grid.BeforeRowColChange.connect([](int, int, int, int, bool& cancel) { cancel = true; });
    press(1500, 700);
    drag(2500, 1300);
    expectRange(5, 3, 6, 3);
    EXPECT_EQ(at(), "5,3");
}

TEST_F(SelectingByMouse, AMoveMeanwhileEndsTheDragging) {
    press(1500, 700);
    drag(2500, 700);
    grid.Select(7, 4);
    drag(2500, 1300);
    EXPECT_TRUE(grid.SelectsOneCell());
}

TEST_F(SelectingByMouse, AButtonThatWentUpUnheardEndsTheDragging) {
    press(1500, 700);
    grid.mouseMove(0, 0, 2500, 700);
    drag(2500, 700);
    EXPECT_TRUE(grid.SelectsOneCell());
}

TEST_F(SelectingByMouse, OtherButtonsSelectNothing) {
    for (const std::int16_t button : {RightButton, MiddleButton}) {
        press(1500, 700, ShiftKey, button);
        grid.mouseMove(button, 0, 2500, 1300);
        press(2500, 100, 0, button);
        EXPECT_TRUE(grid.SelectsOneCell());
    }
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(SelectingByMouse, APressThatLeadsNowhereSelectsNothing) {
    grid.mouseDown(LeftButton, ShiftKey, 1500, 400, false);
    drag(2500, 1300);
    EXPECT_TRUE(grid.SelectsOneCell());
}

TEST_F(SelectingByMouse, HeadersTakeWholeRowsAndColumnsAndMoveNothing) {
    press(2500, 100);
    expectRange(1, 2, 100, 2);
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::Columns);
    drag(4500, 2900);
    expectRange(1, 2, 100, 4);
    drag(1500, 100);
    expectRange(1, 1, 100, 2);
    release(1500, 100);
    press(500, 1000);
    expectRange(3, 1, 3, 9);
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::Rows);
    drag(4500, 2200);
    expectRange(3, 1, 7, 9);
    release(500, 2200);
    press(500, 100);
    expectRange(1, 1, 100, 9);
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::All);
    drag(2500, 1300);
    expectRange(1, 1, 100, 9);
    EXPECT_EQ(at(), "5,3");
    for (const std::string& line : log.take()) EXPECT_EQ(line, "SelChange");
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(SelectingByMouse, ShiftExtendsByWholeRowsAndColumns) {
    press(1500, 100, ShiftKey);  // from the current column
    expectRange(1, 1, 100, 3);
    press(4500, 100, ShiftKey);
    expectRange(1, 3, 100, 4);
    press(2500, 100);
    press(4500, 100, ShiftKey);
    expectRange(1, 2, 100, 4);
    press(500, 1000);
    press(500, 400, ShiftKey);
    expectRange(1, 1, 3, 9);
    press(2500, 2500, ShiftKey);
    expectRange(3, 1, 8, 2);
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::Cells);
}

TEST_F(SelectingByMouse, AColumnsEdgeIsDraggedAndSelectsNothing) {
    press(2990, 100);
    drag(3490, 100);
    release(3490, 100);
    EXPECT_EQ(grid.ColWidth(2), 1500);
    EXPECT_TRUE(grid.SelectsOneCell());
}

TEST_F(SelectingByMouse, DraggingBesideTheCellsScrollsByOneEachTime) {
    press(3500, 1600);
    drag(3500, 3000);
    expectRange(5, 3, 10, 3);
    EXPECT_EQ(grid.TopRow(), 2);
    drag(3500, 30000);
    expectRange(5, 3, 11, 3);
    EXPECT_EQ(grid.TopRow(), 3);
    drag(5000, 2000);
    EXPECT_EQ(grid.LeftCol(), 2);
    EXPECT_EQ(grid.ColSel(), 5);
    EXPECT_EQ(grid.RowSel(), 8);
    drag(5000, 3000);
    EXPECT_EQ(grid.LeftCol(), 3);
    EXPECT_EQ(grid.TopRow(), 4);
    for (int i = 0; i < 5; ++i) drag(500, 100);
    EXPECT_EQ(grid.LeftCol(), 1);
    EXPECT_EQ(grid.TopRow(), 1);
    expectRange(1, 1, 5, 3);
    for (int i = 0; i < 200; ++i) drag(5000, 3000);
    expectRange(5, 3, 100, 9);
    EXPECT_EQ(grid.TopRow(), grid.MaxTopRow());
}

TEST_F(SelectingByMouse, AskForTheMoveAgainAsLongAsItScrolls) {
    press(3500, 1600);
    EXPECT_FALSE(grid.DragScrolls());
    drag(3500, 2000);
    EXPECT_FALSE(grid.DragScrolls());
    drag(3500, 3000);
    EXPECT_TRUE(grid.DragScrolls());
    while (grid.DragScrolls()) drag(3500, 3000);
    expectRange(5, 3, 100, 3);
    drag(3500, 100);
    EXPECT_TRUE(grid.DragScrolls());
    drag(3500, 2000);
    EXPECT_FALSE(grid.DragScrolls());
    drag(3500, 100);
    release(3500, 100);
    EXPECT_FALSE(grid.DragScrolls());
}

TEST_F(SelectingByMouse, APointerThatRestsWhileThePressScrollsExtendsNothing) {
    grid.Resize(5000, 3100);  // a third of row 10 can be seen
    press(1500, 3050);
    EXPECT_EQ(at(), "10,1");
    EXPECT_EQ(grid.TopRow(), 2);
    drag(1510, 3050);
    EXPECT_TRUE(grid.SelectsOneCell());
    drag(1510, 2000);
    expectRange(7, 1, 10, 1);
    drag(1510, 3050);
    expectRange(10, 1, 11, 1);
}

TEST_F(SelectingByMouse, TheStripLiesBesideTheCells) {
    grid.BottomStrip(300);
    press(3500, 1600);
    drag(3500, 2800);
    EXPECT_EQ(grid.RowSel(), 9);
    EXPECT_EQ(grid.TopRow(), 2);
}

TEST_F(SelectingByMouse, ARowTallerThanTheViewIsPassed) {
    grid.RowHeight(6, 9000);
    press(3500, 1600);
    for (int i = 0; i < 3; ++i) drag(3500, 3000);
    EXPECT_GT(grid.RowSel(), 6);
}

TEST_F(SelectingByMouse, DraggingBelowTheLastRowReachesIt) {
    grid.Rows(7);
    press(3500, 700);
    drag(3500, 2500);
    expectRange(2, 3, 6, 3);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(SelectingByMouse, HeadersScrollTheirOwnWayAlone) {
    press(2500, 100);
    drag(5000, 5000);
    EXPECT_EQ(grid.LeftCol(), 2);
    EXPECT_EQ(grid.TopRow(), 1);
    release(5000, 5000);
    press(500, 400);
    drag(5000, 3000);
    EXPECT_EQ(grid.LeftCol(), 2);
    EXPECT_EQ(grid.TopRow(), 2);
}

TEST_F(SelectingByMouse, NothingIsSelectedUnlessItIsSwitchedOn) {
    grid.SelectsRanges(false);
    press(1500, 400);
    drag(2500, 1300);
    press(2500, 100);
    press(4500, 1300, ShiftKey);
    EXPECT_EQ(at(), "4,4");
    EXPECT_TRUE(grid.SelectsOneCell());
}
}  // namespace
}  // namespace kxVsGrid
