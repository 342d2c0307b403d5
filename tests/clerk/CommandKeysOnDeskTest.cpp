// The keys of commands on a closed cell, keys that a host binds, and what a host is told of commands.
#include <algorithm>
#include <map>
#include <string>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {
namespace by_key {

using Where = CommandKey::Where;
constexpr std::int16_t Semicolon = 186, Plus = 187, Minus = 189, Apostrophe = 222, F8 = 119;
constexpr auto Up = static_cast<std::int16_t>(Key::Up);
constexpr auto Down = static_cast<std::int16_t>(Key::Down);

class CommandByKey : public BlockTest {
  protected:
    CommandByKey() {
        for (int row = 1; row <= 3; ++row) content(row);
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        desk.setNow(2026, 11, 20, 14, 5, 9);
        at(2, 2);
    }
    void closed() {
        EXPECT_FALSE(open());
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    }
};

TEST_F(CommandByKey, CopiesWithControlC) {
    desk.press('C', CtrlKey);
    EXPECT_EQ(desk.clipboard(), "t22");
    closed();
}

TEST_F(CommandByKey, CopiesCaptionsWithControlShiftC) {
    grid.Grid().Text(0, 2, "caption");
    desk.press('C', CtrlKey + ShiftKey);
    EXPECT_EQ(desk.clipboard(), "caption\nt22");
    closed();
}

TEST_F(CommandByKey, CutsWithControlX) {
    desk.press('X', CtrlKey);
    EXPECT_EQ(desk.clipboard(), "t22");
    EXPECT_EQ(text(2, 2), "");
    closed();
}

TEST_F(CommandByKey, PastesWithControlV) {
    desk.clipboard("a\tb");
    desk.press('V', CtrlKey);
    EXPECT_EQ(texts(2, 2, 2, 3), "a|b");
    closed();
}

TEST_F(CommandByKey, SelectsAllWithControlA) {
    desk.press('A', CtrlKey);
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::All);
    EXPECT_EQ(current(), (Cell{2, 2}));
    closed();
}

TEST_F(CommandByKey, FillsWithControlDAndControlR) {
    desk.press('D', CtrlKey);
    EXPECT_EQ(text(2, 2), "t12");
    desk.press('R', CtrlKey);
    EXPECT_EQ(text(2, 2), "t21");
    closed();
}

TEST_F(CommandByKey, CopiesFromAboveWithControlApostrophe) {
    desk.press(Apostrophe, CtrlKey);
    EXPECT_EQ(text(2, 2), "t12");
    EXPECT_EQ(tag(2, 2), "d12");
    closed();
}

TEST_F(CommandByKey, InsertsRowsWithControlPlusAndWithShiftToo) {
    desk.press(Plus, CtrlKey);
    EXPECT_EQ(grid.Rows(), 7);
    expectEmpty(2);
    desk.press(Plus, CtrlKey + ShiftKey);
    EXPECT_EQ(grid.Rows(), 8);
    expectContent(4, 2);
    closed();
}

TEST_F(CommandByKey, DeletesRowsWithControlMinus) {
    desk.press(Minus, CtrlKey);
    EXPECT_EQ(grid.Rows(), 6);
    expectContent(2, 3);
    closed();
}

TEST_F(CommandByKey, MovesRowsWithAltAndArrows) {
    desk.press(Up, AltKey);
    expectContent(1, 2);
    expectContent(2, 1);
    EXPECT_EQ(current(), (Cell{1, 2}));
    desk.press(Down, AltKey);
    expectContent(2, 2);
    EXPECT_EQ(current(), (Cell{2, 2}));
    closed();
}

TEST_F(CommandByKey, AsksForARowWithControlG) {
    desk.answerInputBox("4");
    desk.press('G', CtrlKey);
    EXPECT_EQ(desk.inputBoxes().size(), 1U);
    EXPECT_EQ(current(), (Cell{4, 2}));
    closed();
}

TEST_F(CommandByKey, WritesDateAndTimeWithControlSemicolon) {
    desk.press(Semicolon, CtrlKey);
    EXPECT_EQ(text(2, 2), "2026-11-20");
    desk.press(Semicolon, CtrlKey + ShiftKey);
    EXPECT_EQ(text(2, 2), "2026-11-20 14:05:09");
    closed();
}

TEST_F(CommandByKey, GoesToTheNextProblemWithF8) {
    grid.Mark(3, 4, CellMark{CellMark::Kind::Problem, "p"});
    desk.press(F8);
    EXPECT_EQ(current(), (Cell{3, 4}));
    closed();
}

