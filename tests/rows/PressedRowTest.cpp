// A press commits what is being typed; what the host does to the rows meanwhile makes it no press on another
// row.
#include <functional>
#include <utility>

#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class PressedRow : public MenuTest {
  protected:
    static constexpr std::int32_t Col = 4;

    PressedRow() {
        desk.onPopup([this](headless::PoppedMenu&) { ++menus; });
        rows(60);
        for (std::int32_t r = 1; r < 60; ++r) fill(r, Col, "row " + std::to_string(r));
        grid.AfterEdit.connect([this](std::int32_t, std::int32_t) {
            if (const auto work = std::exchange(afterEdit, nullptr)) work();
        });
    }
    /// The clerk types into the first row, and presses a cell.
    void press(std::int16_t button, std::int32_t row, std::int32_t col = Col) {
        at(1, 2);
        desk.type("abc");
        const Rect cell = grid.Grid().CellRect(row, col);
        x = cell.left + 50;
        y = cell.top + 20;
        log.clear();
        desk.mouseDown(button, 0, x, y);
    }
    std::string currentText() { return text(grid.Row(), Col); }

    std::function<void()> afterEdit;
    std::int32_t x = 0;
    std::int32_t y = 0;
    int menus = 0;
};

TEST_F(PressedRow, IsFollowedWhenTheCommitInsertsARowAboveIt) {
    for (const std::int16_t button : {LeftButton, RightButton}) {
        afterEdit = [this] { grid.Grid().InsertRow(2); };
        const std::string wanted = text(5, Col);
        press(button, 5);
        EXPECT_EQ(current(), (Cell{6, Col})) << button;
        EXPECT_EQ(currentText(), wanted) << button;
    }
    EXPECT_EQ(menus, 1);
}

TEST_F(PressedRow, IsFollowedWhenTheCommitRemovesARowAboveIt) {
    afterEdit = [this] { grid.Grid().RemoveRow(2); };
    press(RightButton, 5);
    EXPECT_EQ(current(), (Cell{4, Col}));
    EXPECT_EQ(currentText(), "row 5");
    EXPECT_EQ(menus, 1);
}

TEST_F(PressedRow, IsTakenByItsNumberToo) {
    afterEdit = [this] { grid.Grid().InsertRow(2); };
    press(RightButton, 5, 0);
    EXPECT_EQ(current(), (Cell{6, 2}));
}

TEST_F(PressedRow, IsFollowedWhenTheCommitScrolls) {
    afterEdit = [this] { grid.Grid().TopRow(3); };
    press(LeftButton, 5);
    EXPECT_EQ(currentText(), "row 5");
}

TEST_F(PressedRow, IsBroughtIntoViewWhenItWasPushedOutOfIt) {
    afterEdit = [this] {
        for (int i = 0; i < 30; ++i) grid.Grid().InsertRow(2);
    };
    press(RightButton, 5);
    EXPECT_EQ(current(), (Cell{35, Col}));
    EXPECT_EQ(currentText(), "row 5");
    EXPECT_TRUE(grid.Grid().RowIsVisible(35));
    EXPECT_EQ(menus, 1);
}

TEST_F(PressedRow, IsFollowedWithAsManyEventsAsWithoutTheHost) {
    press(LeftButton, 5);
    const Lines plain = heardWithoutPlaces();
    grid.SetCell(1, 2, "");
    afterEdit = [this] { grid.Grid().InsertRow(2); };
    press(LeftButton, 5);
    EXPECT_EQ(heardWithoutPlaces().size(), plain.size());
}

TEST_F(PressedRow, ThatHasGoneLeadsNowhere) {
    for (const std::int16_t button : {LeftButton, RightButton}) {
        afterEdit = [this] { grid.Grid().RemoveRow(5); };
        press(button, 5);
        EXPECT_EQ(heardWithoutPlaces(), changed(1, 2) + edited(1, 2) + Lines{"MouseDown"}) << button;
        EXPECT_EQ(current(), (Cell{1, 2})) << button;
        EXPECT_FALSE(open());
        desk.mouseUp(button, 0, x, y);
        EXPECT_EQ(heardWithoutPlaces(), button == LeftButton ? Lines{line("Click")} : Lines{});
        grid.SetCell(1, 2, "");
    }
    EXPECT_EQ(menus, 0) << "its commands would be for another row";
    desk.rightClick(5, Col);
    EXPECT_EQ(menus, 1) << "the next press is one as any other";
}

TEST_F(PressedRow, ThatWasHiddenLeadsNowhere) {
    afterEdit = [this] { grid.Grid().RowHidden(5, true); };
    press(RightButton, 5);
    EXPECT_EQ(current(), (Cell{1, 2}));
    EXPECT_EQ(menus, 0);
}
}  // namespace
}  // namespace kxVsGrid::testing
