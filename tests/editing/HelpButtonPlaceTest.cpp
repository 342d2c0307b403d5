// The help button leaves the text the room that it needs: beside it in a wide cell, outside a narrow one.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::int32_t Helped = 2;

class HelpButtonPlace : public ClerkTest {
  protected:
    HelpButtonPlace() { column(Helped).b是否提供帮助(true); }

    Rect cell() const { return grid.Grid().CellRect(grid.Row(), grid.Col()); }
    Rect box() const { return desk.editor().rect; }
    Rect button() const { return desk.editor().helpRect; }
    void openWide(std::int32_t width, std::string_view typed) {
        grid.ColWidth(Helped, width);
        openAt(2, Helped);
        desk.type(typed);
    }
    void expectInside() {
        EXPECT_EQ(button(), (Rect{cell().right() - 300, cell().top, 300, cell().height}));
        EXPECT_EQ(box(), (Rect{cell().left, cell().top, cell().width - 300, cell().height}));
    }
    void expectToTheRight() {
        EXPECT_EQ(button(), (Rect{cell().right(), cell().top, 300, cell().height}));
        EXPECT_EQ(box(), cell());
    }
    void expectToTheLeft() {
        EXPECT_EQ(button(), (Rect{cell().left - 300, cell().top, 300, cell().height}));
        EXPECT_EQ(box(), cell());
    }
};

TEST_F(HelpButtonPlace, IsBesideTheTextInAWideCell) {
    openWide(2000, "100001");
    expectInside();
}

TEST_F(HelpButtonPlace, IsOutsideACellThatIsTooNarrowForBoth) {
    openWide(800, "");
    expectToTheRight();
}

TEST_F(HelpButtonPlace, IsOutsideWhereTheTextNeedsTheWholeCell) {
    grid.ColWidth(Helped, 1500);
    fill(2, Helped, "1234567890123");
    openAt(2, Helped);
    expectToTheRight();
}

TEST_F(HelpButtonPlace, MakesRoomAsTheTextGrowsAndThenStays) {
    openWide(1400, "1000000");
    expectInside();
    const Rect before = box();
    desk.type("1234");
    expectToTheRight();
    EXPECT_LT(before.width, box().width);
    for (int i = 0; i < 9; ++i) desk.press(Key::Back);
    expectToTheRight();
    EXPECT_EQ(desk.editor().text, "10");
    EXPECT_EQ(desk.editor().selStart, 2u);
    desk.press(Key::Enter);
    openAt(2, Helped);
    expectInside();
}

TEST_F(HelpButtonPlace, ComesInsideAgainWhenItsColumnIsWidened) {
    openWide(800, "");
    expectToTheRight();
    desk.dragColumn(Helped, 2000);
    expectInside();
}

TEST_F(HelpButtonPlace, IsToTheLeftAtTheEdgeOfTheView) {
    grid.ColWidth(Helped, 800);
    const Rect at = grid.Grid().CellRect(2, Helped);
    desk.resize(at.right() + 290, 3000);
    openAt(2, Helped);
    expectToTheLeft();
}

TEST_F(HelpButtonPlace, IsWithinTheViewOverACellThatIsWiderThanThat) {
    desk.resize(2500, 3000);
    grid.Grid().LeftCol(Helped);
    openWide(5000, "1000001");
    EXPECT_EQ(button().right(), grid.Grid().ClientWidth());
    EXPECT_EQ(box().right(), button().left);
}

TEST_F(HelpButtonPlace, CountsTheLongestOfSeveralLines) {
    column(Helped).b是否编辑多行(true);
    openWide(1400, "1000000");
    desk.press(Key::Enter).type("1000000");
    expectInside();
    desk.type("1234");
    desk.press(Key::Enter).type("1");
    expectToTheRight();
}

TEST_F(HelpButtonPlace, OpensTheHelpFromOutsideToo) {
    openWide(800, "");
    desk.pressHelpButton();
    EXPECT_EQ(named(heard(), "GetHelpCodeInfo").size(), 1u);
}

TEST_F(HelpButtonPlace, IsNoConcernOfColumnsWithoutHelp) {
    column(Helped).b是否提供帮助(false);
    openWide(800, "10000000001");
    EXPECT_EQ(box(), cell());
}
}  // namespace
}  // namespace kxVsGrid::testing
