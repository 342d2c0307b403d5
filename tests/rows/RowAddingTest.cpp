// The routine behind the row commands: consent, place, colours, copies and default texts, and what the host
// hears of it.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class RowAdding : public ClerkTest {
  protected:
    static Lines asksTheHost(std::int32_t row) { return asksForRow(row, true); }
    static Lines tellsTheHost(std::int32_t row, bool copied, std::int32_t source) {
        return {line("AfterAddRow", false, row, copied, source)};
    }
    /// The direct filling of the new row.
    static Lines fillsInPlace(std::int32_t row, std::int32_t col) {
        return {line("AfterRowColChange", row, col, row, col)};
    }
    void confirmCopies() {
        grid.AfterAddRow.connect([](bool& keep, std::int32_t, bool, std::int32_t) { keep = true; });
    }
};

TEST_F(RowAdding, AtTheEndWithDefaultsIsToldInTheStatedOrder) {
    at(2, 3);
    grid.AddRow(6, true, false);
    EXPECT_EQ(heard(), asksTheHost(2) + moves(2, 3, 6, 3) + fillsInPlace(6, 3) + tellsTheHost(6, false, 2));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{6, 3}));
    EXPECT_EQ(grid.RowHeight(6), 300);
}

TEST_F(RowAdding, AtTheCurrentRowMovesFromTheRowThatWasPushedDown) {
    content(2);
    at(2, 3);
    grid.AddRow(2, true, false);
    EXPECT_EQ(heard(), asksTheHost(2) + moves(3, 3, 2, 3) + fillsInPlace(2, 3) + tellsTheHost(2, false, 3));
    EXPECT_EQ(current(), (Cell{2, 3}));
    expectEmpty(2);
    expectContent(3, 2);
}

TEST_F(RowAdding, WithoutDefaultsHasNoDirectFilling) {
    at(2, 3);
    grid.AddRow(6, false, false);
    EXPECT_EQ(heard(), asksTheHost(2) + moves(2, 3, 6, 3) + tellsTheHost(6, false, 2));
}

TEST_F(RowAdding, BeforeAnEarlierRowNamesThePushedSource) {
    at(4, 2);
    grid.AddRow(2, false, false);
    EXPECT_EQ(heard(), asksTheHost(4) + moves(5, 2, 2, 2) + tellsTheHost(2, false, 5));
}

TEST_F(RowAdding, BehindTheCurrentRowNamesTheSourceUnchanged) {
    at(2, 2);
    grid.AddRow(4, false, false);
    EXPECT_EQ(heard(), asksTheHost(2) + moves(2, 2, 4, 2) + tellsTheHost(4, false, 2));
}

TEST_F(RowAdding, FillsTheDefaultTextsOnTheMove) {
    column(3).sDefaultText_Name("件");
    column(3).sDefaultText_Code("01");
    grid.AddRow(6, true, false);
    EXPECT_EQ(heard(), asksTheHost(1) + asks(1, 1, 6, 1) + arrives() + changed(6, 3) + changed(6, 3) +
                           settles(1, 1, 6, 1) + fillsInPlace(6, 1) + tellsTheHost(6, false, 1));
    EXPECT_EQ(text(6, 3), "件");
    EXPECT_EQ(tag(6, 3), "01");
}

TEST_F(RowAdding, OfAnEmptyRowFillsNoDefaultTexts) {
    column(3).sDefaultText_Name("件");
    column(3).sDefaultText_Code("01");
    grid.AddRow(6, false, false);
    expectEmpty(6);
    EXPECT_EQ(named(heard(), "CellChanged"), Lines{});
}

TEST_F(RowAdding, LeavesTheDefaultTextsOnForLaterMoves) {
    column(3).sDefaultText_Name("件");
    grid.AddRow(6, false, false);
    at(2, 1);
    EXPECT_EQ(text(2, 3), "件");
    grid.AddRow(7, false, true);
    at(3, 1);
    EXPECT_EQ(text(3, 3), "件");
}

