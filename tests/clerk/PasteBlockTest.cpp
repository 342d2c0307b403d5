// Where the cells of a pasted block go, and what becomes of what lies beyond the grid.
#include <string>
#include <utility>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

class BlockPaster : public BlockTest {
  protected:
    BlockPaster() {
        for (int row = 1; row <= 3; ++row) content(row);
        at(1, 1);
    }
    /// The refusal of what lies beyond the grid.
    const PasteReport::Refusal* area(const PasteReport& of, std::string_view reason) {
        for (const auto& refusal : of.refusals)
            if (refusal.reason == reason) return &refusal;
        return nullptr;
    }
    static constexpr std::string_view NoRows = "没有更多的行。", NoColumns = "超出最后一列。";
};

TEST_F(BlockPaster, WritesFromTheCurrentCellOnInTheBlocksOwnSize) {
    at(2, 2);
    EXPECT_TRUE(paste("a\tb\nc\td"));
    EXPECT_EQ(texts(1, 1, 4, 4), "t11|t12|t13|t14/t21|a|b|t24/t31|c|d|t34/|||");
    EXPECT_EQ(report().command, Command::Paste);
    expectCounts(4, 0, 0, 0);
    EXPECT_EQ(current(), (Cell{2, 2}));
}

TEST_F(BlockPaster, StartsAtTheTopLeftOfTheSelectionWhateverItsSize) {
    choose(3, 3, 1, 2);
    paste("a\tb\nc\td");
    EXPECT_EQ(texts(1, 1, 4, 4), "t11|a|b|t14/t21|c|d|t24/t31|t32|t33|t34/|||");
    choose(4, 1, 4, 1);
    paste("x\ty");
    EXPECT_EQ(texts(4, 1, 4, 2), "x|y");
}

TEST_F(BlockPaster, FillsTheWholeSelectionWithASingleValue) {
    choose(1, 2, 3, 3);
    paste("x");
    EXPECT_EQ(texts(1, 1, 3, 4), "t11|x|x|t14/t21|x|x|t24/t31|x|x|t34");
    expectCounts(6, 0, 0, 0);
    undo();
    for (int row = 1; row <= 3; ++row) expectContent(row, row);
}

TEST_F(BlockPaster, FillsAWholeSelectedColumnWithASingleValueDownToTheLastLine) {
    consentToRows();
    grid.Grid().SelectCols(2, 2);
    paste("x");
    EXPECT_EQ(texts(1, 2, 5, 2), "x/x/x//");
    EXPECT_EQ(grid.Rows(), 6);
    expectCounts(3, 0, 0, 0);
}

TEST_F(BlockPaster, FillsEverythingThatIsSelectedDownToTheLineThatTheHostNames) {
    grid.Options().RowInUse.connect([](std::int32_t row, bool& inUse) { inUse = row <= 2; });
    grid.Grid().SelectAll();
    paste("x");
    EXPECT_EQ(texts(1, 4, 4, 5), "x|x/x|x/t34|t35/|");
}

TEST_F(BlockPaster, FillsAllRowsOfAWholeColumnWhereNoneIsInUse) {
    for (int row = 1; row <= 3; ++row)
        for (int col = 1; col <= 5; ++col) fill(row, col, "");
    grid.Grid().SelectCols(2, 2);
    paste("x");
    EXPECT_EQ(texts(1, 2, 5, 2), "x/x/x/x/x");
}

TEST_F(BlockPaster, TakesRowsThatAreSelectedAsTheyAre) {
    grid.Grid().SelectRows(3, 4);
    paste("x");
    EXPECT_EQ(texts(3, 1, 4, 5), "x|x|x|x|x/x|x|x|x|x");
}

TEST_F(BlockPaster, TakesALineEndAtTheEndForNoRowOfItsOwn) {
    at(1, 1);
    paste("a\tb\r\nc\td\r\n");
    EXPECT_EQ(texts(1, 1, 3, 2), "a|b/c|d/t31|t32");
    expectCounts(4, 0, 0, 0);
    at(3, 3);
    paste("z\n");
    EXPECT_EQ(text(3, 3), "z");
    EXPECT_EQ(text(4, 3), "");
}

