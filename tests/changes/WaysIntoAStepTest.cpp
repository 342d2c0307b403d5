// The same act by other ways: commits that the clerk does not make by Enter, rows that are appended for what is
// typed, steps that a host holds open across the clerk's acts.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "changes/GridState.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class WaysIntoAStep : public PlacedGrid {
  protected:
    WaysIntoAStep() {
        grid.Cols(6);
        summed(2);
        column(5).iType(flexDTBoolean);
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = adds; });
        setUp();
        vs().NumberRows();
        desk.focusGrid();
        vs().Select(1, 1);
    }
    History& history() { return grid.History(); }
    bool open() const { return desk.editor().visible; }
    bool adds = false;
};

TEST_F(WaysIntoAStep, IsOneStepHoweverTheTextIsCommitted) {
    const std::vector<std::function<void()>> ways{
        [&] { desk.press(Key::Enter); },
        [&] { desk.press(Key::Tab); },
        [&] { desk.press(Key::Down); },
        [&] { desk.click(4, 4); },
        [&] { desk.focusElsewhere(); },
        [&] { grid.ValidTextData(); },
        [&] { static_cast<void>(grid.IsValid()); },
        [&] { static_cast<void>(grid.ReadCell(1, 1)); },
        [&] { vs().Select(5, 2); },
        [&] { grid.Row(4); },
        [&] {
            grid.Editable(false);
            grid.Editable(true);
        },
    };
    for (std::size_t way = 0; way < ways.size(); ++way) {
        SCOPED_TRACE(way);
        history().Forget();
        desk.focusGrid();
        vs().Select(2, 1);
        vs().Text(2, 1, "before");
        history().Forget();
        typeInto(2, 1, "typed");
        ways[way]();
        if (open()) desk.press(Key::Escape);
        ASSERT_EQ(text(2, 1), "typed");
        EXPECT_EQ(history().UndoName(), "录入");
        EXPECT_TRUE(history().Undo());
        EXPECT_EQ(text(2, 1), "before");
        EXPECT_FALSE(history().CanUndo());
        EXPECT_TRUE(history().Redo());
        EXPECT_EQ(text(2, 1), "typed");
    }
}

TEST_F(WaysIntoAStep, KeepsAHostsWriteApartFromTheTextThatItCommits) {
    typeInto(2, 1, "typed");
    {
        const auto step = grid.Step("host");
        grid.SetCell(3, 1, "host");
    }
    EXPECT_EQ(text(2, 1), "typed");
    while (history().Undo()) {
    }
    EXPECT_EQ(text(2, 1) + text(3, 1), "");
}

TEST_F(WaysIntoAStep, TakesTheAppendedRowAwayByKeysInTheEditor) {
    adds = true;
    vs().Select(5, 1);
    desk.type("ab");
    adds = false;
    ASSERT_EQ(vs().Rows(), 7);
    for (int presses = 0; desk.editor().visible && presses < 9; ++presses) desk.press('Z', CtrlKey);
    EXPECT_FALSE(open());
    EXPECT_EQ(vs().Rows(), 6);
    EXPECT_EQ(text(5, 1), "");
    desk.press('Y', CtrlKey);
    EXPECT_EQ(vs().Rows(), 7);
}

TEST_F(WaysIntoAStep, TakesTheAppendedRowAwayWithTheTextByAMenu) {
    adds = true;
    vs().Select(5, 1);
    desk.type("ab");
    adds = false;
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_FALSE(open());
    EXPECT_EQ(vs().Rows(), 6);
    EXPECT_EQ(text(5, 1), "");
    EXPECT_TRUE(desk.run(Command::Redo));
    EXPECT_EQ(vs().Rows(), 7);
    EXPECT_EQ(text(5, 1), "ab");
}

TEST_F(WaysIntoAStep, TakesTheAppendedRowAwayWithARefusedExpression) {
    adds = true;
    grid.SetCell(5, 2, "12");
    vs().Select(5, 2);
    desk.type("3*");
    adds = false;
    desk.press(Key::Enter);
    ASSERT_TRUE(desk.editor().refused);
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(5, 2), "12");
}

TEST_F(WaysIntoAStep, TogglesOnTheLastRow) {
    adds = true;
    vs().Select(5, 5);
    const Lines before = stateOf(grid);
    desk.type(" ");
    const Lines after = stateOf(grid);
    while (history().Undo()) {
    }
    EXPECT_EQ(stateOf(grid), before);
    while (history().Redo()) {
    }
    EXPECT_EQ(stateOf(grid), after);
}