TEST_F(RowAdding, FillsNoDefaultTextsIntoTheFirstDataRow) {
    column(3).sDefaultText_Name("件");
    grid.AddRow(1, true, false);
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(text(1, 3), "");
}

TEST_F(RowAdding, FillsInPlaceWhenTheHostHasEmptiedADefault) {
    column(3).sDefaultText_Name("件");
    bool once = true;
    grid.AfterRowColChange.connect([&](auto, auto, auto, auto) {
        if (std::exchange(once, false)) grid.Grid().Text(6, 3, "");
    });
    grid.AddRow(6, true, false);
    EXPECT_EQ(text(6, 3), "件");
}

TEST_F(RowAdding, FillsNotInPlaceWhenTheHostHasChangedTheColumn) {
    bool once = true;
    grid.RowColChange.connect([&] {
        if (std::exchange(once, false)) grid.Col(4);
    });
    grid.AddRow(6, true, false);
    EXPECT_EQ(current(), (Cell{6, 4}));
    for (const auto& entry : named(heard(), "AfterRowColChange")) {
        EXPECT_NE(entry, line("AfterRowColChange", 6, 4, 6, 4));
        EXPECT_NE(entry, line("AfterRowColChange", 6, 1, 6, 1));
    }
}

TEST_F(RowAdding, CopiesTextsAndTagsWhenTheHostConfirms) {
    content(2);
    confirmCopies();
    at(2, 1);
    grid.AddRow(6, false, true);
    Lines copied;
    for (int c = 1; c < 6; ++c) copied = copied + changed(6, c) + changed(6, c);
    EXPECT_EQ(heard(), asksTheHost(2) + moves(2, 1, 6, 1) + copied + tellsTheHost(6, true, 2));
    expectContent(6, 2);
    expectContent(2, 2);
}

TEST_F(RowAdding, CopiesFromThePushedRowWhenItInsertsAtTheCurrentOne) {
    content(2);
    content(3);
    confirmCopies();
    at(2, 1);
    grid.AddRow(2, false, true);
    expectContent(2, 2);
    expectContent(3, 2);
    expectContent(4, 3);
    EXPECT_EQ(named(heard(), "AfterAddRow"), tellsTheHost(2, true, 3));
}

TEST_F(RowAdding, ShowsTheCopyToTheHostAndDiscardsItUnlessConfirmed) {
    content(2);
    at(2, 1);
    std::string seen;
    grid.AfterAddRow.connect(
        [&](bool&, std::int32_t row, bool, std::int32_t) { seen = text(row, 3) + "/" + tag(row, 3); });
    grid.AddRow(6, false, true);
    Lines slots;
    for (int c = 1; c < 6; ++c) slots = slots + changed(6, c) + changed(6, c);
    EXPECT_EQ(seen, "t23/d23");
    EXPECT_EQ(heard(), asksTheHost(2) + moves(2, 1, 6, 1) + slots + tellsTheHost(6, true, 2) + slots);
    EXPECT_EQ(grid.Rows(), 7);
    expectEmpty(6);
    expectContent(2, 2);
}

TEST_F(RowAdding, KeepsDefaultTextsWithoutAConfirmation) {
    column(3).sDefaultText_Name("件");
    grid.AddRow(6, true, false);
    EXPECT_EQ(text(6, 3), "件");
}

TEST_F(RowAdding, WithBothDefaultsAndACopyOverwritesTheDefaults) {
    content(2);
    column(3).sDefaultText_Name("件");
    confirmCopies();
    at(2, 1);
    grid.AddRow(6, true, true);
    expectContent(6, 2);
    EXPECT_EQ(named(heard(), "AfterRowColChange"), (Lines{line("AfterRowColChange", 2, 1, 6, 1)}));
}

