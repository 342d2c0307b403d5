// Where Enter goes from a column: the next editable cell, the row below, or a target that the column names.
#include <initializer_list>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class EnterRule : public ClerkTest {
  protected:
    /// Types into a cell whose column has a rule, presses Enter, and gives what the host heard of the move.
    Lines enterFrom(std::int32_t row, std::int32_t col, std::string_view rule) {
        column(col).sCellInput(rule);
        openAt(row, col);
        desk.type("x").press(Key::Enter);
        Lines lines = heard();
        const Lines committed = changed(row, col) + edited(row, col);
        EXPECT_GE(lines.size(), committed.size());
        EXPECT_TRUE(std::equal(committed.begin(), committed.end(), lines.begin()));
        lines.erase(lines.begin(), lines.begin() + std::ssize(committed));
        EXPECT_FALSE(open());
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
        EXPECT_EQ(text(row, col), "x");
        return lines;
    }
};

struct Target {
    Cell from;
    std::string rule;
    Cell to;
};
std::ostream& operator<<(std::ostream& out, const Target& target) {
    return out << '"' << target.rule << "\" from " << target.from << " to " << target.to;
}
class EnterTargets : public EnterRule, public ::testing::WithParamInterface<Target> {};

TEST_P(EnterTargets, AreReachedInOneMove) {
    const auto& [from, rule, to] = GetParam();
    const Lines expected = from == to ? Lines{} : moves(from.row, from.col, to.row, to.col);
    EXPECT_EQ(enterFrom(from.row, from.col, rule), expected);
    EXPECT_EQ(current(), to);
    EXPECT_EQ(grid.Rows(), 6);
}

INSTANTIATE_TEST_SUITE_P(NextCell, EnterTargets,
                         ::testing::Values(Target{{2, 2}, "", {2, 3}}, Target{{2, 2}, "c", {2, 3}},
                                           Target{{2, 2}, "col", {2, 3}}, Target{{2, 2}, " COL ", {2, 3}},
                                           Target{{2, 5}, "", {3, 1}}));

INSTANTIATE_TEST_SUITE_P(RowBelow, EnterTargets,
                         ::testing::Values(Target{{2, 2}, "r", {3, 2}}, Target{{2, 2}, "row", {3, 2}},
                                           Target{{2, 2}, " Row ", {3, 2}}, Target{{4, 5}, "r", {5, 5}}));

INSTANTIATE_TEST_SUITE_P(Targets, EnterTargets,
                         ::testing::Values(Target{{2, 4}, "+1,-2", {3, 2}}, Target{{2, 4}, "-1,+1", {1, 5}},
                                           Target{{2, 4}, "4,2", {4, 2}}, Target{{2, 4}, ",2", {2, 2}},
                                           Target{{2, 4}, "4,", {4, 4}}, Target{{2, 4}, "+2,", {4, 4}},
                                           Target{{2, 4}, ",-3", {2, 1}}, Target{{2, 4}, "+1,1", {3, 1}},
                                           Target{{2, 4}, "5,+1", {5, 5}},
                                           // Nothing to change.
                                           Target{{2, 4}, ",", {2, 4}}, Target{{2, 4}, "2,4", {2, 4}},
                                           // Kept inside the data area.
                                           Target{{2, 4}, "0,0", {1, 1}}, Target{{2, 4}, "-9,-9", {1, 1}},
                                           Target{{2, 4}, "+99,+99", {5, 5}}, Target{{2, 4}, "99,99", {5, 5}},
                                           Target{{2, 4}, ",0", {2, 1}}, Target{{2, 4}, "0,", {1, 4}},
                                           // Without a comma there is no target.
                                           Target{{2, 4}, "next", {2, 4}}, Target{{2, 4}, "+1", {2, 4}},
                                           Target{{2, 4}, "3", {2, 4}}));

TEST_F(EnterRule, ToATargetMayGoToAReadOnlyOrHiddenColumn) {
    readOnly(3);
    EXPECT_EQ(enterFrom(2, 1, ",+2"), moves(2, 1, 2, 3));
}

TEST_F(EnterRule, DownAddsARowInTheLastRow) {
    desk.clear();
    EXPECT_EQ(enterFrom(5, 2, "r"), asksForRow(5, false) + moves(5, 2, 6, 2));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{6, 2}));
    EXPECT_EQ(text(6, 0), "6");
    EXPECT_EQ(desk.reports(), (Lines{"Rows"}));
}

TEST_F(EnterRule, DownAddsNoSecondRowWhenTheCommitHasAppendedOne) {
    consentToRows();
    EXPECT_EQ(enterFrom(5, 2, "r"), asksForRow(5, false) + moves(5, 2, 6, 2));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(EnterRule, DownAddsARowAlsoAfterAnEmptyText) {
    column(2).sCellInput("r");
    openAt(5, 2);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), edited(5, 2) + moves(5, 2, 6, 2));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(EnterRule, OfARefusedTextDoesNothing) {
    typed(2, flexDTDouble);
    column(2).sCellInput("r");
    openAt(5, 2);
    desk.type("abc").press(Key::Enter);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(current(), (Cell{5, 2}));
    EXPECT_TRUE(open());
}

