// Enter on the grid, with no editor open: it goes to the next editable cell and never adds a row.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class EnterOnTheGrid : public ClerkTest {};

TEST_F(EnterOnTheGrid, GoesOneColumnRight) {
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(1, 1, 1, 2));
    EXPECT_FALSE(open());
}

TEST_F(EnterOnTheGrid, GoesFromTheLastColumnToTheFirstOfTheNextRow) {
    at(2, 5);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(2, 5, 3, 1));
}

TEST_F(EnterOnTheGrid, SkipsReadOnlyHiddenAndVeryNarrowColumns) {
    readOnly(2);
    grid.ColHidden(3, true);
    grid.ColWidth(4, 15);
    log.clear();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(1, 1, 1, 5));
}

TEST_F(EnterOnTheGrid, StopsAtAColumnOfSixteenTwips) {
    grid.ColWidth(2, 16);
    log.clear();
    desk.press(Key::Enter);
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(EnterOnTheGrid, SkipsReadOnlyColumnsAtTheStartOfTheNextRow) {
    readOnly(1);
    readOnly(2);
    at(1, 5);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(1, 5, 2, 3));
}

TEST_F(EnterOnTheGrid, RunsOverTheRowEndWhenTheRestOfTheRowIsReadOnly) {
    readOnly(4);
    readOnly(5);
    at(1, 3);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(1, 3, 2, 1));
}

TEST_F(EnterOnTheGrid, StaysInTheLastRowWhenItComesFromTheLastColumn) {
    at(5, 5);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(5, 5, 5, 1));
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(EnterOnTheGrid, FindsTheFirstEditableCellOfTheLastRowFromItsLastColumn) {
    readOnly(1);
    grid.ColHidden(2, true);
    at(5, 5);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(5, 5, 5, 3));
}

TEST_F(EnterOnTheGrid, StaysWhenOnlyReadOnlyOrHiddenColumnsFollowInTheLastRow) {
    readOnly(4);
    grid.ColHidden(5, true);
    at(5, 3);
    consentToRows();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(current(), (Cell{5, 3}));
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(EnterOnTheGrid, NeverAsksForARow) {
    consentToRows();
    for (int i = 0; i < 40; ++i) desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "AddVsRow"), Lines{});
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(EnterOnTheGrid, StaysInTheOnlyEditableColumnByGoingDown) {
    for (int c : {1, 2, 4, 5}) readOnly(c);
    at(1, 3);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(1, 3, 2, 3));
}

TEST_F(EnterOnTheGrid, DoesNothingInAReadOnlyColumn) {
    readOnly(2);
    at(1, 2);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(current(), (Cell{1, 2}));
}

class EnterPassesReadOnly : public EnterOnTheGrid {
  protected:
    EnterPassesReadOnly() {
        EXPECT_FALSE(grid.Options().EnterPassesReadOnly());
        grid.Options().EnterPassesReadOnly(true);
        readOnly(2);
    }
};

TEST_F(EnterPassesReadOnly, ByGoingToTheNextEditableCell) {
    grid.ColHidden(3, true);
    at(1, 2);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(1, 2, 1, 4));
    EXPECT_FALSE(open());
}

TEST_F(EnterPassesReadOnly, AlsoFromTheLastColumnAndOverHiddenRows) {
    readOnly(5);
    grid.Grid().RowHidden(3, true);
    at(2, 5);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(2, 5, 4, 1));
}

TEST_F(EnterPassesReadOnly, AndReturnsToTheStartOfTheLastRowFromItsLastColumn) {
    readOnly(5);
    consentToRows();
    at(5, 5);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(5, 5, 5, 1));
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(EnterPassesReadOnly, AndStaysWhereNoEditableCellFollows) {
    for (int c : {4, 5}) readOnly(c);
    at(5, 4);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    for (int c : {1, 3}) readOnly(c);
    at(1, 2);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(EnterPassesReadOnly, ButOpensNothingThereByOtherKeys) {
    at(1, 2);
    desk.type("x ").press(Key::Back).press(Key::Escape);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(EnterPassesReadOnly, ButNotInAGridThatIsNotEditable) {
    grid.Editable(false);
    at(1, 2);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(EnterPassesReadOnly, UnlessTheHostKeepsTheCell) {
    at(1, 2);
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), asks(1, 2, 1, 3));
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(EnterOnTheGrid, DoesNothingWhenTheGridIsNotEditable) {
    grid.Editable(false);
    log.clear();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(current(), (Cell{1, 1}));
}

TEST_F(EnterOnTheGrid, IsStoppedByAHostThatCancelsTheMove) {
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), asks(1, 1, 1, 2));
    EXPECT_EQ(current(), (Cell{1, 1}));
}

TEST_F(EnterOnTheGrid, IgnoresTheRuleOfTheColumn) {
    column(1).sCellInput("r");
    desk.press(Key::Enter);
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(EnterOnTheGrid, DoesNotToggleABooleanCell) {
    typed(1, flexDTBoolean);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), moves(1, 1, 1, 2));
    EXPECT_EQ(text(1, 1), "");
}

}  // namespace
}  // namespace kxVsGrid::testing
