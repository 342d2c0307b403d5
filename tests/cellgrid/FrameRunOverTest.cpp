// Texts that are drawn over empty neighbours.
#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;

/// One row of seven data columns of 1000 twips, a narrow character being 100 wide, beside a fixed one of 500.
class RowOfTotals : public CellGrid {
  public:
    RowOfTotals() {
        ScrollBars(false);
        FixedRows(0);
        Rows(1);
        Cols(8);
        ColWidth(0, 500);
        Resize(7500, 300);
        ShowCursor(false);
        TextsRunOver(true);
        for (std::int32_t col = 1; col < 8; ++col) ColAlignment(col, flexAlignRightCenter);
    }
    Rect room(std::int32_t col, const FrameState& state = {}) const {
        const FrameReader frame(*this, state);
        const auto* text = frame.find(Kind::Text, 0, col);
        return text ? text->rect : Rect{};
    }
};

TEST(RunOver, GivesAWideTextTheEmptyCellsAwayFromItsAlignment) {
    RowOfTotals grid;
    grid.Text(0, 4, "1234567890123456");
    EXPECT_EQ(grid.room(4), (Rect{2545, 0, 1910, 300}));
    grid.ColAlignment(4, flexAlignLeftCenter);
    EXPECT_EQ(grid.room(4), (Rect{3545, 0, 1910, 300}));
    grid.ColAlignment(4, flexAlignCenterCenter);
    EXPECT_EQ(grid.room(4), (Rect{2545, 0, 2910, 300}));
}

TEST(RunOver, TakesNoMoreCellsThanTheTextNeeds) {
    RowOfTotals grid;
    grid.Text(0, 4, "12345678");
    EXPECT_EQ(grid.room(4), (Rect{3545, 0, 910, 300}));
    grid.Text(0, 4, "1234567890123456789012");
    EXPECT_EQ(grid.room(4).width, 2910);
}

TEST(RunOver, StopsAtACellWithATextAndAtTheFixedOnes) {
    RowOfTotals grid;
    grid.Text(0, 4, std::string(60, '1'));
    EXPECT_EQ(grid.room(4), (Rect{545, 0, 3910, 300}));
    grid.Text(0, 2, "x");
    EXPECT_EQ(grid.room(4), (Rect{2545, 0, 1910, 300}));
    grid.Text(0, 3, "x");
    EXPECT_EQ(grid.room(4), (Rect{3545, 0, 910, 300}));
}

TEST(RunOver, GivesACellToOneTextOnly) {
    RowOfTotals grid;
    grid.ColAlignment(3, flexAlignLeftCenter);
    grid.Text(0, 3, std::string(15, '1'));
    grid.Text(0, 5, std::string(15, '2'));
    EXPECT_EQ(grid.room(3), (Rect{2545, 0, 1910, 300}));
    EXPECT_EQ(grid.room(5), (Rect{4545, 0, 910, 300}));
}

TEST(RunOver, LeavesNoLineUnderTheText) {
    RowOfTotals grid;
    const auto lineAfter = [&](std::int32_t col) { return FrameReader(grid).lineBeside(0, col); };
    grid.Text(0, 4, "1234567890123456");
    EXPECT_NE(lineAfter(2), 0u);
    EXPECT_EQ(lineAfter(3), 0u);
    EXPECT_NE(lineAfter(4), 0u);
    EXPECT_NE(FrameReader(grid).lineBelow(0, 3), 0u);
    grid.Text(0, 4, "1");
    EXPECT_NE(lineAfter(3), 0u);
}

TEST(RunOver, IsDrawnAndDamagedWithTheWholeRow) {
    RowOfTotals grid;
    grid.Text(0, 4, "1234567890123456");
    EXPECT_EQ(grid.room(4, {.clip = {2600, 50, 100, 100}}), (Rect{2545, 0, 1910, 300}));
    grid.takeDamage();
    grid.Text(0, 4, "1");
    const auto damage = grid.takeDamage();
    ASSERT_EQ(damage.rects.size(), 1u);
    EXPECT_EQ(damage.rects[0], (Rect{0, 0, 7500, 300}));
}

TEST(RunOver, IsNotDoneUnlessAskedFor) {
    RowOfTotals grid;
    grid.TextsRunOver(false);
    grid.Text(0, 4, "1234567890123456");
    EXPECT_EQ(grid.room(4), (Rect{3545, 0, 910, 300}));
}
}  // namespace
}  // namespace kxVsGrid