TEST_F(RowAdding, CopiesNoFixedColumn) {
    content(2);
    grid.Grid().Data(2, 0, "header");
    confirmCopies();
    at(2, 1);
    grid.AddRow(6, false, true);
    EXPECT_EQ(tag(6, 0), "");
}

TEST_F(RowAdding, EndsSilentlyWhenTheHostRefuses) {
    grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = false; });
    column(3).sDefaultText_Name("件");
    for (bool defaults : {false, true})
        for (bool copy : {false, true}) grid.AddRow(2, defaults, copy);
    EXPECT_EQ(heard(), asksTheHost(1) + asksTheHost(1) + asksTheHost(1) + asksTheHost(1));
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_TRUE(desk.messages().empty());
    at(2, 1);
    EXPECT_EQ(text(2, 3), "件");
}

TEST_F(RowAdding, AddsTheRowAlsoWhenTheHostCancelsTheMove) {
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    grid.AddRow(6, false, false);
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(heard(), asksTheHost(1) + asks(1, 1, 6, 1) + tellsTheHost(6, false, 1));
}

TEST_F(RowAdding, FillsTheDefaultTextsOfTheNewRowAlsoWhenTheHostCancelsTheMove) {
    column(3).sDefaultText_Name("件");
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    grid.AddRow(6, true, false);
    EXPECT_EQ(text(6, 3), "件");
    EXPECT_EQ(heard(), asksTheHost(1) + asks(1, 1, 6, 1) + changed(6, 3) + fillsInPlace(1, 1) +
                           tellsTheHost(6, false, 1));
}

TEST_F(RowAdding, FillsNoOtherRowWhenTheHostTakesTheNewOneAway) {
    at(3, 1);
    column(3).sDefaultText_Name("件");
    bool once = true;
    grid.BeforeRowColChange.connect([&](auto, auto, auto, auto, bool& cancel) {
        if (std::exchange(once, false)) grid.Grid().RemoveRow(6);
        cancel = true;
    });
    grid.AddRow(6, true, false);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(text(3, 3), "");
    EXPECT_EQ(text(5, 3), "");
}

TEST_F(RowAdding, PaintsTheNewRowInTheColumnsOfTheirOwnColour) {
    for (int c : {0, 2, 5}) {
        column(c).b是否设列颜色(true);
        column(c).d列前景色(Red);
        column(c).d列背景色(Yellow);
    }
    column(3).d列前景色(Red);
    column(3).d列背景色(Yellow);
    for (std::int32_t position : {6, 2}) {
        grid.AddRow(position, false, false);
        for (int c : {0, 2, 5}) {
            EXPECT_EQ(grid.Grid().CellForeColor(position, c), Red) << position << ' ' << c;
            EXPECT_EQ(grid.Grid().CellBackColor(position, c), Yellow) << position << ' ' << c;
        }
        for (int c : {1, 3, 4}) {
            EXPECT_EQ(grid.Grid().CellForeColor(position, c), std::nullopt) << position << ' ' << c;
            EXPECT_EQ(grid.Grid().CellBackColor(position, c), std::nullopt) << position << ' ' << c;
        }
    }
}

TEST_F(RowAdding, BringsTheNewRowIntoViewBeforeItGoesThere) {
    rows(60);
    bool inView = false;
    grid.BeforeRowColChange.connect(
        [&](auto, auto, auto, auto, bool&) { inView = grid.Grid().RowIsVisible(60); });
    grid.AddRow(60, false, false);
    EXPECT_TRUE(inView);
    EXPECT_TRUE(grid.Grid().RowIsVisible(60)) << desk.ascii();
}

TEST_F(RowAdding, EndsWithFreshTotals) {
    summed(3);
    fill(2, 3, "10");
    confirmCopies();
    at(2, 1);
    grid.AddRow(6, false, true);
    EXPECT_EQ(grid.ReadSum(3), "20");
}

