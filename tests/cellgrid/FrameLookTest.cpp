// What the picture of a grid has beside its cells: relief, shades, grounds that follow the palette.
#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;

TEST(FrameRelief, RaisesEveryFixedCellAndNoOther) {
    FilledGrid grid(6, 4, 3500, 1800);
    const FrameReader frame(grid);
    for (std::int32_t row = 0; row < 6; ++row)
        for (std::int32_t col = 0; col < 4; ++col) {
            const auto* raised = frame.find(Kind::Raised, row, col);
            ASSERT_EQ(raised != nullptr, row == 0 || col == 0) << row << "," << col;
            if (raised) {
                EXPECT_EQ(raised->rect, grid.CellRect(row, col));
            }
        }
}

TEST(FrameRelief, IsAllThatAnAppearanceOfZeroLeavesOut) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.MergeCells(flexMergeFixedOnly);
    grid.MergeRow(0, true);
    for (std::int32_t col = 1; col < 4; ++col) grid.Text(0, col, "same");
    Frame raised = makeFrame(grid);
    grid.Appearance(0);
    const Frame flat = makeFrame(grid);
    std::erase_if(raised.items, [](const FrameItem& item) { return item.kind == Kind::Raised; });
    ASSERT_EQ(raised.items.size(), flat.items.size());
    for (std::size_t i = 0; i < flat.items.size(); ++i) {
        EXPECT_EQ(raised.items[i].kind, flat.items[i].kind);
        EXPECT_EQ(raised.items[i].rect, flat.items[i].rect);
        EXPECT_EQ(raised.items[i].text, flat.items[i].text);
        EXPECT_EQ(raised.items[i].color, flat.items[i].color);
    }
}

TEST(FrameRelief, HasTheToneOfTheCellsGround) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.BackColorFixed(0x223344);
    grid.CellBackColor(0, 2, 0x556677);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Raised, 0, 0)->color, 0x223344u);
    EXPECT_EQ(frame.find(Kind::Raised, 0, 2)->color, 0x556677u);
    EXPECT_EQ(frame.find(Kind::Raised, 1, 0)->color, frame.fillOf(1, 0));  // the current cell's header
}

TEST(FrameRelief, RaisesMergedCellsAsOne) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.MergeCells(flexMergeFixedOnly);
    grid.MergeRow(0, true);
    for (std::int32_t col = 1; col < 4; ++col) grid.Text(0, col, "same");
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Raised, 0, 1)->rect, (Rect{500, 0, 3000, 300}));
    EXPECT_FALSE(frame.find(Kind::Raised, 0, 2));
    EXPECT_FALSE(frame.find(Kind::Raised, 0, 3));
}

TEST(FrameShade, DarkensTheCellsOfAColumnThatHaveNoColorOfTheirOwn) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.CellBackColor(2, 2, 0x00FFFF);
    grid.CellBackColor(3, 2, grid.BackColor());
    grid.ColShade([](std::int32_t col) { return static_cast<std::uint8_t>(col == 2 ? 8 : 0); });
    const FrameReader frame(grid);
    const auto shadeOf = [&](std::int32_t row, std::int32_t col) {
        const Rect cell = grid.CellRect(row, col);
        int shade = -1;
        for (const auto& item : frame.items())
            if (item.kind == Kind::Fill && item.rect.contains(cell.left + 20, cell.top + 20))
                shade = item.shade;
        return shade;
    };
    EXPECT_EQ(shadeOf(1, 2), 8);
    EXPECT_EQ(shadeOf(5, 2), 8);
    EXPECT_EQ(frame.fillOf(1, 2), grid.BackColor());
    EXPECT_EQ(shadeOf(2, 2), 0);
    EXPECT_EQ(shadeOf(3, 2), 0);
    EXPECT_EQ(shadeOf(0, 2), 0);
    EXPECT_EQ(shadeOf(1, 1), 0);
    EXPECT_EQ(shadeOf(1, 3), 0);
}

TEST(FrameShade, IsAskedForWithEveryPictureAndPutAsDamage) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.takeDamage();
    int asked = 0;
    grid.ColShade([&](std::int32_t) {
        ++asked;
        return std::uint8_t{0};
    });
    EXPECT_TRUE(grid.takeDamage().all);
    makeFrame(grid);
    EXPECT_EQ(asked, 3);
    grid.ColShade({});
    makeFrame(grid);
    EXPECT_EQ(asked, 3);
}

TEST(FrameGround, OfNobodysChoiceIsDrawnInTheGreyThatFollowsThePalette) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.CellBackColor(2, 2, 0xE0E0E0);
    EXPECT_EQ(FrameReader(grid).fillOf(2, 2), 0xE0E0E0u);
    grid.takeDamage();
    grid.FittedColor(0xE0E0E0);
    EXPECT_TRUE(grid.takeDamage().all);
    EXPECT_EQ(FrameReader(grid).fillOf(2, 2), FittedGrey);
    EXPECT_EQ(grid.CellBackColor(2, 2), std::optional<std::uint32_t>(0xE0E0E0));
    grid.CellBackColor(2, 2, 0xE0E0E1);
    EXPECT_EQ(FrameReader(grid).fillOf(2, 2), 0xE0E0E1u);
}
}  // namespace
}  // namespace kxVsGrid
