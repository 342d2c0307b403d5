// Cells that a clerk clears, fills from their neighbours, or gives the date.
#include <string>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

class BlockFiller : public BlockTest {
  protected:
    BlockFiller() {
        for (int row = 1; row <= 3; ++row) content(row);
        at(1, 1);
    }
};

TEST_F(BlockFiller, ClearsTextsAndTagsOfTheSelection) {
    choose(1, 1, 2, 2);
    EXPECT_TRUE(run(Command::ClearCells));
    EXPECT_EQ(texts(1, 1, 3, 3), "||t13/||t23/t31|t32|t33");
    EXPECT_EQ(tags(1, 1, 2, 2), "|/|");
    EXPECT_EQ(report().command, Command::ClearCells);
    EXPECT_EQ(report().written, 4);
    undo();
    for (int row = 1; row <= 3; ++row) expectContent(row, row);
}

TEST_F(BlockFiller, ClearsTheCurrentCellWhereNothingIsSelected) {
    at(2, 2);
    EXPECT_TRUE(run(Command::ClearCells));
    EXPECT_EQ(texts(2, 1, 2, 3), "t21||t23");
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(2, 2));
}

TEST_F(BlockFiller, ClearsNoHiddenReadOnlyOrLockedCell) {
    grid.ColHidden(2, true);
    grid.Grid().RowHidden(2, true);
    readOnly(3);
    lock([](std::int32_t row, std::int32_t col) { return row == 3 && col == 1; });
    choose(1, 1, 3, 4);
    run(Command::ClearCells);
    EXPECT_EQ(texts(1, 1, 3, 4), "|t12|t13|/t21|t22|t23|t24/t31|t32|t33|");
    EXPECT_EQ(report().written, 3);
    EXPECT_EQ(report().passedOver, 3);
    EXPECT_EQ(report().refused, 0);
    EXPECT_EQ(report().summary(), "已清除 3 格，跳过只读 3 格。");
}

TEST_F(BlockFiller, TouchesOnlyCellsThatHoldSomething) {
    rows(100'000);
    fill(5, 2, "", "tag alone");
    grid.Grid().SelectCols(2, 2);
    run(Command::ClearCells);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(1, 2) + edited(2, 2) + edited(3, 2) + edited(5, 2));
    EXPECT_EQ(report().written, 4);
    EXPECT_EQ(tag(5, 2), "");
}

TEST_F(BlockFiller, ClearsBooleansToEmptyOnes) {
    typed(3, flexDTBoolean);
    fill(1, 3, "-1");
    at(1, 3);
    run(Command::ClearCells);
    EXPECT_EQ(text(1, 3), "");
}

TEST_F(BlockFiller, ClearsWhatTheHostsRuleLets) {
    grid.Options(2).accepts([](std::int32_t row, std::string_view text) {
        return row == 2 && text.empty() ? std::string("must stay") : std::string();
    });
    choose(1, 2, 3, 2);
    run(Command::ClearCells);
    EXPECT_EQ(texts(1, 2, 3, 2), "/t22/");
    EXPECT_TRUE(problemAt(2, 2));
    EXPECT_EQ(report().refused, 1);
}

TEST_F(BlockFiller, ClearsByTheDeleteKeyWhereTheHostSaysSo) {
    grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    grid.Options().DeleteClears(true);
    choose(1, 1, 2, 2);
    desk.press(Key::Delete);
    EXPECT_EQ(texts(1, 1, 2, 2), "|/|");
    EXPECT_EQ(named(heard(), "DeleteVsRow"), Lines());
    EXPECT_EQ(grid.Rows(), 6);
    grid.Options().DeleteClears(false);
    at(1, 1);
    desk.press(Key::Delete);
    EXPECT_EQ(named(heard(), "DeleteVsRow"), (Lines{line("DeleteVsRow", 1, false)}));
}

