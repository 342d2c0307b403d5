// Keys in the open editor: which of them commit, where the current cell goes, and which stay with the text
// box.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class EditorKeys : public ClerkTest {
  protected:
    void typeAt(std::int32_t row, std::int32_t col, std::string_view content) {
        openAt(row, col);
        desk.type(content);
        log.clear();
    }
    /// The key committed the text and moved.
    void expectCommitted(Cell from, Cell to) {
        Lines expected = changed(from.row, from.col) + edited(from.row, from.col);
        if (!(from == to)) expected = expected + moves(from.row, from.col, to.row, to.col);
        EXPECT_EQ(heard(), expected) << desk.ascii();
        EXPECT_EQ(current(), to);
        EXPECT_EQ(text(from.row, from.col), "abc");
        EXPECT_FALSE(open());
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    }
    void expectLeftToTheTextBox(std::size_t caret) {
        EXPECT_EQ(heard(), Lines{});
        EXPECT_TRUE(open());
        EXPECT_EQ(desk.editor().selStart, caret);
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    }
};

TEST_F(EditorKeys, EscapeHidesTheEditorWithoutACommit) {
    fill(2, 2, "old", "tag");
    typeAt(2, 2, "abc");
    desk.press(Key::Escape);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
    EXPECT_EQ(text(2, 2), "old");
    EXPECT_EQ(tag(2, 2), "tag");
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_EQ(current(), (Cell{2, 2}));
}

TEST_F(EditorKeys, AfterEscapeTheEditorOpensWithTheTextOfTheCell) {
    fill(2, 2, "old", "tag");
    typeAt(2, 2, "abc");
    grid.TextTag("changed");
    desk.press(Key::Escape);
    desk.press(Key::Space);
    EXPECT_EQ(desk.editor().text, "old");
    EXPECT_EQ(desk.editor().tag, "tag");
}

TEST_F(EditorKeys, UpCommitsAndGoesUp) {
    typeAt(3, 2, "abc");
    desk.press(Key::Up);
    expectCommitted({3, 2}, {2, 2});
}

TEST_F(EditorKeys, UpInTheFirstDataRowCommitsAndStays) {
    typeAt(1, 2, "abc");
    desk.press(Key::Up);
    expectCommitted({1, 2}, {1, 2});
}

TEST_F(EditorKeys, DownCommitsAndGoesDown) {
    typeAt(3, 2, "abc");
    desk.press(Key::Down);
    expectCommitted({3, 2}, {4, 2});
}

