// Moves of the current cell: what the host hears, in which order, and what a host may do about it.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class Moves : public ClerkTest {};

TEST_F(Moves, ByAnArrowKeyAreToldInTheStatedOrder) {
    desk.press(Key::Down);
    EXPECT_EQ(heard(), moves(1, 1, 2, 1)) << desk.ascii();
    EXPECT_EQ(current(), (Cell{2, 1}));
}

TEST_F(Moves, ByCodeAreToldLikeThoseOfTheClerk) {
    grid.Row(3);
    EXPECT_EQ(heard(), moves(1, 1, 3, 1));
    grid.Col(4);
    EXPECT_EQ(heard(), moves(3, 1, 3, 4));
    grid.Grid().Select(1, 2);
    EXPECT_EQ(heard(), moves(3, 4, 1, 2));
}

TEST_F(Moves, ToWhereTheCellIsAlreadyRaiseNothing) {
    grid.Row(1);
    grid.Col(1);
    desk.press(Key::Up);
    desk.press(Key::Left);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(current(), (Cell{1, 1}));
}

TEST_F(Moves, ThatTheHostCancelsStopAfterTheQuestion) {
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.press(Key::Down);
    EXPECT_EQ(heard(), asks(1, 1, 2, 1));
    grid.Col(3);
    EXPECT_EQ(heard(), asks(1, 1, 1, 3));
    EXPECT_EQ(current(), (Cell{1, 1}));
}

TEST_F(Moves, AreNotCancelledUnlessTheHostSaysSo) {
    bool preset = true;
    grid.BeforeRowColChange.connect([&](auto, auto, auto, auto, bool& cancel) { preset = cancel; });
    desk.press(Key::Down);
    EXPECT_FALSE(preset);
    EXPECT_EQ(current(), (Cell{2, 1}));
}

TEST_F(Moves, ShowTheOldCellBeforeAndTheNewOneFromTheEntryOn) {
    std::vector<Cell> cells;
    grid.BeforeRowColChange.connect([&](auto, auto, auto, auto, bool&) { cells.push_back(current()); });
    grid.EnterCell.connect([&] { cells.push_back(current()); });
    grid.ValidData.connect([&](std::int16_t&) { cells.push_back(current()); });
    grid.RowColChange.connect([&] { cells.push_back(current()); });
    grid.AfterRowColChange.connect([&](auto, auto, auto, auto) { cells.push_back(current()); });
    grid.SelChange.connect([&] { cells.push_back(current()); });
    desk.press(Key::Right);
    const Cell before{1, 1};
    const Cell after{1, 2};
    EXPECT_EQ(cells, (std::vector<Cell>{before, after, after, after, after, after}));
}

TEST_F(Moves, DoNotUseTheAnswerToValidData) {
    grid.ValidData.connect([](std::int16_t& answer) {
        EXPECT_EQ(answer, 0);
        answer = -1;
    });
    desk.press(Key::Down);
    EXPECT_EQ(heard(), moves(1, 1, 2, 1));
}

TEST_F(Moves, BringTheCellIntoViewBetweenValidDataAndRowColChange) {
    rows(60);
    grid.Cols(20);
    log.clear();
    bool rowWasInView = true;
    bool colWasInView = true;
    bool rowIsInView = false;
    bool colIsInView = false;
    grid.ValidData.connect([&](std::int16_t&) {
        rowWasInView = grid.Grid().RowIsVisible(50);
        colWasInView = grid.Grid().ColIsVisible(18);
    });
    grid.RowColChange.connect([&] {
        rowIsInView = grid.Grid().RowIsVisible(50);
        colIsInView = grid.Grid().ColIsVisible(18);
    });
    grid.Grid().Select(50, 18);
    EXPECT_FALSE(rowWasInView);
    EXPECT_FALSE(colWasInView);
    EXPECT_TRUE(rowIsInView) << desk.ascii();
    EXPECT_TRUE(colIsInView) << desk.ascii();
}

TEST_F(Moves, OfAHandlerAreCompletedBeforeTheOuterMoveGoesOn) {
    bool once = true;
    grid.RowColChange.connect([&] {
        if (std::exchange(once, false)) grid.Col(3);
    });
    desk.press(Key::Down);
    EXPECT_EQ(heard(), asks(1, 1, 2, 1) + arrives() + moves(2, 1, 2, 3) + settles(1, 1, 2, 1));
    EXPECT_EQ(current(), (Cell{2, 3}));
}

TEST_F(Moves, SkipHiddenRowsAndColumnsOnArrowKeys) {
    grid.ColHidden(2, true);
    grid.Grid().RowHidden(2, true);
    log.clear();
    desk.press(Key::Right);
    desk.press(Key::Down);
    EXPECT_EQ(heard(), moves(1, 1, 1, 3) + moves(1, 3, 3, 3));
}

TEST_F(Moves, LoadTextAndTagOfTheEnteredCellBeforeTheHostHearsOfIt) {
    fill(2, 1, "螺母", "A002");
    std::string text;
    std::string tag;
    grid.EnterCell.connect([&] {
        text = grid.Text();
        tag = grid.TextTag();
    });
    desk.press(Key::Down);
    EXPECT_EQ(text, "螺母");
    EXPECT_EQ(tag, "A002");
    EXPECT_EQ(grid.Text(), "螺母");
    EXPECT_EQ(grid.TextTag(), "A002");
    EXPECT_FALSE(open());
}