TEST_F(RowAdding, EndsWithFreshTotalsAlsoWhenTheCopyIsDiscarded) {
    summed(3);
    fill(2, 3, "10");
    at(2, 1);
    std::string during;
    grid.AddRow(6, false, true);
    EXPECT_EQ(grid.ReadSum(3), "10");
}

TEST_F(RowAdding, ToAGridOfFixedRowsAloneWorks) {
    grid.Grid().Rows(1);
    log.clear();
    grid.AddRow(1, false, false);
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(RowAdding, InsertsSeveralRowsAtTheCurrentRowAsItMoves) {
    content(2);
    at(2, 1);
    for (int i = 0; i < 3; ++i) grid.AddRow(grid.Row(), false, false);
    EXPECT_EQ(grid.Rows(), 9);
    EXPECT_EQ(current(), (Cell{2, 1}));
    expectContent(5, 2);
}

TEST_F(RowAdding, WithAnOpenEditorCommitsItIntoTheCellThatWasPushedDown) {
    at(2, 3);
    desk.type("abc");
    heard();
    grid.AddRow(2, false, false);
    EXPECT_EQ(heard(), asksTheHost(2) + asks(3, 3, 2, 3) + changed(3, 3) + edited(3, 3) + arrives() +
                           settles(3, 3, 2, 3) + tellsTheHost(2, false, 3));
    EXPECT_EQ(text(3, 3), "abc");
    EXPECT_EQ(text(2, 3), "");
    EXPECT_FALSE(open());
}

class RowNumbers : public RowAdding {
  protected:
    Lines numbers() const {
        Lines found;
        for (int r = 1; r < grid.Rows(); ++r) found.push_back(text(r, 0));
        return found;
    }
};

TEST_F(RowNumbers, CountDataRowsFromOneAfterARowWasAdded) {
    grid.AddRow(3, false, false);
    EXPECT_EQ(numbers(), (Lines{"1", "2", "3", "4", "5", "6"}));
    grid.AddRow(7, false, false);
    EXPECT_EQ(numbers(), (Lines{"1", "2", "3", "4", "5", "6", "7"}));
}

TEST_F(RowNumbers, CountFromOneBelowSeveralFixedRows) {
    grid.FixedRows(2);
    grid.Rows(8);
    EXPECT_EQ(text(2, 0), "1");
    EXPECT_EQ(text(7, 0), "6");
}

TEST_F(RowNumbers, AreSetByTheRowsOfTheControl) {
    grid.Rows(8);
    EXPECT_EQ(numbers(), (Lines{"1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(named(heard(), "CellChanged"), Lines{});
}

TEST_F(RowNumbers, FollowThePositionWithoutAnotherRefresh) {
    grid.Rows(8);
    grid.Grid().InsertRow(3);
    EXPECT_EQ(numbers(), (Lines{"1", "2", "3", "4", "5", "6", "7", "8"}));
    grid.Grid().RemoveRow(1);
    EXPECT_EQ(numbers(), (Lines{"1", "2", "3", "4", "5", "6", "7"}));
}

TEST_F(RowNumbers, GiveWayToATextUntilTheNextRefresh) {
    grid.Rows(8);
    grid.Grid().Text(2, 0, "x");
    EXPECT_EQ(text(2, 0), "x");
    EXPECT_EQ(text(3, 0), "3");
    grid.AddRow(8, false, false);
    EXPECT_EQ(text(2, 0), "2");
}

TEST_F(RowNumbers, AreNotShownWithoutAFixedColumn) {
    grid.FixedCols(0);
    grid.Rows(8);
    grid.AddRow(8, false, false);
    EXPECT_EQ(text(3, 0), "");
    EXPECT_EQ(text(8, 0), "");
}

TEST_F(RowNumbers, EndWithTheLastFixedColumn) {
    grid.Rows(8);
    grid.FixedCols(0);
    EXPECT_EQ(text(3, 0), "");
    EXPECT_EQ(grid.ReadCell(3, 0, true), "");
    grid.FixedCols(1);
    EXPECT_EQ(text(3, 0), "") << "until rows are numbered again";
    grid.Rows(9);
    EXPECT_EQ(text(3, 0), "3");
}

TEST_F(RowNumbers, StandInTheFirstOfSeveralFixedColumnsOnly) {
    grid.FixedCols(2);
    grid.Rows(8);
    grid.FixedCols(1);
    EXPECT_EQ(text(3, 0), "3");
    EXPECT_EQ(text(3, 1), "");
}

TEST_F(RowNumbers, AreNoTextsOfTheColumnThatHasBecomeData) {
    grid.Rows(8);
    grid.FixedCols(0);
    summed(0);
    EXPECT_EQ(grid.ReadSum(0), "0");
    at(2, 0);
    desk.type("7").press(Key::Enter);
    EXPECT_EQ(text(2, 0), "7");
    EXPECT_EQ(grid.ReadSum(0), "7");
}

class LastRowCheck : public RowAdding {};

TEST_F(LastRowCheck, AppendsOneRowAndMovesNothing) {
    consentToRows();
    column(2).b是否设列颜色(true);
    column(2).d列前景色(Red);
    column(2).d列背景色(Yellow);
    column(3).d列背景色(Yellow);
    column(4).sDefaultText_Name("件");
    at(5, 1);
    desk.type("a");
    EXPECT_EQ(heard(), asksForRow(5, false) + opens());
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(grid.RowHeight(6), 300);
    EXPECT_EQ(grid.Grid().CellForeColor(6, 2), Red);
    EXPECT_EQ(grid.Grid().CellBackColor(6, 2), Yellow);
    EXPECT_EQ(grid.Grid().CellBackColor(6, 3), std::nullopt);
    EXPECT_EQ(text(6, 4), "");
    EXPECT_EQ(text(6, 0), "6");
    EXPECT_EQ(current(), (Cell{5, 1}));
}

TEST_F(LastRowCheck, AfterACommitAppendsARowOnlyWithConsent) {
    at(5, 1);
    desk.type("a");
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), asksForRow(5, false) + opens() + changed(5, 1) + edited(5, 1) + asksForRow(5, false) +
                           moves(5, 1, 5, 2));
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(LastRowCheck, AfterACommitAsksNoMoreWhenARowWasAppendedAtTheOpening) {
    consentToRows();
    at(5, 1);
    desk.type("a");
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), asksForRow(5, false) + opens() + changed(5, 1) + edited(5, 1) + moves(5, 1, 5, 2));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(LastRowCheck, AfterACommitAppendsTheRowBelowTheCommittedOne) {
    at(5, 1);
    desk.type("a");
    heard();
    consentToRows();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(5, 1) + edited(5, 1) + asksForRow(5, false) + moves(5, 1, 5, 2));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(text(6, 0), "6");
}

TEST_F(LastRowCheck, AfterACommitOfAnEmptyTextAsksNothing) {
    fill(5, 1, "A001");
    openAt(5, 1);
    desk.press(Key::Back);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(5, 1) + edited(5, 1) + moves(5, 1, 5, 2));
    EXPECT_EQ(text(5, 1), "");
}

TEST_F(LastRowCheck, AfterACommitOfBlanksAsksNothing) {
    typed(1, flexDTEmpty);
    at(5, 1);
    desk.press(Key::Back);
    desk.type("  ");
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), opens() + changed(5, 1) + edited(5, 1) + moves(5, 1, 5, 2));
    EXPECT_EQ(text(5, 1), "  ");
}

TEST_F(LastRowCheck, BeforeTheLastRowAsksNothing) {
    consentToRows();
    at(4, 1);
    desk.type("a");
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "AddVsRow"), Lines{});
    EXPECT_EQ(grid.Rows(), 6);
}

}  // namespace
}  // namespace kxVsGrid::testing
