// A right press acts where it was pressed: the menu's commands are for the row and the column under it.
#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class RightPress : public MenuTest {
  protected:
    RightPress() {
        desk.onPopup([this](headless::PoppedMenu& menu) {
            ++menus;
            where = current();
            if (!command.empty()) menu.choose(command);
        });
    }
    void cancelMoves() {
        grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    }

    int menus = 0;
    Cell where{};
    std::string command;
};

TEST_F(RightPress, OpensTheMenuOnThePressedCell) {
    desk.rightClick(3, 4);
    EXPECT_EQ(heardWithoutPlaces(), moves(1, 1, 3, 4) + Lines{"MouseDown"});
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(where, (Cell{3, 4}));
}

TEST_F(RightPress, OnTheCurrentCellMovesNothing) {
    at(3, 4);
    desk.rightClick(3, 4);
    EXPECT_EQ(heardWithoutPlaces(), Lines{"MouseDown"});
    EXPECT_EQ(menus, 1);
}

TEST_F(RightPress, DeletesTheRowThatIsPressed) {
    rows(10);
    for (int r = 1; r < 10; ++r) fill(r, 1, "row " + std::to_string(r));
    consentToDeletes();
    command = caption::DeleteRow;
    desk.rightClick(3, 1);
    EXPECT_EQ(named(heard(), "DeleteVsRow"), (Lines{line("DeleteVsRow", 3, false)}));
    EXPECT_EQ(texts(1, 1), (Lines{"row 1", "row 2", "row 4", "row 5", "row 6", "row 7", "row 8", "row 9"}));
}

TEST_F(RightPress, OffersTheFillsOfThePressedColumn) {
    typed(3, flexDTDate);
    at(1, 1);
    desk.rightClick(2, 3);
    Menu menu = desk.lastMenu();
    EXPECT_TRUE(menu.item("mnuFill", 4).visible);
}

TEST_F(RightPress, OnARowNumberTakesThatRowAndKeepsTheColumn) {
    at(1, 4);
    desk.rightClick(3, 0);
    EXPECT_EQ(heardWithoutPlaces(), moves(1, 4, 3, 4) + Lines{"MouseDown"});
    EXPECT_EQ(where, (Cell{3, 4}));
}

TEST_F(RightPress, OnAHeaderOpensTheMenuWhereTheClerkIs) {
    at(2, 3);
    desk.rightClick(0, 1);
    EXPECT_EQ(heardWithoutPlaces(), Lines{"MouseDown"});
    EXPECT_EQ(where, (Cell{2, 3}));
    desk.rightClick(0, 0);
    EXPECT_EQ(menus, 2);
    EXPECT_EQ(where, (Cell{2, 3}));
}

TEST_F(RightPress, BelowTheRowsOpensTheMenuWhereTheClerkIs) {
    at(2, 3);
    desk.mouseDown(RightButton, 0, 1500, 5000);
    EXPECT_EQ(heardWithoutPlaces(), Lines{"MouseDown"});
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(where, (Cell{2, 3}));
}

TEST_F(RightPress, InsideOfASelectionKeepsIt) {
    at(2, 2);
    desk.press(Key::Down, ShiftKey);
    desk.press(Key::Right, ShiftKey);
    log.clear();
    desk.rightClick(3, 3);
    EXPECT_EQ(where, (Cell{3, 3}));
    EXPECT_TRUE((grid.Grid().Selected() == CellRange{2, 2, 3, 3}));
    EXPECT_EQ(heardWithoutPlaces(), (moves(2, 2, 3, 3) + Lines{line("SelChange"), "MouseDown"}));
    desk.rightClick(4, 3);
    EXPECT_EQ(where, (Cell{4, 3}));
    EXPECT_TRUE(grid.Grid().SelectsOneCell());
}

TEST_F(RightPress, InsideOfWholeRowsAndColumnsKeepsThem) {
    at(2, 2);
    desk.drag(3, 0, 4, 0);
    desk.rightClick(4, 0);
    EXPECT_EQ(where, (Cell{4, 2}));
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::Rows);
    EXPECT_EQ(grid.Grid().Selected().rows(), 2);
    desk.drag(0, 3, 0, 4);
    desk.rightClick(2, 3);
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::Columns);
    desk.click(0, 0);
    desk.rightClick(3, 3);
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::All);
    desk.drag(0, 1, 0, 1);
    log.clear();
    desk.rightClick(3, 3);  // the current cell lies outside
    EXPECT_TRUE(grid.Grid().SelectsOneCell());
    EXPECT_EQ(heardWithoutPlaces(), (Lines{line("SelChange"), "MouseDown"}));
}

TEST_F(RightPress, KeepsTheRowsThatWereSelectedWhenTheHostInsertsOneAbove) {
    at(3, 2);
    desk.press(Key::Down, ShiftKey);
    bool once = true;
    grid.BeforeRowColChange.connect([&](auto, auto, auto, auto, bool&) {
        if (std::exchange(once, false)) grid.Grid().InsertRow(1);
    });
    desk.rightClick(4, 2);
    EXPECT_EQ(where, (Cell{5, 2}));
    EXPECT_TRUE((grid.Grid().Selected() == CellRange{4, 2, 5, 2}));
}

TEST_F(RightPress, ThatTheHostKeepsFromMovingKeepsTheSelection) {
    at(2, 2);
    desk.press(Key::Down, ShiftKey);
    cancelMoves();
    desk.rightClick(5, 4);
    EXPECT_TRUE((grid.Grid().Selected() == CellRange{2, 2, 3, 2}));
}

