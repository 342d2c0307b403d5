// Sums of columns, the numbers of rows, and who hears before they change.
#include <gtest/gtest.h>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

TEST(ColumnSum, CountsEmptyAndOtherTextsAsNothing) {
    CellGrid grid;
    grid.Text(0, 2, "1000");
    grid.Text(1, 2, "1.5");
    grid.Text(3, 2, "abc");
    grid.Text(4, 2, "2");
    EXPECT_EQ(grid.ColumnSum(2), 3.5);
    EXPECT_EQ(grid.ColumnSum(3), 0);
}

TEST(ColumnSum, AddsInRowOrderInADouble) {
    CellGrid grid;
    grid.Rows(3001);
    double expected = 0;
    for (std::int32_t row = 1; row <= 3000; ++row) {
        const std::string text = std::to_string(row * 7919 % 1000) + "." + std::to_string(row % 10);
        grid.Text(row, 1, text);
        expected += std::stod(text);
    }
    EXPECT_EQ(grid.ColumnSum(1), expected);
    grid.Text(1, 1, "1e16");
    grid.Text(2, 1, "1");
    grid.Text(3, 1, "-1e16");
    grid.Rows(4);
    EXPECT_EQ(grid.ColumnSum(1), 0);
    grid.RemoveRow(2);
    grid.Text(1, 1, "-1e16");
    grid.Text(2, 1, "1e16");
    grid.InsertRow(3);
    grid.Text(3, 1, "1");
    EXPECT_EQ(grid.ColumnSum(1), 1);
}

TEST(ColumnSum, FollowsEveryKindOfChange) {
    CellGrid grid;
    for (std::int32_t row = 1; row < 6; ++row) grid.Text(row, 1, "10");
    EXPECT_EQ(grid.ColumnSum(1), 50);
    grid.Text(2, 1, "7");
    EXPECT_EQ(grid.ColumnSum(1), 47);
    grid.Text(2, 1, "");
    EXPECT_EQ(grid.ColumnSum(1), 40);
    grid.RemoveRow(1);
    EXPECT_EQ(grid.ColumnSum(1), 30);
    grid.InsertRow(2);
    grid.Text(2, 1, "5");
    EXPECT_EQ(grid.ColumnSum(1), 35);
    grid.FixedRows(3);
    EXPECT_EQ(grid.ColumnSum(1), 30);
    grid.FixedRows(1);
    grid.Rows(3);
    EXPECT_EQ(grid.ColumnSum(1), 5);
    grid.ClearText(1, 2);
    EXPECT_EQ(grid.ColumnSum(1), 0);
}

TEST(ColumnSum, AddsWhatTheColumnsFormatShows) {
    CellGrid grid;
    grid.Text(1, 1, "1234.567");
    grid.Text(2, 1, "0.004");
    EXPECT_EQ(grid.ColumnSum(1), 1234.571);
    grid.ColFormat(1, "#,##0.00");
    EXPECT_EQ(grid.ColumnSum(1), 1234.57);
    grid.ColFormat(1, "");
    EXPECT_EQ(grid.ColumnSum(1), 1234.571);
}

TEST(ColumnSum, TakesGroupSeparatorsOfTheFormatOnly) {
    CellGrid grid;
    grid.ColFormat(1, "#,##0.00");
    grid.Text(1, 1, "1,5");
    grid.Text(2, 1, "1234");
    EXPECT_EQ(grid.ColumnSum(1), 1235);
}

TEST(ColumnSum, AsksComputedTextsEveryTime) {
    CellGrid grid;
    int value = 3;
    grid.ComputedText(1, 1, [&] { return std::to_string(value); });
    EXPECT_EQ(grid.ColumnSum(1), 3);
    value = 4;
    EXPECT_EQ(grid.ColumnSum(1), 4);
}

TEST(ColumnSum, GoesOnAfterAComputedTextThatThrew) {
    CellGrid grid;
    bool broken = true;
    grid.Text(1, 1, "2");
    grid.ComputedText(2, 1, [&] { return broken ? throw std::runtime_error("host") : std::string("3"); });
    EXPECT_THROW(grid.ColumnSum(1), std::runtime_error);
    EXPECT_THROW(grid.Text(2, 1), std::runtime_error);
    broken = false;
    EXPECT_EQ(grid.ColumnSum(1), 5);
}