TEST_F(WaysIntoAStep, WorksBeforeTheSetUp) {
    kxGrid& bare = desk.place();
    {
        const auto step = bare.Step("step");
        bare.SetCell(1, 1, "x");
        bare.Grid().RemoveRow(3);
    }
    EXPECT_TRUE(bare.History().Undo());
    EXPECT_EQ(bare.Grid().Text(1, 1), "");
    EXPECT_EQ(bare.Grid().Rows(), 6);
    EXPECT_TRUE(bare.History().Redo());
}

TEST_F(WaysIntoAStep, KeepsTwoGridsApart) {
    kxGrid& other = desk.place();
    other.ReDraw(true);
    {
        const auto step = grid.Step("outer");
        grid.SetCell(1, 1, "x");
        const auto inner = other.Step("other");
        other.SetCell(1, 1, "y");
        EXPECT_FALSE(other.History().CanUndo());
    }
    EXPECT_EQ(grid.History().UndoName(), "outer");
    EXPECT_EQ(other.History().UndoName(), "other");
    EXPECT_TRUE(other.History().Undo());
    EXPECT_EQ(text(1, 1), "x");
}

TEST_F(WaysIntoAStep, JoinsTheClerksActsToAStepThatAHostHolds) {
    {
        const auto step = grid.Step("wizard");
        typeInto(1, 1, "typed");
        desk.press(Key::Enter);
        desk.press('Z', CtrlKey);
        EXPECT_EQ(text(1, 1), "typed");
        vs().Select(2, 5);
        desk.type(" ");
    }
    EXPECT_EQ(history().UndoName(), "wizard");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(1, 1) + text(2, 5), "");
    EXPECT_FALSE(history().CanUndo());
}

TEST_F(WaysIntoAStep, GoesOnAfterStepsThatAreHeldBeyondAnUndo) {
    {
        const auto step = grid.Step("first");
        grid.SetCell(1, 1, "x");
    }
    std::unique_ptr<ChangeStep> held;
    Connection holds = grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        if (!held) held.reset(new ChangeStep(grid.Step("held")));
    });
    EXPECT_TRUE(history().Undo());
    holds.disconnect();
    grid.SetCell(2, 1, "y");
    held.reset();
    EXPECT_TRUE(history().CanUndo());
    while (history().Undo()) {
    }
    EXPECT_EQ(text(1, 1) + text(2, 1), "");
    typeInto(3, 1, "goes on");
    desk.press(Key::Enter);
    EXPECT_EQ(history().UndoName(), "录入");
}

TEST_F(WaysIntoAStep, EndsStepsInAnyOrder) {
    const auto held = [&](const char* name) {
        return std::unique_ptr<ChangeStep>(new ChangeStep(grid.Step(name)));
    };
    auto outer = held("outer");
    grid.SetCell(1, 1, "a");
    auto inner = held("inner");
    grid.SetCell(2, 1, "b");
    outer.reset();
    EXPECT_FALSE(history().CanUndo());
    grid.SetCell(3, 1, "c");
    EXPECT_TRUE(inner->takeBack());
    EXPECT_EQ(text(1, 1) + text(2, 1) + text(3, 1), "a");
    inner.reset();
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(WaysIntoAStep, TellsTheClerkOfEveryChangeOfTheHistoryAndOfNoOther) {
    int changes = 0;
    std::string last;
    grid.Commands().Changed.connect([&] {
        ++changes;
        const std::string now =
            grid.Commands().Caption(Command::Undo) + grid.Commands().Caption(Command::Redo) +
            (grid.CanRun(Command::Undo) ? "u" : "") + (grid.CanRun(Command::Redo) ? "r" : "");
        EXPECT_NE(now, last);
        last = now;
    });
    {
        const auto step = grid.Step("a");
        grid.SetCell(1, 1, "x");
        grid.SetCell(2, 1, "x");
    }
    EXPECT_EQ(changes, 1);
    {
        const auto step = grid.Step("nothing");
        grid.SetCell(1, 1, "x");
    }
    EXPECT_EQ(changes, 1);
    history().Undo();
    history().Redo();
    EXPECT_EQ(changes, 3);
    history().Limit(0);
    EXPECT_EQ(changes, 4);
}
}  // namespace
}  // namespace kxVsGrid::testing
