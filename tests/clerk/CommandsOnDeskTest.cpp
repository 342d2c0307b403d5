// Every command in every state that a grid can be in: whether it can be done, what it answers, and that one that
// cannot be done does nothing at all.
#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {
namespace on_desk {

using enum Command;
using CommandList = std::vector<Command>;

CommandList operator+(CommandList left, const CommandList& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}
bool has(const CommandList& list, Command command) {
    return std::find(list.begin(), list.end(), command) != list.end();
}

/// How things stand, the commands that cannot be done then, and those of which nothing is said.
struct Situation {
    const char* name;
    std::function<void(headless::Desk&, kxGrid&)> arrange;
    CommandList impossible;
    CommandList unsaid = {};
    friend std::ostream& operator<<(std::ostream& out, const Situation& of) { return out << of.name; }
};

// Nothing hidden, no menus of headers, no filters.
const CommandList NotThere{ShowColumns, HeaderMenu, Filter, Unfilter};
// With nothing done yet and no marks.
const CommandList AtFirst = NotThere + CommandList{Undo, Redo, NextProblem, SortUp, SortDown, Unsort};
const CommandList OfTheColumn{HideColumn, FitColumn, Freeze};
const CommandList OfTheCell{CopyFromAbove, Today, Now};
const CommandList Writes{Cut,           Paste,     ClearCells, FillDown,     FillRight,
                         CopyFromAbove, InsertRow, DeleteRows, DuplicateRow, MoveRowUp,
                         MoveRowDown,   Today,     Now};
const CommandList Reads{Copy, CopyWithHeaders, SelectRow, SelectColumn};
const CommandList Unsaid{Help, Menu};
const CommandList OverCells{Find, Replace};
/// Nothing was looked for yet.
const CommandList LooksOn{FindNext, FindPrevious};

cVsControl& definition(kxGrid& grid, std::int16_t col) {
    return *grid.VsCtrl(col);
}
void at(kxGrid& grid, std::int32_t row, std::int32_t col) {
    grid.Grid().Select(row, col);
}

const std::vector<Situation>& situations() {
    static const std::vector<Situation> All{
        {"a closed cell", [](auto&, auto&) {}, AtFirst, {Help}},
        {"a read-only grid", [](auto&, kxGrid& grid) { grid.Editable(false); },
         AtFirst + Writes + CommandList{AppendRow, Replace}, Unsaid},
        {"a cell of the heading", [](auto&, kxGrid& grid) { at(grid, 0, 2); }, AtFirst + Writes + Reads,
         Unsaid + CommandList{AppendRow, SelectAll}},
        {"a cell of the fixed column", [](auto&, kxGrid& grid) { at(grid, 2, 0); },
         AtFirst + Writes + Reads + OfTheColumn, Unsaid + CommandList{AppendRow, SelectAll}},
        {"no columns", [](auto&, kxGrid& grid) { grid.Cols(0); },
         AtFirst + Writes + Reads + OfTheColumn + OverCells + CommandList{SelectAll},
         Unsaid + CommandList{AppendRow, GoToRow}},
        {"no data rows", [](auto&, kxGrid& grid) { grid.Grid().Rows(1); },
         AtFirst + Writes + Reads + OverCells + CommandList{SelectAll, GoToRow},
         Unsaid + CommandList{AppendRow}},
        {"headings alone",
         [](auto&, kxGrid& grid) {
             grid.Grid().FixedRows(grid.Rows());
             grid.Grid().FixedCols(grid.Cols());
         },
         AtFirst + Writes + Reads + OfTheColumn + OverCells + CommandList{SelectAll, GoToRow},
         Unsaid + CommandList{AppendRow}},
        {"fixed columns alone", [](auto&, kxGrid& grid) { grid.Grid().FixedCols(grid.Cols()); },
         AtFirst + Writes + Reads + OfTheColumn + OverCells + CommandList{SelectAll},
         Unsaid + CommandList{AppendRow, GoToRow}},
        {"the first row",
         [](auto&, kxGrid& grid) { at(grid, 1, 2); },
         AtFirst + CommandList{CopyFromAbove, FillDown, MoveRowUp},
         {Help}},
        {"the last row",
         [](auto&, kxGrid& grid) { at(grid, 5, 2); },
         AtFirst + CommandList{MoveRowDown},
         {Help, ClearCells}},
        {"the first column",
         [](auto&, kxGrid& grid) { at(grid, 2, 1); },
         AtFirst + CommandList{FillRight},
         {Help}},
        {"hidden rows above",
         [](auto&, kxGrid& grid) { grid.Grid().RowHidden(1, true); },
         AtFirst + CommandList{CopyFromAbove, FillDown, MoveRowUp},
         {Help}},
        {"hidden rows below",
         [](auto&, kxGrid& grid) {
             for (std::int32_t row = 3; row < grid.Rows(); ++row) grid.Grid().RowHidden(row, true);
         },
         AtFirst + CommandList{MoveRowDown},
         {Help}},
        {"hidden columns to the left",
         [](auto&, kxGrid& grid) { grid.ColHidden(1, true); },
         AtFirst + CommandList{FillRight},
         {Help}},
        {"a shown row above a hidden one",
         [](auto&, kxGrid& grid) {
             at(grid, 3, 2);
             grid.Grid().RowHidden(2, true);
         },
         AtFirst,
         {Help}},
        {"a read-only column",
         [](auto&, kxGrid& grid) { definition(grid, 2).bIsEditable(false); },
         AtFirst + OfTheCell,
         {Help, Cut, Paste, ClearCells, FillDown, FillRight}},
        {"a locked cell",
         [](auto&, kxGrid& grid) {
             grid.Options().CellLocked.connect(
                 [](std::int32_t row, std::int32_t col, bool& locked) { locked = row == 2 && col == 2; });
         },
         AtFirst + OfTheCell,
         {Help, Cut, Paste, ClearCells, FillDown, FillRight}},
        {"a number",
         [](auto&, kxGrid& grid) { definition(grid, 2).iType(flexDTDouble); },
         AtFirst + CommandList{Today, Now},
         {Help}},
        {"a check box",
         [](auto&, kxGrid& grid) { definition(grid, 2).iType(flexDTBoolean); },
         AtFirst + CommandList{Today, Now},
         {Help}},
        {"several rows from the first",
         [](auto&, kxGrid& grid) {
             at(grid, 1, 2);
             grid.Grid().SelectRange(1, 2, 2, 2);
         },
         AtFirst + CommandList{CopyFromAbove, MoveRowUp},
         {Help}},
        {"several columns from the first",
         [](auto&, kxGrid& grid) {
             at(grid, 2, 1);
             grid.Grid().SelectRange(2, 1, 2, 3);
         },
         AtFirst,
         {Help}},
        {"everything selected",
         [](auto&, kxGrid& grid) { grid.Grid().SelectAll(); },
         AtFirst,
         {Help, MoveRowUp, MoveRowDown}},
        {"something to undo",
         [](headless::Desk& desk, kxGrid& grid) {
             at(grid, 2, 4);
             desk.type("x").press(Key::Enter);
             at(grid, 2, 2);
         },
         NotThere + CommandList{Redo, NextProblem, SortUp, SortDown, Unsort},
         {Help}},
        {"something to redo",
         [](headless::Desk& desk, kxGrid& grid) {
             at(grid, 2, 4);
             desk.type("x").press(Key::Enter);
             grid.History().Undo();
             at(grid, 2, 2);
         },
         NotThere + CommandList{Undo, NextProblem, SortUp, SortDown, Unsort},
         {Help}},
        {"a column that may be sorted",
         [](auto&, kxGrid& grid) { grid.Options(2).sortable(true); },
         NotThere + CommandList{Undo, Redo, NextProblem, Unsort},
         {Help}},
        {"rows that were sorted",
         [](headless::Desk& desk, kxGrid& grid) {
             grid.Options(2).sortable(true);
             desk.run(SortDown);
             at(grid, 2, 2);
         },
         NotThere + CommandList{Redo, NextProblem},
         {Help}},
        {"a problem",
         [](auto&, kxGrid& grid) {
             grid.Mark(4, 4, CellMark{CellMark::Kind::Problem, "p"});
         },
         NotThere + CommandList{Undo, Redo, SortUp, SortDown, Unsort},
         {Help}},
        {"a problem in a hidden row",
         [](auto&, kxGrid& grid) {
             grid.Mark(4, 4, CellMark{CellMark::Kind::Problem, "p"});
             grid.Grid().RowHidden(4, true);
         },
         AtFirst,
         {Help}},
        {"a problem in a hidden column",
         [](auto&, kxGrid& grid) {
             grid.Mark(4, 4, CellMark{CellMark::Kind::Problem, "p"});
             grid.ColHidden(4, true);
         },
         AtFirst,
         {Help}},
        {"a warning",
         [](auto&, kxGrid& grid) {
             grid.Mark(4, 4, CellMark{CellMark::Kind::Warning, "w"});
         },
         AtFirst,
         {Help}},
    };
    return All;
}

class CommandInASituation : public BlockTest,
                            public ::testing::WithParamInterface<std::tuple<std::size_t, Command>> {
  protected:
    CommandInASituation() {
        grid.Grid().NumberRows();  // as row commands do
        for (int row = 1; row <= 3; ++row)
            for (int col = 1; col < 6; ++col) fill(row, col, col == 1 ? "1" : std::to_string(10 * row + col));
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        consentToRows();
        at(2, 2);
        situation().arrange(desk, grid);
        grid.ReDraw(true);
        desk.focusGrid();
        desk.clear();
        desk.clipboard("1");
        log.clear();
    }
    const Situation& situation() const { return situations()[std::get<0>(GetParam())]; }
    Command command() const { return std::get<1>(GetParam()); }
    std::string named() const { return std::string(captionOf(command())) + " with " + situation().name; }
};

TEST_P(CommandInASituation, SaysWhetherItCanBeDone) {
    if (has(situation().unsaid, command())) return;
    EXPECT_EQ(grid.CanRun(command()), !has(situation().impossible + LooksOn, command())) << named();
    EXPECT_EQ(heard(), Lines());
}

TEST_P(CommandInASituation, DoesNothingAtAllWhenItCannotBeDone) {
    if (grid.CanRun(command())) return;
    const Lines before = wholeOf(grid);
    const CellRange selected = grid.Grid().Selected();
    desk.onPopup([&](headless::PoppedMenu&) { ADD_FAILURE() << named(); });
    EXPECT_FALSE(run(command())) << named();
    EXPECT_EQ(differences(wholeOf(grid), before), Lines()) << named();
    EXPECT_EQ(heard(), Lines()) << named();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_FALSE(open());
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_TRUE(desk.inputBoxes().empty());
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(desk.clipboard(), "1");
    EXPECT_EQ(grid.Grid().Selected(), selected);
}

TEST_P(CommandInASituation, KeepsTheKeyboardAndCanBeUndoneByOneUndo) {
    if (!grid.CanRun(command()) || has({Help, Menu, GoToRow, Undo, Redo}, command())) return;
    if (has(situation().unsaid, command())) return;
    const auto texts = [this] {
        Lines lines = wholeOf(grid);
        lines.pop_back();  // where the clerk is, what can be undone
        return lines;
    };
    const Lines before = texts();
    EXPECT_TRUE(run(command())) << named();
    EXPECT_FALSE(open()) << named();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid) << named();
    EXPECT_TRUE(desk.messages().empty()) << named();
    if (texts() == before) return;
    EXPECT_TRUE(grid.Run(Undo));
    EXPECT_EQ(differences(texts(), before), Lines()) << named();
}

