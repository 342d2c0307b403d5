// What the total row shows, and when it changes.
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

/// Column 2 is summed and the total row shown.
class Totals : public PlacedGrid {
  protected:
    Totals() {
        summed(2);
        setUp();
    }
    void fill(const std::vector<std::string>& texts) {
        grid.Rows(static_cast<std::int32_t>(texts.size()) + 1);
        std::int32_t row = 1;
        for (const auto& one : texts) grid.SetCell(row++, 2, one);
    }
};

struct Column {
    const char* what;
    std::vector<std::string> texts;
    std::string format;
    std::string total;
    friend std::ostream& operator<<(std::ostream& out, const Column& column) { return out << column.what; }
};

class TotalOf : public Totals, public ::testing::WithParamInterface<Column> {};

TEST_P(TotalOf, IsTheSumOfTheShownTexts) {
    grid.bIsShowZero(true);
    grid.ColFormat(2, GetParam().format);
    fill(GetParam().texts);
    EXPECT_EQ(grid.ReadSum(2), GetParam().total);
    EXPECT_EQ(sum().DisplayText(0, 2), GetParam().total);
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), GetParam().total) << "computed again";
    grid.Rows(grid.Rows());
    EXPECT_EQ(grid.ReadSum(2), GetParam().total) << "after a refresh of the rows";
}

const Column Columns[] = {
    {"Nothing", {}, "", "0"},
    {"WordsAndEmptyTexts", {"1.5", "", "abc", "2"}, "", "3.5"},
    {"ATenthAndTwoTenths", {"0.1", "0.2"}, "", "0.3"},
    {"TenTenths", std::vector<std::string>(10, "0.1"), "", "1"},
    {"NegativeNumbers", {"-5", "2"}, "", "-3"},
    {"NumbersThatCancelOut", {"-0.5", "0.5"}, "", "0"},
    {"NegativeZeros", {"-0", "-0"}, "", "0"},
    {"LeadingNumbers", {" 3 pieces", "4kg", "-1.5e1x", "+2"}, "", "-6"},
    {"NumbersThatStartWithThePoint", {".5", "-.25"}, "", "0.25"},
    {"CommasWithoutAFormat", {"1,5", "1,234.50"}, "", "2"},
    {"Exponents", {"1e3", "2E-1"}, "", "1000.2"},
    {"TrailingZeros", {"1.500", "1.500"}, "", "3"},
    {"FifteenDigits", {"123456789012345", "0.4"}, "", "123456789012345"},
    {"BigNumbers", {"999999999999999", "1"}, "", "1E+15"},
    {"VeryBigNumbers", {"1e20", "5e19"}, "", "1.5E+20"},
    {"TheSmallestPlainNumber", {"0.00001"}, "", "0.00001"},
    {"RowsInTheirOrder", {"1e16", "1", "-1e16"}, "", "0"},
    {"RowsInAnotherOrder", {"1e16", "-1e16", "1"}, "", "1"},
    {"SeparatorsOfTheFormat", {"1234.5", "1000000"}, "#,##0.00", "1,001,234.50"},
    {"SeparatorsOfNegativeNumbers", {"-1234.5", "-1000"}, "#,##0.00", "-2,234.50"},
    {"RoundedTexts", {"1.4", "1.4"}, "0", "2"},
    {"RoundedHalves", {"0.125", "0.125"}, "0.00", "0.26"},
    {"AFormatOverWords", {"abc", "12"}, "0.00", "12.00"},
    {"AFormatOverZero", {"0"}, "0.00", "0.00"},
    {"AFormatWithoutData", {}, "#,##0.00", "0.00"},
};
INSTANTIATE_TEST_SUITE_P(AColumnOf, TotalOf, ::testing::ValuesIn(Columns),
                         [](const auto& tested) { return std::string(tested.param.what); });

TEST_F(Totals, ShowZeroAlsoWhileZerosAreBlanked) {
    grid.SetCell(1, 2, "0");
    EXPECT_EQ(text(1, 2), "");
    EXPECT_EQ(grid.ReadSum(2), "0");
}

TEST_F(Totals, FollowEverySetCell) {
    grid.SetCell(1, 2, "5");
    EXPECT_EQ(grid.ReadSum(2), "5");
    grid.SetCell(2, 2, "7");
    EXPECT_EQ(grid.ReadSum(2), "12");
    grid.SetCell(1, 2, "1");
    EXPECT_EQ(grid.ReadSum(2), "8");
    grid.SetCell(2, 2, "");
    EXPECT_EQ(grid.ReadSum(2), "1");
}

