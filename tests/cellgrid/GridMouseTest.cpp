// Presses, clicks, the wheel, and the dragging of column edges.
#include <gtest/gtest.h>

#include "MoveLog.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

class Mouse : public ::testing::Test {
  protected:
    Mouse() {
        grid.Rows(101);
        grid.Resize(5300, 3255);
        grid.MouseDown.connect([this](int button, int shift, float x, float y) {
            log.add("Down " + std::to_string(button) + " " + std::to_string(shift) + " at " +
                    test::MoveLog::cell(static_cast<int>(x), static_cast<int>(y)));
        });
        grid.MouseUp.connect([this](int, int, float, float) { log.add("Up"); });
        grid.MouseMove.connect([this](int, int, float, float) { log.add("Move"); });
        grid.Click.connect([this] { log.add("Click"); });
        grid.DblClick.connect([this] { log.add("DblClick"); });
        grid.AfterUserResize.connect([this](int row, int col) {
            log.add("Resize " + test::MoveLog::cell(row, col) + ": " + std::to_string(grid.ColWidth(col)));
        });
    }
    void down(int x, int y, std::int16_t button = LeftButton, std::int16_t shift = 0) {
        grid.mouseDown(button, shift, x, y);
    }
    void up(int x, int y, std::int16_t button = LeftButton) { grid.mouseUp(button, 0, x, y); }
    void drag(int x, int y) { grid.mouseMove(LeftButton, 0, x, y); }
    std::string at() const { return test::MoveLog::cell(grid.Row(), grid.Col()); }
    using Lines = std::vector<std::string>;

    CellGrid grid;
    test::MoveLog log{grid};
};

TEST_F(Mouse, MovesToTheDataCellThatIsPressedAndTellsThen) {
    down(2500, 700, LeftButton, CtrlKey);
    EXPECT_EQ(at(), "2,2");
    Lines expected = test::MoveLog::whole("1,1", "2,2");
    expected.push_back("Down 1 2 at 2500,700");
    EXPECT_EQ(log.take(), expected);
}

TEST_F(Mouse, ClicksOnRelease) {
    down(1500, 400);
    up(1500, 400);
    EXPECT_EQ(log.take(), (Lines{"Down 1 0 at 1500,400", "Up", "Click"}));
}

TEST_F(Mouse, DoesNotClickWithoutAPressInTheGrid) {
    up(1500, 400);
    EXPECT_EQ(log.take(), Lines{"Up"});
    down(-10, 400);
    up(1500, 400);
    EXPECT_EQ(log.take(), (Lines{"Down 1 0 at -10,400", "Up"}));
    down(1500, 400);
    up(1500, 400);
    log.take();
    up(1500, 400);
    EXPECT_EQ(log.take(), Lines{"Up"});
}

TEST_F(Mouse, MovesNothingOnFixedCellsOutsideAndWithOtherButtons) {
    down(500, 700);
    down(1500, 100);
    down(5100, 700);
    down(2500, 700, RightButton);
    down(2500, 700, MiddleButton);
    grid.Rows(3);
    down(2500, 2000);
    EXPECT_EQ(at(), "1,1");
}

TEST_F(Mouse, TellsOfAPressAlsoWhenTheMoveIsCancelled) {
    grid.BeforeRowColChange.connect([](int, int, int, int, bool& cancel) { cancel = true; });
    down(2500, 700);
    EXPECT_EQ(at(), "1,1");
    EXPECT_EQ(log.take(), (Lines{"Before 1,1 -> 2,2", "Down 1 0 at 2500,700"}));
}

TEST_F(Mouse, BringsThePressedCellWhollyIntoView) {
    grid.Resize(5000, 3400);
    down(4600, 3100);
    EXPECT_EQ(at(), "10,4");
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(grid.LeftCol(), 2);
}

TEST_F(Mouse, ClicksTwiceAfterANormalPress) {
    down(1500, 400);
    up(1500, 400);
    grid.doubleClick(LeftButton, 0, 1500, 400);
    up(1500, 400);
    EXPECT_EQ(log.take(), (Lines{"Down 1 0 at 1500,400", "Up", "Click", "DblClick", "Up"}));
}

TEST_F(Mouse, KeepsTheDragWhenAnotherButtonIsPressedMeanwhile) {
    down(2990, 100);
    drag(3100, 100);
    down(3100, 100, RightButton);
    up(3100, 100, RightButton);
    log.take();
    drag(3190, 100);
    up(3190, 100);
    EXPECT_EQ(log.take(), (Lines{"Move", "Up", "Resize -1,2: 1200"}));
}