TEST_P(CommandInASituation, OutlivesAHostThatEndsTheControl) {
    if (!grid.CanRun(command())) return;
    kxGrid* const ended = &grid;
    grid.CellChanged.connect([this, ended](auto...) { desk.remove(*ended); });
    grid.Run(command());
    SUCCEED();
}

std::vector<std::size_t> numbersOfSituations() {
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; i < situations().size(); ++i) numbers.push_back(i);
    return numbers;
}
CommandList everyCommand() {
    return {allCommands().begin(), allCommands().end()};
}
INSTANTIATE_TEST_SUITE_P(All, CommandInASituation,
                         ::testing::Combine(::testing::ValuesIn(numbersOfSituations()),
                                            ::testing::ValuesIn(everyCommand())));

/// Commands that an open editor's text box keeps for itself, and those that it has first.
bool ofTheTextBox(Command command) {
    return has({Copy, Cut, Paste, SelectAll}, command);
}
bool ofTheTextFirst(Command command) {
    return ofTheTextBox(command) || has({Undo, Redo}, command);
}

class CommandOverAnOpenEditor : public BlockTest, public ::testing::WithParamInterface<Command> {
  protected:
    CommandOverAnOpenEditor() {
        for (int row = 1; row <= 3; ++row) content(row);
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.Mark(4, 4, CellMark{CellMark::Kind::Problem, "p"});
        at(2, 2);
        desk.clipboard("p");
    }
    std::string named() const { return std::string(captionOf(GetParam())); }
};

