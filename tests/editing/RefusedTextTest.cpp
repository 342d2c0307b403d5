// A text that the check of its column has refused is not checked again until the clerk changes it, unless
// something other than Enter or a loss of the focus asks for it.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class RefusedText : public ClerkTest {
  protected:
    /// Column 2 takes the codes that begin with A.
    RefusedText() {
        column(2).i有效性判断(1);
        column(2).i字段有效性判断类型(ij编码型);
        column(2).s错误提示信息("没有此编码");
        knowCodes();
    }
    void refuse() {
        openAt(2, 2);
        desk.type("X1").press(Key::Enter);
        ASSERT_TRUE(open());
        ASSERT_EQ(desk.messages().size(), 1u);
        ASSERT_EQ(checks(heard()), 1u);
        desk.clear();
    }
    static std::size_t checks(const Lines& lines) { return named(lines, "TxtValidBmS").size(); }
    void expectNotCheckedAgain() {
        EXPECT_EQ(heard(), Lines{});
        EXPECT_TRUE(desk.messages().empty());
        EXPECT_TRUE(open());
        EXPECT_EQ(desk.editor().text, "X1");
        EXPECT_EQ(text(2, 2), "");
        EXPECT_FALSE(grid.bIsDirty());
    }
    void expectCheckedAgain() {
        EXPECT_EQ(checks(heard()), 1u);
        EXPECT_EQ(desk.messages().size(), 1u);
        EXPECT_TRUE(open());
        EXPECT_EQ(text(2, 2), "");
    }
};

TEST_F(RefusedText, StaysInTheEditorWhollySelectedWithItsMessage) {
    openAt(2, 2);
    desk.type("X1").press(Key::Enter);
    ASSERT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(desk.messages()[0], (MessageBox{"没有此编码", 16, "错误："}));
    EXPECT_TRUE(open());
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(desk.editor().selStart, 0u);
    EXPECT_EQ(desk.editor().selLength, 2u);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_EQ(current(), (Cell{2, 2}));
    const Lines lines = heard();
    EXPECT_EQ(checks(lines), 1u);
    EXPECT_EQ(named(lines, "AfterEdit"), Lines{});
    EXPECT_EQ(named(lines, "CellChanged"), Lines{});
}

TEST_F(RefusedText, IsNotCheckedAgainByEnter) {
    refuse();
    desk.press(Key::Enter);
    desk.press(Key::Enter);
    expectNotCheckedAgain();
}

TEST_F(RefusedText, IsNotCheckedAgainByALossOfTheFocus) {
    refuse();
    desk.focusElsewhere();
    expectNotCheckedAgain();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
}

TEST_F(RefusedText, IsNotCheckedAgainByAPressInTheGridWhichIsNotDelivered) {
    refuse();
    desk.click(4, 4);
    expectNotCheckedAgain();
    EXPECT_EQ(current(), (Cell{2, 2}));
}

TEST_F(RefusedText, IsNotCommittedByAHostThatReadsOrWritesCells) {
    refuse();
    grid.SetCell(4, 4, "x");
    EXPECT_EQ(grid.ReadCell(4, 4, true), "x");
    EXPECT_EQ(heard(), changed(4, 4));
    expectNotCheckedAgain();
}

TEST_F(RefusedText, IsCheckedAgainByAnArrowKey) {
    refuse();
    desk.press(Key::Down);
    expectCheckedAgain();
    EXPECT_EQ(current(), (Cell{2, 2}));
}

TEST_F(RefusedText, IsCheckedAgainByValidTextData) {
    refuse();
    EXPECT_FALSE(grid.ValidTextData());
    expectCheckedAgain();
}

TEST_F(RefusedText, IsCheckedAgainWhenTheHostMovesTheCellAwayAndTheEditorGoes) {
    refuse();
    grid.Row(4);
    EXPECT_EQ(checks(heard()), 1u);
    EXPECT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(current(), (Cell{4, 2}));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(2, 2), "");
}

TEST_F(RefusedText, IsCheckedAgainByEnterOnceItHasChanged) {
    refuse();
    desk.type("A1");
    EXPECT_FALSE(desk.editor().refused);
    desk.press(Key::Enter);
    EXPECT_EQ(checks(heard()), 1u);
    EXPECT_EQ(text(2, 2), "A1");
    EXPECT_EQ(tag(2, 2), "货 A1");
    EXPECT_EQ(current(), (Cell{2, 3}));
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(RefusedText, IsCheckedAgainByALossOfTheFocusOnceItHasChanged) {
    refuse();
    desk.type("A1");
    desk.focusElsewhere();
    EXPECT_EQ(text(2, 2), "A1");
    EXPECT_FALSE(open());
}

TEST_F(RefusedText, IsCheckedAgainAfterAChangeByTheHost) {
    refuse();
    grid.Text("A2");
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, 2), "A2");
}

TEST_F(RefusedText, IsDroppedByEscape) {
    refuse();
    desk.press(Key::Escape);
    EXPECT_FALSE(open());
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(2, 2), "");
    desk.type("A1").press(Key::Enter);
    EXPECT_EQ(text(2, 2), "A1");
}

TEST_F(RefusedText, IsTakenBackByTheCheckWhenTheFocusWasLost) {
    openAt(2, 2);
    desk.type("X1");
    desk.focusElsewhere();
    EXPECT_EQ(desk.messages().size(), 1u);
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

class EntryText : public RefusedText {
  protected:
    /// Types the text that the cell holds already, and gives how often it was checked.
    std::size_t checksOfTheSameText(std::string_view typed) {
        desk.type(typed);
        heard();
        desk.press(Key::Enter);
        EXPECT_FALSE(open());
        return checks(heard());
    }
};

TEST_F(EntryText, IsNotChecked) {
    fill(2, 2, "X1");
    at(2, 2);
    EXPECT_EQ(checksOfTheSameText("X1"), 0u);
    at(2, 2);
    EXPECT_EQ(checksOfTheSameText(" X1 "), 0u);
    EXPECT_EQ(text(2, 2), "X1");
}

TEST_F(EntryText, OfACellThatWasNeverEnteredIsNotChecked) {
    headless::Desk other;
    kxGrid& fresh = other.place();
    fresh.VsCtrl(1)->i有效性判断(1);
    fresh.VsCtrl(1)->i字段有效性判断类型(ij编码型);
    fresh.SetCell(1, 1, "X1");
    other.focusGrid();
    other.type("X1").press(Key::Enter);
    EXPECT_TRUE(other.messages().empty());
    EXPECT_FALSE(other.editor().visible);
}

TEST_F(EntryText, FollowsItsCellWhenRowsAreInsertedAndRemoved) {
    fill(3, 2, "X1");
    at(3, 2);
    grid.Grid().InsertRow(1);
    EXPECT_EQ(checksOfTheSameText("X1"), 0u);
    at(4, 2);
    grid.Grid().RemoveRow(1);
    EXPECT_EQ(checksOfTheSameText("X1"), 0u);
}

TEST_F(EntryText, IsThatOfTheCellWhichMovedUpAfterADelete) {
    rows(10);
    grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    fill(3, 2, "X3");
    at(2, 2);
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Text(), "X3");
    EXPECT_EQ(checksOfTheSameText("X3"), 0u);
}

TEST_F(EntryText, IsEmptyInANewRow) {
    consentToRows();
    fill(2, 2, "X1");
    at(2, 2);
    desk.press(Key::Insert);
    desk.type("X1").press(Key::Enter);
    EXPECT_EQ(desk.messages().size(), 1u);
    EXPECT_TRUE(open());
}

}  // namespace
}  // namespace kxVsGrid::testing
