// The mouse on the grid: presses, double clicks, scrolling, column widths, and the total row that follows.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class Presses : public ClerkTest {
  protected:
    static Lines pressed() { return {"MouseDown", line("Click")}; }
};

TEST_F(Presses, MoveFirstAndAreThenTold) {
    desk.click(2, 3);
    EXPECT_EQ(heardWithoutPlaces(), moves(1, 1, 2, 3) + pressed());
    EXPECT_EQ(current(), (Cell{2, 3}));
    EXPECT_FALSE(open());
}

TEST_F(Presses, OnTheCurrentCellMoveNothing) {
    desk.click(1, 1);
    EXPECT_EQ(heardWithoutPlaces(), (Lines{"MouseDown", line("Click")}));
}

TEST_F(Presses, OnFixedCellsMoveNothing) {
    desk.click(0, 3);
    desk.click(3, 0);
    EXPECT_EQ(named(heard(), "BeforeRowColChange"), Lines{});
    EXPECT_EQ(current(), (Cell{1, 1}));
}

TEST_F(Presses, OfTheRightButtonMoveFirstAndAreThenTold) {
    desk.rightClick(3, 3);
    EXPECT_EQ(heardWithoutPlaces(), moves(1, 1, 3, 3) + Lines{"MouseDown"});
    EXPECT_EQ(current(), (Cell{3, 3}));
}

TEST_F(Presses, TellButtonAndShift) {
    std::vector<std::int16_t> seen;
    bool preset = true;
    grid.MouseDown.connect([&](std::int16_t button, std::int16_t shift, float, float, bool& cancel) {
        seen = {button, shift};
        preset = cancel;
    });
    desk.click(2, 2, ShiftKey);
    EXPECT_EQ(seen, (std::vector<std::int16_t>{LeftButton, ShiftKey}));
    EXPECT_FALSE(preset);
}

TEST_F(Presses, OfTheLeftButtonOnAReadOnlyGridOnlyMove) {
    grid.Editable(false);
    log.clear();
    desk.click(2, 3);
    EXPECT_EQ(heardWithoutPlaces(), moves(1, 1, 2, 3) + pressed());
    EXPECT_FALSE(open());
}

TEST_F(Presses, ThatTheHostKeepsFromMovingAreToldAllTheSame) {
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.click(2, 3);
    EXPECT_EQ(heardWithoutPlaces(), asks(1, 1, 2, 3) + pressed());
    EXPECT_EQ(current(), (Cell{1, 1}));
}

