// ReDraw: the set-up of both grids from the column definitions, and its error trap.
#include <cstdint>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class GridSetUp : public PlacedGrid {};

TEST_F(GridSetUp, RunsWhenReDrawIsSwitchedOnAndOnlyThen) {
    vs().ColDataType(2, flexDTBoolean);
    column(2).iType(flexDTDouble);
    EXPECT_EQ(vs().ColDataType(2), flexDTBoolean);
    grid.ReDraw(false);
    EXPECT_EQ(vs().ColDataType(2), flexDTBoolean);
    EXPECT_FALSE(grid.ReDraw());
    grid.ReDraw(true);
    EXPECT_TRUE(grid.ReDraw());
    EXPECT_EQ(vs().ColDataType(2), flexDTDouble);
    column(2).iType(flexDTDate);
    grid.ReDraw(false);
    EXPECT_FALSE(grid.ReDraw());
    EXPECT_EQ(vs().ColDataType(2), flexDTDouble);
}

TEST_F(GridSetUp, RunsAgainWithEveryTrue) {
    grid.ReDraw(true);
    column(2).iType(flexDTDate);
    grid.ReDraw(true);
    EXPECT_EQ(vs().ColDataType(2), flexDTDate);
}

TEST_F(GridSetUp, CentresEveryHeaderCell) {
    for (std::int32_t col = 0; col < 10; ++col) vs().FixedAlignment(col, flexAlignRightBottom);
    grid.ReDraw(true);
    for (std::int32_t col = 0; col < 10; ++col) {
        EXPECT_EQ(vs().FixedAlignment(col), flexAlignCenterCenter) << col;
        EXPECT_EQ(vs().EffectiveAlignment(0, col), flexAlignCenterCenter) << col;
    }
}

TEST_F(GridSetUp, MakesFixedRowsThreeHundredHighAndLeavesTheOthers) {
    grid.FixedRows(2);
    for (std::int32_t row = 0; row < 6; ++row) grid.RowHeight(row, 500);
    grid.ReDraw(true);
    EXPECT_EQ(grid.RowHeight(0), 300);
    EXPECT_EQ(grid.RowHeight(1), 300);
    for (std::int32_t row = 2; row < 6; ++row) EXPECT_EQ(grid.RowHeight(row), 500) << row;
}

TEST_F(GridSetUp, AppliesTypeAlignmentAndVisibilityOfEveryColumn) {
    column(0).iColAlignment(flexAlignRightTop);
    column(3).iType(flexDTBoolean);
    column(4).iType(static_cast<mEmDataType>(77));
    column(5).iColAlignment(flexAlignRightCenter);
    column(6).bIsVisible(false);
    vs().ColHidden(7, true);
    vs().ColAlignment(8, flexAlignCenterTop);
    grid.ReDraw(true);
    EXPECT_EQ(vs().ColAlignment(0), flexAlignRightTop);
    EXPECT_EQ(vs().ColDataType(3), flexDTBoolean);
    EXPECT_EQ(vs().ColDataType(4), static_cast<mEmDataType>(77));
    EXPECT_EQ(vs().ColDataType(9), flexDTString);
    EXPECT_EQ(vs().ColAlignment(5), flexAlignRightCenter);
    EXPECT_TRUE(vs().ColHidden(6));
    EXPECT_FALSE(vs().ColHidden(7));
    EXPECT_EQ(vs().ColAlignment(8), flexAlignLeftCenter);
}

TEST_F(GridSetUp, PaintsDataCellsOfColumnsWithTheirOwnColours) {
    column(2).b是否设列颜色(true);
    column(2).d列前景色(0);
    column(2).d列背景色(2147483653.0);  // &H80000005
    column(3).d列前景色(0x112233);
    grid.ReDraw(true);
    for (std::int32_t row = 1; row < 6; ++row) {
        EXPECT_EQ(vs().CellForeColor(row, 2), color(0)) << row;
        EXPECT_EQ(vs().CellBackColor(row, 2), color(0x80000005)) << row;
        EXPECT_EQ(vs().CellForeColor(row, 3), NoColor) << row;
        EXPECT_EQ(vs().CellBackColor(row, 3), NoColor) << row;
    }
    EXPECT_EQ(vs().CellForeColor(0, 2), NoColor);
    EXPECT_EQ(vs().CellBackColor(0, 2), NoColor);
}

TEST_F(GridSetUp, LeavesColoursOfColumnsWithoutTheirOwn) {
    vs().CellBackColor(2, 3, 0xABCDEF);
    grid.ReDraw(true);
    EXPECT_EQ(vs().CellBackColor(2, 3), color(0xABCDEF));
}