TEST_F(CommandByKey, IsUsedUpAlsoWhereTheCommandCannotRun) {
    at(1, 2);
    grid.History().Enabled(false);
    const Lines before = wholeOf(grid);
    for (const auto& [code, shift] : std::vector<std::pair<std::int16_t, std::int16_t>>{
             {'Z', CtrlKey}, {'Y', CtrlKey}, {'D', CtrlKey}, {Apostrophe, CtrlKey}, {Up, AltKey}, {F8, 0}}) {
        desk.press(code, shift);
        EXPECT_EQ(wholeOf(grid), before) << code;
        closed();
    }
}

TEST_F(CommandByKey, IsUsedUpOnAReadOnlyGrid) {
    grid.Editable(false);
    const Lines before = wholeOf(grid);
    desk.clipboard("p");
    for (const CommandKey& key : defaultKeys()) {
        if (grid.CanRun(key.command)) continue;
        desk.press(key.code, key.shift);
        EXPECT_EQ(wholeOf(grid), before) << keyText(key);
        closed();
    }
}

TEST_F(CommandByKey, IsTheTextBoxesInAnOpenEditorWhereItHasSuchACommand) {
    desk.type("abc").press('A', CtrlKey).press('C', CtrlKey);
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.clipboard(), "abc");
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::Cells);
    desk.press('X', CtrlKey);
    EXPECT_EQ(desk.editor().text, "");
    desk.press('V', CtrlKey);
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(text(2, 2), "t22");
}

TEST_F(CommandByKey, CommitsTheOpenEditorOtherwise) {
    desk.type("abc").press('D', CtrlKey);
    EXPECT_EQ(text(2, 2), "t12");
    closed();
    undo();
    EXPECT_EQ(text(2, 2), "abc");
}

TEST_F(CommandByKey, GoesWithItsShiftAlone) {
    const Lines before = wholeOf(grid);
    desk.press(Minus, CtrlKey + AltKey);
    desk.press('G', CtrlKey + AltKey);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_TRUE(desk.inputBoxes().empty());
    desk.press(Key::Escape);
    EXPECT_EQ(wholeOf(grid), before);
}

TEST_F(CommandByKey, IsWhatTheHostHasBoundItTo) {
    Commands& commands = grid.Commands();
    commands.Bind({Command::DuplicateRow, 'D', CtrlKey});
    EXPECT_EQ(commands.Of('D', CtrlKey, Where::ClosedCell), Command::DuplicateRow);
    for (const CommandKey& key : commands.Keys()) EXPECT_NE(key.command, Command::FillDown);
    desk.press('D', CtrlKey);
    EXPECT_EQ(text(2, 2), "t22");
    EXPECT_EQ(grid.Rows(), 7);
    expectContent(6, 2);
}

TEST_F(CommandByKey, IsOneMoreForTheSameCommand) {
    grid.Commands().Bind({Command::FillDown, 'K', CtrlKey});
    desk.press('K', CtrlKey);
    EXPECT_EQ(text(2, 2), "t12");
    EXPECT_EQ(grid.Commands().Of('D', CtrlKey, Where::ClosedCell), Command::FillDown);
}

TEST_F(CommandByKey, DoesWhatTheControlDoesWithoutCommandsOnceItIsUnbound) {
    grid.Commands().Unbind('D', CtrlKey);
    EXPECT_EQ(grid.Commands().Of('D', CtrlKey, Where::ClosedCell), std::nullopt);
    desk.press('D', CtrlKey);
    EXPECT_EQ(text(2, 2), "t22");
    EXPECT_TRUE(open());
}

TEST_F(CommandByKey, IsNobodysElseWhenAnotherControlBindsIt) {
    kxGrid& other = desk.place();
    other.Commands().Unbind('C', CtrlKey);
    desk.use(grid);
    desk.focusGrid();
    EXPECT_EQ(grid.Commands().Of('C', CtrlKey, Where::ClosedCell), Command::Copy);
    desk.press('C', CtrlKey);
    EXPECT_EQ(desk.clipboard(), "t22");
}

TEST_F(CommandByKey, IsSoughtWhereItCounts) {
    const Commands& commands = grid.Commands();
    for (const char letter : {'C', 'X', 'V', 'A'}) {
        EXPECT_NE(commands.Of(letter, CtrlKey, Where::ClosedCell), std::nullopt) << letter;
        EXPECT_EQ(commands.Of(letter, CtrlKey, Where::EditorToo), std::nullopt) << letter;
    }
    for (const char letter : {'Z', 'Y', 'D', 'R', 'G'}) {
        EXPECT_NE(commands.Of(letter, CtrlKey, Where::ClosedCell), std::nullopt) << letter;
        EXPECT_NE(commands.Of(letter, CtrlKey, Where::EditorToo), std::nullopt) << letter;
    }
    EXPECT_EQ(commands.Of('C', 0, Where::ClosedCell), std::nullopt);
}

