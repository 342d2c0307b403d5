// The picture of columns that do not scroll.
#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;

constexpr std::uint32_t Shadow = 0x80000010;
constexpr std::uint32_t LightEdge = 0x80000016;

/// A header column of 500, then columns of 1000; two of them are frozen and the view begins with column 5.
class FrozenFrame : public ::testing::Test {
  protected:
    FrozenFrame() {
        grid.Rows(21);
        grid.ColWidth(0, 500);
        grid.ScrollBars(false);
        grid.Resize(5500, 3000);
        grid.FrozenCols(2);
        for (std::int32_t row = 0; row < 21; ++row)
            for (std::int32_t col = 0; col < 10; ++col)
                grid.Text(row, col, std::to_string(row) + "/" + std::to_string(col));
        grid.BackColor(0x111111);
        grid.LeftCol(5);
    }
    CellGrid grid;
};

TEST_F(FrozenFrame, ShowsTheCellsAsData) {
    grid.CellBackColor(3, 2, 0xC0);
    grid.Mark(4, 2, CellMark{});
    grid.ColDataType(1, flexDTBoolean);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.text(3, 2), "3/2");
    EXPECT_EQ(frame.fillOf(3, 2), 0xC0u);
    EXPECT_EQ(frame.fillOf(4, 2), 0x111111u);
    EXPECT_NE(frame.find(Kind::Mark, 4, 2), nullptr);
    EXPECT_NE(frame.find(Kind::CheckMark, 4, 1), nullptr);
    EXPECT_FALSE(frame.showsText(3, 3));
    EXPECT_EQ(frame.text(3, 5), "3/5");
    EXPECT_EQ(frame.text(0, 2), "0/2");
    EXPECT_FALSE(frame.showsText(0, 4));
}

TEST_F(FrozenFrame, ShowsTheCurrentCellAndWhatIsSelected) {
    grid.Select(3, 2);
    EXPECT_EQ(FrameReader(grid).find(Kind::Focus, 3, 2)->rect, (Rect{1500, 900, 1000, 300}));
    grid.SelectRange(3, 2, 3, 6);
    const FrameReader frame(grid);
    bool tinted = false;
    for (const FrameItem& item : frame.items())
        if (item.kind == Kind::Tint) tinted = tinted || item.rect == Rect{2500, 900, 2000, 300};
    EXPECT_TRUE(tinted);
}

TEST_F(FrozenFrame, DrawsALineWhereScrollingBegins) {
    const FrameReader frame(grid);
    for (const std::int32_t y : {100, 400, 2900}) EXPECT_EQ(frame.lineAt(2490, y), Shadow) << y;
    EXPECT_EQ(frame.lineAt(1490, 400), LightEdge);
    grid.FrozenCols(0);
    grid.LeftCol(1);
    EXPECT_EQ(FrameReader(grid).lineAt(2490, 400), LightEdge);
}

TEST_F(FrozenFrame, DrawsTheLineAsFarAsThereAreRowsAndNoneBesideHiddenColumns) {
    grid.Rows(3);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.lineAt(2490, 890), Shadow);
    EXPECT_EQ(frame.lineAt(2490, 910), 0u);
    grid.ColHidden(1, true);
    grid.ColHidden(2, true);
    const FrameReader without(grid);
    for (const FrameItem& item : without.items())
        EXPECT_FALSE(item.kind == Kind::Line && item.rect == (Rect{485, 0, 15, 900}));
}

TEST_F(FrozenFrame, DrawsTheLineAlsoInAPartOfThePicture) {
    const FrameReader beside(grid, {.clip = {2400, 300, 200, 300}});
    EXPECT_EQ(beside.lineAt(2490, 400), Shadow);
    const FrameReader elsewhere(grid, {.clip = {3600, 300, 200, 300}});
    for (const FrameItem& item : elsewhere.items()) EXPECT_FALSE(item.rect.contains(2490, 2000));
}

TEST_F(FrozenFrame, MergesHeadersOverTheEdgeOnlyWhereNothingIsScrolledAway) {
    grid.MergeCells(flexMergeFixedOnly);
    grid.MergeRow(0, true);
    for (std::int32_t col = 0; col < 10; ++col) grid.Text(0, col, "same");
    EXPECT_EQ(FrameReader(grid).find(Kind::Text, 0, 0)->rect.width, 2500 - 90);
    EXPECT_EQ(FrameReader(grid).find(Kind::Text, 0, 5)->rect.left, 2500 + 45);
    grid.LeftCol(3);
    EXPECT_EQ(FrameReader(grid).find(Kind::Text, 0, 0)->rect.width, 5500 - 90);
}

TEST_F(FrozenFrame, RunsNoTextOverTheEdge) {
    grid.TextsRunOver(true);
    for (std::int32_t col = 0; col < 10; ++col) grid.Text(1, col, "");
    grid.Text(1, 2, std::string(40, 'x'));
    grid.ColAlignment(2, flexAlignLeftCenter);
    EXPECT_EQ(FrameReader(grid).find(Kind::Text, 1, 2)->rect, (Rect{1545, 300, 910, 300}));
    grid.Text(1, 2, "");
    grid.Text(1, 5, std::string(40, 'x'));
    grid.ColAlignment(5, flexAlignRightCenter);
    EXPECT_EQ(FrameReader(grid).find(Kind::Text, 1, 5)->rect, (Rect{2545, 300, 910, 300}));
}
}  // namespace
}  // namespace kxVsGrid