TEST_F(EnterRule, IsReadAfterTheCommit) {
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { column(2).sCellInput("4,4"); });
    openAt(2, 2);
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(current(), (Cell{4, 4}));
}

class EnterPastHiddenRows : public EnterRule {
  protected:
    void hide(std::initializer_list<std::int32_t> hidden) {
        for (const std::int32_t row : hidden) grid.Grid().RowHidden(row, true);
        log.clear();
    }
};

TEST_F(EnterPastHiddenRows, GoesDownToTheNextShownRow) {
    hide({3, 4});
    EXPECT_EQ(enterFrom(2, 2, "r"), moves(2, 2, 5, 2));
}

TEST_F(EnterPastHiddenRows, StaysWhereOnlyHiddenRowsFollow) {
    hide({4, 5});
    EXPECT_EQ(enterFrom(3, 2, "r"), Lines{});
    EXPECT_EQ(grid.Rows(), 6) << "the last row is hidden, but there is one";
}

TEST_F(EnterPastHiddenRows, AddsARowOnlyFromTheLastOne) {
    hide({4});
    EXPECT_EQ(enterFrom(5, 2, "r"), asksForRow(5, false) + moves(5, 2, 6, 2));
}

TEST_F(EnterPastHiddenRows, CountsShownRowsOnTheWayToATarget) {
    hide({3});
    EXPECT_EQ(enterFrom(2, 2, "+2,"), moves(2, 2, 5, 2));
    EXPECT_EQ(enterFrom(5, 3, "-2,+1"), asksForRow(5, false) + moves(5, 3, 2, 4));
}

TEST_F(EnterPastHiddenRows, EndsAtTheOutermostShownRow) {
    hide({1, 5});
    EXPECT_EQ(enterFrom(3, 2, "+9,"), moves(3, 2, 4, 2));
    EXPECT_EQ(enterFrom(3, 3, "-9,+1"), moves(3, 3, 2, 4));
    EXPECT_EQ(enterFrom(2, 4, "-1,1"), moves(2, 4, 2, 1));
    EXPECT_EQ(enterFrom(4, 4, "+1,1"), moves(4, 4, 4, 1));
}

TEST_F(EnterPastHiddenRows, GoesNowhereForAHiddenRowThatTheColumnNames) {
    hide({1, 4, 5});
    EXPECT_EQ(enterFrom(2, 2, "4,3"), Lines{});
    EXPECT_EQ(enterFrom(2, 3, "99,3"), Lines{}) << "taken back to the last row, which is hidden";
    EXPECT_EQ(enterFrom(2, 4, "0,3"), Lines{});
    EXPECT_EQ(enterFrom(2, 5, "3,3"), moves(2, 5, 3, 3));
}

TEST_F(EnterPastHiddenRows, GoesOnInTheNextShownRow) {
    hide({3});
    EXPECT_EQ(enterFrom(2, 5, ""), moves(2, 5, 4, 1));
}

class NextEditableCell : public EnterRule {};

TEST_F(NextEditableCell, SkipsReadOnlyHiddenAndVeryNarrowColumns) {
    readOnly(2);
    grid.ColHidden(3, true);
    grid.ColWidth(4, 15);
    EXPECT_EQ(enterFrom(2, 1, ""), moves(2, 1, 2, 5));
}

TEST_F(NextEditableCell, StartsTheNextRowAtTheFirstEditableColumn) {
    readOnly(1);
    grid.ColHidden(2, true);
    EXPECT_EQ(enterFrom(2, 5, ""), moves(2, 5, 3, 3));
}

TEST_F(NextEditableCell, RunsOverTheRowEndWhenTheRestIsNotEditable) {
    readOnly(1);
    readOnly(4);
    readOnly(5);
    EXPECT_EQ(enterFrom(2, 3, ""), moves(2, 3, 3, 2));
}

TEST_F(NextEditableCell, WrapsWithinTheLastRowFromItsLastColumn) {
    readOnly(1);
    EXPECT_EQ(enterFrom(5, 5, ""), asksForRow(5, false) + moves(5, 5, 5, 2));
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(NextEditableCell, GoesToTheAppendedRowFromTheLastColumn) {
    consentToRows();
    EXPECT_EQ(enterFrom(5, 5, ""), asksForRow(5, false) + moves(5, 5, 6, 1));
}

TEST_F(NextEditableCell, StaysWhenTheRowsRunOut) {
    readOnly(4);
    readOnly(5);
    EXPECT_EQ(enterFrom(5, 3, ""), asksForRow(5, false));
    EXPECT_EQ(current(), (Cell{5, 3}));
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(NextEditableCell, StaysWhenTheHostHasLockedEveryColumn) {
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) {
        for (int c = 0; c < 6; ++c) readOnly(c);
    });
    EXPECT_EQ(enterFrom(2, 3, ""), Lines{});
    EXPECT_EQ(current(), (Cell{2, 3}));
}

}  // namespace
}  // namespace kxVsGrid::testing
