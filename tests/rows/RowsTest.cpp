// The row count, the fixed rows, Clear, and the current row and column.
#include <cstdint>
#include <limits>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

/// The events of a move that nobody is asked about, because the old cell has gone.
Lines forcedMove(std::int32_t r0, std::int32_t c0, std::int32_t r1, std::int32_t c1) {
    return arrives() + settles(r0, c0, r1, c1);
}

class RowCount : public PlacedGrid {};

TEST_F(RowCount, IsSixWithOneFixedRowInAFreshGrid) {
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
}

TEST_F(RowCount, NeverLeavesFewerThanFiveDataRows) {
    for (const std::int32_t asked : {2, 0, 1, 5, 6, -3, std::numeric_limits<std::int32_t>::min()}) {
        grid.Rows(asked);
        EXPECT_EQ(grid.Rows(), 6) << asked;
    }
    grid.Rows(7);
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(RowCount, CountsTheFiveRowsBelowTheFixedOnes) {
    grid.FixedRows(3);
    grid.Rows(4);
    EXPECT_EQ(grid.Rows(), 8);
    grid.Rows(1);
    EXPECT_EQ(grid.Rows(), 8);
}

TEST_F(RowCount, MakesTheRowsOfTheMinimumThreeHundredHigh) {
    vs().RowHeight(1, 700);
    vs().RowHeight(2, 700);
    vs().RowHeight(4, 700);
    grid.Rows(2);
    EXPECT_EQ(grid.RowHeight(1), 700);
    for (std::int32_t row = 2; row < 6; ++row) EXPECT_EQ(grid.RowHeight(row), 300) << row;
}

TEST_F(RowCount, KeepsTheRowsThatStayAndEmptiesThoseThatReturn) {
    grid.Rows(9);
    grid.SetCell(2, 1, "stays", "tag");
    grid.SetCell(8, 1, "goes", "tag");
    grid.SetCell(4, 1, "goes too", "tag");
    grid.Rows(3);
    EXPECT_EQ(text(2, 1), "stays");
    EXPECT_EQ(tag(2, 1), "tag");
    EXPECT_EQ(text(4, 1), "");
    EXPECT_EQ(tag(4, 1), "");
    grid.Rows(9);
    EXPECT_EQ(text(8, 1), "");
    EXPECT_EQ(tag(8, 1), "");
}

TEST_F(RowCount, IsReportedOnceHoweverManyRowsAreAppended) {
    grid.Rows(0);
    EXPECT_EQ(reported(), Lines{"Rows"});
    grid.Rows(20);
    EXPECT_EQ(reported(), Lines{"Rows"});
    grid.Rows(20);
    EXPECT_EQ(reported(), Lines{"Rows"});
}

TEST_F(RowCount, RaisesNoEventsWhileTheCurrentRowStays) {
    grid.Rows(20);
    grid.Rows(3);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(RowCount, TakesTheCurrentRowAlongWithoutAsking) {
    grid.Rows(20);
    vs().Select(15, 3);
    heard();
    grid.Rows(10);
    EXPECT_EQ(heard(), forcedMove(15, 3, 9, 3));
    EXPECT_EQ(grid.Row(), 9);
}

TEST_F(RowCount, RefreshesTheRowNumbers) {
    grid.Rows(12);
    for (std::int32_t row = 1; row < 12; ++row) EXPECT_EQ(text(row, 0), std::to_string(row));
    EXPECT_EQ(text(0, 0), "");
    grid.SetCell(3, 0, "mine");
    EXPECT_EQ(text(3, 0), "mine");
    grid.Rows(12);
    EXPECT_EQ(text(3, 0), "3");
}

TEST_F(RowCount, PaintsTheColumnsThatHaveTheirOwnColours) {
    column(2).b是否设列颜色(true);
    column(2).d列前景色(0);
    column(2).d列背景色(0xC0FFEE);
    column(3).d列前景色(0x112233);
    column(3).d列背景色(0x445566);
    grid.Rows(8);
    for (std::int32_t row = 1; row < 8; ++row) {
        EXPECT_EQ(vs().CellForeColor(row, 2), color(0)) << row;
        EXPECT_EQ(vs().CellBackColor(row, 2), color(0xC0FFEE)) << row;
        EXPECT_EQ(vs().CellForeColor(row, 3), NoColor) << row;
        EXPECT_EQ(vs().CellBackColor(row, 3), NoColor) << row;
    }
    EXPECT_EQ(vs().CellForeColor(0, 2), NoColor);
    EXPECT_EQ(vs().CellBackColor(0, 2), NoColor);
}

TEST_F(RowCount, PaintsFixedColumnsAndSystemColoursToo) {
    column(0).b是否设列颜色(true);
    column(0).d列前景色(2147483666.0);   // &H80000012, as an unsigned number
    column(0).d列背景色(-2147483633.0);  // &H8000000F, as a signed one
    grid.Rows(6);
    EXPECT_EQ(vs().CellForeColor(5, 0), color(0x80000012));
    EXPECT_EQ(vs().CellBackColor(5, 0), color(0x8000000F));
}

TEST_F(RowCount, RecomputesTheTotalsAlsoWhileReDrawIsOff) {
    summed(2);
    grid.SetCell(1, 2, "5");
    grid.SetCell(5, 2, "7");
    EXPECT_EQ(grid.ReadSum(2), "");
    grid.Rows(6);
    EXPECT_EQ(grid.ReadSum(2), "12");
    grid.Rows(3);
    EXPECT_EQ(grid.ReadSum(2), "5");
}

TEST_F(RowCount, CommitsAnEditorWhoseRowGoes) {
    grid.Rows(20);
    typeInto(15, 1, "typed");
    grid.Rows(10);
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(15, 1));
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_EQ(text(9, 1), "");
}

TEST_F(RowCount, CommitsAnEditorWhoseRowStays) {
    typeInto(1, 1, "typed");
    grid.Rows(20);
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
}

TEST_F(RowCount, BeyondSixteenBitsIsEditedLikeAnyOther) {
    grid.Rows(70'001);
    EXPECT_EQ(text(70'000, 0), "70000");
    typeInto(70'000, 1, "far");
    desk.press(Key::Up);
    EXPECT_EQ(heard(), changed(70'000, 1) + edited(70'000, 1) + asksForRow(70'000, false) +
                           moves(70'000, 1, 69'999, 1));
    EXPECT_EQ(grid.ReadCell(70'000, 1, true), "far");
    EXPECT_EQ(grid.Row(), 69'999);
}

TEST_F(RowCount, BeyondTheLargestIsRefusedAndChangesNothing) {
    EXPECT_THROW(grid.Rows(100'000'001), GridError);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(desk.reports(), Nothing);
    grid.Rows(8);
    EXPECT_EQ(grid.Rows(), 8);
}

TEST_F(RowCount, LeavesTheTotalRowAtOneRow) {
    setUp();
    grid.Rows(30);
    EXPECT_EQ(sum().Rows(), 1);
}

class FixedRowCount : public PlacedGrid {};

TEST_F(FixedRowCount, IsThatOfTheMainGridAlone) {
    setUp();
    grid.FixedRows(2);
    EXPECT_EQ(grid.FixedRows(), 2);
    EXPECT_EQ(vs().FixedRows(), 2);
    EXPECT_EQ(sum().FixedRows(), 0);
    EXPECT_EQ(reported(), Lines{"FixedRows"});
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(FixedRowCount, OutsideTheRowsIsRefused) {
    EXPECT_THROW(grid.FixedRows(7), GridError);
    EXPECT_THROW(grid.FixedRows(-1), GridError);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(desk.reports(), Nothing);
    grid.FixedRows(0);
    EXPECT_EQ(grid.FixedRows(), 0);
}

class Clear : public PlacedGrid {};

TEST_F(Clear, LeavesTheFixedRowsAndFiveEmptyOnes) {
    grid.FormatString("行号|货号");
    grid.Rows(30);
    grid.SetCell(1, 1, "a", "b");
    grid.SetCell(29, 1, "a", "b");
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(text(0, 1), "货号");
    for (std::int32_t row = 1; row < 6; ++row) {
        EXPECT_EQ(text(row, 1), "") << row;
        EXPECT_EQ(tag(row, 1), "") << row;
        EXPECT_EQ(text(row, 0), std::to_string(row));
        EXPECT_EQ(grid.RowHeight(row), 300) << row;
    }
}

TEST_F(Clear, CountsFromTheFixedRows) {
    grid.FixedRows(2);
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(grid.FixedRows(), 2);
}

TEST_F(Clear, ReportsTheRows) {
    grid.Clear();
    EXPECT_EQ(reported(), Lines{"Rows"});
}

TEST_F(Clear, DropsTheTextOfAnOpenEditor) {
    column(1).b是否提供帮助(true);
    typeInto(1, 1, "typed");
    grid.TextTag("tag");
    grid.Clear();
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_FALSE(desk.editor().helpButton);
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(grid.TextTag(), "");
    EXPECT_EQ(named(heard(), "AfterEdit"), Nothing);
    EXPECT_EQ(text(1, 1), "");
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(Clear, EmptiesTheHiddenEditorToo) {
    grid.Text("text");
    grid.TextTag("tag");
    grid.Clear();
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(grid.TextTag(), "");
}

TEST_F(Clear, TakesTheCurrentCellIntoTheFixedRowWithoutAsking) {
    vs().Select(4, 3);
    heard();
    grid.Clear();
    EXPECT_EQ(heard(), forcedMove(4, 3, 0, 3));
}

TEST_F(Clear, LetsTheClerkTypeOnInTheFirstDataRow) {
    desk.focusGrid();
    vs().Select(3, 2);
    heard();
    grid.Clear();
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 2);
    desk.type("A001").press(Key::Enter);
    EXPECT_EQ(text(1, 2), "A001");
}

TEST_F(Clear, BringsTheTotalsToZero) {
    summed(2);
    setUp();
    grid.SetCell(1, 2, "5");
    EXPECT_EQ(grid.ReadSum(2), "5");
    grid.Clear();
    EXPECT_EQ(grid.ReadSum(2), "0");
}

TEST_F(Clear, KeepsDefinitionsAndColumns) {
    grid.ColWidth(3, 2345);
    auto held = grid.VsCtrl(3);
    grid.Clear();
    EXPECT_EQ(grid.VsCtrl(3), held);
    EXPECT_EQ(grid.ColWidth(3), 2345);
    EXPECT_EQ(grid.Cols(), 10);
}

TEST_F(Clear, KeepsTheChangedDataFlag) {
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    grid.Clear();
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(Clear, IsCalledFromInsideACommitWithoutHarm) {
    grid.AfterEdit.connect([this](std::int32_t, std::int32_t) { grid.Clear(); });
    typeInto(3, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(text(3, 1), "");
}

class CurrentRowAndColumn : public PlacedGrid {};

TEST_F(CurrentRowAndColumn, AreOneMoveEach) {
    grid.Row(3);
    EXPECT_EQ(heard(), moves(1, 1, 3, 1));
    grid.Col(4);
    EXPECT_EQ(heard(), moves(3, 1, 3, 4));
    EXPECT_EQ(vs().Row(), 3);
    EXPECT_EQ(vs().Col(), 4);
    EXPECT_EQ(desk.reports(), Nothing);
}

TEST_F(CurrentRowAndColumn, RaiseNothingWhereTheyAreAlready) {
    grid.Row(1);
    grid.Col(1);
    EXPECT_EQ(heard(), Nothing);
}

TEST_F(CurrentRowAndColumn, MayBePutIntoTheFixedArea) {
    grid.Row(0);
    grid.Col(0);
    EXPECT_EQ(heard(), moves(1, 1, 0, 1) + moves(0, 1, 0, 0));
}

TEST_F(CurrentRowAndColumn, LeaveAFixedAreaThatGrowsOverThemSoThatTheClerkTypesOn) {
    desk.focusGrid();
    grid.FixedRows(3);
    EXPECT_EQ(grid.Row(), 3);
    grid.FixedCols(2);
    EXPECT_EQ(grid.Col(), 2);
    desk.type("A001").press(Key::Enter);
    EXPECT_EQ(text(3, 2), "A001");
}

TEST_F(CurrentRowAndColumn, StayUnderAFixedAreaThatGrowsUntilTheClerkComes) {
    grid.FixedRows(3);
    EXPECT_EQ(grid.Row(), 1);
    desk.focusGrid();
    EXPECT_EQ(grid.Row(), 3);
}

TEST_F(CurrentRowAndColumn, LeaveAFixedAreaThatGrowsOnceTheTextBeingTypedIsInItsCell) {
    typeInto(1, 1, "typed");
    grid.FixedRows(3);
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_EQ(grid.Row(), 3);
    desk.press(Key::Enter);
    EXPECT_GE(grid.Row(), 3);
}

TEST_F(CurrentRowAndColumn, OutsideTheGridAreRefused) {
    EXPECT_THROW(grid.Row(6), GridError);
    EXPECT_THROW(grid.Row(-1), GridError);
    EXPECT_THROW(grid.Col(10), GridError);
    EXPECT_THROW(grid.Col(-1), GridError);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
}
}  // namespace
}  // namespace kxVsGrid::testing