TEST_F(GridSetUp, LeavesPaintingOnAndBuffered) {
    vs().Redraw(0);
    grid.ReDraw(true);
    EXPECT_EQ(vs().Redraw(), 2);
}

TEST_F(GridSetUp, LeavesTextsTagsAndTheCurrentCell) {
    grid.SetCell(2, 3, "text", "tag");
    grid.SetCell(0, 3, "caption");
    vs().Select(4, 4);
    heard();
    grid.ReDraw(true);
    EXPECT_EQ(text(2, 3), "text");
    EXPECT_EQ(tag(2, 3), "tag");
    EXPECT_EQ(text(0, 3), "caption");
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.Col(), 4);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(GridSetUp, OfAGridWithoutDataRowsPreparesTheTotalRow) {
    column(2).b是否设列颜色(true);
    column(2).d列背景色(0x123456);
    grid.ColWidth(3, 2345);
    vs().Rows(1);
    vs().Redraw(0);
    grid.ReDraw(true);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(vs().Redraw(), 2);
    EXPECT_EQ(sum().Rows(), 1);
    EXPECT_EQ(grid.ReadSum(1), "合计");
    EXPECT_EQ(sum().ColWidth(3), 2345);
    EXPECT_EQ(vs().CellBackColor(0, 2), NoColor);
}

TEST_F(GridSetUp, OfAGridWithoutAnyRowsDoesNotFail) {
    grid.FixedRows(0);
    vs().Rows(0);
    EXPECT_NO_THROW(grid.ReDraw(true));
    EXPECT_EQ(vs().Redraw(), 2);
    EXPECT_EQ(grid.ReadSum(1), "合计");
    grid.Rows(0);
    EXPECT_EQ(grid.Rows(), 5);
}

TEST_F(GridSetUp, MakesMissingDefinitions) {
    grid.SetVsControl(nullptr);
    grid.ReDraw(true);
    EXPECT_EQ(vs().ColDataType(1), flexDTString);
    EXPECT_FALSE(vs().ColHidden(1));
}

TEST_F(GridSetUp, RecomputesTheTotalsOnlyWithATotalRow) {
    summed(2);
    grid.SetCell(1, 2, "5");
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "");
    grid.SumRow(true);
    EXPECT_EQ(grid.ReadSum(2), "");
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "5");
}

TEST_F(GridSetUp, TrapsItsErrorsSkipsTheRestAndShowsNothing) {
    vs().ColFormat(3, "0.00");
    column(3).iColAlignment(flexAlignRightCenter);
    bool failed = false;
    auto failing = sum().CellChanged.connect([&](std::int32_t, std::int32_t) {
        failed = true;
        Boom()();
    });
    EXPECT_NO_THROW(grid.ReDraw(true));
    EXPECT_TRUE(failed);
    EXPECT_TRUE(grid.ReDraw());
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_EQ(vs().ColAlignment(3), flexAlignRightCenter);
    EXPECT_NE(sum().ColAlignment(3), flexAlignRightCenter);
    EXPECT_EQ(sum().ColFormat(3), "");

    failing.disconnect();
    grid.ReDraw(true);
    EXPECT_EQ(sum().ColAlignment(3), flexAlignRightCenter);
    EXPECT_EQ(sum().ColFormat(3), "0.00");
    EXPECT_EQ(grid.ReadSum(1), "合计");
    EXPECT_EQ(vs().Redraw(), 2);
}

TEST_F(GridSetUp, KeepsTheEditorOpen) {
    typeInto(2, 2, "typed");
    grid.ReDraw(true);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(desk.editor().text, "typed");
}

class TotalRowSetUp : public PlacedGrid {};

TEST_F(TotalRowSetUp, MakesOneRowOfTheSameColumns) {
    grid.Cols(7);
    grid.FixedCols(2);
    grid.ReDraw(true);
    EXPECT_EQ(sum().Rows(), 1);
    EXPECT_EQ(sum().Cols(), 7);
    EXPECT_EQ(sum().FixedRows(), 0);
    EXPECT_EQ(sum().FixedCols(), 2);
    EXPECT_EQ(sum().RowHeight(0), 300);
    EXPECT_EQ(sum().Height(), 330);
    EXPECT_EQ(grid.totalRowRect().height, 330);
    EXPECT_FALSE(sum().ScrollBars());
    EXPECT_FALSE(sum().ShowCursor());
}

