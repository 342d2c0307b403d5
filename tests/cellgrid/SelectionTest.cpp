// What is selected beside the current cell: by code, by key, and as rows and columns come and go.
#include <gtest/gtest.h>

#include "MoveLog.h"
#include "kit/PrintTo.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

using Lines = std::vector<std::string>;

class Selecting : public ::testing::Test {
  protected:
    Selecting() {
        grid.Rows(101);
        grid.Cols(10);
        grid.ScrollBars(false);
        grid.Resize(5000, 3000);
        grid.SelectsRanges(true);
        grid.Select(5, 3);
        log.take();
    }
    bool key(Key which, std::int16_t shift = ShiftKey) {
        return grid.keyDown(static_cast<std::int16_t>(which), shift);
    }
    void expectRange(std::int32_t firstRow, std::int32_t firstCol, std::int32_t lastRow,
                     std::int32_t lastCol) {
        EXPECT_EQ(grid.Selected(), (CellRange{firstRow, firstCol, lastRow, lastCol}));
    }
    std::string ends() const {
        return test::MoveLog::cell(grid.SelRow(), grid.SelCol()) + " to " +
               test::MoveLog::cell(grid.RowSel(), grid.ColSel());
    }
    std::string at() const { return test::MoveLog::cell(grid.Row(), grid.Col()); }

    CellGrid grid;
    test::MoveLog log{grid};
};

TEST_F(Selecting, IsTheCurrentCellAtFirst) {
    expectRange(5, 3, 5, 3);
    EXPECT_EQ(ends(), "5,3 to 5,3");
    EXPECT_TRUE(grid.SelectsOneCell());
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::Cells);
}

TEST_F(Selecting, ByCodeMovesNoCurrentCellAndTellsOnce) {
    grid.SelectRange(8, 4, 6, 2);
    EXPECT_EQ(log.take(), Lines{"SelChange"});
    EXPECT_EQ(ends(), "8,4 to 6,2");
    EXPECT_EQ(at(), "5,3");
    expectRange(6, 2, 8, 4);
    EXPECT_EQ(grid.Selected().rows(), 3);
    EXPECT_EQ(grid.Selected().cols(), 3);
    EXPECT_TRUE(grid.Selected().contains(7, 3));
    EXPECT_FALSE(grid.Selected().contains(5, 3));
    grid.SelectRange(8, 4, 6, 2);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(Selecting, TheCurrentCellAloneIsNoSelection) {
    grid.SelectRange(5, 3, 6, 3);
    grid.SelectRange(5, 3, 5, 3);
    EXPECT_TRUE(grid.SelectsOneCell());
    EXPECT_EQ(log.take(), (Lines{"SelChange", "SelChange"}));
    grid.SelectRange(6, 3, 6, 3);
    EXPECT_FALSE(grid.SelectsOneCell());
    grid.Unselect();
    grid.Unselect();
    EXPECT_EQ(log.take(), (Lines{"SelChange", "SelChange"}));
    expectRange(5, 3, 5, 3);
}

TEST_F(Selecting, TakesWholeRowsWholeColumnsAndEverything) {
    grid.SelectRows(7, 4);
    expectRange(4, 1, 7, 9);
    EXPECT_EQ(ends(), "7,1 to 4,9");
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::Rows);
    grid.SelectCols(2, 3);
    expectRange(1, 2, 100, 3);
    EXPECT_EQ(ends(), "1,2 to 100,3");
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::Columns);
    grid.SelectAll();
    expectRange(1, 1, 100, 9);
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::All);
    EXPECT_EQ(at(), "5,3");
    EXPECT_EQ(log.take(), (Lines{"SelChange", "SelChange", "SelChange"}));
    grid.SelectRange(1, 1, 100, 9);  // the same cells, taken as others
    EXPECT_EQ(log.take(), Lines{"SelChange"});
}

TEST_F(Selecting, RefusesWhatIsNoDataCell) {
    EXPECT_THROW(grid.SelectRange(0, 1, 2, 2), GridError);
    EXPECT_THROW(grid.SelectRange(1, 1, 2, 0), GridError);
    EXPECT_THROW(grid.SelectRange(1, 1, 101, 2), GridError);
    EXPECT_THROW(grid.SelectRange(1, -1, 2, 2), GridError);
    EXPECT_THROW(grid.SelectRows(1, 0), GridError);
    EXPECT_THROW(grid.SelectRows(101, 1), GridError);
    EXPECT_THROW(grid.SelectCols(0, 1), GridError);
    EXPECT_THROW(grid.SelectCols(1, 10), GridError);
    EXPECT_EQ(log.take(), Lines{});
    EXPECT_TRUE(grid.SelectsOneCell());
    try {
        grid.SelectCols(0, 1);
    } catch (const GridError& refusal) {
        EXPECT_STREQ(refusal.what(), "CellGrid.SelectCols: 0 is a fixed column");
    }
}

