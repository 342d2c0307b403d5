// A clerk selects cells beside the current one, by key and mouse, and goes on working at the current one.
#include "kit/ClerkTest.h"
#include "kit/PrintTo.h"

namespace kxVsGrid::testing {
namespace {

class ClerkSelects : public ClerkTest {
  protected:
    ClerkSelects() {
        at(2, 2);
        log.clear();
    }
    CellRange selected() const { return grid.Grid().Selected(); }
    void extend(Key key) { desk.press(key, ShiftKey); }

    const CellRange block{2, 2, 3, 3};
};

TEST_F(ClerkSelects, WithShiftAndTheHostHearsOfTheSelectionAlone) {
    extend(Key::Down);
    EXPECT_EQ(heard(), Lines{line("SelChange")});
    extend(Key::Right);
    EXPECT_EQ(heard(), Lines{line("SelChange")});
    EXPECT_EQ(selected(), block);
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_FALSE(open());
}

TEST_F(ClerkSelects, AndTypesIntoTheCurrentCell) {
    extend(Key::Down);
    desk.type("abc");
    EXPECT_TRUE(open());
    EXPECT_EQ(selected(), (CellRange{2, 2, 3, 2}));
    log.clear();
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, 2), "abc");
    EXPECT_NE(current(), (Cell{2, 2}));
    EXPECT_TRUE(grid.Grid().SelectsOneCell());
    EXPECT_EQ(named(heard(), "SelChange").size(), 1U);
}

TEST_F(ClerkSelects, UntilTheNextMoveWhichTellsOnce) {
    extend(Key::Down);
    extend(Key::Right);
    log.clear();
    desk.press(Key::Right);
    EXPECT_EQ(heard(), moves(2, 2, 2, 3));
    EXPECT_EQ(selected(), (CellRange{2, 3, 2, 3}));
}

TEST_F(ClerkSelects, NotWithTabAndEnter) {
    extend(Key::Down);
    desk.press(Key::Tab, ShiftKey);
    EXPECT_NE(current(), (Cell{2, 2}));
    EXPECT_TRUE(grid.Grid().SelectsOneCell());
}

TEST_F(ClerkSelects, ByDraggingWhichMovesOnce) {
    desk.drag(1, 1, 3, 3);
    EXPECT_EQ(heardWithoutPlaces().size(),
              moves(2, 2, 1, 1).size() + 4);  // MouseDown, SelChange, MouseMove, Click
    EXPECT_EQ(selected(), (CellRange{1, 1, 3, 3}));
    EXPECT_EQ(current(), (Cell{1, 1}));
    desk.drag(3, 1, 4, 2, ShiftKey);
    EXPECT_EQ(selected(), (CellRange{1, 1, 4, 2}));
}

TEST_F(ClerkSelects, ByHeadersWhichMoveNothing) {
    desk.drag(0, 2, 0, 3);
    EXPECT_EQ(selected(), (CellRange{1, 2, grid.Rows() - 1, 3}));
    desk.drag(2, 0, 3, 0);
    EXPECT_EQ(selected(), (CellRange{2, 1, 3, grid.Cols() - 1}));
    desk.click(0, 0);
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::All);
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_EQ(named(heard(), "BeforeRowColChange"), Lines{});
}

TEST_F(ClerkSelects, WithAPressThatCommitsTheEditorFirst) {
    desk.type("abc");
    desk.click(3, 3, ShiftKey);
    EXPECT_EQ(text(2, 2), "abc");
    EXPECT_FALSE(open());
    EXPECT_EQ(selected(), block);
}

TEST_F(ClerkSelects, NothingWhileATextIsRefused) {
    typed(2, flexDTDouble);
    desk.type("1+");
    desk.drag(3, 3, 4, 4);
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_TRUE(open());
    EXPECT_TRUE(grid.Grid().SelectsOneCell());
}

TEST_F(ClerkSelects, OverCheckBoxesWithoutTurningThemOver) {
    typed(3, flexDTBoolean);
    grid.Options().PressToggles(true);
    desk.drag(2, 2, 3, 3);
    EXPECT_EQ(text(3, 3), "");
    desk.click(2, 3, ShiftKey);
    EXPECT_EQ(text(2, 3), "");
    desk.click(2, 3);
    EXPECT_EQ(text(2, 3), "-1");
}

TEST_F(ClerkSelects, NothingWithADoubleClick) {
    desk.doubleClick(3, 3);
    EXPECT_TRUE(open());
    EXPECT_TRUE(grid.Grid().SelectsOneCell());
}

TEST_F(ClerkSelects, NothingWhereTheHostKeepsTheCellAway) {
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.drag(3, 3, 4, 4);
    EXPECT_TRUE(grid.Grid().SelectsOneCell());
}

TEST_F(ClerkSelects, AndDeletesTheCurrentRow) {
    rows(10);
    at(2, 2);
    grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    desk.drag(2, 0, 4, 0);
    desk.press(Key::Delete);
    EXPECT_EQ(selected(), (CellRange{2, 1, 3, grid.Cols() - 1}));
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::Rows);
}

TEST_F(ClerkSelects, NotInTheTotalRow) {
    EXPECT_FALSE(grid.Grid_Sum().SelectsRanges());
    EXPECT_TRUE(grid.Grid().SelectsRanges());
}
}  // namespace
}  // namespace kxVsGrid::testing