TEST_F(BlockFiller, FillsDownTheFirstRowOfTheSelectionWithItsTags) {
    choose(1, 2, 3, 3);
    EXPECT_TRUE(run(Command::FillDown));
    EXPECT_EQ(texts(1, 1, 3, 4), "t11|t12|t13|t14/t21|t12|t13|t24/t31|t12|t13|t34");
    EXPECT_EQ(tags(2, 2, 3, 3), "d12|d13/d12|d13");
    EXPECT_EQ(report().command, Command::FillDown);
    EXPECT_EQ(report().written, 4);
    undo();
    for (int row = 1; row <= 3; ++row) expectContent(row, row);
}

TEST_F(BlockFiller, FillsOneRowFromTheShownRowAbove) {
    grid.Grid().RowHidden(2, true);
    choose(3, 2, 3, 3);
    EXPECT_TRUE(run(Command::FillDown));
    EXPECT_EQ(texts(3, 1, 3, 4), "t31|t12|t13|t34");
    EXPECT_EQ(tags(3, 2, 3, 3), "d12|d13");
}

TEST_F(BlockFiller, FillsDownFromTheFirstShownRowIntoShownCellsAlone) {
    grid.Grid().RowHidden(1, true);
    grid.Grid().RowHidden(3, true);
    grid.ColHidden(2, true);
    choose(1, 1, 4, 3);
    run(Command::FillDown);
    EXPECT_EQ(texts(1, 1, 4, 3), "t11|t12|t13/t21|t22|t23/t31|t32|t33/t21||t23");
}

TEST_F(BlockFiller, FillsDownPastReadOnlyAndLockedCells) {
    readOnly(2);
    lock([](std::int32_t row, std::int32_t col) { return row == 2 && col == 1; });
    choose(1, 1, 3, 2);
    run(Command::FillDown);
    EXPECT_EQ(texts(1, 1, 3, 2), "t11|t12/t21|t22/t11|t32");
    EXPECT_EQ(report().written, 1);
    EXPECT_EQ(report().passedOver, 3);
}

TEST_F(BlockFiller, FillsDownWithoutAskingForCodesButAskingRules) {
    takesCodes(1);
    grid.Options(2).accepts([](std::int32_t row, std::string_view) {
        return row == 2 ? std::string("not there") : std::string();
    });
    choose(1, 1, 3, 2);
    run(Command::FillDown);
    EXPECT_EQ(texts(1, 1, 3, 2), "t11|t12/t11|t22/t11|t12");
    EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines());
    EXPECT_TRUE(problemAt(2, 2));
}

TEST_F(BlockFiller, FillsDownAnEmptyRowByEmptying) {
    fill(1, 1, "");
    choose(1, 1, 3, 1);
    run(Command::FillDown);
    EXPECT_EQ(texts(1, 1, 3, 1), "//");
    EXPECT_EQ(tags(1, 1, 3, 1), "//");
}

TEST_F(BlockFiller, FillsRightTheLeftmostColumnsDisplayedTexts) {
    column(1).iType(flexDTDouble);
    grid.ColFormat(1, "0.00");
    fill(1, 1, "5", "five");
    fill(2, 1, "7", "seven");
    choose(1, 1, 2, 3);
    EXPECT_TRUE(run(Command::FillRight));
    EXPECT_EQ(texts(1, 1, 2, 4), "5|5.00|5.00|t14/7|7.00|7.00|t24");
    EXPECT_EQ(tags(1, 2, 2, 3), "d12|d13/d22|d23");
    EXPECT_EQ(report().command, Command::FillRight);
    EXPECT_EQ(report().written, 4);
}

TEST_F(BlockFiller, FillsOneColumnFromTheShownOneToItsLeft) {
    grid.ColHidden(2, true);
    choose(1, 3, 2, 3);
    EXPECT_TRUE(run(Command::FillRight));
    EXPECT_EQ(texts(1, 1, 2, 4), "t11|t12|t11|t14/t21|t22|t21|t24");
}