TEST_F(Moves, FollowACurrentCellPushedByInsertedAndRemovedRowsWithoutEvents) {
    at(3, 2);
    grid.Grid().InsertRow(2);
    EXPECT_EQ(current(), (Cell{4, 2}));
    grid.Grid().RemoveRow(1);
    EXPECT_EQ(current(), (Cell{3, 2}));
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(Moves, ForcedByFewerRowsSkipTheQuestion) {
    rows(20);
    at(15, 1);
    grid.Rows(8);
    EXPECT_EQ(current(), (Cell{7, 1}));
    EXPECT_EQ(without(heard(), "CellChanged"), arrives() + settles(15, 1, 7, 1));
}

class FocusOnTheGrid : public ClerkTest {
  protected:
    FocusOnTheGrid() { desk.focusElsewhere(); }
    /// A move that keeps the cell out of the fixed area: the row/column change itself stays silent.
    static Lines innerMove(std::int32_t r0, std::int32_t c0, std::int32_t r1, std::int32_t c1) {
        return asks(r0, c0, r1, c1) + Lines{line("EnterCell")} + settles(r0, c0, r1, c1);
    }
};

TEST_F(FocusOnTheGrid, LeavesADataCellAlone) {
    at(2, 3);
    desk.focusGrid();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(current(), (Cell{2, 3}));
}

TEST_F(FocusOnTheGrid, TakesTheCellOutOfTheFixedRowsFirstAndThenOutOfTheFixedColumns) {
    at(0, 0);
    desk.focusGrid();
    EXPECT_EQ(heard(), innerMove(0, 0, 1, 0) + innerMove(1, 0, 1, 1));
    EXPECT_EQ(current(), (Cell{1, 1}));
}

TEST_F(FocusOnTheGrid, KeepsTheColumnWhenOnlyTheRowIsFixed) {
    at(0, 4);
    desk.focusGrid();
    EXPECT_EQ(heard(), innerMove(0, 4, 1, 4));
}

TEST_F(FocusOnTheGrid, KeepsTheRowWhenOnlyTheColumnIsFixed) {
    at(4, 0);
    desk.focusGrid();
    EXPECT_EQ(heard(), innerMove(4, 0, 4, 1));
}

TEST_F(FocusOnTheGrid, StaysInTheFixedRowsWhenThereAreNoOthers) {
    grid.Grid().Rows(1);
    at(0, 0);
    desk.focusGrid();
    EXPECT_EQ(heard(), innerMove(0, 0, 0, 1));
    EXPECT_EQ(current(), (Cell{0, 1}));
}

TEST_F(FocusOnTheGrid, IsFollowedByOrdinaryMoves) {
    at(0, 0);
    desk.focusGrid();
    heard();
    desk.press(Key::Down);
    EXPECT_EQ(heard(), moves(1, 1, 2, 1));
}

TEST_F(FocusOnTheGrid, LetsTheHostKeepTheCellInTheFixedArea) {
    at(0, 0);
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.focusGrid();
    EXPECT_EQ(current(), (Cell{0, 0}));
    EXPECT_EQ(heard(), asks(0, 0, 1, 0) + asks(0, 0, 0, 1));
}

TEST_F(FocusOnTheGrid, MakesTheControlActive) {
    EXPECT_FALSE(grid.IsActive());
    desk.focusGrid();
    EXPECT_TRUE(grid.IsActive());
    desk.focusElsewhere();
    EXPECT_FALSE(grid.IsActive());
}

TEST(KeysOnTheSurface, AreToldToTheHost) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    HostLog log(grid);
    desk.focusSurface();
    log.clear();
    desk.type("a");
    EXPECT_EQ(log.lines(), (Lines{line("keyDown", 65, 0), line("KeyPress", 97), line("KeyUp", 65, 0)}));
    log.clear();
    desk.press(Key::F2, ShiftKey);
    EXPECT_EQ(log.lines(), (Lines{line("keyDown", 113, 1), line("KeyUp", 113, 1)}));
}

TEST(KeysOnTheSurface, HaveACodeAlsoWhenTheyTypeASignOrAChineseCharacter) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    HostLog log(grid);
    desk.focusSurface();
    log.clear();
    desk.type("*");
    EXPECT_EQ(log.lines(),
              (Lines{line("keyDown", OtherKey, 0), line("KeyPress", '*'), line("KeyUp", OtherKey, 0)}));
    log.clear();
    desk.type("品");
    EXPECT_EQ(log.lines().size(), 3u);
}

TEST_F(Moves, RaiseNoKeyEventsOfTheSurfaceForKeysOfTheGrid) {
    desk.press(Key::F2);
    desk.press(Key::Insert, ShiftKey);
    const Lines lines = heard();
    EXPECT_EQ(named(lines, "keyDown"), Lines{});
    EXPECT_EQ(named(lines, "KeyUp"), Lines{});
    EXPECT_EQ(named(lines, "KeyPress"), Lines{});
}

}  // namespace
}  // namespace kxVsGrid::testing