TEST_F(Totals, AreThoseOfSummedColumnsAlone) {
    grid.SetCell(1, 3, "5");
    EXPECT_EQ(grid.ReadSum(3), "");
    summed(3);
    EXPECT_EQ(grid.ReadSum(3), "");
    grid.SetCell(2, 3, "6");
    EXPECT_EQ(grid.ReadSum(3), "11");
}

TEST_F(Totals, OfAColumnThatIsNoLongerSummedStayAsTheyWere) {
    grid.SetCell(1, 2, "5");
    column(2).b是否合计数据(false);
    grid.SetCell(2, 2, "7");
    EXPECT_EQ(grid.ReadSum(2), "5");
    grid.Rows(6);
    EXPECT_EQ(grid.ReadSum(2), "5");
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "");
}

TEST_F(Totals, CountHiddenRowsAndNoCaptions) {
    grid.SetCell(0, 2, "1000");
    grid.SetCell(1, 2, "5");
    grid.SetCell(2, 2, "7");
    vs().RowHidden(2, true);
    grid.SetCell(3, 2, "1");
    EXPECT_EQ(grid.ReadSum(2), "13");
    grid.FixedRows(2);
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "8");
}

TEST_F(Totals, AreReadFromAGridReferenceThatWasTakenEarlier) {
    const CellGrid& early = grid.Grid_Sum();
    grid.SetCell(1, 2, "5");
    EXPECT_EQ(early.Text(0, 2), "5");
    grid.SetCell(2, 2, "7");
    EXPECT_EQ(early.Text(0, 2), "12");
    EXPECT_EQ(early.DisplayText(0, 2), "12");
}

TEST_F(Totals, OfTheFirstDataColumnTakeThePlaceOfTheCaption) {
    summed(1);
    EXPECT_EQ(grid.ReadSum(1), "合计");
    grid.SetCell(1, 1, "5");
    EXPECT_EQ(grid.ReadSum(1), "5");
}

TEST_F(Totals, OfAFixedColumnComeOnlyWithItsOwnSetCell) {
    column(0).b是否合计数据(true);
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(0), "");
    grid.SetCell(1, 0, "5");
    EXPECT_EQ(grid.ReadSum(0), "5");
}

// --- What recomputes them, and what does not.

TEST_F(Totals, WaitForReDrawInSetCell) {
    grid.SetCell(1, 2, "5");
    grid.ReDraw(false);
    grid.SetCell(2, 2, "7");
    grid.SetCell(1, 2, "1");
    EXPECT_EQ(grid.ReadSum(2), "5");
    EXPECT_EQ(sum().Text(0, 2), "5");
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "8");
}

TEST_F(Totals, AreNotReadBackEarlyByALateLook) {
    grid.SetCell(1, 2, "5");
    grid.SetCell(2, 2, "6");
    grid.ReDraw(false);
    grid.SetCell(3, 2, "7");
    EXPECT_EQ(grid.ReadSum(2), "11") << "nobody has looked before";
}

TEST_F(Totals, StayWhenTheHostWritesThroughTheGrid) {
    grid.SetCell(1, 2, "5");
    vs().Text(2, 2, "7");
    EXPECT_EQ(grid.ReadSum(2), "5");
    vs().Text(1, 2, "100");
    EXPECT_EQ(grid.ReadSum(2), "5");
    vs().ClearText(1, 2);
    EXPECT_EQ(grid.ReadSum(2), "5");
    grid.SetCell(3, 2, "1");
    EXPECT_EQ(grid.ReadSum(2), "1");
}

TEST_F(Totals, StayWhenTheHostInsertsOrRemovesRowsThroughTheGrid) {
    grid.SetCell(1, 2, "5");
    grid.SetCell(2, 2, "6");
    vs().RemoveRow(2);
    EXPECT_EQ(grid.ReadSum(2), "11");
    vs().InsertRow(2);
    vs().Text(2, 2, "100");
    EXPECT_EQ(grid.ReadSum(2), "11");
    vs().Rows(2);
    EXPECT_EQ(grid.ReadSum(2), "11");
    grid.Rows(6);
    EXPECT_EQ(grid.ReadSum(2), "5");
}

TEST_F(Totals, AreRecomputedWhenLostRowsForceTheCurrentCellAway) {
    grid.SetCell(1, 2, "5");
    grid.SetCell(5, 2, "6");
    vs().Select(5, 2);
    vs().Rows(3);
    EXPECT_EQ(grid.ReadSum(2), "5");
}

TEST_F(Totals, OfOtherColumnsStayWithASetCell) {
    summed(3);
    grid.ReDraw(true);
    vs().Text(1, 2, "5");
    grid.SetCell(1, 3, "7");
    EXPECT_EQ(grid.ReadSum(3), "7");
    EXPECT_EQ(grid.ReadSum(2), "0");
}