TEST_F(Presses, InAnotherCellCommitTheEditorOnce) {
    desk.type("abc");
    heard();
    desk.click(3, 3);
    EXPECT_EQ(heardWithoutPlaces(), changed(1, 1) + edited(1, 1) + moves(1, 1, 3, 3) + pressed());
    EXPECT_EQ(text(1, 1), "abc");
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(Presses, AreNotDeliveredWhileTheOpenTextIsRefused) {
    typed(1, flexDTDouble);
    desk.type("abc");
    heard();
    desk.click(3, 3);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(Presses, MouseMovesAreToldAsTheyAre) {
    grid.Grid().MouseMove(LeftButton, CtrlKey, 300.0F, 450.0F);
    std::vector<float> places;
    EXPECT_EQ(heardWithoutPlaces(), (Lines{"MouseMove"}));
    std::int16_t button = 0;
    std::int16_t shift = 0;
    grid.MouseMove.connect([&](std::int16_t& b, std::int16_t& s, float& x, float& y) {
        button = b;
        shift = s;
        places = {x, y};
    });
    grid.Grid().MouseMove(RightButton, ShiftKey, 315.0F, 465.0F);
    EXPECT_EQ(button, RightButton);
    EXPECT_EQ(shift, ShiftKey);
    EXPECT_EQ(places, (std::vector<float>{315.0F, 465.0F}));
}

TEST_F(Presses, MouseMovesOverTheGridReachTheHost) {
    desk.mouseMove(0, 0, 1500, 700);
    EXPECT_EQ(heardWithoutPlaces(), (Lines{"MouseMove"}));
    desk.surfaceMouseMove(0, 0, 5.0F, 5.0F);
    EXPECT_EQ(heardWithoutPlaces(), (Lines{"MouseMove"}));
}

TEST_F(Presses, AndOtherReportsOfTheEngineArePassedOn) {
    grid.Grid().Click();
    grid.Grid().SelChange();
    grid.Grid().CellChanged(2, 3);
    grid.Grid().AfterEdit(4, 5);
    EXPECT_EQ(heard(), (Lines{line("Click"), line("SelChange")} + changed(2, 3) + edited(4, 5)));
}

class DoubleClicks : public ClerkTest {
  protected:
    Lines heardOfIt() { return without(without(heard(), "MouseDown"), "Click"); }
};

TEST_F(DoubleClicks, OpenTheEditorAndAreToldAfterwards) {
    fill(2, 3, "螺栓", "A001");
    bool wasOpen = false;
    grid.DblClick.connect([&] { wasOpen = open(); });
    desk.doubleClick(2, 3);
    EXPECT_EQ(heardOfIt(), moves(1, 1, 2, 3) + opens() + Lines{line("DblClick")});
    EXPECT_TRUE(wasOpen);
    EXPECT_EQ(desk.editor().text, "螺栓");
    EXPECT_EQ(desk.editor().tag, "A001");
    EXPECT_EQ(desk.editor().selStart, 0u);
    EXPECT_EQ(desk.editor().selLength, 2u);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(DoubleClicks, OnTheLastRowAskForNoRow) {
    consentToRows();
    desk.doubleClick(5, 3);
    EXPECT_EQ(heardOfIt(), moves(1, 1, 5, 3) + opens() + Lines{line("DblClick")});
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(DoubleClicks, InAReadOnlyColumnAreOnlyTold) {
    readOnly(3);
    desk.doubleClick(2, 3);
    EXPECT_EQ(heardOfIt(), moves(1, 1, 2, 3) + Lines{line("DblClick")});
    EXPECT_FALSE(open());
}

TEST_F(DoubleClicks, OnAGridThatIsNotEditableAreOnlyTold) {
    grid.Editable(false);
    log.clear();
    desk.doubleClick(2, 3);
    EXPECT_EQ(heardOfIt(), moves(1, 1, 2, 3) + Lines{line("DblClick")});
    EXPECT_FALSE(open());
}

TEST_F(DoubleClicks, ToggleABooleanCellOnce) {
    typed(3, flexDTBoolean);
    desk.doubleClick(2, 3);
    EXPECT_EQ(text(2, 3), "-1");
    EXPECT_EQ(without(heardOfIt(), "BeforeTextEdit"),
              moves(1, 1, 2, 3) + changed(2, 3) + edited(2, 3) + Lines{line("DblClick")});
    EXPECT_FALSE(open());
}

TEST_F(DoubleClicks, OnABooleanCellOfTheLastRowAskForARowFirst) {
    consentToRows();
    typed(3, flexDTBoolean);
    at(5, 3);
    desk.doubleClick(5, 3);
    EXPECT_EQ(without(heardOfIt(), "BeforeTextEdit"),
              asksForRow(5, false) + changed(5, 3) + edited(5, 3) + Lines{line("DblClick")});
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(DoubleClicks, CommitAnOpenEditorAndOpenItAgain) {
    desk.type("abc");
    heard();
    grid.Grid().DblClick();
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + opens() + Lines{line("DblClick")});
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(desk.editor().selLength, 3u);
}

TEST_F(DoubleClicks, KeepARefusedTextOpenAsItIs) {
    typed(1, flexDTDouble);
    desk.type("abc");
    grid.Grid().DblClick();
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(DoubleClicks, LeaveHiddenColumnsToTheLeft) {
    grid.ColHidden(3, true);
    grid.ColHidden(4, true);
    at(2, 4);
    grid.Grid().DblClick();
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_TRUE(open());
}

TEST_F(DoubleClicks, LeaveHiddenColumnsNoFurtherThanTheFirstDataColumn) {
    grid.ColHidden(1, true);
    grid.ColHidden(2, true);
    at(2, 2);
    grid.Grid().DblClick();
    EXPECT_EQ(current(), (Cell{2, 1}));
    EXPECT_FALSE(open());
}

TEST_F(DoubleClicks, LeaveHiddenRowsDownwards) {
    grid.Grid().RowHidden(2, true);
    grid.Grid().RowHidden(3, true);
    at(2, 1);
    grid.Grid().DblClick();
    EXPECT_EQ(current(), (Cell{4, 1}));
    EXPECT_TRUE(open());
}

TEST_F(DoubleClicks, LeaveHiddenRowsUpwardsWhenThereAreNoOthersBelow) {
    for (int r : {3, 4, 5}) grid.Grid().RowHidden(r, true);
    at(4, 1);
    grid.Grid().DblClick();
    EXPECT_EQ(current(), (Cell{2, 1}));
    EXPECT_TRUE(open());
}

TEST_F(ClerkTest, ReleasesOfTheLeftButtonArriveAlsoWhenTheRightOneWasPressedMeanwhile) {
    int released = 0;
    grid.Grid().MouseUp.connect([&](std::int16_t button, auto, auto, auto) { released += button; });
    desk.mouseDown(LeftButton, 0, 1500, 400).mouseDown(RightButton, 0, 1500, 400);
    desk.mouseUp(RightButton, 0, 1500, 400).mouseUp(LeftButton, 0, 1500, 400);
    EXPECT_EQ(released, LeftButton + RightButton);
    EXPECT_EQ(named(heard(), "Click").size(), 1u);
    desk.mouseUp(LeftButton, 0, 1500, 400);
    EXPECT_EQ(released, LeftButton + RightButton);
}

TEST_F(DoubleClicks, PassHiddenRowsInOneMoveThatFillsNothingIntoThem) {
    column(2).sDefaultText_Name("仓库");
    grid.ReDraw(true);
    for (int r : {2, 3, 4}) grid.Grid().RowHidden(r, true);
    at(2, 1);
    grid.Grid().Text(2, 2, "");
    heard();
    grid.Grid().DblClick();
    EXPECT_EQ(named(heard(), "BeforeRowColChange"), asks(2, 1, 5, 1));
    EXPECT_EQ(text(3, 2), "");
    EXPECT_EQ(text(4, 2), "");
    EXPECT_EQ(text(5, 2), "仓库");
}

class Scrolling : public ClerkTest {
  protected:
    Scrolling() {
        grid.Cols(20);
        grid.ReDraw(true);
        rows(60);
    }
};

TEST_F(Scrolling, IsFollowedByTheTotalRow) {
    desk.scrollTo(10, 4);
    EXPECT_EQ(grid.Grid().TopRow(), 10);
    EXPECT_EQ(grid.Grid().LeftCol(), 4);
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), 4);
    grid.Grid().LeftCol(2);
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), 2);
}

TEST_F(Scrolling, BringsARowIntoViewUnderFixedRowsOfAnyHeight) {
    grid.RowHeight(0, 800'000'000);
    grid.FixedRows(3);
    grid.Grid().TopRow(40);
    grid.Row(20);
    EXPECT_LE(grid.Grid().TopRow(), 20);
}

TEST_F(Scrolling, ToAFarCellIsFollowedByTheTotalRow) {
    grid.Col(19);
    EXPECT_GT(grid.Grid().LeftCol(), 1);
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), grid.Grid().LeftCol());
}