TEST_F(Selecting, IsEmptyWithoutDataCells) {
    CellGrid empty;
    empty.Rows(1);
    EXPECT_TRUE(empty.Selected().empty());
    EXPECT_EQ(empty.Selected().rows(), 0);
    EXPECT_EQ(empty.Selected().cols(), 0);
    empty.SelectAll();
    empty.SelectCols(1, 2);
    EXPECT_TRUE(empty.SelectsOneCell());
    empty.Cols(0);
    EXPECT_TRUE(empty.Selected().empty());
    grid.Select(0, 3);  // code may go there
    EXPECT_TRUE(grid.Selected().empty());
}

TEST_F(Selecting, IsOverWithAnyMoveWhichTellsOnce) {
    key(Key::Down);
    log.take();
    grid.Row(9);
    EXPECT_EQ(log.take(), test::MoveLog::whole("5,3", "9,3"));
    expectRange(9, 3, 9, 3);
    grid.SelectAll();
    log.take();
    key(Key::Right, 0);
    EXPECT_EQ(log.take(), test::MoveLog::whole("9,3", "9,4"));
    expectRange(9, 4, 9, 4);
}

TEST_F(Selecting, OutlivesAMoveThatIsCancelledOrLeadsNowhere) {
    key(Key::Down);
    auto refusing = grid.BeforeRowColChange.connect([](int, int, int, int, bool& cancel) { cancel = true; });
    grid.Row(9);
    grid.Select(5, 3);
    expectRange(5, 3, 6, 3);
}

TEST_F(Selecting, EndsWithAKeyThatCannotGoOn) {
    grid.Select(1, 1);
    key(Key::Down);
    log.take();
    EXPECT_TRUE(key(Key::Up, 0));
    EXPECT_EQ(log.take(), Lines{"SelChange"});
    expectRange(1, 1, 1, 1);
    EXPECT_FALSE(key(Key::Up, 0));
}

TEST_F(Selecting, MovesItsCornerWithShift) {
    EXPECT_TRUE(key(Key::Down));
    EXPECT_TRUE(key(Key::Right));
    expectRange(5, 3, 6, 4);
    EXPECT_EQ(log.take(), (Lines{"SelChange", "SelChange"}));
    EXPECT_EQ(at(), "5,3");
    key(Key::Up);
    key(Key::Up);
    key(Key::Left);
    key(Key::Left);
    expectRange(4, 2, 5, 3);
    EXPECT_EQ(ends(), "5,3 to 4,2");
    key(Key::Home);
    expectRange(4, 1, 5, 3);
    key(Key::End);
    expectRange(4, 3, 5, 9);
    key(Key::End, ShiftKey | CtrlKey);
    expectRange(5, 3, 100, 9);
    key(Key::Home, ShiftKey | CtrlKey);
    expectRange(1, 1, 5, 3);
    EXPECT_FALSE(key(Key::Home, ShiftKey | CtrlKey));
    key(Key::PageDown);
    expectRange(5, 1, 10, 3);
    EXPECT_EQ(at(), "5,3");
}

TEST_F(Selecting, StepsOverWhatIsHidden) {
    grid.RowHidden(6, true);
    grid.ColHidden(4, true);
    key(Key::Down);
    key(Key::Right);
    expectRange(5, 3, 7, 5);
}

TEST_F(Selecting, BringsItsCornerIntoViewClearOfTheStrip) {
    grid.BottomStrip(300);
    for (int i = 0; i < 4; ++i) key(Key::Down);
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(ends(), "5,3 to 9,3");
    key(Key::Right);
    key(Key::Right);
    EXPECT_EQ(grid.LeftCol(), 2);
}

TEST_F(Selecting, ByWholeRowsGoesByRowsAndByWholeColumnsByColumns) {
    grid.SelectRows(4, 4);
    key(Key::Down);
    EXPECT_FALSE(key(Key::Right));
    expectRange(4, 1, 5, 9);
    key(Key::End, ShiftKey | CtrlKey);
    expectRange(4, 1, 100, 9);
    grid.SelectCols(4, 4);
    key(Key::Left);
    EXPECT_FALSE(key(Key::Up));
    expectRange(1, 3, 100, 4);
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::Columns);
    grid.SelectAll();
    log.take();
    EXPECT_FALSE(key(Key::Up));
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(Selecting, IsNotForTheUserUnlessItIsSwitchedOn) {
    grid.SelectsRanges(false);
    key(Key::Down);
    EXPECT_EQ(at(), "6,3");
    EXPECT_TRUE(grid.SelectsOneCell());
    EXPECT_FALSE(CellGrid().SelectsRanges());
}