TEST_F(BlockPaster, SkipsHiddenRowsAndColumnsAsTargets) {
    grid.ColHidden(2, true);
    grid.Grid().RowHidden(2, true);
    paste("a\tb\nc\td");
    EXPECT_EQ(texts(1, 1, 3, 3), "a|t12|b/t21|t22|t23/c|t32|d");
    expectCounts(4, 0, 0, 0);
    choose(1, 1, 3, 3);
    paste("z");
    EXPECT_EQ(texts(1, 1, 3, 3), "z|t12|z/t21|t22|t23/z|t32|z");
}

TEST_F(BlockPaster, PassesOverReadOnlyColumnsAndLockedCells) {
    readOnly(2);
    lock([](std::int32_t row, std::int32_t col) { return row == 1 && col == 3; });
    paste("a\tb\tc\nd\te\tf");
    EXPECT_EQ(texts(1, 1, 2, 3), "a|t12|t13/d|t22|f");
    expectCounts(3, 0, 3, 0);
    EXPECT_TRUE(report().refusals.empty());
    EXPECT_EQ(grid.Mark(1, 2), nullptr);
    ASSERT_FALSE(desk.tips().empty());
    EXPECT_EQ(desk.tips().back(), report().summary());
}

TEST_F(BlockPaster, LeavesCellsAloneThatHaveWhatIsPasted) {
    paste("t11\tnew\nt21\tt22");
    expectCounts(1, 3, 0, 0);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(1, 2));
    EXPECT_EQ(tags(1, 1, 2, 1), "d11/d21");
}

TEST_F(BlockPaster, ChangesNothingByWhatIsThereAlready) {
    const Lines before = wholeOf(grid);
    paste("t11\tt12\nt21\tt22");
    EXPECT_EQ(wholeOf(grid), before);
    EXPECT_EQ(heard(), Lines());
    expectCounts(0, 4, 0, 0);
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_FALSE(grid.History().CanUndo());
}

TEST_F(BlockPaster, TellsTheHostOfEachCellRowByRow) {
    paste("a\tb\nc\td");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + changed(1, 2) + edited(1, 2) + changed(2, 1) +
                           edited(2, 1) + changed(2, 2) + edited(2, 2));
}

TEST_F(BlockPaster, IsOneStepWithAllThatTheHostWrites) {
    grid.AfterEdit.connect([this](std::int32_t row, std::int32_t) { grid.SetCell(row, 5, "host", "h"); });
    int steps = 0;
    grid.Changes().After.connect([&](const StepChanges&) { ++steps; });
    paste("a\tb\nc\td");
    EXPECT_EQ(steps, 1);
    EXPECT_EQ(texts(1, 5, 2, 5), "host/host");
    undo();
    EXPECT_EQ(steps, 2);
    for (int row = 1; row <= 3; ++row) expectContent(row, row);
    EXPECT_TRUE(grid.Run(Command::Redo));
    EXPECT_EQ(texts(1, 1, 2, 5), "a|b|t13|t14|host/c|d|t23|t24|host");
}

TEST_F(BlockPaster, MakesTheDocumentDirtyAndTheTotalsNew) {
    summed(2);
    at(1, 2);
    EXPECT_FALSE(grid.bIsDirty());
    paste("5\n7");
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_EQ(grid.ReadSum(2), "12");
}

TEST_F(BlockPaster, HasTheTotalsUpToDateInAfterEdit) {
    summed(2);
    for (int row = 1; row <= 3; ++row) fill(row, 2, "1");
    Lines totals;
    grid.AfterEdit.connect([&](auto...) { totals.push_back(grid.ReadSum(2)); });
    at(1, 2);
    paste("5\n7");
    EXPECT_EQ(totals, (Lines{"7", "13"}));
}

