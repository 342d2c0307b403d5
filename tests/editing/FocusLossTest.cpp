// The keyboard goes to another control of the window while the editor is open: the text is committed.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class FocusLoss : public ClerkTest {};

TEST_F(FocusLoss, CommitsOnceAndHidesTheEditor) {
    desk.type("abc");
    heard();
    desk.focusElsewhere();
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_EQ(text(1, 1), "abc");
    EXPECT_FALSE(open());
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
    EXPECT_FALSE(grid.IsActive());
    desk.focusElsewhere();
    desk.focusGrid();
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(FocusLoss, OfTheClosedGridCommitsNothing) {
    desk.focusElsewhere();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(FocusLoss, AsksForARowOnTheLastRow) {
    at(5, 1);
    desk.type("abc");
    heard();
    consentToRows();
    desk.focusElsewhere();
    EXPECT_EQ(heard(), changed(5, 1) + edited(5, 1) + asksForRow(5, false));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(FocusLoss, KeepsARefusedTextOpenAndTheFocusWhereTheClerkPutIt) {
    typed(1, flexDTDouble);
    desk.type("abc");
    heard();
    desk.focusElsewhere();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(FocusLoss, IsNotSeenByTheHostAsAChangeWhileTheGridItselfTakesTheKeyboard) {
    EXPECT_TRUE(grid.IsActive());
    desk.type("abc");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_TRUE(grid.IsActive());
    desk.press(Key::Enter);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_TRUE(grid.IsActive());
}

TEST_F(FocusLoss, ToTheSurfaceOfTheControlCommitsToo) {
    desk.type("abc");
    heard();
    desk.focusSurface();
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_FALSE(open());
}

TEST_F(FocusLoss, ToTheGridCommitsToo) {
    desk.type("abc");
    heard();
    desk.focusGrid();
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(FocusLoss, AfterEscapeCommitsNothing) {
    desk.type("abc");
    desk.press(Key::Escape);
    heard();
    desk.focusElsewhere();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(FocusLoss, OfOneControlLeavesTheOthersEditorAlone) {
    kxGrid& second = desk.place();
    desk.use(grid);
    desk.focusGrid();
    desk.type("abc");
    EXPECT_TRUE(open());
    desk.use(second);
    EXPECT_FALSE(open());
    desk.focusGrid();
    desk.type("x");
    EXPECT_EQ(desk.editor().text, "x");
    EXPECT_EQ(second.Grid().Text(1, 1), "");
}

TEST_F(FocusLoss, IsNoneWhenTheClerkPressesIntoTheEditor) {
    desk.type("abc");
    heard();
    desk.clickEditor();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(FocusLoss, EndsWhenTheClerkComesBackToTheRefusedText) {
    typed(1, flexDTDouble);
    desk.type("abc");
    desk.focusElsewhere();
    heard();
    desk.clickEditor();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_TRUE(grid.IsActive());
    EXPECT_EQ(desk.editor().text, "abc");
}

}  // namespace
}  // namespace kxVsGrid::testing