TEST(ColumnSum, CostsNothingForAHundredMillionEmptyRows) {
    CellGrid grid;
    grid.Rows(100'000'000);
    grid.Text(77'777'777, 1, "2.5");
    grid.Text(99'999'999, 1, "1");
    EXPECT_EQ(grid.ColumnSum(1), 3.5);
}

TEST(RowNumbers, ComeFromThePositionOfTheRow) {
    CellGrid grid;
    grid.Text(0, 0, "no.");
    grid.NumberRows();
    EXPECT_EQ(grid.Text(0, 0), "no.");
    EXPECT_EQ(grid.Text(1, 0), "1");
    EXPECT_EQ(grid.Text(5, 0), "5");
    EXPECT_EQ(grid.DisplayText(5, 0), "5");
    grid.InsertRow(2);
    EXPECT_EQ(grid.Text(6, 0), "6");
    grid.FixedRows(2);
    EXPECT_EQ(grid.Text(1, 0), "");
    EXPECT_EQ(grid.Text(2, 0), "1");
}

TEST(RowNumbers, AreNotStoredAndRaiseNoCellChanged) {
    CellGrid grid;
    int changed = 0;
    grid.CellChanged.connect([&](int, int) { ++changed; });
    grid.NumberRows();
    EXPECT_EQ(changed, 0);
    grid.Text(1, 0, "1");
    EXPECT_EQ(changed, 1);
}

TEST(RowNumbers, GiveWayToTextsThatCodeWrites) {
    CellGrid grid;
    grid.NumberRows();
    grid.Text(2, 0, "*");
    grid.Text(3, 0, "");
    EXPECT_EQ(grid.Text(2, 0), "*");
    EXPECT_EQ(grid.Text(3, 0), "");
    EXPECT_EQ(grid.Text(4, 0), "4");
    grid.InsertRow(1);
    EXPECT_EQ(grid.Text(3, 0), "*");
    EXPECT_EQ(grid.Text(4, 0), "");
    EXPECT_EQ(grid.Text(5, 0), "5");
}

TEST(RowNumbers, ReplaceWrittenTextsOfDataRowsWhenRefreshed) {
    CellGrid grid;
    grid.Text(0, 0, "head");
    grid.Text(2, 0, "old");
    grid.NumberRows();
    EXPECT_EQ(grid.Text(2, 0), "2");
    grid.Text(2, 0, "");
    grid.NumberRows();
    EXPECT_EQ(grid.Text(2, 0), "2");
    EXPECT_EQ(grid.Text(0, 0), "head");
}

TEST(RowNumbers, AreEmptyWhereRowsWereCleared) {
    CellGrid grid;
    grid.NumberRows();
    grid.ClearText(2, 3);
    EXPECT_EQ(grid.Text(1, 0), "1");
    EXPECT_EQ(grid.Text(2, 0), "");
    EXPECT_EQ(grid.Text(3, 0), "");
    EXPECT_EQ(grid.Text(4, 0), "4");
}

TEST(RowNumbers, NeedAFixedColumn) {
    CellGrid grid;
    grid.FixedCols(0);
    grid.Text(1, 0, "data");
    grid.NumberRows();
    EXPECT_EQ(grid.Text(1, 0), "data");
    EXPECT_EQ(grid.Text(2, 0), "");
}

TEST(RowNumbers, EndWithTheLastFixedColumn) {
    CellGrid grid;
    grid.NumberRows();
    grid.Text(2, 0, "");
    grid.Text(3, 0, "7");
    grid.ColumnSum(0);
    grid.FixedCols(0);
    EXPECT_EQ(grid.Text(1, 0), "");
    EXPECT_EQ(grid.Text(2, 0), "");
    EXPECT_EQ(grid.Text(3, 0), "7");
    EXPECT_EQ(grid.ColumnSum(0), 7);
    grid.FixedCols(1);
    EXPECT_EQ(grid.Text(1, 0), "");
    grid.NumberRows();
    EXPECT_EQ(grid.Text(1, 0), "1");
}

TEST(RowNumbers, CountInTheSumOfTheirColumn) {
    CellGrid grid;
    grid.NumberRows();
    EXPECT_EQ(grid.ColumnSum(0), 15);
    grid.Text(5, 0, "100");
    EXPECT_EQ(grid.ColumnSum(0), 110);
}

