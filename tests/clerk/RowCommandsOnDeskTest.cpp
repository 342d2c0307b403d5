// Commands on rows, on the selection, and those that lead somewhere.
#include <string>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

class ClerkAmongRows : public BlockTest {
  protected:
    ClerkAmongRows() {
        rows(9);
        for (int row = 1; row <= 6; ++row) content(row);
        at(2, 2);
    }
    void consentToDeletes() {
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    }
    /// Rows from the first one on hold what content() gave to these.
    void expectRows(const std::vector<int>& originals) {
        for (std::size_t i = 0; i < originals.size(); ++i)
            expectContent(static_cast<std::int32_t>(i) + 1, originals[i]);
    }
};

TEST_F(ClerkAmongRows, DeletesTheCurrentRowWhereNoneIsSelectedWhole) {
    consentToDeletes();
    choose(2, 2, 4, 3);
    EXPECT_TRUE(run(Command::DeleteRows));
    expectRows({1, 3, 4, 5, 6});
    undo();
    expectRows({1, 2, 3, 4, 5, 6});
}

TEST_F(ClerkAmongRows, DeletesTheRowsThatAreSelectedWholeFromTheLastUp) {
    consentToDeletes();
    int steps = 0;
    grid.Changes().After.connect([&](const StepChanges&) { ++steps; });
    grid.Grid().SelectRows(2, 4);
    log.clear();
    EXPECT_TRUE(run(Command::DeleteRows));
    EXPECT_EQ(
        named(heard(), "DeleteVsRow"),
        (Lines{line("DeleteVsRow", 4, false), line("DeleteVsRow", 3, false), line("DeleteVsRow", 2, false)}));
    expectRows({1, 5, 6});
    EXPECT_EQ(steps, 1);
    undo();
    expectRows({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(grid.Rows(), 9);
}

TEST_F(ClerkAmongRows, DeletesOnlyRowsThatTheHostGivesUp) {
    grid.DeleteVsRow.connect([](std::int32_t row, bool& consent) { consent = row != 3; });
    grid.Grid().SelectRows(4, 2);
    run(Command::DeleteRows);
    expectRows({1, 3, 5, 6});
}

TEST_F(ClerkAmongRows, DeletesNothingWithoutConsent) {
    const Lines before = wholeOf(grid);
    grid.Grid().SelectRows(2, 4);
    run(Command::DeleteRows);
    EXPECT_EQ(wholeOf(grid), before);
}

TEST_F(ClerkAmongRows, DeletesEverythingAndHasFiveEmptyRowsThen) {
    consentToDeletes();
    run(Command::SelectAll);
    EXPECT_TRUE(run(Command::DeleteRows));
    EXPECT_EQ(grid.Rows(), 6);
    for (int row = 1; row < 6; ++row) expectEmpty(row);
    undo();
    expectRows({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(grid.Rows(), 9);
}

TEST_F(ClerkAmongRows, DeletesTheRowThatItHasSelected) {
    consentToDeletes();
    EXPECT_TRUE(run(Command::SelectRow));
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::Rows);
    EXPECT_EQ(grid.Grid().Selected(), (CellRange{2, 1, 2, 5}));
    run(Command::DeleteRows);
    expectRows({1, 3, 4});
}

TEST_F(ClerkAmongRows, SelectsWithoutMovingOrTellingOfMoves) {
    run(Command::SelectColumn);
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::Columns);
    EXPECT_EQ(grid.Grid().Selected(), (CellRange{1, 2, 8, 2}));
    run(Command::SelectAll);
    EXPECT_EQ(grid.Grid().Selected(), (CellRange{1, 1, 8, 5}));
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_EQ(heard(), (Lines{line("SelChange"), line("SelChange")}));
}

TEST_F(ClerkAmongRows, MovesItsRowPastTheShownNeighbour) {
    EXPECT_TRUE(run(Command::MoveRowDown));
    expectRows({1, 3, 2, 4});
    EXPECT_EQ(current(), (Cell{3, 2}));
    EXPECT_TRUE(run(Command::MoveRowUp));
    expectRows({1, 2, 3, 4});
    EXPECT_EQ(current(), (Cell{2, 2}));
    undo();
    expectRows({1, 3, 2, 4});
    undo();
    expectRows({1, 2, 3, 4});
}

TEST_F(ClerkAmongRows, MovesTheRowsThatAreSelectedWhole) {
    grid.Grid().SelectRows(2, 3);
    EXPECT_TRUE(run(Command::MoveRowDown));
    expectRows({1, 4, 2, 3, 5});
    grid.Grid().SelectRows(3, 4);
    EXPECT_TRUE(run(Command::MoveRowUp));
    expectRows({1, 2, 3, 4, 5});
}

TEST_F(ClerkAmongRows, MovesTheSameRowsAgainByTheSameKey) {
    at(2, 2);
    grid.Grid().SelectRows(2, 3);
    desk.press(Key::Down, AltKey);
    EXPECT_EQ(grid.Grid().Selected(), (CellRange{3, 1, 4, 5}));
    EXPECT_EQ(grid.Grid().SelectedAs(), SelectionKind::Rows);
    desk.press(Key::Down, AltKey);
    expectRows({1, 4, 5, 2, 3, 6});
}

TEST_F(ClerkAmongRows, MovesItsRowPastHiddenOnesToo) {
    grid.Grid().RowHidden(3, true);
    EXPECT_TRUE(run(Command::MoveRowDown));
    std::string shown;
    for (int row = 1; row <= 6; ++row)
        if (!grid.Grid().RowHidden(row)) shown += text(row, 1) + ' ';
    EXPECT_EQ(shown, "t11 t41 t21 t51 t61 ");
    EXPECT_EQ(text(current().row, 1), "t21");
}

TEST_F(ClerkAmongRows, TakesIdsLooksAndMarksAlongWithAMovedRow) {
    const RowId id = grid.Grid().IdOf(2);
    grid.Grid().RowHeight(2, 700);
    grid.Grid().CellBackColor(2, 3, Yellow);
    grid.Mark(2, 3, CellMark{CellMark::Kind::Note, "n"});
    run(Command::MoveRowDown);
    EXPECT_EQ(grid.Grid().RowOf(id), 3);
    EXPECT_EQ(grid.Grid().RowHeight(3), 700);
    EXPECT_EQ(grid.Grid().CellBackColor(3, 3), Yellow);
    EXPECT_NE(grid.Mark(3, 3), nullptr);
    EXPECT_EQ(grid.Mark(2, 3), nullptr);
}

TEST_F(ClerkAmongRows, DoesNotMakeAMovedRowAChangedOne) {
    grid.Changes().Saved();
    run(Command::MoveRowDown);
    EXPECT_TRUE(grid.Changes().empty());
}

TEST_F(ClerkAmongRows, GoesToTheRowWithANumber) {
    desk.answerInputBox("5");
    EXPECT_TRUE(run(Command::GoToRow));
    EXPECT_EQ(current(), (Cell{5, 2}));
    EXPECT_TRUE(desk.messages().empty());
    grid.FixedRows(2);
    desk.answerInputBox("1");
    EXPECT_TRUE(run(Command::GoToRow));
    EXPECT_EQ(current(), (Cell{2, 2}));
}

TEST_F(ClerkAmongRows, IsToldOfNonsenseAndMovesNowhere) {
    for (const char* nonsense : {"abc", "", "0", "-3", "1e400", "99999999999999999999", "3x", "2147483648"}) {
        desk.clear();
        desk.answerInputBox(nonsense);
        run(Command::GoToRow);
        EXPECT_EQ(current(), (Cell{2, 2})) << nonsense;
        ASSERT_EQ(desk.messages().size(), 1U) << nonsense;
        EXPECT_EQ(desk.messages()[0].style, MessageBox::Information);
        EXPECT_EQ(desk.messages()[0].title, "提示：");
        EXPECT_NE(desk.messages()[0].text, "");
    }
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(ClerkAmongRows, GoesNowhereWhenItLeavesTheBox) {
    desk.cancelInputBox();
    run(Command::GoToRow);
    EXPECT_EQ(desk.inputBoxes().size(), 1U);
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_EQ(heard(), Lines());
}

TEST_F(ClerkAmongRows, GoesFromProblemToProblemAndHearsWhatIsWrong) {
    grid.Mark(4, 4, CellMark{CellMark::Kind::Problem, "first"});
    grid.Mark(5, 1, CellMark{CellMark::Kind::Warning, "only a warning"});
    grid.Mark(6, 1, CellMark{CellMark::Kind::Problem, "second"});
    grid.Mark(7, 1, CellMark{CellMark::Kind::Problem, "hidden"});
    grid.Grid().RowHidden(7, true);
    EXPECT_TRUE(run(Command::NextProblem));
    EXPECT_EQ(current(), (Cell{4, 4}));
    ASSERT_FALSE(desk.tips().empty());
    EXPECT_EQ(desk.tips().back(), "first");
    EXPECT_TRUE(run(Command::NextProblem));
    EXPECT_EQ(current(), (Cell{6, 1}));
    EXPECT_EQ(desk.tips().back(), "second");
    EXPECT_TRUE(run(Command::NextProblem));
    EXPECT_EQ(current(), (Cell{4, 4}));
}

/// A host that takes the columns away, in a grid that has to scroll.
class ClerkWhoLosesColumns : public BlockTest {
  protected:
    ClerkWhoLosesColumns() {
        rows(61);
        at(50, 2);
        grid.Grid().TopRow(1);
    }
};

TEST_F(ClerkWhoLosesColumns, GoesToARowAllTheSame) {
    grid.RowColChange.connect([this] { grid.Cols(0); });
    desk.answerInputBox("30");
    EXPECT_NO_THROW(run(Command::GoToRow));
    EXPECT_EQ(grid.Cols(), 0);
}

TEST_F(ClerkWhoLosesColumns, MovesARowAllTheSame) {
    grid.Changes().After.connect([this](const StepChanges&) { grid.Cols(0); });
    EXPECT_NO_THROW(run(Command::MoveRowUp));
    EXPECT_EQ(grid.Cols(), 0);
}

/// The same act by command and by menu, at two desks.
struct ChoosesOrRuns {
    const char* item;
    Command command;
    friend std::ostream& operator<<(std::ostream& out, const ChoosesOrRuns& act) { return out << act.item; }
};

class MenuItemAndCommand : public ::testing::TestWithParam<ChoosesOrRuns> {
  protected:
    struct Office {
        headless::Desk desk;
        kxGrid& grid = desk.place();
        HostLog log{grid};
        explicit Office(bool keeps) {
            grid.Cols(6);
            grid.VsCtrl(4)->sDefaultText_Name("default");
            grid.VsCtrl(4)->sDefaultText_Code("code");
            grid.AfterAddRow.connect([keeps](bool& keep, auto...) { keep = keeps; });
            grid.ReDraw(true);
            for (int row = 1; row <= 3; ++row)
                for (int col = 1; col < 6; ++col) grid.SetCell(row, col, std::to_string(10 * row + col), "t");
            desk.focusGrid();
            grid.Grid().Select(2, 2);
            log.clear();
        }
        Lines heard() { return without(without(log.lines(), "MouseDown"), "Click"); }
    };
};

TEST_P(MenuItemAndCommand, DoTheSame) {
    for (const bool keeps : {false, true}) {
        Office chosen(keeps);
        Office run(keeps);
        chosen.desk.onPopup([](headless::PoppedMenu& menu) { menu.choose(GetParam().item); });
        chosen.desk.press(Key::Menu);
        EXPECT_TRUE(run.desk.run(GetParam().command));
        EXPECT_EQ(wholeOf(run.grid), wholeOf(chosen.grid));
        EXPECT_EQ(run.heard(), chosen.heard());
        EXPECT_EQ(run.grid.History().UndoName(), chosen.grid.History().UndoName());
    }
}
INSTANTIATE_TEST_SUITE_P(Rows, MenuItemAndCommand,
                         ::testing::Values(ChoosesOrRuns{"新增行", Command::AppendRow},
                                           ChoosesOrRuns{"插入行", Command::InsertRow},
                                           ChoosesOrRuns{"复制行", Command::DuplicateRow}));
}  // namespace
}  // namespace kxVsGrid::testing
