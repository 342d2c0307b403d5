// Rows, columns, their fixed parts, and the format string that names columns.
#include <gtest/gtest.h>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

/// The text of the GridError that `act` throws.
template <class Act>
std::string refusal(Act act) {
    try {
        act();
    } catch (const GridError& error) {
        return error.what();
    }
    return "nothing was refused";
}

TEST(GridSize, StartsWithSixRowsTenColumnsAndOneOfEachFixed) {
    const CellGrid grid;
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.FixedCols(), 1);
    EXPECT_EQ(grid.ColWidth(9), 1000);
    EXPECT_EQ(grid.RowHeight(5), 300);
}

TEST(GridSize, RefusesCountsBelowTheFixedPartAndBeyondTheMaximum) {
    CellGrid grid;
    EXPECT_THROW(grid.Rows(0), GridError);
    EXPECT_THROW(grid.Rows(-1), GridError);
    EXPECT_THROW(grid.Rows(100'000'001), GridError);
    grid.FixedCols(3);
    EXPECT_THROW(grid.Cols(2), GridError);
    EXPECT_THROW(grid.Cols(-1), GridError);
    EXPECT_THROW(grid.Cols(32'767), GridError);
    EXPECT_THROW(grid.FixedRows(7), GridError);
    EXPECT_THROW(grid.FixedRows(-1), GridError);
    EXPECT_THROW(grid.FixedCols(11), GridError);
    EXPECT_THROW(grid.FixedCols(-1), GridError);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Cols(), 10);
}

TEST(GridSize, TakesTheMaximumOfRowsAndColumns) {
    CellGrid grid;
    grid.Rows(CellGrid::MaxRows);
    grid.Cols(CellGrid::MaxCols);
    EXPECT_EQ(grid.TotalHeight(), 30'000'000'000);
    EXPECT_EQ(grid.TotalWidth(), 32'766'000);
    EXPECT_THROW(grid.InsertRow(1), GridError);
    grid.Text(99'999'999, 32'765, "corner");
    EXPECT_EQ(grid.Text(99'999'999, 32'765), "corner");
}

TEST(GridSize, NamesTheMemberAndTheValueOfAMisuse) {
    CellGrid grid;
    EXPECT_NE(refusal([&] { grid.Rows(-7); }).find("Rows: -7"), std::string::npos);
    EXPECT_NE(refusal([&] { grid.Text(66, 1); }).find("Text: 66 is no row"), std::string::npos);
    EXPECT_NE(refusal([&] { grid.ColWidth(10); }).find("ColWidth: 10 is no column"), std::string::npos);
    EXPECT_NE(refusal([&] { grid.RowHeight(1, -1); }).find("RowHeight: -1"), std::string::npos);
}

TEST(GridSize, RefusesCellsRowsAndColumnsThatAreNotThere) {
    CellGrid grid;
    EXPECT_THROW(grid.Text(6, 0, "x"), GridError);
    EXPECT_THROW(grid.Data(0, -1), GridError);
    EXPECT_THROW(grid.CellBackColor(0, 10, 1), GridError);
    EXPECT_THROW(grid.PaintColumn(1, 3, 6, 1, 1), GridError);
    EXPECT_THROW(grid.ClearText(0, 6), GridError);
    EXPECT_THROW(grid.InsertRow(7), GridError);
    EXPECT_THROW(grid.InsertRow(-1), GridError);
    EXPECT_THROW(grid.RemoveRow(6), GridError);
    EXPECT_THROW(grid.ColumnSum(10), GridError);
    EXPECT_THROW(grid.CellRect(6, 0), GridError);
    EXPECT_EQ(grid.Rows(), 6);
}

TEST(GridSize, RefusesToRemoveTheLastRowsThatAreFixed) {
    CellGrid grid;
    grid.Rows(1);
    EXPECT_THROW(grid.RemoveRow(0), GridError);
    EXPECT_EQ(grid.Rows(), 1);
}

TEST(GridSize, DiscardsCellsThatAreCutOff) {
    CellGrid grid;
    grid.Text(5, 9, "corner");
    grid.CellBackColor(5, 9, 7);
    grid.Rows(5);
    grid.Rows(6);
    EXPECT_EQ(grid.Text(5, 9), "");
    EXPECT_EQ(grid.CellBackColor(5, 9), std::nullopt);
    grid.Text(2, 9, "edge");
    grid.ColWidth(9, 77);
    grid.ColFormat(9, "0.0");
    grid.Cols(9);
    grid.Cols(10);
    EXPECT_EQ(grid.Text(2, 9), "");
    EXPECT_EQ(grid.ColWidth(9), 1000);
    EXPECT_EQ(grid.ColFormat(9), "");
}

TEST(GridSize, HasNoFixedColumnOnceThereWasNoColumn) {
    CellGrid grid;
    grid.FixedCols(2);
    grid.Cols(0);
    EXPECT_EQ(grid.Cols(), 0);
    EXPECT_EQ(grid.FixedCols(), 0);
    grid.Cols(4);
    EXPECT_EQ(grid.FixedCols(), 0);
}

TEST(GridSize, CarriesHeightsColoursAndTextsAlongWithTheirRow) {
    CellGrid grid;
    grid.Text(3, 2, "text");
    grid.Data(3, 2, "tag");
    grid.CellForeColor(3, 2, 5);
    grid.CellAlignment(3, 2, flexAlignRightTop);
    grid.RowHeight(3, 450);
    grid.RowHidden(3, true);
    grid.MergeRow(3, true);
    grid.InsertRow(3);
    EXPECT_EQ(grid.Text(4, 2), "text");
    EXPECT_EQ(grid.Data(4, 2), "tag");
    EXPECT_EQ(grid.CellForeColor(4, 2), 5U);
    EXPECT_EQ(grid.CellAlignment(4, 2), flexAlignRightTop);
    EXPECT_EQ(grid.RowHeight(4), 450);
    EXPECT_TRUE(grid.RowHidden(4));
    EXPECT_TRUE(grid.MergeRow(4));
    EXPECT_EQ(grid.Text(3, 2), "");
    EXPECT_EQ(grid.Data(3, 2), "");
    EXPECT_EQ(grid.CellForeColor(3, 2), std::nullopt);
    EXPECT_EQ(grid.RowHeight(3), 300);
    EXPECT_FALSE(grid.RowHidden(3));
    EXPECT_FALSE(grid.MergeRow(3));
    grid.RemoveRow(1);
    EXPECT_EQ(grid.Text(3, 2), "text");
    EXPECT_EQ(grid.RowHeight(3), 450);
}

TEST(GridSize, AppendsARowInsertedAtTheEnd) {
    CellGrid grid;
    grid.InsertRow(6);
    EXPECT_EQ(grid.Rows(), 7);
}

TEST(GridSize, RaisesSmallerRowsToTheMinimumHeight) {
    CellGrid grid;
    grid.RowHeight(2, 100);
    grid.RowHeight(3, 500);
    grid.RowHeightMin(350);
    EXPECT_EQ(grid.RowHeight(2), 350);
    EXPECT_EQ(grid.RowHeight(3), 500);
    grid.RowHeight(3, 10);
    EXPECT_EQ(grid.RowHeight(3), 350);
    grid.Rows(7);
    EXPECT_EQ(grid.RowHeight(6), 350);
    EXPECT_EQ(grid.RowHeightMin(), 350);
}

TEST(GridSize, HiddenRowsAndColumnsKeepTheirSizeAndTakeNoRoom) {
    CellGrid grid;
    grid.ColHidden(2, true);
    grid.RowHidden(2, true);
    EXPECT_EQ(grid.ColWidth(2), 1000);
    EXPECT_EQ(grid.RowHeight(2), 300);
    EXPECT_EQ(grid.TotalWidth(), 9000);
    EXPECT_EQ(grid.TotalHeight(), 1500);
    EXPECT_EQ(grid.CellRect(2, 2), (Rect{2000, 600, 0, 0}));
    grid.ColHidden(2, false);
    EXPECT_EQ(grid.TotalWidth(), 10'000);
}

TEST(GridFormat, SetsCaptionsWidthsAndAlignments) {
    CellGrid grid;
    grid.FormatString("行号|<货号    |^单位|>数量");
    EXPECT_EQ(grid.Text(0, 0), "行号");
    EXPECT_EQ(grid.Text(0, 1), "货号");
    EXPECT_EQ(grid.ColWidth(0), 490);  // two wide characters and the padding
    EXPECT_EQ(grid.ColWidth(1), 890);  // and four blanks
    EXPECT_EQ(grid.ColAlignment(1), flexAlignLeftCenter);
    EXPECT_EQ(grid.ColAlignment(2), flexAlignCenterCenter);
    EXPECT_EQ(grid.ColAlignment(3), flexAlignRightCenter);
}

TEST(GridFormat, AnswersTheStringAsPut) {
    CellGrid grid;
    grid.FormatString("a| <b |;1|2");
    EXPECT_EQ(grid.FormatString(), "a| <b |;1|2");
}

TEST(GridFormat, LeavesColumnsOfEmptyFieldsAsTheyAre) {
    CellGrid grid;
    grid.FormatString("a|b|c");
    grid.ColWidth(1, 777);
    grid.FormatString("x||z");
    EXPECT_EQ(grid.Text(0, 0), "x");
    EXPECT_EQ(grid.Text(0, 1), "b");
    EXPECT_EQ(grid.ColWidth(1), 777);
    EXPECT_EQ(grid.Text(0, 2), "z");
}

TEST(GridFormat, RaisesTheColumnCountAndNeverLowersIt) {
    CellGrid grid;
    grid.Cols(2);
    grid.FormatString("a|b|c|d");
    EXPECT_EQ(grid.Cols(), 4);
    grid.FormatString("a");
    EXPECT_EQ(grid.Cols(), 4);
}

TEST(GridFormat, IsCutWhenColumnsAreLowered) {
    CellGrid grid;
    grid.FormatString("a|b|c|d;1|2");
    grid.Cols(2);
    EXPECT_EQ(grid.FormatString(), "a|b;1|2");
    grid.FormatString(grid.FormatString());
    EXPECT_EQ(grid.Cols(), 2);
}

TEST(GridFormat, CaptionsDataRowsAfterTheSemicolon) {
    CellGrid grid;
    grid.FormatString("no|a;one||three|4|5|6|7");
    EXPECT_EQ(grid.Text(0, 0), "no");
    EXPECT_EQ(grid.Text(1, 0), "one");
    EXPECT_EQ(grid.Text(2, 0), "");
    EXPECT_EQ(grid.Text(3, 0), "three");
    EXPECT_EQ(grid.Text(5, 0), "5");
    EXPECT_EQ(grid.Rows(), 6);
}

TEST(GridFormat, WritesNoCaptionsIntoDataRows) {
    CellGrid grid;
    grid.FixedRows(0);
    grid.FormatString("a|>b");
    EXPECT_EQ(grid.Text(0, 1), "");
    EXPECT_EQ(grid.ColAlignment(1), flexAlignRightCenter);
    EXPECT_EQ(grid.ColWidth(1), 190);
}

TEST(GridFormat, SurvivesAListenerThatTakesColumnsAway) {
    CellGrid grid;
    grid.CellChanged.connect([&](int, int col) {
        if (col == 2) grid.Cols(3);
    });
    grid.FormatString("a|b|c|d|e");
    EXPECT_EQ(grid.Cols(), 3);
    EXPECT_EQ(grid.Text(0, 2), "c");
}
}  // namespace
}  // namespace kxVsGrid