/// A toolbar, which asks for the commands' states only when it is told to.
class Toolbar : public BlockTest {
  protected:
    Toolbar() {
        for (int row = 1; row <= 3; ++row) content(row);
        at(2, 2);
        look();
        grid.Commands().Changed.connect([this] {
            ++told;
            look();
        });
    }
    void look() {
        for (const Command command : allCommands())
            shown[command] = {grid.CanRun(command), grid.Commands().Caption(command)};
    }
    void expectUpToDate(const char* act) {
        for (const Command command : allCommands()) {
            EXPECT_EQ(shown[command].first, grid.CanRun(command)) << captionOf(command) << " after " << act;
            EXPECT_EQ(shown[command].second, grid.Commands().Caption(command)) << act;
        }
    }
    std::map<Command, std::pair<bool, std::string>> shown;
    int told = 0;
};

TEST_F(Toolbar, FollowsAMoveIntoTheFirstRow) {
    grid.Grid().Select(1, 2);
    EXPECT_GE(told, 1);
    EXPECT_FALSE(shown[Command::FillDown].first);
    expectUpToDate("a move");
    grid.Grid().Select(3, 2);
    EXPECT_TRUE(shown[Command::FillDown].first);
    expectUpToDate("a move");
}

TEST_F(Toolbar, IsNotToldOfAMoveThatChangesNothing) {
    grid.Grid().Select(3, 3);
    EXPECT_EQ(told, 0);
}

TEST_F(Toolbar, FollowsEditable) {
    grid.Editable(false);
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(shown[Command::Paste].first);
    expectUpToDate("Editable");
    grid.Editable(true);
    EXPECT_EQ(told, 2);
    expectUpToDate("Editable");
}

TEST_F(Toolbar, FollowsASelection) {
    grid.Grid().Select(1, 2);
    const int before = told;
    desk.press(Key::Down, ShiftKey);
    EXPECT_GT(told, before);
    EXPECT_TRUE(shown[Command::FillDown].first);
    expectUpToDate("a selection");
    grid.Grid().Unselect();
    EXPECT_FALSE(shown[Command::FillDown].first);
    expectUpToDate("the end of a selection");
}

TEST_F(Toolbar, FollowsKeys) {
    grid.Commands().Bind({Command::AppendRow, 'K', CtrlKey});
    EXPECT_EQ(told, 1);
    grid.Commands().Unbind('K', CtrlKey);
    EXPECT_EQ(told, 2);
}

TEST_F(Toolbar, FollowsWhatTheClerkDoes) {
    desk.type("x").press(Key::Enter);
    expectUpToDate("typing");
    paste("1\t2\n3\t4");
    expectUpToDate("a paste");
    run(Command::Undo);
    expectUpToDate("an undo");
    run(Command::Redo);
    expectUpToDate("a redo");
    run(Command::SelectAll);
    expectUpToDate("selecting all");
    run(Command::ClearCells);
    expectUpToDate("clearing");
    at(5, 2);
    run(Command::AppendRow);
    expectUpToDate("a new row");
    at(1, 1);
    run(Command::MoveRowDown);
    expectUpToDate("a moved row");
}

TEST_F(Toolbar, FollowsRefusalsOfAPaste) {
    column(3).iType(flexDTDouble);
    at(2, 3);
    paste("x\ty");
    EXPECT_TRUE(shown[Command::NextProblem].first);
    expectUpToDate("a refusal");
}

TEST_F(Toolbar, FollowsMarksOfTheHost) {
    grid.Mark(3, 3, CellMark{CellMark::Kind::Problem, "p"});
    EXPECT_TRUE(shown[Command::NextProblem].first);
    grid.ClearMarks();
    EXPECT_FALSE(shown[Command::NextProblem].first);
}

TEST_F(Toolbar, FollowsColumnsThatTheHostHides) {
    grid.ColHidden(1, true);
    EXPECT_FALSE(shown[Command::FillRight].first);
    grid.ColHidden(1, false);
    EXPECT_TRUE(shown[Command::FillRight].first);
}

TEST_F(Toolbar, FollowsRowsThatTheHostHides) {
    grid.Grid().RowHidden(1, true);
    EXPECT_FALSE(shown[Command::FillDown].first);
    EXPECT_FALSE(shown[Command::MoveRowUp].first);
}

TEST_F(Toolbar, FollowsTheNumberOfRows) {
    at(5, 2);
    EXPECT_FALSE(shown[Command::MoveRowDown].first);
    grid.Rows(9);
    EXPECT_TRUE(shown[Command::MoveRowDown].first);
}

TEST_F(Toolbar, FollowsTheNumberOfColumns) {
    grid.Cols(0);
    expectUpToDate("no columns");
    grid.Cols(6);
    expectUpToDate("columns again");
}
}  // namespace by_key
}  // namespace
}  // namespace kxVsGrid::testing