TEST_F(Totals, AreRecomputedByAMoveAlsoWhileReDrawIsOff) {
    grid.ReDraw(false);
    vs().Text(1, 2, "5");
    grid.SetCell(2, 2, "6");
    EXPECT_EQ(grid.ReadSum(2), "0");
    grid.Row(2);
    EXPECT_EQ(grid.ReadSum(2), "11");
}

TEST_F(Totals, AreRecomputedByACommitOfAnyColumn) {
    vs().Text(1, 2, "5");
    typeInto(1, 4, "typed");
    vs().Text(2, 2, "6");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(grid.ReadSum(2), "11");
}

TEST_F(Totals, AreNotRecomputedByAReadOrASetUpWithoutATotalRow) {
    vs().Text(1, 2, "5");
    EXPECT_EQ(grid.ReadCell(1, 2, true), "5");
    desk.resize(9000, 6000);
    grid.SumRow(false);
    grid.SumRow(true);
    EXPECT_EQ(grid.ReadSum(2), "0");
    grid.SumRow(false);
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "");
    grid.SetCell(2, 2, "6");
    EXPECT_EQ(grid.ReadSum(2), "11");
}

TEST_F(Totals, AreStillTheOldOnesWhenTheHostHearsOfTheCell) {
    Lines seen;
    grid.SetCell(1, 2, "5");
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { seen.push_back(grid.ReadSum(2)); });
    grid.SetCell(2, 2, "7", "tag");
    EXPECT_EQ(seen, (Lines{"5", "5"}));
    EXPECT_EQ(grid.ReadSum(2), "12");
}

TEST_F(Totals, KeepTheirValueUnderANewFormat) {
    grid.SetCell(1, 2, "1.4");
    grid.SetCell(2, 2, "1.4");
    EXPECT_EQ(grid.ReadSum(2), "2.8");
    grid.ColFormat(2, "0");
    EXPECT_EQ(grid.ReadSum(2), "3");
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "2");
    grid.ColFormat(2, "0.00");
    EXPECT_EQ(grid.ReadSum(2), "2.00");
}

TEST_F(Totals, AreNumbersThatTheFormatOnlyShows) {
    grid.ColFormat(2, "#,##0.00");
    grid.SetCell(1, 2, "1234.5");
    EXPECT_EQ(sum().Text(0, 2), "1234.5");
    EXPECT_EQ(sum().DisplayText(0, 2), "1,234.50");
}

TEST_F(Totals, GiveWayToATextOfTheHostUntilTheNextComputation) {
    grid.SetCell(1, 2, "5");
    sum().Text(0, 2, "see below");
    EXPECT_EQ(grid.ReadSum(2), "see below");
    grid.SetCell(2, 3, "elsewhere");
    EXPECT_EQ(grid.ReadSum(2), "see below");
    grid.SetCell(2, 2, "6");
    EXPECT_EQ(grid.ReadSum(2), "11");
}

TEST_F(Totals, FollowTheDeletionOfTheirDefinition) {
    grid.SetCell(1, 2, "5");
    grid.Col(2);
    grid.SetVsControl(nullptr);
    grid.SetCell(2, 2, "6");
    EXPECT_EQ(grid.ReadSum(2), "5");
}

TEST_F(Totals, OfManyRowsAreRightAfterEveryKindOfChange) {
    grid.Rows(1001);
    for (std::int32_t row = 1; row <= 1000; ++row) grid.SetCell(row, 2, std::to_string(row));
    EXPECT_EQ(grid.ReadSum(2), "500500");
    grid.SetCell(500, 2, "0");
    EXPECT_EQ(grid.ReadSum(2), "500000");
    grid.AddRow(500, false, false);
    grid.SetCell(500, 2, "500");
    EXPECT_EQ(grid.ReadSum(2), "500500");
    grid.Rows(101);
    EXPECT_EQ(grid.ReadSum(2), "5050");
    grid.Clear();
    EXPECT_EQ(grid.ReadSum(2), "0");
}

TEST_F(Totals, BeforeAnySetUpAreThoseOfTheRowCount) {
    headless::Desk other;
    kxGrid& fresh = other.place();
    fresh.VsCtrl(3)->b是否合计数据(true);
    fresh.SetCell(1, 3, "5");
    EXPECT_EQ(fresh.ReadSum(3), "");
    fresh.Rows(6);
    EXPECT_EQ(fresh.ReadSum(3), "5");
}
}  // namespace
}  // namespace kxVsGrid::testing