/// Remembers for which columns it was called and what the sum of column 1 was at that moment.
class SumWatcher final : public CellGrid::Watcher {
  public:
    explicit SumWatcher(CellGrid& grid) : grid_(grid) { grid.watch(this); }
    ~SumWatcher() { grid_.watch(nullptr); }
    SumWatcher(const SumWatcher&) = delete;
    SumWatcher& operator=(const SumWatcher&) = delete;
    void contentWillChange(std::int32_t col) override {
        calls.push_back(std::to_string(col) + ": " + std::to_string(static_cast<int>(grid_.ColumnSum(1))));
    }
    std::vector<std::string> calls;

  private:
    CellGrid& grid_;
};

class Watched : public ::testing::Test {
  protected:
    using Lines = std::vector<std::string>;
    Watched() {
        grid.Text(1, 1, "5");
        watcher.calls.clear();
    }
    CellGrid grid;
    SumWatcher watcher{grid};
};

TEST_F(Watched, ContentIsStillTheOldOneWhenTheWatcherHears) {
    grid.Text(2, 1, "7");
    grid.Text(2, 3, "x");
    EXPECT_EQ(watcher.calls, (Lines{"1: 5", "3: 12"}));
}

TEST_F(Watched, ContentThatStaysIsNotTold) {
    grid.Text(1, 1, "5");
    grid.Text(2, 2, "");
    grid.Data(1, 1, "tag");
    grid.ColFormat(1, "");
    grid.CellBackColor(1, 1, 4);
    grid.ColWidth(1, 44);
    grid.Rows(6);
    EXPECT_EQ(watcher.calls, Lines{});
}

/// Awaits nothing of one column, and takes all rows away when it hears of another.
class Choosy final : public CellGrid::Watcher {
  public:
    Choosy(CellGrid& grid, std::int32_t unheeded, std::int32_t emptying = -2)
        : grid_(grid), unheeded_(unheeded), emptying_(emptying) {
        grid.watch(this);
    }
    ~Choosy() { grid_.watch(nullptr); }
    Choosy(const Choosy&) = delete;
    Choosy& operator=(const Choosy&) = delete;
    void contentWillChange(std::int32_t col) override {
        heard.push_back(col);
        if (col == emptying_) grid_.Rows(1);
    }
    bool awaits(std::int32_t col) const override { return col != unheeded_; }
    std::vector<std::int32_t> heard;

  private:
    CellGrid& grid_;
    std::int32_t unheeded_;
    std::int32_t emptying_;
};

TEST(GridWatcher, HearsNothingOfTextsInAColumnItDoesNotAwait) {
    CellGrid grid;
    Choosy watcher(grid, 1);
    grid.Text(2, 1, "7");
    grid.Text(2, 3, "x");
    grid.Cell(3, 1, "8", "tag");
    EXPECT_EQ(watcher.heard, std::vector<std::int32_t>{3});
    EXPECT_EQ(grid.ColumnSum(1), 15);
}

TEST(GridWatcher, MayTakeTheRowOfATextAwayBeforeItIsWritten) {
    CellGrid grid;
    Choosy watcher(grid, 1, 2);
    grid.Text(3, 2, "gone");
    EXPECT_EQ(grid.Rows(), 1);
    grid.Rows(6);
    EXPECT_EQ(grid.Text(3, 2), "");
}

TEST(GridWatcher, MayTakeTheRowOfAPairAwayBeforeItIsWrittenWhileAListenerHears) {
    CellGrid grid;
    int changes = 0;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { ++changes; });
    Choosy watcher(grid, 1, 2);
    EXPECT_FALSE(grid.Cell(3, 2, "gone", "tag"));
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(changes, 0);
}

TEST_F(Watched, RowsThatComeAndGoAreToldBefore) {
    grid.Rows(7);
    grid.InsertRow(1);
    grid.RemoveRow(2);
    EXPECT_EQ(watcher.calls, (Lines{"-1: 5", "-1: 5", "-1: 5"}));
    EXPECT_EQ(grid.ColumnSum(1), 0);
}

TEST_F(Watched, FormatsClearedRowsAndNumbersAreToldBefore) {
    grid.ColFormat(1, "0.0");
    grid.NumberRows();
    grid.FixedRows(2);
    grid.FixedRows(1);
    grid.ClearText(1, 2);
    EXPECT_EQ(watcher.calls, (Lines{"1: 5", "0: 5", "-1: 5", "-1: 0", "-1: 5"}));
}

TEST_F(Watched, ANumberThatIsEmptiedIsTold) {
    grid.NumberRows();
    watcher.calls.clear();
    grid.Text(3, 0, "");
    EXPECT_EQ(watcher.calls, Lines{"0: 5"});
}
}  // namespace
}  // namespace kxVsGrid