TEST_F(EditorKeys, DownInTheLastRowCommitsAndStays) {
    typeAt(5, 2, "abc");
    desk.press(Key::Down);
    EXPECT_EQ(heard(), changed(5, 2) + edited(5, 2) + asksForRow(5, false));
    EXPECT_EQ(current(), (Cell{5, 2}));
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(EditorKeys, DownInTheLastRowGoesToTheRowThatTheCommitAppended) {
    typeAt(5, 2, "abc");
    consentToRows();
    desk.press(Key::Down);
    EXPECT_EQ(heard(), changed(5, 2) + edited(5, 2) + asksForRow(5, false) + moves(5, 2, 6, 2));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(EditorKeys, DownWithAnEmptyTextInTheLastRowAddsNoRow) {
    consentToRows();
    openAt(5, 2);
    desk.press(Key::Down);
    EXPECT_EQ(heard(), edited(5, 2));
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(current(), (Cell{5, 2}));
}

TEST_F(EditorKeys, LeftAtTheStartCommitsAndGoesLeft) {
    typeAt(2, 3, "abc");
    desk.select(0);
    desk.press(Key::Left);
    expectCommitted({2, 3}, {2, 2});
}

TEST_F(EditorKeys, LeftWithTheWholeTextSelectedCommitsAndGoesLeft) {
    fill(2, 3, "abc");
    openAt(2, 3);
    desk.press(Key::Left);
    EXPECT_EQ(heard(), edited(2, 3) + moves(2, 3, 2, 2));
}

TEST_F(EditorKeys, LeftInsideTheTextMovesTheCaret) {
    typeAt(2, 3, "abc");
    desk.press(Key::Left);
    expectLeftToTheTextBox(2);
    desk.press(Key::Left);
    desk.press(Key::Left);
    expectLeftToTheTextBox(0);
    desk.press(Key::Left);
    expectCommitted({2, 3}, {2, 2});
}

TEST_F(EditorKeys, LeftInTheFirstDataColumnBelongsToTheTextBox) {
    typeAt(2, 1, "abc");
    desk.select(0);
    desk.press(Key::Left);
    expectLeftToTheTextBox(0);
}

TEST_F(EditorKeys, LeftSkipsColumnsThatAreNotEditable) {
    readOnly(3);
    grid.ColHidden(4, true);
    log.clear();
    typeAt(2, 5, "abc");
    desk.select(0);
    desk.press(Key::Left);
    expectCommitted({2, 5}, {2, 2});
}

TEST_F(EditorKeys, LeftBesideAReadOnlyFirstDataColumnBelongsToTheTextBox) {
    readOnly(1);
    typeAt(2, 2, "abc");
    desk.select(0);
    desk.press(Key::Left);
    expectLeftToTheTextBox(0);
}

TEST_F(EditorKeys, LeftBesideAHiddenFirstDataColumnBelongsToTheTextBox) {
    grid.ColHidden(1, true);
    typeAt(2, 2, "abc");
    desk.select(0);
    desk.press(Key::Left);
    expectLeftToTheTextBox(0);
}

TEST_F(EditorKeys, LeftWithoutAnEditableColumnToTheLeftCommitsAndStays) {
    readOnly(1);
    readOnly(2);
    typeAt(2, 3, "abc");
    desk.select(0);
    desk.press(Key::Left);
    expectCommitted({2, 3}, {2, 3});
}

TEST_F(EditorKeys, RightAtTheEndCommitsAndGoesRight) {
    typeAt(2, 3, "abc");
    desk.press(Key::Right);
    expectCommitted({2, 3}, {2, 4});
}

TEST_F(EditorKeys, RightWithTheWholeTextSelectedCommitsAndGoesRight) {
    typeAt(2, 3, "abc");
    desk.select(0, 3);
    desk.press(Key::Right);
    expectCommitted({2, 3}, {2, 4});
}

TEST_F(EditorKeys, RightInsideTheTextMovesTheCaret) {
    typeAt(2, 3, "abc");
    desk.select(1);
    desk.press(Key::Right);
    expectLeftToTheTextBox(2);
}

TEST_F(EditorKeys, RightWithAPartSelectedBelongsToTheTextBox) {
    typeAt(2, 3, "abc");
    desk.select(0, 2);
    desk.press(Key::Right);
    EXPECT_TRUE(open());
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(EditorKeys, ArrowsInAnEmptyTextLeaveTheCell) {
    openAt(2, 3);
    desk.press(Key::Right);
    EXPECT_EQ(current(), (Cell{2, 4}));
    openAt(2, 3);
    desk.press(Key::Left);
    EXPECT_EQ(current(), (Cell{2, 2}));
}

TEST_F(EditorKeys, RightCountsCharactersAndNotBytes) {
    typeAt(2, 3, "品名");
    EXPECT_EQ(desk.editor().selStart, 2u);
    desk.press(Key::Right);
    EXPECT_EQ(current(), (Cell{2, 4}));
}

TEST_F(EditorKeys, RightInTheLastColumnGoesToTheNextRow) {
    readOnly(1);
    typeAt(2, 5, "abc");
    desk.press(Key::Right);
    expectCommitted({2, 5}, {3, 2});
}

TEST_F(EditorKeys, RightSkipsColumnsThatAreNotEditable) {
    readOnly(3);
    grid.ColWidth(4, 15);
    log.clear();
    typeAt(2, 2, "abc");
    desk.press(Key::Right);
    expectCommitted({2, 2}, {2, 5});
}

TEST_F(EditorKeys, ShiftIsNotLookedAt) {
    typeAt(3, 2, "abc");
    desk.press(Key::Down, ShiftKey);
    expectCommitted({3, 2}, {4, 2});
    typeAt(1, 1, "abc");
    desk.press(Key::Enter, ShiftKey);
    expectCommitted({1, 1}, {1, 2});
}

TEST_F(EditorKeys, CtrlLettersBelongToTheTextBox) {
    typeAt(2, 2, "abc");
    desk.press(static_cast<std::int16_t>('B'), CtrlKey);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
}

TEST_F(EditorKeys, HomeEndAndPagesBelongToTheTextBox) {
    rows(60);
    typeAt(2, 3, "abc");
    desk.press(Key::Home);
    expectLeftToTheTextBox(0);
    desk.press(Key::End);
    expectLeftToTheTextBox(3);
    desk.press(Key::PageDown);
    expectLeftToTheTextBox(3);
    EXPECT_EQ(current(), (Cell{2, 3}));
}

TEST_F(EditorKeys, EnterCommitsAndGoesToTheNextEditableCell) {
    typeAt(2, 2, "abc");
    desk.press(Key::Enter);
    expectCommitted({2, 2}, {2, 3});
}

TEST_F(EditorKeys, EnterRemovesLineBreaksFromTheText) {
    openAt(2, 2);
    grid.Text("a\r\nb\nc\r");
    desk.press(Key::Enter);
    expectCommitted({2, 2}, {2, 3});
}

TEST_F(EditorKeys, OtherKeysKeepLineBreaksInTheText) {
    openAt(2, 2);
    grid.Text("a\r\nb");
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 2), "a\r\nb");
}

TEST_F(EditorKeys, EnterGoesOnAfterTheHostWroteTheNextCell) {
    typeAt(2, 2, "abc");
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { grid.SetCell(2, 3, "price"); });
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2) + changed(2, 3) + moves(2, 2, 2, 3));
    EXPECT_EQ(text(2, 3), "price");
    EXPECT_EQ(grid.Text(), "price");
}

