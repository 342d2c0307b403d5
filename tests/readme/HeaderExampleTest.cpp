// The example at the head of kxGrid.h, as it stands there, and what it promises.
#include <gtest/gtest.h>

#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxGrid.h"

namespace {

using kxVsGrid::Key;

/// What the example calls a widget: a place with a grid.
struct PlaceOfAGrid {
    kxVsGrid::headless::Desk& desk;
    kxVsGrid::kxGrid& grid() { return desk.place(); }
};
}  // namespace

TEST(HeaderExample, MakesAGridThatAClerkCanKeyInto) {
    kxVsGrid::headless::Desk desk;
    PlaceOfAGrid widget{desk};
#include "examples/kxGrid.inc"
    EXPECT_EQ(grid.Cols(), 4);
    EXPECT_EQ(grid.ReadCell(0, 3, true), "金额");
    grid.Grid().Select(1, 1);
    desk.focusGrid().type("A001").press(Key::Enter).type("2*3").press(Key::Enter);
    EXPECT_EQ(grid.ReadCell(1, 2, true), "6");
    EXPECT_EQ(grid.ReadSum(2), "6");
    const std::int32_t rows = grid.Rows();
    grid.Grid().Select(rows - 1, 1);
    desk.type("A002").press(Key::Enter);
    EXPECT_EQ(grid.Rows(), rows + 1) << "the host consents";
    EXPECT_TRUE(desk.messages().empty());
}
