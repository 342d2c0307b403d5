// Counting and adding up what a range holds.
#include <gtest/gtest.h>

#include "kit/Dice.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

class Summing : public ::testing::Test {
  protected:
    Summing() {
        grid.Rows(20);
        grid.Cols(8);
    }
    void expectSummary(const CellRange& range, std::int64_t filled, std::int64_t numbers, double sum,
                       double smallest, double largest) {
        const RangeSummary summary = grid.Summary(range);
        EXPECT_EQ(summary.filled, filled);
        EXPECT_EQ(summary.numbers, numbers);
        EXPECT_DOUBLE_EQ(summary.sum, sum);
        EXPECT_DOUBLE_EQ(summary.average, numbers == 0 ? 0 : sum / static_cast<double>(numbers));
        EXPECT_DOUBLE_EQ(summary.smallest, smallest);
        EXPECT_DOUBLE_EQ(summary.largest, largest);
    }
    CellGrid grid;
    const CellRange all{1, 1, 19, 7};
};

TEST_F(Summing, CountsFilledCellsAndAddsUpTheNumbersAmongThem) {
    grid.Text(1, 1, "12.5");
    grid.Text(2, 1, "-3");
    grid.Text(3, 2, " 4 ");
    grid.Text(4, 2, "A001");
    grid.Text(5, 2, "12 boxes");
    grid.Text(6, 3, "1,5");
    grid.Data(7, 3, "a tag");
    grid.Text(8, 3, "gone");
    grid.Text(8, 3, "");
    expectSummary(all, 6, 3, 13.5, -3, 12.5);
    expectSummary({2, 1, 3, 2}, 2, 2, 1, -3, 4);
    expectSummary({9, 1, 12, 7}, 0, 0, 0, 0, 0);
    expectSummary({4, 2, 4, 2}, 1, 0, 0, 0, 0);
    expectSummary({}, 0, 0, 0, 0, 0);
}

TEST_F(Summing, ReadsANumberAsTheTotalOfItsColumnDoes) {
    grid.ColFormat(1, "#,##0.00");
    grid.Text(1, 1, "1234.567");
    grid.Text(2, 1, "1,234.5");
    grid.ColFormat(2, "0%");
    grid.Text(1, 2, "0.5");
    grid.Text(2, 2, "about 3");
    grid.ComputedText(1, 3, [] { return std::string("7"); });
    grid.ColDataType(4, flexDTDouble);
    grid.Text(1, 4, "8");
    for (std::int32_t col = 1; col <= 4; ++col)
        EXPECT_DOUBLE_EQ(grid.Summary({1, col, 19, col}).sum, grid.ColumnSum(col)) << col;
    EXPECT_EQ(grid.Summary(all).filled, 6);
    EXPECT_EQ(grid.Summary(all).numbers, 5);
}

TEST_F(Summing, TakesNeitherCodesNorTicksForNumbers) {
    const mEmDataType types[] = {flexDTString, flexDTBoolean, flexDTDate, flexDTDouble, flexDTEmpty};
    for (std::int32_t col = 1; col <= 5; ++col) {
        grid.ColDataType(col, types[col - 1]);
        grid.Text(1, col, "-1");
        grid.Text(2, col, "100001");
    }
    for (std::int32_t col = 1; col <= 3; ++col) expectSummary({1, col, 19, col}, 2, 0, 0, 0, 0);
    for (std::int32_t col = 4; col <= 5; ++col) expectSummary({1, col, 19, col}, 2, 2, 100000, -1, 100001);
    expectSummary(all, 10, 4, 200000, -1, 100001);
}

TEST_F(Summing, PassesOverDatesAndWhatIsNotShown) {
    grid.ColDataType(1, flexDTDate);
    grid.Text(1, 1, "20240105");
    grid.ColFormat(2, "yyyy-mm-dd");
    grid.Text(1, 2, "45000");
    for (std::int32_t col = 3; col < 8; ++col) {
        grid.Text(1, col, "1");
        grid.Text(2, col, "10");
    }
    expectSummary(all, 12, 10, 55, 1, 10);
    grid.RowHidden(2, true);
    expectSummary(all, 7, 5, 5, 1, 1);
    grid.ColHidden(3, true);
    grid.ColWidth(4, 0);
    expectSummary(all, 5, 3, 3, 1, 1);
}

TEST_F(Summing, LeavesOutTheFixedAreaAndRefusesWhatLiesBeyondTheGrid) {
    grid.NumberRows();
    grid.Text(0, 1, "5");
    grid.Text(1, 1, "6");
    expectSummary({0, 0, 19, 7}, 1, 1, 6, 6, 6);
    EXPECT_THROW(grid.Summary({1, 1, 20, 7}), GridError);
    EXPECT_THROW(grid.Summary({1, 1, 19, 8}), GridError);
    EXPECT_THROW(grid.Summary({-1, 1, 19, 7}), GridError);
}

TEST_F(Summing, OfAHundredMillionEmptyRowsTakesNoTime) {
    grid.Rows(CellGrid::MaxRows);
    grid.Text(90'000'000, 2, "3");
    grid.Text(50, 2, "4");
    grid.SelectAll();
    for (int i = 0; i < 1000; ++i) EXPECT_EQ(grid.Summary(grid.Selected()).numbers, 2);
}

TEST_F(Summing, AgreesWithCellByCell) {
    kit::Dice dice;
    grid.ColFormat(2, "#,##0.00");
    grid.ColHidden(5, true);
    for (int turn = 0; turn < 300; ++turn) {
        for (int i = 0; i < 5; ++i) {
            const std::int32_t row = dice.between(0, 19);
            const std::int32_t col = dice.between(0, 7);
            grid.Text(row, col, dice.oneIn(2) ? std::to_string(dice.between(-50, 50)) : dice.text());
        }
        grid.RowHidden(dice.between(1, 19), dice.oneIn(3));
        const CellRange range{dice.between(1, 19), dice.between(1, 7), dice.between(1, 19),
                              dice.between(1, 7)};
        std::int64_t filled = 0;
        for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
            for (std::int32_t col = range.firstCol; col <= range.lastCol; ++col)
                if (!grid.RowHidden(row) && !grid.ColHidden(col) && !grid.Text(row, col).empty()) ++filled;
        EXPECT_EQ(grid.Summary(range).filled, filled);
    }
}
}  // namespace
}  // namespace kxVsGrid