TEST_F(BlockPaster, AsksForEachRowThatIsMissing) {
    consentToRows();
    at(4, 1);
    paste("a\nb\nc\nd");
    EXPECT_EQ(named(heard(), "AddVsRow"), asksForRow(5, false) + asksForRow(6, false) + asksForRow(7, false));
    EXPECT_EQ(grid.Rows(), 9);
    EXPECT_EQ(texts(4, 1, 8, 1), "a/b/c/d/");
    EXPECT_EQ(report().rowsAdded, 3);
    expectCounts(4, 0, 0, 0);
    undo();
    EXPECT_EQ(grid.Rows(), 6);
    expectEmpty(4);
    expectEmpty(5);
}

TEST_F(BlockPaster, AsksBeforeItWritesIntoTheLastRow) {
    consentToRows();
    at(5, 1);
    paste("a\tb");
    EXPECT_EQ(heard(), asksForRow(5, false) + changed(5, 1) + edited(5, 1) + changed(5, 2) + edited(5, 2));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(BlockPaster, RefusesRowsThatTheHostDoesNotGive) {
    at(4, 1);
    paste("a\tx\nb\ty\nc\tz\nd\tw");
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(texts(4, 1, 5, 2), "a|x/b|y");
    expectCounts(4, 0, 0, 4);
    const PasteReport last = report();
    const auto* const refusal = area(last, NoRows);
    ASSERT_NE(refusal, nullptr);
    EXPECT_EQ(refusal->row, RowId::None);
    EXPECT_EQ(refusal->cells, 4);
    EXPECT_EQ(refusal->text, "");
    EXPECT_EQ(last.refusals.size(), 1U);
    EXPECT_EQ(last.rowsAdded, 0);
    EXPECT_TRUE(desk.messages().empty());
    ASSERT_FALSE(desk.tips().empty());
    EXPECT_EQ(desk.tips().back(), last.summary());
}

TEST_F(BlockPaster, StopsAskingWhenTheHostGivesNoMore) {
    int given = 0;
    grid.AddVsRow.connect([&](std::int32_t, bool& consent) { consent = given++ < 2; });
    at(5, 1);
    paste("1\n2\n3\n4\n5\n6");
    EXPECT_EQ(grid.Rows(), 8);
    EXPECT_EQ(texts(5, 1, 7, 1), "1/2/3");
    EXPECT_EQ(report().rowsAdded, 2);
    expectCounts(3, 0, 0, 3);
    EXPECT_EQ(given, 3);
}

TEST_F(BlockPaster, RefusesColumnsBeyondTheLastShownOne) {
    grid.ColHidden(5, true);
    at(1, 3);
    paste("a\tb\tc\td\ne\tf\tg\th");
    EXPECT_EQ(texts(1, 3, 2, 5), "a|b|t15/e|f|t25");
    expectCounts(4, 0, 0, 4);
    const PasteReport last = report();
    const auto* const refusal = area(last, NoColumns);
    ASSERT_NE(refusal, nullptr);
    EXPECT_EQ(refusal->row, RowId::None);
    EXPECT_EQ(refusal->cells, 4);
}

TEST_F(BlockPaster, CountsEachCellBeyondTheGridOnce) {
    at(4, 4);
    paste("1\t2\t3\n4\t5\t6\n7\t8\t9");
    EXPECT_EQ(texts(4, 4, 5, 5), "1|2/4|5");
    expectCounts(4, 0, 0, 5);
    std::int64_t cells = 0;
    for (const auto& refusal : report().refusals) cells += refusal.cells;
    EXPECT_EQ(cells, 5);
}

TEST_F(BlockPaster, SaysNothingWhenAllWentWell) {
    paste("a\tb\nc\td");
    EXPECT_TRUE(desk.tips().empty());
    EXPECT_EQ(report().summary(), "");
    EXPECT_FALSE(report().cancelled);
    EXPECT_FALSE(report().cutShort);
}

TEST_F(BlockPaster, ReportsOnceWhenTheStepIsDone) {
    bool done = false;
    grid.Changes().After.connect([&](const StepChanges&) { done = true; });
    grid.Commands().Reported.connect([&](const PasteReport&) { EXPECT_TRUE(done); });
    paste("a\tb\nc\td");
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(BlockPaster, KeepsTheKeyboardAndMovesNothing) {
    choose(2, 2, 3, 3);
    paste("a\tb\nc\td");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "RowColChange"), Lines());
}