TEST_F(Selecting, CannotBeginInTheFixedArea) {
    grid.Select(0, 3);
    key(Key::Down);
    EXPECT_EQ(at(), "1,3");
    EXPECT_TRUE(grid.SelectsOneCell());
}

TEST_F(Selecting, FollowsItsRows) {
    grid.SelectRange(5, 3, 8, 4);
    log.take();
    grid.InsertRow(2);
    expectRange(6, 3, 9, 4);
    EXPECT_EQ(at(), "6,3");
    grid.InsertRow(6);
    expectRange(7, 3, 10, 4);
    grid.InsertRow(9);
    expectRange(7, 3, 11, 4);
    grid.InsertRow(12);
    expectRange(7, 3, 11, 4);
    grid.RemoveRow(1);
    expectRange(6, 3, 10, 4);
    grid.RemoveRow(8);
    expectRange(6, 3, 9, 4);
    grid.RemoveRow(9);
    expectRange(6, 3, 8, 4);
    grid.RemoveRow(6);  // the row below is the current one now
    expectRange(6, 3, 7, 4);
    EXPECT_EQ(ends(), "6,3 to 7,4");
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(Selecting, EndsWhenItsRowsHaveGoneOrItNoLongerBeginsAtTheCurrentCell) {
    grid.SelectRows(7, 8);
    grid.RemoveRow(7);
    expectRange(7, 1, 7, 9);
    grid.RemoveRow(7);
    EXPECT_TRUE(grid.SelectsOneCell());
    grid.SelectRange(5, 3, 4, 3);
    grid.RemoveRow(5);
    EXPECT_TRUE(grid.SelectsOneCell());
    expectRange(5, 3, 5, 3);
}

TEST_F(Selecting, OfWholeColumnsAndOfEverythingTakesInWhatComes) {
    grid.SelectCols(2, 3);
    grid.Rows(120);
    grid.InsertRow(1);
    expectRange(1, 2, 120, 3);
    grid.RemoveRow(1);
    grid.Rows(50);
    expectRange(1, 2, 49, 3);
    grid.SelectAll();
    grid.Cols(12);
    grid.InsertRow(50);
    expectRange(1, 1, 50, 11);
    grid.SelectRows(2, 3);
    grid.Cols(5);
    expectRange(2, 1, 3, 4);
}

TEST_F(Selecting, IsCutWhereTheGridEnds) {
    grid.SelectRange(5, 3, 40, 8);
    log.take();
    grid.Cols(6);
    expectRange(5, 3, 40, 5);
    grid.Rows(20);
    expectRange(5, 3, 19, 5);
    grid.FixedRows(7);
    grid.FixedCols(4);
    expectRange(7, 4, 19, 5);
    EXPECT_EQ(log.take(), Lines{});
    grid.SelectCols(5, 5);
    grid.Cols(5);
    EXPECT_TRUE(grid.SelectsOneCell());
}

TEST_F(Selecting, EndsWithTheDataCells) {
    grid.SelectAll();
    grid.FixedCols(10);
    EXPECT_TRUE(grid.SelectsOneCell());
    EXPECT_TRUE(grid.Selected().empty());
}

TEST_F(Selecting, EndsWithAMoveThatTheLossOfRowsForces) {
    grid.SelectCols(2, 3);
    log.take();
    grid.Rows(4);
    EXPECT_TRUE(grid.SelectsOneCell());
    EXPECT_EQ(log.take(), (Lines{"Enter 3,3", "RowColChange", "After 5,3 -> 3,3", "SelChange"}));
}

TEST_F(Selecting, BringsNothingIntoViewOfAGridThatItsListenerDestroys) {
    auto doomed = std::make_unique<CellGrid>();
    doomed->SelectsRanges(true);
    doomed->SelChange.connect([&] { doomed.reset(); });
    doomed->keyDown(static_cast<std::int16_t>(Key::Down), ShiftKey);
    EXPECT_FALSE(doomed);
}

TEST_F(Selecting, WithItsMouseGoesWithAGridThatItsListenerDestroys) {
    for (int way = 0; way < 4; ++way) {
        auto doomed = std::make_unique<CellGrid>();
        doomed->SelectsRanges(true);
        doomed->Resize(5000, 3000);
        if (way == 1) doomed->SelectAll();
        if (way == 3) doomed->mouseDown(LeftButton, 0, 1500, 400);
        doomed->SelChange.connect([&] { doomed.reset(); });
        if (way == 0) doomed->mouseDown(LeftButton, ShiftKey, 2500, 700);
        if (way == 1) doomed->mouseDown(LeftButton, 0, 1500, 400);
        if (way == 2) doomed->mouseDown(LeftButton, 0, 2500, 100);
        if (way == 3) doomed->mouseMove(LeftButton, 0, 2500, 5000);
        EXPECT_FALSE(doomed) << way;
    }
}
}  // namespace
}  // namespace kxVsGrid