TEST_F(Scrolling, ToTheLastColumnIsFollowedByTheTotalRow) {
    desk.scrollTo(1, 19);
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), grid.Grid().LeftCol());
    for (int c = 1; c < 20; ++c)
        EXPECT_EQ(grid.Grid_Sum().CellRect(0, c).left, grid.Grid().CellRect(0, c).left) << c;
}

TEST_F(Scrolling, AwayFromAnOpenEditorSnapsBack) {
    desk.type("a");
    heard();
    desk.scrollTo(10, 4);
    EXPECT_EQ(grid.Grid().TopRow(), 1);
    EXPECT_EQ(grid.Grid().LeftCol(), 1);
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), 1);
    desk.wheel(3);
    EXPECT_EQ(grid.Grid().TopRow(), 1);
    grid.Grid().TopRow(20);
    EXPECT_EQ(grid.Grid().TopRow(), 1);
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "a");
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(Scrolling, WorksAgainWhenTheEditorHasGone) {
    desk.type("a");
    desk.scrollTo(10, 4);
    desk.press(Key::Escape);
    desk.scrollTo(10, 4);
    EXPECT_EQ(grid.Grid().TopRow(), 10);
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), 4);
}

TEST_F(Scrolling, ByTheWheelGoesThreeRowsANotch) {
    desk.wheel(2);
    EXPECT_EQ(grid.Grid().TopRow(), 7);
    desk.wheel(-1);
    EXPECT_EQ(grid.Grid().TopRow(), 4);
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(heard(), Lines{});
}