TEST_F(Mouse, ClicksTwiceWithTheLeftButtonOnly) {
    down(1500, 400, RightButton);
    up(1500, 400, RightButton);
    log.take();
    grid.doubleClick(RightButton, 0, 1500, 400);
    grid.doubleClick(MiddleButton, 0, 1500, 400);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(Mouse, DoesNotClickTwiceOnTheEdgeOfAColumn) {
    ASSERT_EQ(grid.HitTest(2990, 100).part, GridHit::Part::ColumnEdge);
    grid.doubleClick(LeftButton, 0, 2990, 100);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(Mouse, TellsOfADoubleClickOnTheEdgeOfAColumnWhichDragsNothing) {
    grid.EdgeDblClick.connect([this](int col) { log.add("Edge " + std::to_string(col)); });
    down(2990, 100);
    up(2990, 100);
    grid.doubleClick(LeftButton, 0, 2990, 100);
    drag(3990, 100);
    up(3990, 100);
    grid.doubleClick(RightButton, 0, 2990, 100);
    EXPECT_EQ(log.take(), (Lines{"Down 1 0 at 2990,100", "Up", "Resize -1,2: 1000", "Edge 2", "Move", "Up"}));
    EXPECT_EQ(grid.ColWidth(2), 1000);
}

TEST_F(Mouse, TellsBeforeAColumnGetsAnotherWidth) {
    grid.BeforeUserResize.connect([this](int row, int col) {
        log.add("Before " + test::MoveLog::cell(row, col) + ": " + std::to_string(grid.ColWidth(col)));
    });
    down(1990, 100);
    drag(2190, 100);
    EXPECT_EQ(log.take(), (Lines{"Before -1,1: 1000", "Down 1 0 at 1990,100", "Move"}));
    up(2190, 100);
    log.take();
    grid.userColWidth(2, 1234);
    EXPECT_EQ(log.take(), (Lines{"Before -1,2: 1000", "Resize -1,2: 1234"}));
}

TEST_F(Mouse, DragsTheEdgeOfAColumnAndTellsAtTheEnd) {
    down(1990, 100);
    drag(2190, 150);
    EXPECT_EQ(grid.ColWidth(1), 1200);
    drag(1490, 5000);
    EXPECT_EQ(grid.ColWidth(1), 500);
    up(1490, 100);
    EXPECT_EQ(at(), "1,1");
    EXPECT_EQ(log.take(), (Lines{"Down 1 0 at 1990,100", "Move", "Move", "Up", "Resize -1,1: 500"}));
    drag(3000, 100);
    EXPECT_EQ(grid.ColWidth(1), 500);
}

TEST_F(Mouse, LeavesADraggedColumnWideEnoughToBeGrabbedAgain) {
    down(1990, 100);
    drag(-4000, 100);
    EXPECT_EQ(grid.ColWidth(1), 60);
}

TEST_F(Mouse, DragsTheScrolledColumnThatIsSeen) {
    grid.LeftCol(4);
    down(1995, 100);
    drag(2295, 100);
    EXPECT_EQ(grid.ColWidth(4), 1300);
    EXPECT_EQ(grid.ColWidth(1), 1000);
}

TEST_F(Mouse, ForgetsADragWhoseColumnVanishes) {
    down(4990, 100);
    grid.Cols(3);
    drag(4000, 100);
    up(4000, 100);
    EXPECT_EQ(grid.Cols(), 3);
    EXPECT_EQ(grid.ColWidth(2), 1000);
}

TEST_F(Mouse, GoesOnWithADragWhenAnotherButtonIsReleased) {
    down(1990, 100);
    up(1990, 100, RightButton);
    drag(2490, 100);
    EXPECT_EQ(grid.ColWidth(1), 1500);
}

TEST_F(Mouse, ResizesAColumnForTheMachineThatDraggedIt) {
    grid.userColWidth(2, 1234);
    EXPECT_EQ(log.take(), Lines{"Resize -1,2: 1234"});
}

TEST_F(Mouse, TellsOfMoves) {
    drag(100, 100);
    EXPECT_EQ(log.take(), Lines{"Move"});
}

TEST_F(Mouse, ScrollsByTheRowsThatTheWheelSays) {
    grid.wheel(3);
    EXPECT_EQ(grid.TopRow(), 4);
    grid.wheel(-2);
    EXPECT_EQ(grid.TopRow(), 2);
    grid.wheel(-50);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.wheel(500);
    EXPECT_EQ(grid.TopRow(), 92);
    grid.wheel(0);
    EXPECT_EQ(grid.TopRow(), 92);
}

TEST_F(Mouse, ScrollsOverHiddenRows) {
    for (std::int32_t row = 2; row < 8; ++row) grid.RowHidden(row, true);
    grid.wheel(1);
    EXPECT_EQ(grid.TopRow(), 8);
    grid.wheel(-1);
    EXPECT_EQ(grid.TopRow(), 1);
}
}  // namespace
}  // namespace kxVsGrid
