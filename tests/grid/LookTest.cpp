// What the control has its two grids look like.
#include "cellgrid/FrameReader.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class GridLook : public PlacedGrid {
  protected:
    GridLook() { setUp(); }
    static int shade(const CellGrid& of, std::int32_t row, std::int32_t col) {
        const Rect cell = of.CellRect(row, col);
        int shade = 0;
        for (const FrameItem& item : makeFrame(of).items)
            if (item.kind == FrameItem::Kind::Fill && item.rect.contains(cell.left + 20, cell.top + 20))
                shade = item.shade;
        return shade;
    }
};

TEST_F(GridLook, DrawsTheTotalsGroundToFitThePaletteUntilTheHostGivesOne) {
    EXPECT_EQ(FrameReader(sum()).fillOf(0, 2), FittedGrey);
    EXPECT_EQ(sum().CellBackColor(0, 2), color(LightGrey));
    grid.VsSumCellBackColor(LightGrey);
    EXPECT_EQ(FrameReader(sum()).fillOf(0, 2), LightGrey);
    grid.ReDraw(true);
    EXPECT_EQ(FrameReader(sum()).fillOf(0, 2), FittedGrey);
}

TEST_F(GridLook, ShowsAWideTotalWholeOverEmptyNeighbours) {
    summed(4);
    column(4).iColAlignment(flexAlignRightCenter);
    grid.ReDraw(true);
    grid.SetCell(1, 4, "123456789012");
    const FrameReader frame(sum());
    const FrameItem* total = frame.find(FrameItem::Kind::Text, 0, 4);
    ASSERT_TRUE(total);
    EXPECT_EQ(total->text, "123456789012");
    EXPECT_GT(total->rect.width, 1200);
    EXPECT_EQ(total->rect.right(), sum().CellRect(0, 4).right() - 45);
}

TEST_F(GridLook, ShadesReadOnlyColumnsOnceTheHostAsksForIt) {
    column(2).bIsEditable(false);
    EXPECT_EQ(shade(vs(), 1, 2), 0);
    vs().takeDamage();
    grid.Options().ReadOnlyShade(7);
    EXPECT_TRUE(vs().takeDamage().all);
    EXPECT_EQ(shade(vs(), 1, 2), 7);
    EXPECT_EQ(shade(vs(), 1, 3), 0);
    EXPECT_EQ(shade(vs(), 0, 2), 0);
    EXPECT_EQ(shade(vs(), 1, 0), 0);
}

TEST_F(GridLook, ShadesEveryColumnWhileNothingCanBeEdited) {
    grid.Options().ReadOnlyShade(7);
    EXPECT_EQ(shade(vs(), 1, 2), 0);
    vs().takeDamage();
    grid.Editable(false);
    EXPECT_TRUE(vs().takeDamage().all);
    EXPECT_EQ(shade(vs(), 1, 2), 7);
}

TEST_F(GridLook, KeepsTheShadeWithinReason) {
    grid.Options().ReadOnlyShade(-3);
    EXPECT_EQ(grid.Options().ReadOnlyShade(), 0);
    grid.Options().ReadOnlyShade(200);
    EXPECT_EQ(grid.Options().ReadOnlyShade(), 50);
}

TEST_F(GridLook, RaisesTheFixedCellsUnlessTheAppearanceIsFlat) {
    for (const std::int32_t appearance : {0, 1}) {
        grid.Appearance(appearance);
        EXPECT_EQ(FrameReader(vs()).find(FrameItem::Kind::Raised, 0, 0) != nullptr, appearance == 1);
    }
    EXPECT_TRUE(FrameReader(sum()).find(FrameItem::Kind::Raised, 0, 0));
    EXPECT_FALSE(FrameReader(sum(), {.flat = true}).find(FrameItem::Kind::Raised, 0, 0));
}

TEST_F(GridLook, GivesAColumnTheWidthOfASampleAndItsTotalToo) {
    grid.ColSample(3, "2026-11-27");
    EXPECT_EQ(grid.ColSample(3), "2026-11-27");
    EXPECT_EQ(grid.ColWidth(3), 1090);
    EXPECT_EQ(sum().ColWidth(3), 1090);
    grid.ColWidth(3, 500);
    EXPECT_EQ(grid.ColSample(3), "");
}
}  // namespace
}  // namespace kxVsGrid::testing
