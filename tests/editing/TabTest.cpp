// Tab and Shift+Tab: commit, then the next or previous editable cell; past the ends the keyboard leaves the
// control.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class TabKey : public ClerkTest {
  protected:
    void back() { desk.press(Key::Tab, ShiftKey); }
    void forth() { desk.press(Key::Tab); }
};

TEST_F(TabKey, OnTheClosedGridGoesToTheNextEditableCell) {
    forth();
    EXPECT_EQ(heard(), moves(1, 1, 1, 2));
    EXPECT_EQ(desk.leftControl(), 0);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(TabKey, CommitsTheOpenEditorFirst) {
    desk.type("abc");
    heard();
    forth();
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + moves(1, 1, 1, 2));
    EXPECT_EQ(text(1, 1), "abc");
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    desk.type("def");
    heard();
    back();
    EXPECT_EQ(heard(), changed(1, 2) + edited(1, 2) + moves(1, 2, 1, 1));
    EXPECT_EQ(text(1, 2), "def");
}

TEST_F(TabKey, SkipsColumnsThatAreNotEditable) {
    readOnly(2);
    grid.ColHidden(3, true);
    grid.ColWidth(4, 15);
    log.clear();
    forth();
    EXPECT_EQ(heard(), moves(1, 1, 1, 5));
    back();
    EXPECT_EQ(heard(), moves(1, 5, 1, 1));
}

TEST_F(TabKey, GoesOverTheRowEnds) {
    readOnly(1);
    readOnly(5);
    at(2, 4);
    forth();
    EXPECT_EQ(heard(), moves(2, 4, 3, 2));
    back();
    EXPECT_EQ(heard(), moves(3, 2, 2, 4));
}

TEST_F(TabKey, LeavesTheControlBehindTheLastEditableCell) {
    readOnly(5);
    at(5, 4);
    forth();
    EXPECT_EQ(desk.leftControl(), 1);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
    EXPECT_EQ(current(), (Cell{5, 4}));
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(grid.IsActive());
}

TEST_F(TabKey, LeavesTheControlBehindTheLastColumnOfTheLastRow) {
    at(5, 5);
    forth();
    EXPECT_EQ(desk.leftControl(), 1);
    EXPECT_EQ(current(), (Cell{5, 5}));
}

TEST_F(TabKey, LeavesTheControlBeforeTheFirstEditableCell) {
    readOnly(1);
    at(1, 2);
    back();
    EXPECT_EQ(desk.leftControl(), -1);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(TabKey, CommitsOnceWhenItLeavesTheControl) {
    at(5, 5);
    desk.type("abc");
    heard();
    forth();
    EXPECT_EQ(heard(), changed(5, 5) + edited(5, 5) + asksForRow(5, false));
    EXPECT_EQ(text(5, 5), "abc");
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.leftControl(), 1);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
}

TEST_F(TabKey, GoesToTheRowThatTheCommitAppended) {
    at(5, 5);
    desk.type("abc");
    heard();
    consentToRows();
    forth();
    EXPECT_EQ(heard(), changed(5, 5) + edited(5, 5) + asksForRow(5, false) + moves(5, 5, 6, 1));
    EXPECT_EQ(desk.leftControl(), 0);
}

TEST_F(TabKey, StaysWithARefusedText) {
    typed(1, flexDTDouble);
    desk.type("abc");
    heard();
    forth();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    back();
    EXPECT_EQ(desk.leftControl(), 0);
    EXPECT_TRUE(open());
}

TEST_F(TabKey, GoesOnFromAMultiLineColumn) {
    column(1).b是否编辑多行(true);
    desk.type("abc");
    forth();
    EXPECT_EQ(text(1, 1), "abc");
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(TabKey, IgnoresTheEnterRule) {
    column(1).sCellInput("r");
    desk.type("abc");
    forth();
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(TabKey, IsNoCharacter) {
    typed(1, flexDTBoolean);
    forth();
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(heard(), moves(1, 1, 1, 2));
    EXPECT_FALSE(open());
}

TEST_F(TabKey, ReachesEveryEditableCellOfTheGrid) {
    readOnly(3);
    std::vector<Cell> seen{current()};
    for (int i = 0; i < 100 && desk.leftControl() == 0; ++i) {
        forth();
        if (desk.leftControl() == 0) seen.push_back(current());
    }
    std::vector<Cell> expected;
    for (int r = 1; r < 6; ++r)
        for (int c : {1, 2, 4, 5}) expected.push_back({r, c});
    EXPECT_EQ(seen, expected);
}

}  // namespace
}  // namespace kxVsGrid::testing
