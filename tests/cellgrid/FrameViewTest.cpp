#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;
using CellSet = std::set<std::pair<std::int32_t, std::int32_t>>;

CellSet cellsWithText(const FrameReader& frame) {
    CellSet cells;
    for (const auto& item : frame.items())
        if (item.kind == Kind::Text) cells.emplace(item.row, item.col);
    return cells;
}

/// Rows and columns whose cells are all shown, and no others.
CellSet cells(std::initializer_list<std::int32_t> rows, std::initializer_list<std::int32_t> cols) {
    CellSet result;
    for (const auto row : rows)
        for (const auto col : cols) result.emplace(row, col);
    return result;
}

TEST(FrameView, ShowsRowsAndColumnsThatOverlapTheView) {
    FilledGrid grid(60, 12, 2600, 950);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({0, 1, 2, 3}, {0, 1, 2, 3}));
}

TEST(FrameView, ShowsTheScrolledCellsBesideTheFixedOnes) {
    FilledGrid grid(60, 12, 2500, 900);
    grid.ScrollTo(20, 5);
    const FrameReader frame(grid);
    EXPECT_EQ(cellsWithText(frame), cells({0, 20, 21}, {0, 5, 6}));
    EXPECT_EQ(frame.find(Kind::Text, 20, 5)->rect, (Rect{545, 300, 910, 300}));
    EXPECT_EQ(frame.find(Kind::Text, 20, 0)->rect, (Rect{45, 300, 410, 300}));
    EXPECT_EQ(frame.find(Kind::Text, 0, 5)->rect, (Rect{545, 0, 910, 300}));
}

TEST(FrameView, DrawsTheFixedAreaAfterTheDataCells) {
    FilledGrid grid(60, 12, 2500, 900);
    grid.ScrollTo(20, 5);
    bool fixedSeen = false;
    for (const auto& item : makeFrame(grid).items) {
        if (item.kind != Kind::Text) continue;
        const bool fixed = item.row < 1 || item.col < 1;
        EXPECT_FALSE(fixedSeen && !fixed);
        fixedSeen = fixed;
    }
    EXPECT_TRUE(fixedSeen);
}

TEST(FrameView, KeepsDataCellsOutOfTheFixedArea) {
    FilledGrid grid(60, 12, 2500, 900);
    grid.ScrollTo(20, 5);
    for (const auto& item : makeFrame(grid).items) {
        if (item.row < 1 || item.col < 1) continue;
        EXPECT_GE(item.rect.left, grid.FixedWidth());
        EXPECT_GE(item.rect.top, grid.FixedHeight());
    }
}

TEST(FrameView, LeavesHiddenRowsAndColumnsOut) {
    FilledGrid grid(60, 12, 2500, 900);
    grid.RowHidden(1, true);
    grid.RowHidden(3, true);
    grid.ColHidden(2, true);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({0, 2, 4}, {0, 1, 3}));
}

TEST(FrameView, LeavesHiddenHeadersOut) {
    FilledGrid grid(60, 12, 2000, 900);
    grid.RowHidden(0, true);
    grid.ColHidden(0, true);
    const FrameReader frame(grid);
    EXPECT_EQ(cellsWithText(frame), cells({1, 2, 3}, {1, 2}));
    EXPECT_EQ(frame.find(Kind::Text, 1, 1)->rect, (Rect{45, 0, 910, 300}));
}

TEST(FrameView, FindsTheRowsBehindManyHiddenOnes) {
    CellGrid grid;
    grid.ScrollBars(false);
    grid.Rows(5000);
    grid.Resize(3000, 1200);
    for (std::int32_t row = 2; row < 4990; ++row) grid.RowHidden(row, true);
    for (const std::int32_t row : {1, 4989, 4990, 4991, 4992}) grid.Text(row, 1, "x");
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({1, 4990, 4991}, {1}));
    for (std::int32_t row = 4990; row < 5000; ++row) grid.RowHidden(row, true);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({1}, {1}));
}

TEST(FrameView, ShowsRowsOfTheirOwnHeights) {
    FilledGrid grid(60, 3, 2500, 1500);
    grid.RowHeight(1, 700);
    grid.ColWidth(1, 1700);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Text, 1, 1)->rect, (Rect{545, 300, 1610, 700}));
    EXPECT_EQ(frame.find(Kind::Text, 2, 2)->rect, (Rect{2245, 1000, 910, 300}));
}

TEST(FrameView, ShowsTheRowsUnderAStripThatCoversTheBottom) {
    FilledGrid grid(60, 3, 2500, 1500);
    grid.BottomStrip(330);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({0, 1, 2, 3, 4}, {0, 1, 2}));
}

TEST(FrameView, ShowsTheLastRowWhollyAboveTheStripWhenScrolledToTheEnd) {
    FilledGrid grid(60, 3, 2500, 1500);
    grid.BottomStrip(330);
    grid.TopRow(grid.MaxTopRow());
    const FrameReader frame(grid);
    const auto* last = frame.find(Kind::Text, 59, 1);
    ASSERT_TRUE(last);
    EXPECT_LE(last->rect.bottom(), 1500 - 330);
    EXPECT_EQ(frame.fillAt(1000, 1490), grid.BackColorBkg());
}

TEST(FrameView, MakesNoCellsUnderTheScrollBars) {
    FilledGrid grid(60, 12, 2800, 1155);
    grid.ScrollBars(true);
    ASSERT_EQ(grid.ClientWidth(), 2500);
    ASSERT_EQ(grid.ClientHeight(), 900);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({0, 1, 2}, {0, 1, 2}));
}

