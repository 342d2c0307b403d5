// Numbers with group separators: they count where the column's format groups, and end the number elsewhere.
#include <string>

#include "kit/MenuTest.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class GroupedNumber : public PlacedGrid {
  protected:
    GroupedNumber() {
        summed(2);
        setUp();
    }
    void format(const std::string& pattern) {
        grid.ColFormat(2, pattern);
        grid.RecalculateTotals();
    }
    std::string totalOf(const std::string& one) {
        grid.bIsShowZero(true);
        grid.SetCell(1, 2, one);
        return sum().Text(0, 2);
    }
    /// The cell after a text was typed and Enter pressed; "refused" when the editor stays.
    std::string typed(const std::string& one) {
        grid.SetCell(1, 2, "");
        typeInto(1, 2, one);
        desk.press(Key::Enter);
        const bool refused = desk.editor().visible;
        if (refused) desk.press(Key::Escape);
        return refused ? "refused" : text(1, 2);
    }
};

TEST_F(GroupedNumber, CountsWhereTheFormatGroups) {
    for (const char* pattern : {"#,##0.00", "#,##0", "0.0;(#,##0.0)"}) {
        format(pattern);
        EXPECT_EQ(totalOf("1,234.50"), "1234.5") << pattern;
        EXPECT_EQ(totalOf("1,234"), "1234") << pattern;
        EXPECT_EQ(totalOf("-1,234,567.25"), "-1234567.25") << pattern;
        EXPECT_EQ(totalOf(" 0,123 "), "123") << pattern;
    }
}

TEST_F(GroupedNumber, ThatIsNotWellFormedEndsAtItsFirstComma) {
    format("#,##0.00");
    for (const char* raw : {"1,5", "1,23", "1,2345", "1,234,5", "1,,234", "1,", "1,234.5,6", "1,234 kg"})
        EXPECT_EQ(totalOf(raw), "1") << raw;
    EXPECT_EQ(totalOf("1234,567"), "1234");
    EXPECT_EQ(totalOf(",123"), "0");
}

TEST_F(GroupedNumber, EndsAtItsFirstCommaWhereTheFormatDoesNotGroup) {
    for (const char* pattern : {"", "0.00", "yyyy-mm-dd"}) {
        format(pattern);
        EXPECT_EQ(totalOf("1,234.50"), "1") << pattern;
        EXPECT_EQ(totalOf("1,234"), "1") << pattern;
        EXPECT_EQ(totalOf("1,5"), "1") << pattern;
    }
}

TEST_F(GroupedNumber, IsCommittedWhereTheFormatGroups) {
    format("#,##0.00");
    EXPECT_EQ(typed("1,234.50"), "1234.5");
    EXPECT_EQ(typed("-1,234,567"), "-1234567");
    EXPECT_EQ(typed("1234.5"), "1234.5");
    EXPECT_EQ(typed("1,5"), "refused");
    EXPECT_EQ(typed("1,234+1"), "refused");
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(GroupedNumber, IsRefusedWhereTheFormatDoesNotGroup) {
    for (const char* pattern : {"", "0.00"}) {
        format(pattern);
        EXPECT_EQ(typed("1,234"), "refused") << pattern;
        EXPECT_EQ(typed("1,5"), "refused") << pattern;
    }
}

TEST_F(GroupedNumber, IsNotBlankedAsAZero) {
    format("#,##0");
    grid.SetCell(1, 2, "0,123");
    EXPECT_EQ(text(1, 2), "0,123");
    grid.SetCell(1, 2, "0,000");
    EXPECT_EQ(text(1, 2), "");
    format("");
    grid.SetCell(1, 2, "0,123");
    EXPECT_EQ(text(1, 2), "");
}

TEST_F(GroupedNumber, CountsTheSameWhileTheHostHearsOfACell) {
    Lines seen;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 2) seen.push_back(grid.ReadSum(2));
    });
    grid.SetCell(1, 2, "1,234");
    grid.RecalculateTotals();
    grid.SetCell(2, 2, "5");
    EXPECT_EQ(seen, (Lines{"1"}));
    EXPECT_EQ(grid.ReadSum(2), "6");
    format("#,##0");
    grid.SetCell(2, 2, "1,5");
    EXPECT_EQ(seen, (Lines{"1", "1,239"}));
    EXPECT_EQ(grid.ReadSum(2), "1,235");
    grid.SetCell(2, 2, "6");
    EXPECT_EQ(seen, (Lines{"1", "1,239", "1,235"}));
}

class GroupedSeries : public MenuTest {
  protected:
    Lines seriesOf(const char* above, const char* one) {
        grid.Grid().Text(2, 2, above);
        grid.Grid().Text(3, 2, one);
        at(3, 2);
        fillBy(caption::Series);
        return {text(4, 2), text(5, 2)};
    }
};

TEST_F(GroupedSeries, GoOnFromNumbersAsTheyCount) {
    typed(2, flexDTDouble);
    EXPECT_EQ(seriesOf("1,5", "3"), (Lines{"5", "7"}));
    EXPECT_EQ(seriesOf("1", "1,234"), (Lines{"2", "3"}));
    grid.ColFormat(2, "#,##0.00");
    EXPECT_EQ(seriesOf("1,000", "1,234.50"), (Lines{"1469", "1703.5"}));
    EXPECT_EQ(seriesOf("1000", "1234.5"), (Lines{"1469", "1703.5"}));
    EXPECT_EQ(seriesOf("1,5", "3"), (Lines{"5", "7"}));
}

TEST_F(GroupedSeries, CopiesOfAShownNumberCountAsIt) {
    summed(2);
    grid.ColFormat(2, "#,##0.00");
    grid.Rows(6);
    fill(4, 2, "1234.5");
    at(4, 2);
    fillBy(caption::Copies);
    EXPECT_EQ(text(5, 2), "1,234.50");
    EXPECT_EQ(grid.ReadSum(2), "2,469.00");
}
}  // namespace
}  // namespace kxVsGrid::testing
