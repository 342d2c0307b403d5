#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;

/// Two header rows, one header column; header row 0 reads A A A B.
class FrameMerge : public testing::Test {
  protected:
    FrameMerge() : grid(6, 5, 4500, 1800) {
        grid.FixedRows(2);
        grid.ShowCursor(false);
        grid.MergeCells(flexMergeFixedOnly);
        grid.MergeRow(0, true);
        for (std::int32_t col = 1; col < 5; ++col) grid.Text(0, col, col < 4 ? "A" : "B");
    }
    FilledGrid grid;
};

TEST_F(FrameMerge, ShowsNeighbouringHeaderCellsOfEqualTextAsOne) {
    const FrameReader frame(grid);
    ASSERT_TRUE(frame.showsText(0, 1));
    EXPECT_EQ(frame.find(Kind::Text, 0, 1)->rect, (Rect{500 + 45, 0, 3000 - 90, 300}));
    EXPECT_FALSE(frame.showsText(0, 2));
    EXPECT_FALSE(frame.showsText(0, 3));
    EXPECT_EQ(frame.find(Kind::Text, 0, 4)->rect, (Rect{3500 + 45, 0, 1000 - 90, 300}));
}

TEST_F(FrameMerge, DrawsNoLineInsideOfMergedCellsButAroundThem) {
    const FrameReader frame(grid);
    EXPECT_EQ(frame.lineBeside(0, 1), 0u);
    EXPECT_EQ(frame.lineBeside(0, 2), 0u);
    EXPECT_EQ(frame.lineBeside(0, 3), 0x80000010u);
    EXPECT_EQ(frame.lineBelow(0, 2), 0x80000010u);
    EXPECT_EQ(frame.lineBeside(1, 1), 0x80000010u);
}

TEST_F(FrameMerge, HappensOnlyWhereGridAndRowMerge) {
    EXPECT_TRUE(FrameReader(grid).showsText(1, 2));
    for (std::int32_t col = 1; col < 5; ++col) grid.Text(1, col, "same");
    EXPECT_TRUE(FrameReader(grid).showsText(1, 2));
    grid.MergeRow(0, false);
    EXPECT_TRUE(FrameReader(grid).showsText(0, 2));
    grid.MergeRow(0, true);
    grid.MergeCells(flexMergeNever);
    EXPECT_TRUE(FrameReader(grid).showsText(0, 2));
}

TEST_F(FrameMerge, LeavesDataCellsApart) {
    grid.MergeRow(3, true);
    grid.MergeCol(1, true);
    for (std::int32_t col = 0; col < 5; ++col) grid.Text(3, col, "same");
    grid.Text(4, 1, "same");
    const FrameReader frame(grid);
    for (std::int32_t col = 0; col < 5; ++col) EXPECT_TRUE(frame.showsText(3, col)) << col;
    EXPECT_TRUE(frame.showsText(4, 1));
}

TEST_F(FrameMerge, LeavesEmptyCellsApart) {
    grid.Text(0, 1, "");
    grid.Text(0, 2, "");
    EXPECT_EQ(FrameReader(grid).lineBeside(0, 1), 0x80000010u);
}

TEST_F(FrameMerge, RunsDownColumnsThatMerge) {
    grid.MergeCol(4, true);
    grid.Text(1, 4, "B");
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Text, 0, 4)->rect, (Rect{3500 + 45, 0, 1000 - 90, 600}));
    EXPECT_FALSE(frame.showsText(1, 4));
    EXPECT_EQ(frame.lineBelow(0, 4), 0u);
    EXPECT_EQ(frame.lineBelow(1, 4), 0x80000010u);
}

TEST_F(FrameMerge, RunsDownTheHeaderColumnOfDataRows) {
    grid.MergeCol(0, true);
    for (std::int32_t row = 2; row < 5; ++row) grid.Text(row, 0, "一组");
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Text, 2, 0)->rect, (Rect{45, 600, 500 - 90, 900}));
    EXPECT_FALSE(frame.showsText(4, 0));
    EXPECT_EQ(frame.text(5, 0), "5,0");
}

TEST_F(FrameMerge, JoinsARectangleOfEqualTexts) {
    grid.MergeRow(1, true);
    for (std::int32_t col = 1; col < 4; ++col) {
        grid.MergeCol(col, true);
        grid.Text(1, col, "A");
    }
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Text, 0, 1)->rect, (Rect{500 + 45, 0, 3000 - 90, 600}));
    EXPECT_FALSE(frame.showsText(1, 1));
    EXPECT_FALSE(frame.showsText(1, 3));
}

TEST_F(FrameMerge, ShrinksWithTheColumnsThatAreShown) {
    grid.ColHidden(2, true);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Text, 0, 1)->rect, (Rect{500 + 45, 0, 2000 - 90, 300}));
}

TEST_F(FrameMerge, DoesNotJoinAHeaderColumnWithOneThatScrollingBroughtBesideIt) {
    grid.Text(0, 0, "A");
    EXPECT_EQ(FrameReader(grid).find(Kind::Text, 0, 0)->rect.width, 3500 - 90);
    grid.Resize(2000, 1800);
    grid.LeftCol(2);
    EXPECT_EQ(FrameReader(grid).find(Kind::Text, 0, 0)->rect.width, 500 - 90);
    EXPECT_TRUE(FrameReader(grid).showsText(0, 2));
}

TEST_F(FrameMerge, FillsMergedCellsInTheColorOfTheFirst) {
    grid.CellBackColor(0, 1, 0x0000FF);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.fillOf(0, 1), 0x0000FFu);
    EXPECT_EQ(frame.fillOf(0, 3), 0x0000FFu);
    EXPECT_EQ(frame.fillOf(0, 4), grid.BackColorFixed());
}
}  // namespace
}  // namespace kxVsGrid