TEST_F(BlockFiller, FillsRightThroughTheChecks) {
    column(2).iType(flexDTDouble);
    takesCodes(3);
    knowCodes();
    fill(1, 1, "A1");
    choose(1, 1, 1, 4);
    run(Command::FillRight);
    EXPECT_EQ(texts(1, 1, 1, 4), "A1|t12|A1|A1");
    EXPECT_EQ(tag(1, 3), "货 A1");
    EXPECT_TRUE(problemAt(1, 2));
    EXPECT_EQ(report().refused, 1);
}

TEST_F(BlockFiller, CopiesTextAndTagFromAbove) {
    at(2, 3);
    EXPECT_TRUE(run(Command::CopyFromAbove));
    EXPECT_EQ(text(2, 3), "t13");
    EXPECT_EQ(tag(2, 3), "d13");
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(2, 3));
    EXPECT_TRUE(grid.bIsDirty());
    undo();
    expectContent(2, 2);
}

TEST_F(BlockFiller, CopiesFromAboveIntoTheCurrentCellAloneAndPastHiddenRows) {
    grid.Grid().RowHidden(2, true);
    choose(3, 1, 4, 3);
    EXPECT_TRUE(run(Command::CopyFromAbove));
    EXPECT_EQ(texts(3, 1, 4, 3), "t11|t32|t33/||");
    EXPECT_EQ(tag(3, 1), "d11");
}

/// A clerk who enters the present day.
class Dater : public BlockTest {
  protected:
    Dater() {
        desk.setNow(2026, 11, 20, 14, 5, 9);
        at(2, 2);
    }
    void checkedAs(gEmJudgeType form) {
        column(2).i有效性判断(1);
        column(2).i字段有效性判断类型(form);
        at(2, 2);
    }
};

TEST_F(Dater, GetsThePrescribedFormsInAPlainColumn) {
    EXPECT_TRUE(run(Command::Today));
    EXPECT_EQ(text(2, 2), "2026-11-20");
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(2, 2));
    EXPECT_TRUE(run(Command::Now));
    EXPECT_EQ(text(2, 2), "2026-11-20 14:05:09");
    undo();
    EXPECT_EQ(text(2, 2), "2026-11-20");
}

TEST_F(Dater, GetsADateInAColumnOfDates) {
    checkedAs(ij日期型);
    EXPECT_TRUE(run(Command::Today));
    EXPECT_EQ(text(2, 2), "2026-11-20");
    EXPECT_EQ(tag(2, 2), "2026-11-20");
    fill(2, 2, "");
    EXPECT_TRUE(run(Command::Now));
    EXPECT_EQ(text(2, 2), "2026-11-20");
}

TEST_F(Dater, GetsAHalfDayInAColumnOfHalfDays) {
    checkedAs(ij半日型);
    EXPECT_TRUE(run(Command::Now));
    EXPECT_EQ(text(2, 2), "2026-11-20 下午");
    fill(2, 2, "");
    desk.setNow(2026, 11, 20, 8, 0, 0);
    EXPECT_TRUE(run(Command::Now));
    EXPECT_EQ(text(2, 2), "2026-11-20 上午");
}

TEST_F(Dater, GetsDateAndTimeInAColumnOfTimes) {
    checkedAs(ij时间型);
    EXPECT_TRUE(run(Command::Now));
    EXPECT_EQ(text(2, 2), "2026-11-20 14:05:09");
    EXPECT_EQ(tag(2, 2), "2026-11-20 14:05:09");
}

TEST_F(Dater, IsHeldToTheRulesOfTheColumn) {
    fill(2, 2, "before");
    grid.Options(2).pattern("never");
    run(Command::Today);
    EXPECT_EQ(text(2, 2), "before");
    EXPECT_TRUE(desk.messages().empty());
}
}  // namespace
}  // namespace kxVsGrid::testing