TEST_F(EditorKeys, AMoveThatTheHostCancelsLeavesTheCommitDone) {
    typeAt(2, 2, "abc");
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2) + asks(2, 2, 2, 3));
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

class MultiLineColumn : public EditorKeys {
  protected:
    MultiLineColumn() { column(2).b是否编辑多行(true); }
};

TEST_F(MultiLineColumn, LeavesEnterToTheTextBox) {
    typeAt(2, 2, "ab");
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    desk.type("c");
    EXPECT_EQ(desk.editor().text, "ab\nc");
}

TEST_F(MultiLineColumn, LeavesUpAndDownToTheTextBox) {
    typeAt(2, 2, "abc");
    desk.press(Key::Up);
    desk.press(Key::Down);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    EXPECT_EQ(current(), (Cell{2, 2}));
}

TEST_F(MultiLineColumn, CommitsItsLinesOnRightAtTheEnd) {
    typeAt(2, 2, "a");
    desk.press(Key::Enter).type("b");
    desk.press(Key::Right);
    EXPECT_EQ(text(2, 2), "a\nb");
    EXPECT_EQ(current(), (Cell{2, 3}));
}

TEST_F(MultiLineColumn, CommitsOnLeftAtTheStart) {
    typeAt(2, 2, "abc");
    desk.select(0);
    desk.press(Key::Left);
    expectCommitted({2, 2}, {2, 1});
}

TEST_F(MultiLineColumn, TrimsBlanksButNotLineBreaks) {
    openAt(2, 2);
    grid.Text(" a\nb\n ");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(text(2, 2), "a\nb\n");
}

TEST_F(MultiLineColumn, HidesOnEscape) {
    typeAt(2, 2, "abc");
    desk.press(Key::Escape);
    EXPECT_FALSE(open());
    EXPECT_EQ(text(2, 2), "");
}

TEST_F(MultiLineColumn, TakesEnterOnTheClosedGridAsAMove) {
    at(2, 2);
    desk.press(Key::Enter);
    EXPECT_EQ(current(), (Cell{2, 3}));
    EXPECT_FALSE(open());
}

}  // namespace
}  // namespace kxVsGrid::testing