TEST_F(RightPress, CommitsWhatIsBeingTyped) {
    at(1, 2);
    desk.type("abc");
    log.clear();
    desk.rightClick(3, 4);
    EXPECT_EQ(heardWithoutPlaces(), changed(1, 2) + edited(1, 2) + moves(1, 2, 3, 4) + Lines{"MouseDown"});
    EXPECT_EQ(text(1, 2), "abc");
    EXPECT_EQ(where, (Cell{3, 4}));
}

TEST_F(RightPress, OfARefusedTextShowsNoMenu) {
    typed(2, flexDTDouble);
    at(1, 2);
    desk.type("1+");
    log.clear();
    for (int i = 0; i < 2; ++i) {
        desk.rightClick(3, 4);
        EXPECT_EQ(menus, 0);
        EXPECT_EQ(current(), (Cell{1, 2}));
        EXPECT_TRUE(open());
    }
    EXPECT_EQ(named(heardWithoutPlaces(), "MouseDown"), Lines{});
}

TEST_F(RightPress, ThatTheHostKeepsFromMovingShowsNoMenu) {
    cancelMoves();
    desk.rightClick(3, 4);
    EXPECT_EQ(heardWithoutPlaces(), asks(1, 1, 3, 4) + Lines{"MouseDown"});
    EXPECT_EQ(menus, 0);
    desk.rightClick(3, 0);
    EXPECT_EQ(menus, 0);
    desk.rightClick(1, 1);
    EXPECT_EQ(menus, 1) << "nothing to move";
}

TEST_F(RightPress, ThatTheHostLeadsElsewhereShowsNoMenu) {
    bool once = true;
    grid.RowColChange.connect([&] {
        if (std::exchange(once, false)) grid.Row(5);
    });
    desk.rightClick(3, 4);
    EXPECT_EQ(current(), (Cell{5, 4}));
    EXPECT_EQ(menus, 0);
}

TEST_F(RightPress, FollowsItsRowWhenTheHostInsertsOneAbove) {
    bool once = true;
    grid.BeforeRowColChange.connect([&](auto, auto, auto, auto, bool&) {
        if (std::exchange(once, false)) grid.Grid().InsertRow(1);
    });
    desk.rightClick(3, 4);
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(where, (Cell{4, 4}));
}

TEST_F(RightPress, BringsThePressedCellWhollyIntoView) {
    rows(60);
    desk.resize(9000, 5900);
    const CellGrid& cells = grid.Grid();
    std::int32_t last = cells.TopRow();
    while (cells.CellRect(last, 1).bottom() < cells.ClientHeight()) ++last;
    ASSERT_GT(cells.CellRect(last, 1).bottom(), cells.ClientHeight());
    const Rect cut = cells.CellRect(last, 1);
    desk.mouseDown(RightButton, 0, cut.left + 100, cut.top + 10);
    EXPECT_EQ(where, (Cell{last, 1}));
    EXPECT_LE(cells.CellRect(last, 1).bottom(), cells.ClientHeight());
}

TEST_F(RightPress, OnAReadOnlyGridMovesAndOffersTheClipboard) {
    fill(3, 4, "there");
    grid.Editable(false);
    command = caption::CopyCell;
    desk.rightClick(3, 4);
    EXPECT_EQ(desk.clipboard(), "there");
    EXPECT_EQ(current(), (Cell{3, 4}));
}

TEST_F(RightPress, SurvivesAMachineThatDestroysTheControlDuringTheMove) {
    const Rect cell = grid.Grid().CellRect(3, 4);
    grid.BeforeRowColChange.connect([&](auto, auto, auto, auto, bool&) { desk.remove(grid); });
    grid.input()->mouseDown(RightButton, 0, cell.left + 100, cell.top + 100);
    EXPECT_EQ(menus, 0);
}

TEST_F(RightPress, WhoseMoveTheHostFailsInLeavesTheControlUsable) {
    bool fails = true;
    grid.RowColChange.connect([&] {
        if (std::exchange(fails, false)) throw HostFailure();
    });
    EXPECT_THROW(desk.rightClick(3, 4), HostFailure);
    EXPECT_EQ(menus, 0);
    desk.rightClick(2, 3);
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(where, (Cell{2, 3}));
}

TEST_F(RightPress, OfTheMiddleButtonMovesNothing) {
    const Rect cell = grid.Grid().CellRect(3, 4);
    desk.mouseDown(MiddleButton, 0, cell.left + 100, cell.top + 100);
    EXPECT_EQ(heardWithoutPlaces(), Lines{"MouseDown"});
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(menus, 0);
}

class Captions : public MenuTest {};

TEST_F(Captions, AreFoundWithoutTheirMnemonics) {
    typed(2, flexDTDouble);
    fill(1, 2, "1");
    at(1, 2);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "序列方式填充"); });
    desk.rightClick(0, 1);
    EXPECT_EQ(texts(2, 2), (Lines{"2", "3", "4", "5"}));
}

TEST_F(Captions, AreFoundWhereverTheMnemonicStands) {
    const Menu menu{
        "menu", "", "items", {{1, "删除行(&D)"}, {2, "&Copy"}, {3, "A && B"}, {4, "Copy"}, {5, "(&E)"}}, {}};
    const auto chosen = [&](std::string_view item) {
        headless::PoppedMenu popped(menu, {});
        popped.choose(item);
        return popped.choice()->second;
    };
    EXPECT_EQ(chosen("删除行"), 1);
    EXPECT_EQ(chosen("删除行(&D)"), 1);
    EXPECT_EQ(chosen("&Copy"), 2);
    EXPECT_EQ(chosen("A & B"), 3);
    EXPECT_EQ(chosen("Copy"), 4) << "the caption itself comes first";
    EXPECT_EQ(chosen("(E)"), 5);
    EXPECT_THROW(chosen("删除"), std::logic_error);
    EXPECT_THROW(chosen(""), std::logic_error);
}

}  // namespace
}  // namespace kxVsGrid::testing