TEST_P(CommandOverAnOpenEditor, CommitsWhatIsBeingTypedFirst) {
    if (ofTheTextFirst(GetParam())) return;
    desk.type("x");
    log.clear();
    run(GetParam());
    const Lines edits = testing::named(heard(), "AfterEdit");
    ASSERT_FALSE(edits.empty()) << named();
    EXPECT_EQ(edits.front(), edited(2, 2).front()) << named();
    if (GetParam() != Help) {
        EXPECT_FALSE(open()) << named();
    }
}

TEST_P(CommandOverAnOpenEditor, LeavesARefusedTextAndTheKeyboardAlone) {
    if (ofTheTextFirst(GetParam())) return;
    takesCodes(2);
    desk.type("x");
    const Lines before = wholeOf(grid);
    log.clear();
    EXPECT_FALSE(run(GetParam())) << named();
    EXPECT_TRUE(open()) << named();
    EXPECT_TRUE(desk.editor().refused) << named();
    EXPECT_EQ(desk.editor().text, "x") << named();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor) << named();
    EXPECT_EQ(desk.messages().size(), 1U) << named();
    EXPECT_EQ(differences(wholeOf(grid), before), Lines()) << named();
    EXPECT_FALSE(run(GetParam())) << named();
    EXPECT_TRUE(open()) << named();
    EXPECT_EQ(differences(wholeOf(grid), before), Lines()) << named();
    EXPECT_TRUE(reports.empty()) << named();
}

TEST_P(CommandOverAnOpenEditor, IsTheTextBoxesWhereItHasOne) {
    if (!ofTheTextBox(GetParam())) return;
    desk.type("abc").select(0, 3);
    desk.clipboard("new");
    const Lines before = wholeOf(grid);
    const CellRange selected = grid.Grid().Selected();
    run(GetParam());
    EXPECT_TRUE(open()) << named();
    EXPECT_EQ(differences(wholeOf(grid), before), Lines()) << named();
    EXPECT_EQ(grid.Grid().Selected(), selected) << named();
    EXPECT_TRUE(reports.empty()) << named();
    EXPECT_EQ(desk.editor().text, GetParam() == Cut ? "" : GetParam() == Paste ? "new" : "abc") << named();
    EXPECT_EQ(desk.clipboard(), has({Cut, Copy}, GetParam()) ? "abc" : "new") << named();
}
INSTANTIATE_TEST_SUITE_P(All, CommandOverAnOpenEditor, ::testing::ValuesIn(everyCommand()));
}  // namespace on_desk
}  // namespace
}  // namespace kxVsGrid::testing
