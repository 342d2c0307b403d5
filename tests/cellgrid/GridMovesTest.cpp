// The current cell: where it goes, and what is raised on the way.
#include <gtest/gtest.h>

#include <utility>

#include "MoveLog.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

using Lines = std::vector<std::string>;

class CurrentCell : public ::testing::Test {
  protected:
    CurrentCell() { grid.Rows(20); }
    std::string at() const { return test::MoveLog::cell(grid.Row(), grid.Col()); }

    CellGrid grid;
    test::MoveLog log{grid};
};

TEST_F(CurrentCell, StartsAtTheFirstDataCell) {
    EXPECT_EQ(at(), "1,1");
}

TEST_F(CurrentCell, RaisesTheEventsOfAMoveInOrder) {
    EXPECT_TRUE(grid.Select(3, 4));
    EXPECT_EQ(at(), "3,4");
    EXPECT_EQ(log.take(), test::MoveLog::whole("1,1", "3,4"));
}

TEST_F(CurrentCell, MovesOnceForARowAndOnceForAColumn) {
    grid.Row(2);
    EXPECT_EQ(log.take(), test::MoveLog::whole("1,1", "2,1"));
    grid.Col(5);
    EXPECT_EQ(log.take(), test::MoveLog::whole("2,1", "2,5"));
}

TEST_F(CurrentCell, RaisesNothingWhenItIsThereAlready) {
    EXPECT_TRUE(grid.Select(1, 1));
    grid.Row(1);
    grid.Col(1);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, IsInAColumnAsSoonAsAListenerBringsOneBack) {
    grid.Cols(0);
    bool once = true;
    grid.BeforeRowColChange.connect([&](int, int, int, int, bool&) {
        if (std::exchange(once, false)) grid.Cols(3);
    });
    grid.Row(2);
    EXPECT_EQ(at(), "2,0");
}

TEST_F(CurrentCell, MayBePutIntoTheFixedArea) {
    grid.Select(0, 0);
    EXPECT_EQ(at(), "0,0");
}

TEST_F(CurrentCell, RefusesPlacesOutsideTheGrid) {
    EXPECT_THROW(grid.Select(20, 1), GridError);
    EXPECT_THROW(grid.Select(1, 10), GridError);
    EXPECT_THROW(grid.Row(-1), GridError);
    EXPECT_THROW(grid.Col(-1), GridError);
    EXPECT_EQ(at(), "1,1");
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, StaysWhenAListenerCancelsTheMove) {
    grid.BeforeRowColChange.connect([](int, int, int, int, bool& cancel) { cancel = true; });
    EXPECT_FALSE(grid.Select(3, 4));
    EXPECT_EQ(at(), "1,1");
    EXPECT_EQ(log.take(), Lines{"Before 1,1 -> 3,4"});
}

TEST_F(CurrentCell, GivesWayToAMoveThatAListenerMakesBeforeIt) {
    grid.BeforeRowColChange.connect([this](int, int, int newRow, int, bool&) {
        if (newRow == 5) grid.Select(9, 9);
    });
    EXPECT_FALSE(grid.Select(5, 5));
    EXPECT_EQ(at(), "9,9");
    Lines expected{"Before 1,1 -> 5,5"};
    for (const std::string& line : test::MoveLog::whole("1,1", "9,9")) expected.push_back(line);
    EXPECT_EQ(log.take(), expected);
}

TEST_F(CurrentCell, CompletesAMoveThatAListenerMakesAfterItBeforeItGoesOnToTellOfItsOwn) {
    grid.EnterCell.connect([this] {
        if (grid.Row() == 5) grid.Select(9, 9);
    });
    EXPECT_TRUE(grid.Select(5, 5));
    EXPECT_EQ(at(), "9,9");
    Lines expected{"Before 1,1 -> 5,5", "Leave 1,1", "Enter 5,5"};
    for (const std::string& line : test::MoveLog::whole("5,5", "9,9")) expected.push_back(line);
    for (const char* line : {"RowColChange", "After 1,1 -> 5,5", "SelChange"}) expected.push_back(line);
    EXPECT_EQ(log.take(), expected);
}

