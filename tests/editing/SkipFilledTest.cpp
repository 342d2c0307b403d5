// Columns whose filled cells Enter passes over.
#include <algorithm>
#include <initializer_list>
#include <vector>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class SkipFilled : public ClerkTest {
  protected:
    /// The clerk types into a cell and presses Enter.
    Cell enterFrom(std::int32_t row, std::int32_t col) {
        openAt(row, col);
        desk.type("x").press(Key::Enter);
        EXPECT_FALSE(open());
        return current();
    }
    void skip(std::initializer_list<std::int32_t> cols) {
        for (const std::int32_t col : cols) grid.Options(col).skipFilled(true);
    }
};

TEST_F(SkipFilled, IsFalseAtFirst) {
    EXPECT_FALSE(grid.Options(2).skipFilled());
    fill(2, 3, "filled");
    EXPECT_EQ(enterFrom(2, 2), (Cell{2, 3}));
}

TEST_F(SkipFilled, LeadsEnterPastAFilledCellAndIntoAnEmptyOne) {
    for (const char* rule : {"", "c"}) {
        column(2).sCellInput(rule);
        skip({3, 4});
        fill(2, 3, "filled");
        EXPECT_EQ(enterFrom(2, 2), (Cell{2, 4}));
        fill(2, 4, "0");
        EXPECT_EQ(enterFrom(2, 2), (Cell{2, 5})) << "a 0 that is kept fills its cell";
        fill(2, 4, "", "a tag alone");
        EXPECT_EQ(enterFrom(2, 2), (Cell{2, 4}));
        fill(2, 3, "");
        EXPECT_EQ(enterFrom(2, 2), (Cell{2, 3}));
    }
}

TEST_F(SkipFilled, LeadsEnterPastAFilledCellOfAClosedCellToo) {
    skip({3});
    fill(2, 3, "filled");
    at(2, 2);
    desk.press(Key::Enter);
    EXPECT_EQ(current(), (Cell{2, 4}));
}

TEST_F(SkipFilled, DoesNotConcernTabNorTheArrows) {
    skip({1, 3});
    fill(2, 1, "filled");
    fill(2, 3, "filled");
    at(2, 2);
    desk.press(Key::Tab);
    EXPECT_EQ(current(), (Cell{2, 3}));
    desk.press(Key::Tab, ShiftKey).press(Key::Tab, ShiftKey);
    EXPECT_EQ(current(), (Cell{2, 1}));
    desk.press(Key::Right).press(Key::Right);
    EXPECT_EQ(current(), (Cell{2, 3}));
    openAt(2, 2);
    desk.press(Key::Right);
    EXPECT_EQ(current(), (Cell{2, 3}));
    openAt(2, 2);
    desk.press(Key::Left);
    EXPECT_EQ(current(), (Cell{2, 1}));
}

TEST_F(SkipFilled, SeesWhatTheCommitHasFilled) {
    skip({3});
    grid.AfterEdit.connect([&](std::int32_t row, std::int32_t) { grid.SetCell(row, 3, "brought"); });
    EXPECT_EQ(enterFrom(2, 2), (Cell{2, 4}));
}

TEST_F(SkipFilled, GoesOnInTheRowsBelow) {
    skip({1, 2, 3, 4, 5});
    for (std::int32_t col = 1; col < 6; ++col)
        for (const std::int32_t row : {2, 3}) fill(row, col, "filled");
    fill(4, 1, "filled");
    EXPECT_EQ(enterFrom(2, 5), (Cell{4, 2}));
    EXPECT_EQ(enterFrom(2, 2), (Cell{4, 2}));
    grid.Grid().RowHidden(4, true);
    EXPECT_EQ(enterFrom(2, 2), (Cell{5, 1}));
}

TEST_F(SkipFilled, EndsTheRowWhereAllThatFollowsIsFilled) {
    skip({1, 2, 3, 4, 5});
    for (std::int32_t row = 1; row < 6; ++row) content(row);
    EXPECT_EQ(enterFrom(2, 2), (Cell{3, 1}));
    EXPECT_EQ(enterFrom(2, 5), (Cell{3, 1}));
    EXPECT_EQ(enterFrom(5, 2), (Cell{5, 2})) << "no row follows";
    EXPECT_EQ(enterFrom(5, 5), (Cell{5, 1})) << "as the last column of the last row leads without the option";
}

TEST_F(SkipFilled, LeadsBeyondATargetThatIsFilled) {
    column(2).sCellInput("+1,3");
    skip({3, 4});
    EXPECT_EQ(enterFrom(2, 2), (Cell{3, 3}));
    fill(3, 3, "filled");
    EXPECT_EQ(enterFrom(2, 2), (Cell{3, 4}));
    fill(3, 4, "filled");
    EXPECT_EQ(enterFrom(2, 2), (Cell{3, 5}));
    column(2).sCellInput("+1,5");
    fill(3, 5, "filled");
    EXPECT_EQ(enterFrom(2, 2), (Cell{3, 5})) << "its own column stops";
}

TEST_F(SkipFilled, LeavesTheRuleThatGoesDownItsColumn) {
    column(2).sCellInput("r");
    skip({2});
    fill(3, 2, "filled");
    EXPECT_EQ(enterFrom(2, 2), (Cell{3, 2}));
}

TEST_F(SkipFilled, AsksTheHostOfNoCellThatIsPassed) {
    skip({3});
    fill(2, 3, "filled");
    std::vector<Cell> asked;
    grid.Options().CellLocked.connect([&](std::int32_t row, std::int32_t col, bool& locked) {
        asked.push_back({row, col});
        locked = col == 4;
    });
    at(2, 2);
    asked.clear();
    desk.press(Key::Enter);
    EXPECT_EQ(current(), (Cell{2, 5}));
    EXPECT_EQ(std::count(asked.begin(), asked.end(), Cell{2, 3}), 0);
}

TEST_F(SkipFilled, PassesReadOnlyColumnsAsEver) {
    readOnly(4);
    skip({3});
    fill(2, 3, "filled");
    EXPECT_EQ(enterFrom(2, 2), (Cell{2, 5}));
}
}  // namespace
}  // namespace kxVsGrid::testing