TEST(FrameView, MakesOnlyWhatOverlapsTheClip) {
    FilledGrid grid(60, 12, 5000, 3000);
    const Rect clip{1600, 650, 100, 200};
    const FrameReader frame(grid, {.clip = clip});
    EXPECT_EQ(cellsWithText(frame), cells({2}, {2}));
    for (const auto& item : frame.items()) EXPECT_TRUE(item.rect.overlaps(clip));
    EXPECT_EQ(frame.count(Kind::Line), 0u);
    EXPECT_EQ(frame.fillAt(1650, 700), grid.BackColor());
    EXPECT_EQ(FrameReader(grid, {.clip = {1600, 650, 900, 250}}).count(Kind::Line), 2u);
}

TEST(FrameView, MakesWhatOverlapsAClipOverTheHeaders) {
    FilledGrid grid(60, 12, 5000, 3000);
    EXPECT_EQ(cellsWithText(FrameReader(grid, {.clip = {400, 250, 200, 100}})), cells({0, 1}, {0, 1}));
}

TEST(FrameView, OutlinesTheCurrentCellOnlyWhereTheClipOverlapsIt) {
    FilledGrid grid(60, 12, 5000, 3000);
    grid.Select(2, 2);
    EXPECT_EQ(FrameReader(grid, {.clip = {1600, 650, 100, 100}}).count(Kind::Focus), 1u);
    EXPECT_EQ(FrameReader(grid, {.clip = {2600, 650, 100, 100}}).count(Kind::Focus), 0u);
}

TEST(FrameView, FillsAClipBeyondTheCellsWithTheBackground) {
    FilledGrid grid(4, 3, 4000, 2000);
    const FrameReader frame(grid, {.clip = {3000, 1500, 500, 400}});
    ASSERT_EQ(frame.items().size(), 1u);
    EXPECT_EQ(frame.items()[0].color, grid.BackColorBkg());
    EXPECT_EQ(frame.items()[0].rect, (Rect{3000, 1500, 500, 400}));
}

TEST(FrameView, MakesNothingForAClipOutsideOfTheView) {
    FilledGrid grid(4, 3, 4000, 2000);
    EXPECT_TRUE(FrameReader(grid, {.clip = {5000, 0, 500, 400}}).items().empty());
    EXPECT_FALSE(FrameReader(grid, {.clip = {1000, 100, 2'147'483'647, 2'147'483'647}}).items().empty());
}

TEST(FrameView, IsBackgroundAloneWithoutRowsOrColumns) {
    CellGrid grid;
    grid.Resize(3000, 2000);
    grid.Cols(0);
    EXPECT_EQ(FrameReader(grid).items().size(), 1u);
    EXPECT_EQ(FrameReader(grid).fillAt(10, 10), grid.BackColorBkg());
    CellGrid empty;
    empty.Resize(3000, 2000);
    empty.FixedRows(0);
    empty.Rows(0);
    EXPECT_EQ(FrameReader(empty).items().size(), 1u);
    EXPECT_EQ(FrameReader(empty).fillAt(10, 10), empty.BackColorBkg());
}

TEST(FrameView, ShowsHeadersAloneWithoutDataRows) {
    FilledGrid grid(1, 3, 4000, 2000);
    const FrameReader frame(grid);
    EXPECT_EQ(cellsWithText(frame), cells({0}, {0, 1, 2}));
    EXPECT_EQ(frame.count(Kind::Focus), 0u);
}

TEST(FrameView, ShowsAGridWithoutHeaders) {
    FilledGrid grid(6, 3, 2500, 600);
    grid.FixedRows(0);
    grid.FixedCols(0);
    grid.ScrollTo(0, 0);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({0, 1}, {0, 1, 2}));
}

TEST(FrameView, ShowsNoDataWhereTheHeadersFillTheView) {
    FilledGrid grid(6, 3, 2500, 500);
    grid.FixedRows(2);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({0, 1}, {0, 1, 2}));
}

TEST(FrameView, HasAsManyItemsForAMillionRowsAsForAThousand) {
    FilledGrid thousand(1000, 12, 9000, 9000);
    FilledGrid million(1'000'000, 12, 9000, 9000);
    EXPECT_EQ(makeFrame(thousand).items.size(), makeFrame(million).items.size());
    thousand.TopRow(thousand.MaxTopRow());
    million.TopRow(million.MaxTopRow());
    EXPECT_EQ(makeFrame(thousand).items.size(), makeFrame(million).items.size());
}

TEST(FrameView, ShowsTheEndOfAHundredMillionRows) {
    CellGrid grid;
    grid.ScrollBars(false);
    grid.Resize(3000, 1200);
    grid.Rows(100'000'000);
    grid.Text(99'999'999, 1, "end");
    grid.TopRow(grid.MaxTopRow());
    const FrameReader frame(grid);
    EXPECT_EQ(frame.text(99'999'999, 1), "end");
    grid.TopRow(1);
    EXPECT_FALSE(FrameReader(grid).showsText(99'999'999, 1));
}

TEST(FrameView, ShowsNoMoreThanTheViewOfAVeryWideColumn) {
    FilledGrid grid(6, 3, 2500, 900);
    grid.ColWidth(2, 1'000'000);
    EXPECT_EQ(cellsWithText(FrameReader(grid)), cells({0, 1, 2}, {0, 1, 2}));
}
}  // namespace
}  // namespace kxVsGrid
