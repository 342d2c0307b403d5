// Fingers scroll by less than a row.
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class Touchpad : public PlacedGrid {
  protected:
    Touchpad() {
        grid.Cols(20);
        grid.Rows(60);
        setUp();
        desk.focusGrid();
    }
};

TEST_F(Touchpad, ScrollsTheViewAndMovesNoCell) {
    vs().Select(3, 3);
    heard();
    desk.scrollBy(250, 450);
    EXPECT_EQ(vs().TopRow(), 2);
    EXPECT_EQ(vs().TopOffset(), 150);
    EXPECT_EQ(vs().LeftOffset(), 250);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(heard(), Nothing);
}

TEST_F(Touchpad, DoesNotScrollAwayFromTheOpenEditor) {
    desk.scrollBy(250, 150);
    desk.click(3, 3);
    desk.type("ab");
    const Rect before = desk.editor().rect;
    EXPECT_EQ(before, vs().CellRect(3, 3));
    desk.scrollBy(20, 20);
    desk.scrollBy(0, 2000);
    desk.wheel(1);
    ASSERT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().rect, before);
    EXPECT_EQ(vs().CellRect(3, 3), before);
    EXPECT_EQ(vs().TopOffset(), 150);
    EXPECT_EQ(vs().LeftOffset(), 250);
}

TEST_F(Touchpad, ACutCellIsShownWhollyBeforeItIsTypedInto) {
    vs().Select(1, 1);
    desk.scrollBy(250, 150);
    desk.type("ab");
    EXPECT_EQ(vs().TopOffset(), 0);
    EXPECT_EQ(vs().LeftOffset(), 0);
    EXPECT_EQ(desk.editor().rect, vs().CellRect(1, 1));
}

TEST_F(Touchpad, ABarLeavesTheOtherDirectionAsItIs) {
    desk.scrollBy(250, 150);
    desk.scrollTo(9, 1);
    EXPECT_EQ(vs().TopRow(), 9);
    EXPECT_EQ(vs().TopOffset(), 0);
    EXPECT_EQ(vs().LeftOffset(), 250);
    desk.scrollBy(0, 50);
    desk.scrollTo(9, 4);
    EXPECT_EQ(vs().TopOffset(), 50);
    EXPECT_EQ(vs().LeftOffset(), 0);
}
}  // namespace
}  // namespace kxVsGrid::testing
