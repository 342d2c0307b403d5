// How wide columns are: those of which nothing is said, and the one that takes what the others leave.
#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

class StretchedSheet : public OrderSheet {
  protected:
    StretchedSheet() { desk.resize(20000, 6000); }

    std::int32_t widthOfAll() {
        std::int32_t width = 0;
        for (std::int32_t col = 0; col < grid.Cols(); ++col) width += grid.ColWidth(col);
        return width;
    }
};

TEST_F(StretchedSheet, LeavesRoomForTheBarBesideManyLines) {
    sheet.load(std::vector<OrderLine>(3, line(1, "A1", "2", "1.5")));
    const std::int32_t few = grid.Grid().ClientWidth();
    EXPECT_LE(widthOfAll(), few);
    sheet.load(std::vector<OrderLine>(500, line(1, "A1", "2", "1.5")));
    ASSERT_LT(grid.Grid().ClientWidth(), few);
    EXPECT_LE(widthOfAll(), grid.Grid().ClientWidth());
    EXPECT_FALSE(grid.Grid().HorizontalBarShown());
}

TEST_F(StretchedSheet, LeavesRoomForTheBarThatTypedLinesBring) {
    sheet.load(std::vector<OrderLine>(3, line(1, "A1", "2", "1.5")));
    desk.focusGrid();
    for (std::int32_t row = 4; !grid.Grid().VerticalBarShown() && row < 200; ++row) type(row, Code, "A2");
    ASSERT_TRUE(grid.Grid().VerticalBarShown());
    EXPECT_LE(widthOfAll(), grid.Grid().ClientWidth());
}

TEST_F(StretchedSheet, TakesTheRoomOfTheBarWhenItHasGone) {
    sheet.load(std::vector<OrderLine>(500, line(1, "A1", "2", "1.5")));
    const std::int32_t beside = widthOfAll();
    sheet.load(std::vector<OrderLine>(3, line(1, "A1", "2", "1.5")));
    EXPECT_GT(widthOfAll(), beside);
}
TEST(ColumnsOfNoStatedWidth, HaveRoomForTheirValuesWhateverTheirCaptions) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<OrderLine> sheet(grid);
    sheet.number("price", "价", &OrderLine::price);
    sheet.number("amount", "差异金额", &OrderLine::amount);
    sheet.number("quantity", "数", &OrderLine::quantity).decimals(6);
    sheet.load(std::vector<OrderLine>{});
    EXPECT_GE(grid.ColWidth(2), grid.ColWidth(1));
    EXPECT_GT(grid.ColWidth(3), grid.ColWidth(1));
}
}  // namespace
}  // namespace kxVsGrid::testing