TEST_F(CurrentCell, GoesOnToItsTargetWhenAListenerInsertsARowAboveBoth) {
    Connection once = grid.LeaveCell.connect([&] {
        once.disconnect();
        grid.InsertRow(1);
    });
    grid.Text(5, 5, "target");
    EXPECT_TRUE(grid.Select(5, 5));
    EXPECT_EQ(grid.Text(grid.Row(), grid.Col()), "target");
    EXPECT_EQ(log.take(), (Lines{"Before 1,1 -> 5,5", "Leave 1,1", "Enter 6,5", "RowColChange",
                                 "After 2,1 -> 6,5", "SelChange"}));
}

TEST_F(CurrentCell, GivesUpATargetThatAListenerRemoves) {
    grid.LeaveCell.connect([&] { grid.RemoveRow(5); });
    EXPECT_FALSE(grid.Select(5, 5));
    EXPECT_EQ(at(), "1,1");
    EXPECT_EQ(log.take(), (Lines{"Before 1,1 -> 5,5", "Leave 1,1"}));
}

TEST_F(CurrentCell, GivesUpATargetThatIsCutOffMeanwhile) {
    grid.LeaveCell.connect([&] { grid.Cols(4); });
    EXPECT_FALSE(grid.Select(5, 5));
    EXPECT_EQ(at(), "1,1");
}

TEST_F(CurrentCell, IsForcedToTheLastRowWithoutTheFirstTwoEvents) {
    grid.Select(15, 2);
    log.take();
    grid.Rows(10);
    EXPECT_EQ(at(), "9,2");
    EXPECT_EQ(log.take(), (Lines{"Enter 9,2", "RowColChange", "After 15,2 -> 9,2", "SelChange"}));
}

TEST_F(CurrentCell, IsForcedToTheLastColumnWithoutTheFirstTwoEvents) {
    grid.Select(3, 9);
    log.take();
    grid.Cols(5);
    EXPECT_EQ(at(), "3,4");
    EXPECT_EQ(log.take(), (Lines{"Enter 3,4", "RowColChange", "After 3,9 -> 3,4", "SelChange"}));
}

