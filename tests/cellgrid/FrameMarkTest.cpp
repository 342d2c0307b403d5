// How marks show in the picture: a triangle in the upper right corner of their cell.
#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using MarkKind = CellMark::Kind;

class MarksInAFrame : public ::testing::Test {
  protected:
    MarksInAFrame() { grid.Resize(9000, 6000); }
    const FrameItem* markAt(std::int32_t row, std::int32_t col, const FrameState& state = {}) {
        reader.emplace(grid, state);
        return reader->find(FrameItem::Kind::Mark, row, col);
    }
    CellGrid grid;
    std::optional<FrameReader> reader;
};

TEST_F(MarksInAFrame, StandInTheirCornerWithTheirKind) {
    grid.Mark(2, 3, CellMark{MarkKind::Warning, "慎"});
    const FrameItem* mark = markAt(2, 3);
    ASSERT_NE(mark, nullptr);
    EXPECT_EQ(mark->mark, MarkKind::Warning);
    const Rect cell = grid.CellRect(2, 3);
    EXPECT_EQ(mark->rect, (Rect{cell.right() - 15 - 90, cell.top, 90, 90}));
    EXPECT_EQ(markAt(2, 2), nullptr);
}

TEST_F(MarksInAFrame, DifferInTheirColours) {
    grid.Mark(1, 1, CellMark{MarkKind::Problem, ""});
    grid.Mark(1, 2, CellMark{MarkKind::Warning, ""});
    grid.Mark(1, 3, CellMark{MarkKind::Note, ""});
    const std::uint32_t red = markAt(1, 1)->color;
    const std::uint32_t amber = markAt(1, 2)->color;
    const std::uint32_t blue = markAt(1, 3)->color;
    EXPECT_NE(red, amber);
    EXPECT_NE(amber, blue);
    EXPECT_NE(blue, red);
}

TEST_F(MarksInAFrame, ComeAfterTheTextOfTheirCell) {
    grid.Text(2, 3, "x");
    grid.Mark(2, 3, CellMark{MarkKind::Note, ""});
    const FrameItem* mark = markAt(2, 3);
    EXPECT_GT(mark, reader->find(FrameItem::Kind::Text, 2, 3));
}

TEST_F(MarksInAFrame, ShowOnHeadersAndCheckBoxes) {
    grid.ColDataType(2, flexDTBoolean);
    grid.Mark(0, 2, CellMark{});
    grid.Mark(3, 0, CellMark{});
    grid.Mark(3, 2, CellMark{});
    EXPECT_NE(markAt(0, 2), nullptr);
    EXPECT_NE(markAt(3, 0), nullptr);
    EXPECT_NE(markAt(3, 2), nullptr);
}

TEST_F(MarksInAFrame, StandInTheCornerOfAMergedHeader) {
    grid.MergeCells(flexMergeFixedOnly);
    grid.MergeRow(0, true);
    grid.Text(0, 2, "合");
    grid.Text(0, 3, "合");
    grid.Mark(0, 2, CellMark{});
    ASSERT_NE(markAt(0, 2), nullptr);
    EXPECT_EQ(markAt(0, 2)->rect.right(), grid.CellRect(0, 3).right() - 15);
}

TEST_F(MarksInAFrame, HideUnderTheOpenEditor) {
    grid.Mark(1, 1, CellMark{});
    grid.Mark(1, 2, CellMark{});
    FrameState state;
    state.editorOpen = true;
    EXPECT_EQ(markAt(1, 1, state), nullptr);
    EXPECT_NE(markAt(1, 2, state), nullptr);
    EXPECT_NE(markAt(1, 1), nullptr);
}

TEST_F(MarksInAFrame, StandInsideOfTheOutlineOfTheCurrentCell) {
    grid.Mark(1, 1, CellMark{});
    const Rect cell = grid.CellRect(1, 1);
    ASSERT_NE(markAt(1, 1), nullptr);
    EXPECT_EQ(markAt(1, 1)->rect, (Rect{cell.right() - 30 - 90, cell.top + 30, 90, 90}));
}

TEST_F(MarksInAFrame, FitIntoSmallCells) {
    grid.Mark(2, 2, CellMark{});
    grid.RowHeight(2, 60);
    EXPECT_EQ(markAt(2, 2)->rect.height, 45);
    EXPECT_EQ(markAt(2, 2)->rect.width, 45);
    grid.RowHeight(2, 15);
    EXPECT_EQ(markAt(2, 2), nullptr);
}
}  // namespace
}  // namespace kxVsGrid