class ColumnDragging : public ClerkTest {};

TEST_F(ColumnDragging, TakesTheTotalRowAlong) {
    grid.SumRow(true);
    log.clear();
    desk.dragColumn(2, 1500);
    EXPECT_EQ(grid.ColWidth(2), 1500);
    EXPECT_EQ(grid.Grid_Sum().ColWidth(2), 1500);
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(ColumnDragging, LiftsTheTotalRowOverTheScrollBarThatAppears) {
    grid.SumRow(true);
    const std::int32_t before = grid.totalRowRect().top;
    desk.dragColumn(2, 7000);
    EXPECT_TRUE(grid.Grid().HorizontalBarShown());
    EXPECT_EQ(grid.totalRowRect().top, before - 255);
    desk.dragColumn(2, 1000);
    EXPECT_EQ(grid.totalRowRect().top, before);
}

/// A control of 9000 x 6000 twips whose total row covers the bottom edge.
class TotalStrip : public ClerkTest {
  protected:
    TotalStrip() {
        desk.resize(9000, 6000);
        grid.SumRow(true);
        rows(60);
    }
    void expectClear(std::int32_t row) {
        const Rect place = grid.Grid().CellRect(row, 1);
        EXPECT_LE(grid.gridRect().top + place.bottom(), grid.totalRowRect().top) << desk.ascii();
        EXPECT_GE(place.top, grid.Grid().FixedHeight());
    }
};

TEST_F(TotalStrip, LeavesTheLastRowClearWhenCodeGoesThere) {
    grid.Row(59);
    expectClear(59);
}

TEST_F(TotalStrip, LeavesEveryRowClearOnTheWayDown) {
    for (int r = 2; r < 60; ++r) {
        desk.press(Key::Down);
        ASSERT_EQ(grid.Row(), r);
        expectClear(r);
    }
}

TEST_F(TotalStrip, LeavesTheLastRowClearAboveAScrollBarToo) {
    grid.Cols(20);
    grid.Row(59);
    EXPECT_TRUE(grid.Grid().HorizontalBarShown());
    expectClear(59);
}

TEST_F(TotalStrip, LeavesTheLastRowClearAtTheEndOfTheScrollRange) {
    desk.scrollTo(59, 1);
    expectClear(59);
}

TEST_F(TotalStrip, LeavesAnAddedRowClear) {
    consentToRows();
    desk.press(Key::Insert);
    EXPECT_EQ(grid.Row(), 60);
    expectClear(60);
    grid.AddRow(grid.Rows(), true, false);
    EXPECT_EQ(grid.Row(), 61);
    expectClear(61);
}

TEST_F(TotalStrip, LeavesTheEditorOnTheLastRowClear) {
    grid.Row(59);
    desk.type("a");
    EXPECT_TRUE(open());
    EXPECT_LE(desk.editor().rect.bottom(), grid.totalRowRect().top) << desk.ascii();
    expectClear(59);
}

TEST_F(TotalStrip, LeavesTheEditorClearWhenItIsOpenedUnderTheStrip) {
    grid.Row(59);
    desk.scrollTo(1, 1);
    // The row that the strip covers at present.
    std::int32_t covered = 1;
    while (grid.gridRect().top + grid.Grid().CellRect(covered, 1).bottom() <= grid.totalRowRect().top)
        ++covered;
    grid.Row(covered);
    desk.scrollTo(1, 1);
    desk.type("a");
    EXPECT_TRUE(open());
    EXPECT_LE(desk.editor().rect.bottom(), grid.totalRowRect().top) << desk.ascii();
}

TEST_F(TotalStrip, CoversNothingWhileItIsHidden) {
    grid.SumRow(false);
    grid.Row(59);
    EXPECT_FALSE(grid.totalRowShown());
    EXPECT_EQ(grid.Grid().BottomStrip(), 0);
    EXPECT_TRUE(grid.Grid().RowIsVisible(59));
}

}  // namespace
}  // namespace kxVsGrid::testing