TEST_F(TotalRowSetUp, WritesAndCentresTheCaption) {
    grid.ReDraw(true);
    EXPECT_EQ(sum().Text(0, 1), "合计");
    EXPECT_EQ(sum().CellAlignment(0, 1), flexAlignCenterCenter);
    EXPECT_EQ(sum().Text(0, 0), "");
    EXPECT_EQ(sum().Text(0, 2), "");
}

TEST_F(TotalRowSetUp, PaintsFromTheFirstNonFixedColumn) {
    grid.FixedCols(2);
    grid.ReDraw(true);
    EXPECT_EQ(sum().CellBackColor(0, 0), NoColor);
    EXPECT_EQ(sum().CellBackColor(0, 1), NoColor);
    for (std::int32_t col = 2; col < 10; ++col)
        EXPECT_EQ(sum().CellBackColor(0, col), color(LightGrey)) << col;
}

TEST_F(TotalRowSetUp, CopiesWidthVisibilityAlignmentAndFormat) {
    column(3).iColAlignment(flexAlignRightCenter);
    column(4).bIsVisible(false);
    grid.ColWidth(0, 555);
    grid.ColWidth(5, 2345);
    vs().ColFormat(6, "0.00");
    grid.ReDraw(true);
    for (std::int32_t col = 0; col < 10; ++col) {
        EXPECT_EQ(sum().ColWidth(col), vs().ColWidth(col)) << col;
        EXPECT_EQ(sum().ColHidden(col), vs().ColHidden(col)) << col;
        EXPECT_EQ(sum().ColAlignment(col), vs().ColAlignment(col)) << col;
        EXPECT_EQ(sum().ColFormat(col), vs().ColFormat(col)) << col;
    }
    EXPECT_EQ(sum().ColWidth(5), 2345);
    EXPECT_TRUE(sum().ColHidden(4));
    EXPECT_EQ(sum().ColAlignment(3), flexAlignRightCenter);
    EXPECT_EQ(sum().ColFormat(6), "0.00");
}

TEST_F(TotalRowSetUp, ClearsOldContent) {
    grid.ReDraw(true);
    sum().Text(0, 5, "old");
    sum().Data(0, 5, "tag");
    sum().CellAlignment(0, 5, flexAlignRightBottom);
    sum().CellForeColor(0, 5, 0x123456);
    grid.ReDraw(true);
    EXPECT_EQ(sum().Text(0, 5), "");
    EXPECT_EQ(sum().Data(0, 5), "");
    EXPECT_EQ(sum().CellAlignment(0, 5), std::nullopt);
    EXPECT_EQ(sum().CellForeColor(0, 5), NoColor);
}

TEST_F(TotalRowSetUp, BringsBackTheStandardHeight) {
    grid.ReDraw(true);
    grid.SumRowHeight(600);
    grid.ReDraw(true);
    EXPECT_EQ(grid.SumRowHeight(), 300);
    EXPECT_EQ(grid.totalRowRect().height, 330);
}

TEST_F(TotalRowSetUp, BringsBackLightGrey) {
    grid.ReDraw(true);
    grid.VsSumCellBackColor(0x0000FF);
    EXPECT_EQ(sum().CellBackColor(0, 0), NoColor);
    for (std::int32_t col = 1; col < 10; ++col)
        EXPECT_EQ(sum().CellBackColor(0, col), color(0x0000FF)) << col;
    grid.ReDraw(true);
    for (std::int32_t col = 1; col < 10; ++col)
        EXPECT_EQ(sum().CellBackColor(0, col), color(LightGrey)) << col;
    grid.FixedCols(0);
    EXPECT_EQ(sum().CellBackColor(0, 0), color(LightGrey));
}

TEST_F(TotalRowSetUp, TakesBlackForAColour) {
    grid.ReDraw(true);
    grid.VsSumCellBackColor(0);
    EXPECT_EQ(sum().CellBackColor(0, 1), color(0));
    EXPECT_EQ(sum().CellBackColor(0, 9), color(0));
    EXPECT_EQ(sum().Text(0, 1), "合计");
}

TEST_F(TotalRowSetUp, ComesWithTheSetUpAlsoWhileTheRowIsHidden) {
    grid.ReDraw(true);
    EXPECT_FALSE(grid.totalRowShown());
    EXPECT_EQ(grid.ReadSum(1), "合计");
}

TEST_F(TotalRowSetUp, ReachesTheHostAsNoEvent) {
    grid.SumRow(true);
    grid.ReDraw(true);
    grid.VsSumCellBackColor(1);
    grid.FixedCols(2);
    EXPECT_EQ(heard(), Nothing);
}
}  // namespace
}  // namespace kxVsGrid::testing