TEST_F(CurrentCell, IsNoneWithoutColumnsAndComesBackWithThem) {
    grid.Cols(0);
    EXPECT_EQ(at(), "1,-1");
    grid.Cols(3);
    EXPECT_EQ(at(), "1,0");
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, IsNoneWithoutRowsAndComesBackWithThem) {
    grid.FixedRows(0);
    grid.Rows(0);
    EXPECT_EQ(at(), "-1,1");
    grid.Rows(3);
    EXPECT_EQ(at(), "0,1");
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, FollowsItsDataWhenARowIsInsertedAtOrBeforeIt) {
    grid.Select(5, 1);
    log.take();
    grid.InsertRow(5);
    EXPECT_EQ(grid.Row(), 6);
    grid.InsertRow(2);
    EXPECT_EQ(grid.Row(), 7);
    grid.InsertRow(8);
    EXPECT_EQ(grid.Row(), 7);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, FollowsItsDataWhenAnEarlierRowIsRemoved) {
    grid.Select(5, 1);
    log.take();
    grid.RemoveRow(2);
    EXPECT_EQ(grid.Row(), 4);
    grid.RemoveRow(10);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, KeepsItsIndexWhenItsRowIsRemoved) {
    grid.Select(5, 1);
    log.take();
    grid.RemoveRow(5);
    EXPECT_EQ(grid.Row(), 5);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, TakesTheNewLastRowWhenTheLastIsRemovedUnderIt) {
    grid.Select(19, 1);
    log.take();
    grid.RemoveRow(19);
    EXPECT_EQ(grid.Row(), 18);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(CurrentCell, TellsOfRowsThatMoveOnceTheStateIsTheNewOne) {
    Lines moved;
    grid.RowMoved.connect([&](int row, bool inserted) {
        moved.push_back(std::to_string(row) + (inserted ? " in, " : " out, ") + std::to_string(grid.Rows()));
    });
    grid.InsertRow(3);
    grid.RemoveRow(7);
    EXPECT_EQ(moved, (Lines{"3 in, 21", "7 out, 20"}));
}

/// A listener that throws from any event of a move leaves a grid that goes on working.
class ThrowingListener : public ::testing::TestWithParam<int> {};

TEST_P(ThrowingListener, EndsTheMoveAtItsStepAndLeavesTheGridUsable) {
    CellGrid grid;
    Connection thrower;
    const auto fail = [] { throw std::runtime_error("host"); };
    switch (GetParam()) {
        case 0:
            thrower = grid.BeforeRowColChange.connect([=](int, int, int, int, bool&) { fail(); });
            break;
        case 1:
            thrower = grid.LeaveCell.connect(fail);
            break;
        case 2:
            thrower = grid.EnterCell.connect(fail);
            break;
        case 3:
            thrower = grid.RowColChange.connect(fail);
            break;
        case 4:
            thrower = grid.AfterRowColChange.connect([=](int, int, int, int) { fail(); });
            break;
        default:
            thrower = grid.SelChange.connect(fail);
    }
    EXPECT_THROW(grid.Select(3, 3), std::runtime_error);
    EXPECT_EQ(grid.Row(), GetParam() < 2 ? 1 : 3);
    thrower.disconnect();
    test::MoveLog log(grid);
    grid.InsertRow(1);
    const std::string from = test::MoveLog::cell(grid.Row(), grid.Col());
    EXPECT_TRUE(grid.Select(2, 5));
    EXPECT_EQ(log.take(), test::MoveLog::whole(from, "2,5"));
}
INSTANTIATE_TEST_SUITE_P(OfEveryEvent, ThrowingListener, ::testing::Range(0, 6));

TEST(ThrowingListeners, LeaveTheGridUsableWhereverTheyThrow) {
    CellGrid grid;
    grid.Resize(5000, 1500);
    const auto fail = [](auto&&...) { throw std::runtime_error("host"); };
    grid.CellChanged.connect(fail);
    grid.AfterScroll.connect(fail);
    grid.RowMoved.connect(fail);
    grid.RowsReordered.connect(fail);
    grid.KeyDown.connect(fail);
    grid.MouseDown.connect(fail);
    grid.MouseUp.connect(fail);
    grid.AfterUserResize.connect(fail);
    EXPECT_THROW(grid.Text(2, 2, "kept"), std::runtime_error);
    EXPECT_EQ(grid.Text(2, 2), "kept");
    EXPECT_THROW(grid.Data(2, 2, "tag"), std::runtime_error);
    EXPECT_EQ(grid.Data(2, 2), "tag");
    EXPECT_THROW(grid.InsertRow(1), std::runtime_error);
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(grid.Text(3, 2), "kept");
    EXPECT_THROW(grid.RemoveRow(1), std::runtime_error);
    EXPECT_EQ(grid.Text(2, 2), "kept");
    EXPECT_THROW(grid.TopRow(3), std::runtime_error);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_THROW(grid.keyDown(40, 0), std::runtime_error);
    EXPECT_THROW(grid.mouseDown(1, 0, 1995, 100), std::runtime_error);
    grid.mouseMove(1, 0, 2195, 100);
    EXPECT_THROW(grid.mouseUp(1, 0, 2195, 100), std::runtime_error);
    grid.mouseMove(1, 0, 2500, 100);
    EXPECT_EQ(grid.ColWidth(1), 1200);
    EXPECT_THROW(grid.userColWidth(1, 500), std::runtime_error);
    EXPECT_EQ(grid.ColWidth(1), 500);
    EXPECT_EQ(grid.Rows(), 6);
}
}  // namespace
}  // namespace kxVsGrid
