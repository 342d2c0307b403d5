// A press on the drawn box of a Boolean cell turns the cell over, where the host wants that.
#include <algorithm>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::int32_t Paid = 2;
constexpr std::int32_t BoxSide = 195;

class BoxPresses : public ClerkTest {
  protected:
    BoxPresses() {
        EXPECT_FALSE(grid.Options().PressToggles());
        grid.Options().PressToggles(true);
        typed(Paid, flexDTBoolean);
        at(1, 1);
    }
    /// A click so far from the middle of a cell.
    void clickBeside(std::int32_t row, std::int32_t col, std::int32_t right, std::int32_t down,
                     std::int16_t button = LeftButton) {
        const Rect cell = grid.Grid().CellRect(row, col);
        const std::int32_t x = cell.left + cell.width / 2 + right;
        const std::int32_t y = cell.top + cell.height / 2 + down;
        desk.mouseDown(button, 0, x, y).mouseUp(button, 0, x, y);
    }
    Lines turnings() { return named(heard(), "AfterEdit"); }
};

TEST_F(BoxPresses, TurnTheCellOverOnceItIsTheCurrentOne) {
    desk.click(2, Paid);
    EXPECT_EQ(text(2, Paid), "-1");
    EXPECT_EQ(current(), (Cell{2, Paid}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_EQ(without(heardWithoutPlaces(), "Click"),
              moves(1, 1, 2, Paid) + Lines{"MouseDown"} + changed(2, Paid) + edited(2, Paid));
    desk.click(2, Paid);
    EXPECT_EQ(text(2, Paid), "0");
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(BoxPresses, BesideTheBoxOnlyMoveThere) {
    const std::int32_t out = BoxSide / 2 + 15;
    for (const auto& [right, down] : {std::pair{-out, 0}, {out, 0}, {0, -out}, {0, out}}) {
        clickBeside(3, Paid, right, down);
        EXPECT_EQ(text(3, Paid), "") << right << ", " << down;
        EXPECT_EQ(current(), (Cell{3, Paid}));
    }
    const std::int32_t in = BoxSide / 2 - 15;
    clickBeside(3, Paid, in, -in);
    EXPECT_EQ(text(3, Paid), "-1");
}

TEST_F(BoxPresses, OfTheRightButtonAndWithoutTheOptionTurnNothing) {
    clickBeside(2, Paid, 0, 0, RightButton);
    grid.Options().PressToggles(false);
    desk.click(3, Paid);
    EXPECT_EQ(turnings(), Lines{});
}

TEST_F(BoxPresses, OnOtherColumnsHeadersAndReadOnlyCellsTurnNothing) {
    desk.click(2, 3);
    EXPECT_EQ(text(2, 3), "");
    desk.click(0, Paid);
    readOnly(Paid);
    desk.click(2, Paid);
    EXPECT_EQ(current(), (Cell{2, Paid}));
    column(Paid).bIsEditable(true);
    grid.Editable(false);
    desk.click(3, Paid);
    EXPECT_EQ(turnings(), Lines{});
    EXPECT_EQ(current(), (Cell{3, Paid}));
}

TEST_F(BoxPresses, AskForAnotherRowOnTheLastOneFirst) {
    consentToRows();
    desk.click(5, Paid);
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(text(5, Paid), "-1");
    const Lines lines = heard();
    EXPECT_EQ(named(lines, "AddVsRow"), asksForRow(5, false));
    EXPECT_LT(std::find(lines.begin(), lines.end(), asksForRow(5, false)[0]),
              std::find(lines.begin(), lines.end(), changed(5, Paid)[0]));
}

TEST_F(BoxPresses, DoNothingWhereTheHostKeepsTheCell) {
    const ScopedConnection kept =
        grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.click(2, Paid);
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(text(2, Paid), "");
    EXPECT_EQ(turnings(), Lines{});
}

TEST_F(BoxPresses, DoNothingMoreWhereTheHostCancelsThem) {
    grid.MouseDown.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.click(2, Paid);
    EXPECT_EQ(current(), (Cell{2, Paid}));
    EXPECT_EQ(text(2, Paid), "");
}

TEST_F(BoxPresses, DoNothingOverARefusedText) {
    typed(3, flexDTDouble);
    openAt(1, 3);
    desk.type("1+").click(2, Paid);
    EXPECT_TRUE(open());
    EXPECT_EQ(current(), (Cell{1, 3}));
    EXPECT_EQ(text(2, Paid), "");
}

TEST_F(BoxPresses, CommitTheOpenEditorFirst) {
    openAt(1, 1);
    desk.type("new").click(2, Paid);
    EXPECT_EQ(text(1, 1), "new");
    EXPECT_EQ(text(2, Paid), "-1");
}

TEST_F(BoxPresses, OfADoubleClickTurnTheCellOverOnce) {
    desk.doubleClick(2, Paid);
    EXPECT_EQ(text(2, Paid), "-1");
    const Lines lines = heard();
    EXPECT_EQ(named(lines, "AfterEdit").size(), 1u);
    EXPECT_EQ(named(lines, "DblClick").size(), 1u);
    desk.doubleClick(2, Paid);
    EXPECT_EQ(text(2, Paid), "0");
}

TEST_F(BoxPresses, LeaveADoubleClickBesideTheBoxAsItIs) {
    const Rect cell = grid.Grid().CellRect(2, Paid);
    const std::int32_t x = cell.left + 45;
    const std::int32_t y = cell.top + 45;
    desk.mouseDown(LeftButton, 0, x, y).mouseUp(LeftButton, 0, x, y);
    EXPECT_EQ(text(2, Paid), "");
    grid.input()->doubleClick(LeftButton, 0, x, y);
    EXPECT_EQ(text(2, Paid), "-1");
    EXPECT_EQ(turnings().size(), 1u);
}

TEST_F(BoxPresses, LeaveADoubleClickOfAnotherCellAsItIs) {
    desk.click(2, Paid);
    desk.doubleClick(3, 1);
    EXPECT_TRUE(open());
}

TEST_F(BoxPresses, FindTheCellWhereTheHostHasAddedRowsMeanwhile) {
    grid.MouseDown.connect([&](auto, auto, auto, auto, bool&) { grid.Grid().InsertRow(1); });
    desk.click(2, Paid);
    EXPECT_EQ(text(3, Paid), "-1");
    EXPECT_EQ(text(2, Paid), "");
}

TEST_F(BoxPresses, DoNothingWhereTheHostGoesElsewhereOrTakesTheRowAway) {
    {
        const ScopedConnection elsewhere =
            grid.MouseDown.connect([&](auto, auto, auto, auto, bool&) { grid.Grid().Select(4, Paid); });
        desk.click(2, Paid);
    }
    grid.MouseDown.connect([&](auto, auto, auto, auto, bool&) { grid.Grid().RemoveRow(3); });
    desk.click(3, Paid);
    EXPECT_EQ(turnings(), Lines{});
}

TEST_F(BoxPresses, BearAHostThatDestroysTheControl) {
    grid.MouseDown.connect([&](auto, auto, auto, auto, bool&) { desk.remove(grid); });
    desk.click(2, Paid);
    desk.place();  // for the look at a failed test
}
}  // namespace
}  // namespace kxVsGrid::testing
