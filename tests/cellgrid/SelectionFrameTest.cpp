// What a selection looks like, and what of the picture it changes.
#include <gtest/gtest.h>

#include "FrameReader.h"
#include "kit/PrintTo.h"

namespace kxVsGrid {
namespace {

constexpr std::uint32_t MarkedHeader = 0x80000014;

class SelectionFrame : public ::testing::Test {
  protected:
    SelectionFrame() {
        grid.Select(3, 2);
        grid.takeDamage();
    }
    std::vector<Rect> tints(const FrameState& state = {}) const {
        std::vector<Rect> rects;
        for (const FrameItem& item : makeFrame(grid, state).items)
            if (item.kind == FrameItem::Kind::Tint) rects.push_back(item.rect);
        return rects;
    }
    void expectDamage(const std::vector<Rect>& rects) {
        const CellGrid::Damage damage = grid.takeDamage();
        EXPECT_FALSE(damage.all);
        EXPECT_EQ(damage.rects, rects);
    }
    using Rects = std::vector<Rect>;

    FilledGrid grid{100, 8, 4500, 3000};  // rows 1 to 9, columns 1 to 4 at 500
};

TEST_F(SelectionFrame, HasNoTintOverTheCurrentCellAlone) {
    EXPECT_EQ(tints(), Rects{});
}

TEST_F(SelectionFrame, TintsWhatIsSelectedAroundTheCurrentCell) {
    grid.SelectRange(3, 2, 4, 3);
    EXPECT_EQ(tints(), (Rects{{2500, 900, 1000, 300}, {1500, 1200, 2000, 300}}));
    grid.SelectRange(2, 1, 4, 3);
    EXPECT_EQ(
        tints(),
        (Rects{
            {500, 600, 3000, 300}, {500, 900, 1000, 300}, {2500, 900, 1000, 300}, {500, 1200, 3000, 300}}));
    grid.SelectRange(5, 1, 5, 1);
    EXPECT_EQ(tints(), (Rects{{500, 1500, 1000, 300}}));
    const Frame frame = makeFrame(grid);
    for (const FrameItem& item : frame.items)
        if (item.kind == FrameItem::Kind::Tint) {
            EXPECT_EQ(item.color, 0x8000000D);
        }
}

TEST_F(SelectionFrame, TintsOverTheTextsAndUnderTheHeaders) {
    grid.SelectAll();
    const FrameReader reader(grid);
    const auto firstOf = [&](auto test) {
        return std::find_if(reader.items().begin(), reader.items().end(), test) - reader.items().begin();
    };
    const auto tint = firstOf([](const FrameItem& item) { return item.kind == FrameItem::Kind::Tint; });
    EXPECT_GT(tint, reader.find(FrameItem::Kind::Text, 9, 4) - reader.items().data());
    EXPECT_LT(tint, reader.find(FrameItem::Kind::Text, 1, 0) - reader.items().data());
    EXPECT_LT(tint, firstOf([](const FrameItem& item) { return item.kind == FrameItem::Kind::Focus; }));
}

TEST_F(SelectionFrame, TintsOnlyWhatIsSeenAndAskedFor) {
    grid.TopRow(50);
    grid.SelectRange(3, 2, 52, 3);
    EXPECT_EQ(tints(), (Rects{{1500, 300, 2000, 900}}));
    EXPECT_EQ(tints({.clip = {2000, 0, 400, 500}}), (Rects{{1500, 300, 1000, 300}}));
    EXPECT_EQ(tints({.clip = {0, 1300, 4500, 500}}), Rects{});
    grid.SelectRange(3, 2, 9, 3);
    EXPECT_EQ(tints(), Rects{});
}

TEST_F(SelectionFrame, MarksTheHeadersOfItsRowsAndColumns) {
    grid.SelectRange(3, 2, 4, 3);
    const FrameReader reader(grid);
    for (std::int32_t row = 0; row < 9; ++row)
        EXPECT_EQ(reader.fillOf(row, 0) == MarkedHeader, row == 3 || row == 4) << row;
    for (std::int32_t col = 0; col < 5; ++col)
        EXPECT_EQ(reader.fillOf(0, col) == MarkedHeader, col == 2 || col == 3) << col;
}

TEST_F(SelectionFrame, IsDamagedWhereItHasChanged) {
    grid.SelectRange(3, 2, 4, 2);
    expectDamage({{1500, 900, 1000, 600}, {0, 900, 500, 600}, {1500, 0, 1000, 300}});
    grid.SelectRange(3, 2, 4, 3);
    expectDamage({{2500, 900, 1000, 600}, {2500, 0, 1000, 300}});
    grid.SelectRange(3, 2, 6, 3);
    expectDamage({{1500, 1500, 2000, 600}, {0, 1500, 500, 600}});
    grid.SelectRange(3, 2, 50, 3);  // down to the end of the view
    expectDamage({{1500, 2100, 2000, 900}, {0, 2100, 500, 900}});
    grid.SelectRange(3, 2, 60, 3);
    expectDamage({});
    grid.Unselect();
    expectDamage({{1500, 900, 2000, 2100}, {0, 900, 500, 2100}, {1500, 0, 2000, 300}});
}

TEST_F(SelectionFrame, IsDamagedAlongTheRowsWhereTextsRunOver) {
    grid.TextsRunOver(true);
    grid.takeDamage();
    grid.SelectRange(3, 2, 3, 3);
    expectDamage({{0, 900, 4500, 300}, {0, 0, 4500, 300}});
}
}  // namespace
}  // namespace kxVsGrid