TEST_F(BlockPaster, HasTextAndTagBackInTheSameColumn) {
    takesCodes(1);
    choose(1, 1, 2, 1);
    run(Command::Copy);
    at(4, 1);
    run(Command::Paste);
    EXPECT_EQ(texts(4, 1, 5, 1), "t11/t21");
    EXPECT_EQ(tags(4, 1, 5, 1), "d11/d21");
    EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines());
    expectCounts(2, 0, 0, 0);
}

TEST_F(BlockPaster, HasTheVisibleTextCheckedInAnotherColumn) {
    takesCodes(2);
    knowCodes();
    fill(1, 1, "A1", "tag");
    fill(2, 1, "B1", "tag");
    choose(1, 1, 2, 1);
    run(Command::Copy);
    at(1, 2);
    run(Command::Paste);
    EXPECT_EQ(texts(1, 2, 2, 2), "A1/t22");
    EXPECT_EQ(tags(1, 2, 2, 2), "货 A1/d22");
    expectCounts(1, 0, 0, 1);
}

TEST_F(BlockPaster, HasTheVisibleTextCheckedInAnotherGrid) {
    choose(1, 1, 2, 1);
    run(Command::Copy);
    kxGrid& other = desk.place();
    other.Cols(6);
    other.VsCtrl(1)->i有效性判断(1);
    other.VsCtrl(1)->i字段有效性判断类型(ij编码型);
    other.ReDraw(true);
    desk.focusGrid();
    other.Grid().Select(1, 1);
    desk.run(Command::Paste);
    EXPECT_EQ(other.Grid().Text(1, 1), "");
    EXPECT_EQ(other.Grid().Data(1, 1), "");
    EXPECT_NE(other.Mark(1, 1), nullptr);
}

TEST_F(BlockPaster, BringsNoTagToAnotherGridsUncheckedColumn) {
    choose(1, 1, 2, 1);
    run(Command::Copy);
    kxGrid& other = desk.place();
    other.Cols(6);
    other.ReDraw(true);
    desk.focusGrid();
    other.Grid().Select(1, 1);
    desk.run(Command::Paste);
    EXPECT_EQ(other.Grid().Text(2, 1), "t21");
    EXPECT_EQ(other.Grid().Data(2, 1), "");
}

TEST_F(BlockPaster, AsksTheColumnsRulesAlsoOfItsOwnCells) {
    choose(1, 1, 2, 1);
    run(Command::Copy);
    grid.Options(1).pattern("t1.");
    at(4, 1);
    run(Command::Paste);
    EXPECT_EQ(texts(4, 1, 5, 1), "t11/");
    expectCounts(1, 0, 0, 1);
    EXPECT_TRUE(problemAt(5, 1));
}

TEST_F(BlockPaster, WritesATagThatIsAnotherThoughTheTextIsTheSame) {
    fill(4, 1, "t11", "other");
    choose(1, 1, 1, 2);
    run(Command::Copy);
    at(4, 1);
    run(Command::Paste);
    EXPECT_EQ(tags(4, 1, 4, 2), "d11|d12");
    expectCounts(2, 0, 0, 0);
}

TEST_F(BlockPaster, FillsASelectionWithOneOfItsOwnCells) {
    at(1, 1);
    run(Command::Copy);
    choose(4, 1, 5, 1);
    run(Command::Paste);
    EXPECT_EQ(texts(4, 1, 5, 1), "t11/t11");
    EXPECT_EQ(tags(4, 1, 5, 1), "d11/d11");
}

