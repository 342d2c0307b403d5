// IsActive: whether the control holds the keyboard.
#include <cstdint>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class ActiveControl : public PlacedGrid {};

TEST_F(ActiveControl, IsOneThatHoldsTheKeyboard) {
    EXPECT_FALSE(grid.IsActive());
    desk.focusGrid();
    EXPECT_TRUE(grid.IsActive());
    desk.focusElsewhere();
    EXPECT_FALSE(grid.IsActive());
    desk.focusSurface();
    EXPECT_TRUE(grid.IsActive());
    desk.focusElsewhere();
    EXPECT_FALSE(grid.IsActive());
}

TEST_F(ActiveControl, StaysSoWhileTheKeyboardMovesInsideIt) {
    desk.focusSurface();
    desk.focusGrid();
    EXPECT_TRUE(grid.IsActive());
    desk.type("x");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_TRUE(grid.IsActive());
    desk.press(Key::Escape);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_TRUE(grid.IsActive());
}

TEST_F(ActiveControl, StaysSoBehindABoxOfItsOwn) {
    column(1).i是否允许为空(i字段不能为空);
    column(1).sName("货号");
    desk.focusGrid();
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(boxes(), Lines{"提示：|64|货号不能为空!"});
    EXPECT_TRUE(grid.IsActive());
}

TEST_F(ActiveControl, HasTheClerkInTheFirstDataRowThatIsShown) {
    vs().RowHidden(1, true);
    vs().Select(0, 3);
    desk.focusGrid();
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 3);
    vs().Select(0, 3);
    for (int row = 1; row < grid.Rows(); ++row) vs().RowHidden(row, true);
    desk.focusElsewhere().focusGrid();
    EXPECT_EQ(grid.Row(), 1) << "no row is shown";
}

TEST_F(ActiveControl, IsNotMadeByTheHost) {
    grid.SetCell(1, 1, "text");
    grid.Row(2);
    grid.ReDraw(true);
    EXPECT_FALSE(grid.IsActive());
    EXPECT_EQ(heard().size(), (changed(1, 1) + moves(1, 1, 2, 1)).size());
}

TEST_F(ActiveControl, IsOnlyOneOfTwo) {
    desk.focusGrid();
    kxGrid& other = desk.place();
    desk.focusGrid();
    EXPECT_TRUE(other.IsActive());
    EXPECT_FALSE(grid.IsActive());
    desk.use(grid);
    desk.focusGrid();
    EXPECT_FALSE(other.IsActive());
    EXPECT_TRUE(grid.IsActive());
}

TEST_F(ActiveControl, RaisesNoEventByItself) {
    desk.focusGrid();
    desk.focusElsewhere();
    desk.focusSurface();
    EXPECT_EQ(heard(), Nothing);
}
}  // namespace
}  // namespace kxVsGrid::testing
