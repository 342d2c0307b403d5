// The fixed columns: what their put does to the total row.
#include <cstdint>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class FixedColumns : public PlacedGrid {};

TEST_F(FixedColumns, ArePutIntoBothGridsAndReported) {
    grid.FixedCols(3);
    EXPECT_EQ(grid.FixedCols(), 3);
    EXPECT_EQ(vs().FixedCols(), 3);
    EXPECT_EQ(sum().FixedCols(), 3);
    EXPECT_EQ(reported(), Lines{"FixedCols"});
}

TEST_F(FixedColumns, MoveTheCaptionOfTheTotalRow) {
    setUp();
    grid.FixedCols(3);
    EXPECT_EQ(sum().Text(0, 1), "");
    EXPECT_EQ(sum().Text(0, 3), "合计");
    EXPECT_EQ(sum().EffectiveAlignment(0, 3), flexAlignCenterCenter);
    EXPECT_EQ(sum().CellAlignment(0, 3), flexAlignCenterCenter);
    grid.FixedCols(0);
    EXPECT_EQ(sum().Text(0, 0), "合计");
    EXPECT_EQ(sum().Text(0, 3), "");
}

TEST_F(FixedColumns, EmptyTheTotalsUntilTheyAreComputedAgain) {
    summed(4);
    summed(5);
    setUp();
    grid.SetCell(1, 4, "5");
    grid.SetCell(1, 5, "6");
    sum().Text(0, 7, "备注");
    grid.FixedCols(2);
    EXPECT_EQ(grid.ReadSum(4), "");
    EXPECT_EQ(grid.ReadSum(5), "");
    EXPECT_EQ(grid.ReadSum(7), "");
    EXPECT_EQ(grid.ReadSum(2), "合计");
    grid.SetCell(2, 4, "1");
    EXPECT_EQ(grid.ReadSum(4), "6");
    EXPECT_EQ(grid.ReadSum(5), "");
}

TEST_F(FixedColumns, PaintTheTotalRowWithItsPresentColour) {
    setUp();
    grid.VsSumCellBackColor(0x0000FF);
    grid.FixedCols(0);
    for (std::int32_t col = 0; col < 10; ++col)
        EXPECT_EQ(sum().CellBackColor(0, col), color(0x0000FF)) << col;
}

TEST_F(FixedColumns, PaintFromTheFirstNonFixedColumnToTheLast) {
    setUp();
    for (std::int32_t col = 0; col < 10; ++col) sum().CellBackColor(0, col, 0x123456);
    grid.FixedCols(4);
    for (std::int32_t col = 0; col < 4; ++col) EXPECT_EQ(sum().CellBackColor(0, col), color(0x123456)) << col;
    for (std::int32_t col = 4; col < 10; ++col)
        EXPECT_EQ(sum().CellBackColor(0, col), color(LightGrey)) << col;
}

TEST_F(FixedColumns, ThatStayTheSameLeaveTheTotalRowAlone) {
    summed(4);
    setUp();
    grid.SetCell(1, 4, "5");
    sum().Text(0, 7, "备注");
    sum().CellBackColor(0, 7, 0x123456);
    grid.FixedCols(1);
    EXPECT_EQ(grid.ReadSum(4), "5");
    EXPECT_EQ(grid.ReadSum(7), "备注");
    EXPECT_EQ(sum().CellBackColor(0, 7), color(0x123456));
    EXPECT_EQ(reported(), Lines{"FixedCols"});
}

TEST_F(FixedColumns, AreComparedWithThoseOfTheTotalRow) {
    setUp();
    vs().FixedCols(2);
    EXPECT_EQ(grid.ReadSum(1), "合计");
    grid.FixedCols(2);
    EXPECT_EQ(sum().FixedCols(), 2);
    EXPECT_EQ(grid.ReadSum(1), "");
    EXPECT_EQ(grid.ReadSum(2), "合计");
}

TEST_F(FixedColumns, CopyTheFixedBackColourInEveryCase) {
    vs().BackColorFixed(0x336699);
    EXPECT_NE(sum().BackColorFixed(), 0x336699u);
    grid.FixedCols(1);
    EXPECT_EQ(sum().BackColorFixed(), 0x336699u);
    vs().BackColorFixed(0x8000000F);
    grid.FixedCols(2);
    EXPECT_EQ(sum().BackColorFixed(), 0x8000000Fu);
}

TEST_F(FixedColumns, OfTheWholeGridSkipTheCaption) {
    setUp();
    EXPECT_NO_THROW(grid.FixedCols(10));
    EXPECT_EQ(sum().FixedCols(), 10);
    for (std::int32_t col = 0; col < 10; ++col) EXPECT_EQ(sum().Text(0, col), "") << col;
    EXPECT_EQ(reported(), Lines{"FixedCols"});
    EXPECT_NO_THROW(grid.ReDraw(true));
    EXPECT_NO_THROW(grid.VsSumCellBackColor(1));
}

TEST_F(FixedColumns, OutsideTheColumnsAreRefusedAndChangeNothing) {
    setUp();
    EXPECT_THROW(grid.FixedCols(11), GridError);
    EXPECT_THROW(grid.FixedCols(-1), GridError);
    EXPECT_EQ(grid.FixedCols(), 1);
    EXPECT_EQ(sum().FixedCols(), 1);
    EXPECT_EQ(grid.ReadSum(1), "合计");
    EXPECT_EQ(desk.reports(), Nothing);
}

TEST_F(FixedColumns, RaiseNoEventsAndMoveNothing) {
    grid.FixedCols(4);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(grid.Col(), 1);
}

TEST_F(FixedColumns, OfTheSetUpAreThoseOfTheMainGrid) {
    grid.FixedCols(3);
    setUp();
    EXPECT_EQ(sum().FixedCols(), 3);
    EXPECT_EQ(grid.ReadSum(3), "合计");
    EXPECT_EQ(grid.ReadSum(1), "");
    for (std::int32_t col = 0; col < 3; ++col) EXPECT_EQ(sum().CellBackColor(0, col), NoColor) << col;
}
}  // namespace
}  // namespace kxVsGrid::testing