TEST_F(BlockPaster, TakesNewerTextOfAnotherProgramRatherThanItsOwnOldForm) {
    choose(1, 1, 1, 2);
    run(Command::Copy);
    at(4, 1);
    paste("new\ttext");
    EXPECT_EQ(texts(4, 1, 4, 2), "new|text");
    EXPECT_EQ(tags(4, 1, 4, 2), "|");
}

TEST_F(BlockPaster, EmptiesCellsByAnEmptyOneThatWasCopied) {
    at(5, 1);
    EXPECT_TRUE(run(Command::Copy));
    at(1, 1);
    EXPECT_TRUE(run(Command::Paste));
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(tag(1, 1), "");
    choose(2, 1, 3, 1);
    EXPECT_TRUE(run(Command::Paste));
    EXPECT_EQ(texts(2, 1, 3, 2), "|t22/|t32");
}

TEST_F(BlockPaster, FollowsItsRowsWhenTheHostAddsOrRemovesOthers) {
    bool done = false;
    grid.AfterEdit.connect([&](auto, auto) {
        if (!std::exchange(done, true)) grid.Grid().InsertRow(1);
    });
    at(2, 1);
    paste("a\tb\nc\td");
    EXPECT_EQ(texts(1, 1, 4, 2), "|/t11|t12/a|b/c|d");
    expectCounts(4, 0, 0, 0);
    done = false;
    grid.AfterEdit.disconnectAll();
    grid.AfterEdit.connect([&](auto, auto) {
        if (!std::exchange(done, true)) grid.Grid().RemoveRow(1);
    });
    at(3, 1);
    paste("e\tf\ng\th");
    EXPECT_EQ(texts(1, 1, 4, 2), "t11|t12/e|f/g|h/|");
    expectCounts(4, 0, 0, 0);
    EXPECT_FALSE(report().cutShort);
}

TEST_F(BlockPaster, SettlesOnceAndSaysWhatItWas) {
    int settled = 0;
    grid.Changes().AddSettler([&](const StepChanges& changes) {
        ++settled;
        EXPECT_EQ(changes.rows.size(), 2U);
        EXPECT_EQ(changes.cols.size(), 3U);
        EXPECT_EQ(changes.cause, Cause::Paste);
        EXPECT_NE(changes.name, "");
    });
    paste("a\tb\tc\nd\te\tf");
    EXPECT_EQ(settled, 1);
    EXPECT_NE(grid.History().UndoName().find("粘贴"), std::string::npos);
}

TEST_F(BlockPaster, LeavesTheKeyboardWhereItIs) {
    desk.focusElsewhere();
    EXPECT_TRUE(paste("a\tb\nc\td"));
    EXPECT_EQ(texts(1, 1, 2, 2), "a|b/c|d");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
}

TEST_F(BlockPaster, WaitsForAnInputMethod) {
    desk.clipboard("new");
    desk.compose("ni");
    desk.press('V', CtrlKey);
    EXPECT_EQ(text(1, 1), "t11");
    desk.commitComposition("");
    desk.press(Key::Escape);
    EXPECT_EQ(text(1, 1), "t11");
}

TEST_F(BlockPaster, SkipsColumnsWithoutWidthAsHiddenOnes) {
    grid.ColWidth(2, 0);
    paste("a\tb");
    EXPECT_EQ(texts(1, 1, 1, 3), "a|t12|b");
}

TEST_F(BlockPaster, CannotGoBeyondAHiddenLastRow) {
    consentToRows();
    grid.Grid().RowHidden(5, true);
    at(4, 1);
    paste("a\nb");
    EXPECT_EQ(text(4, 1), "a");
    EXPECT_EQ(text(5, 1), "");
    EXPECT_EQ(report().written + report().refused, 2);
}

TEST_F(BlockPaster, IsIntoAFixedCellNothing) {
    at(0, 2);
    const Lines before = wholeOf(grid);
    EXPECT_FALSE(paste("a\tb"));
    EXPECT_EQ(wholeOf(grid), before);
    EXPECT_TRUE(reports.empty());
}
}  // namespace
}  // namespace kxVsGrid::testing
