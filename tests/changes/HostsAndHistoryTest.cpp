// Hosts who write before, between, inside and after steps, take steps back, and change what steps stand on.
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "changes/GridState.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class HistoryBesideAHost : public PlacedGrid {
  protected:
    HistoryBesideAHost() {
        grid.Cols(6);
        summed(2);
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        setUp();
        desk.focusGrid();
        vs().Select(1, 1);
    }
    History& history() { return grid.History(); }
    void key(std::int32_t row, std::int32_t col, std::string_view typed) {
        vs().Select(row, col);
        desk.type(typed).press(Key::Enter);
    }
    void removesRow(std::int32_t row) {
        vs().Select(row, 1);
        desk.press(Key::Delete);
    }
    int undoAll() {
        int steps = 0;
        while (history().Undo()) ++steps;
        return steps;
    }
};

// --- Row numbers

TEST_F(HistoryBesideAHost, BringsAHostsTextInTheNumbersBackWithItsRow) {
    vs().NumberRows();
    vs().Text(2, 0, "*");
    key(1, 1, "a");
    removesRow(2);
    ASSERT_EQ(text(2, 0), "2");
    history().Undo();
    EXPECT_EQ(text(2, 0), "*");
    EXPECT_EQ(text(3, 0), "3");
    history().Redo();
    EXPECT_EQ(text(2, 0), "2");
}

// --- Nested steps, taking back

TEST_F(HistoryBesideAHost, TakesAnInnerStepBackAndUndoesTheRest) {
    {
        const auto outer = grid.Step("outer");
        grid.SetCell(1, 1, "outer");
        {
            auto inner = grid.Step("inner");
            grid.SetCell(1, 1, "inner");
            vs().RemoveRow(3);
            vs().InsertRow(1);
            EXPECT_TRUE(inner.takeBack());
            grid.SetCell(2, 1, "after");
        }
        grid.SetCell(3, 1, "last");
    }
    EXPECT_EQ(text(1, 1), "outer");
    EXPECT_EQ(text(2, 1), "after");
    EXPECT_EQ(history().UndoName(), "outer");
    history().Undo();
    EXPECT_EQ(text(1, 1) + text(2, 1) + text(3, 1), "");
    EXPECT_FALSE(history().CanUndo());
}

TEST_F(HistoryBesideAHost, SettlesAStepInWhichAnotherWasTakenBack) {
    int settled = 0;
    grid.Changes().AddSettler([&](const StepChanges&) { ++settled; });
    {
        const auto outer = grid.Step("outer");
        {
            auto inner = grid.Step("inner");
            grid.SetCell(1, 1, "inner");
            inner.takeBack();
        }
        grid.SetCell(2, 1, "outer");
    }
    EXPECT_EQ(settled, 1);
}

TEST_F(HistoryBesideAHost, SettlesNothingOfAStepThatWasTakenBack) {
    int settled = 0, told = 0;
    grid.Changes().AddSettler([&](const StepChanges&) { ++settled; });
    grid.Changes().After.connect([&](const StepChanges&) { ++told; });
    {
        auto step = grid.Step("step");
        grid.SetCell(1, 1, "x");
        step.takeBack();
    }
    EXPECT_EQ(settled, 0);
    EXPECT_EQ(told, 0);
    EXPECT_FALSE(history().CanUndo());
}

TEST_F(HistoryBesideAHost, TakesBackInTheInnerStepWhatCameAfterTheOuterOneWasTakenBack) {
    auto outer = grid.Step("outer");
    grid.SetCell(1, 1, "a");
    grid.SetCell(2, 1, "a");
    auto inner = grid.Step("inner");
    grid.SetCell(1, 1, "b");
    EXPECT_TRUE(outer.takeBack());
    EXPECT_EQ(text(1, 1) + text(2, 1), "");
    grid.SetCell(3, 1, "c");
    grid.SetCell(4, 1, "c");
    grid.SetCell(5, 1, "c");
    EXPECT_TRUE(inner.takeBack());
    EXPECT_EQ(text(3, 1) + text(4, 1) + text(5, 1), "");
}

TEST_F(HistoryBesideAHost, TakesBackAStepInsideACommitAndLeavesTheTypedText) {
    column(3).sDefaultText_Name("default");
    grid.AfterEdit.connect([this](std::int32_t row, std::int32_t) {
        auto step = grid.Step("load");
        grid.SetCell(row, 4, "half");
        vs().RemoveRow(5);
        EXPECT_TRUE(step.takeBack());
    });
    vs().Select(2, 1);
    const Lines before = stateOf(grid);
    key(2, 1, "typed");
    EXPECT_EQ(text(2, 1), "typed");
    EXPECT_EQ(text(2, 4), "");
    EXPECT_EQ(vs().Rows(), 6);
    EXPECT_EQ(history().UndoName(), "录入");
    history().Undo();
    EXPECT_EQ(stateOf(grid), before);
    history().Redo();
    EXPECT_EQ(text(2, 1), "typed");
}

TEST_F(HistoryBesideAHost, SettlesACommitBeforeWhichAStepWasTakenBack) {
    int settled = 0;
    grid.Changes().AddSettler([&](const StepChanges&) { ++settled; });
    grid.ValidData.connect([&](std::int16_t&) {
        auto step = grid.Step("load");
        grid.SetCell(5, 4, "half");
        EXPECT_TRUE(step.takeBack());
    });
    settled = 0;
    grid.CellChanged.connect([](std::int32_t, std::int32_t) {});
    typeInto(2, 1, "typed");
    settled = 0;
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, 1), "typed");
    EXPECT_EQ(settled, 1);
}

TEST_F(HistoryBesideAHost, EndsTheRedoByTakingBack) {
    key(1, 1, "a");
    history().Undo();
    auto step = grid.Step("step");
    EXPECT_TRUE(step.takeBack());
    step.close();
    EXPECT_FALSE(history().CanRedo());
}

// --- Unrecorded

TEST_F(HistoryBesideAHost, RedoesWhatWasUndoneWhileNothingIsRecorded) {
    key(1, 1, "a");
    {
        const auto span = grid.Unrecorded();
        EXPECT_TRUE(history().Undo());
        EXPECT_EQ(text(1, 1), "");
    }
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(text(1, 1), "a");
    {
        const auto span = grid.Unrecorded();
        EXPECT_TRUE(history().Undo());
        EXPECT_TRUE(history().Redo());
    }
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(HistoryBesideAHost, FollowsItsRowsThroughUnrecordedOnes) {
    key(2, 1, "second");
    key(4, 1, "fourth");
    {
        const auto span = grid.Unrecorded();
        vs().InsertRow(1);
        vs().RemoveRow(3);  // the second
        vs().InsertRow(3);
        grid.Rows(12);
        EXPECT_EQ(text(5, 1), "fourth");
    }
    EXPECT_FALSE(history().CanRedo());
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(5, 1), "");
    EXPECT_TRUE(history().Undo()) << "its row has gone: it is passed over";
    EXPECT_EQ(vs().Rows(), 12);
    EXPECT_TRUE(history().Redo());
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(text(5, 1), "fourth");
}

TEST_F(HistoryBesideAHost, BringsARowBackBesideRowsThatWereRemovedUnrecorded) {
    for (std::int32_t row = 1; row < 6; ++row) key(row, 1, std::to_string(row));
    removesRow(3);
    {
        const auto span = grid.Unrecorded();
        vs().RemoveRow(3);
        vs().RemoveRow(2);
    }
    EXPECT_TRUE(history().Undo());
    Lines left;
    for (std::int32_t row = 1; row < vs().Rows(); ++row)
        if (!text(row, 1).empty()) left.push_back(text(row, 1));
    ASSERT_EQ(left.size(), 3U);
    EXPECT_NE(std::find(left.begin(), left.end(), "3"), left.end());
    undoAll();
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(HistoryBesideAHost, LeavesUnrecordedWritesInAHandlerOfAnUndoOutOfTheRedo) {
    key(1, 1, "a");
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (col != 1) return;
        const auto span = grid.Unrecorded();
        vs().Text(row, 4, text(row, 1) + "!");
    });
    history().Undo();
    EXPECT_EQ(text(1, 4), "!");
    history().Redo();
    EXPECT_EQ(text(1, 4), "a!");
    history().Undo();
    EXPECT_EQ(text(1, 4), "!");
}

// --- Rows, columns, documents that have changed meanwhile

TEST_F(HistoryBesideAHost, PassesOverRowsThatTheHostRemovedInEveryKindOfStep) {
    key(2, 1, "a");
    removesRow(3);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("插入行"); });
    desk.rightClick(0, 1);
    desk.onPopup({});
    {
        const auto span = grid.Unrecorded();
        while (vs().Rows() > 1) vs().RemoveRow(vs().Rows() - 1);
    }
    undoAll();
    while (history().Redo()) {
    }
    undoAll();
    EXPECT_LE(vs().Rows(), 7);
}

TEST_F(HistoryBesideAHost, ForgetsWhenColumnsGoInsideAStepAndRecordsTheNextOne) {
    key(1, 1, "a");
    {
        auto step = grid.Step("columns");
        grid.SetCell(1, 5, "x");
        grid.Cols(3);
        grid.SetCell(2, 2, "5");
        EXPECT_FALSE(step.takeBack());
    }
    EXPECT_FALSE(history().CanUndo());
    key(3, 1, "b");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(3, 1), "");
    EXPECT_FALSE(history().CanUndo());
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(HistoryBesideAHost, ForgetsADocumentThatWasReplacedInsideACommit) {
    key(1, 1, "a");
    Connection replaces = grid.AfterEdit.connect([this](std::int32_t, std::int32_t) {
        grid.Clear();
        grid.SetCell(1, 1, "new");
    });
    key(2, 1, "b");
    replaces.disconnect();
    EXPECT_FALSE(history().CanUndo());
    EXPECT_FALSE(history().CanRedo());
    EXPECT_EQ(text(1, 1), "new");
}

TEST_F(HistoryBesideAHost, ForgetsADocumentThatIsReplacedInsideAnUndo) {
    key(1, 1, "a");
    key(2, 1, "b");
    Connection replaces = grid.CellChanged.connect([this, done = false](std::int32_t, std::int32_t) mutable {
        if (std::exchange(done, true)) return;
        grid.Clear();
    });
    history().Undo();
    replaces.disconnect();
    EXPECT_FALSE(history().CanUndo());
    EXPECT_FALSE(history().CanRedo());
    key(2, 1, "c");
    EXPECT_TRUE(history().Undo());
}

TEST_F(HistoryBesideAHost, BringsRowsBackBelowHeadingsThatHaveBecomeMore) {
    for (std::int32_t row = 1; row < 6; ++row) key(row, 1, std::to_string(row));
    removesRow(1);
    grid.FixedRows(2);
    history().Undo();
    EXPECT_EQ(vs().Rows(), 6);
    EXPECT_EQ(vs().FixedRows(), 2);
    EXPECT_EQ(text(1, 1) + text(2, 1) + text(3, 1), "123");
    undoAll();
    for (std::int32_t row = 1; row < 6; ++row) EXPECT_EQ(text(row, 1), "");
}

TEST_F(HistoryBesideAHost, UndoesTheDeletionOfTheOnlyRows) {
    for (std::int32_t row = 1; row < 6; ++row) key(row, 1, "line " + std::to_string(row));
    vs().NumberRows();
    const Lines before = stateOf(grid);
    for (int i = 0; i < 5; ++i) removesRow(1);
    EXPECT_EQ(vs().Rows(), 6);
    const Lines empty = stateOf(grid);
    for (int i = 0; i < 5; ++i) ASSERT_TRUE(history().Undo());
    EXPECT_EQ(stateOf(grid), before);
    for (int i = 0; i < 5; ++i) ASSERT_TRUE(history().Redo());
    EXPECT_EQ(stateOf(grid), empty);
    undoAll();
    EXPECT_EQ(vs().Rows(), 6);
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(HistoryBesideAHost, TakesARowAwayUnderTheCurrentCell) {
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("新增行"); });
    desk.rightClick(0, 1);
    desk.onPopup({});
    vs().Select(vs().Rows() - 1, 4);
    ASSERT_TRUE(history().Undo());
    EXPECT_EQ(vs().Rows(), 6);
    EXPECT_LT(vs().Row(), 6);
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(history().UndoName(), "录入");
}

TEST_F(HistoryBesideAHost, GoesToAColumnThatIsShown) {
    key(2, 3, "x");
    grid.ColHidden(3, true);
    vs().Select(5, 1);
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(2, 3), "");
    EXPECT_FALSE(grid.ColHidden(vs().Col()));
}

TEST_F(HistoryBesideAHost, UndoesInMergedAndHiddenRows) {
    vs().MergeCells(flexMergeFixedOnly);
    vs().MergeCol(1, true);
    for (std::int32_t row = 1; row < 4; ++row) key(row, 1, "same");
    vs().RowHidden(2, true);
    vs().Select(5, 1);
    const Lines before = stateOf(grid);
    {
        const auto step = grid.Step("step");
        vs().RemoveRow(2);
        grid.SetCell(2, 1, "other");
    }
    history().Undo();
    EXPECT_EQ(stateOf(grid), before);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(1, 1) + text(2, 1) + text(3, 1), "");
}

TEST_F(HistoryBesideAHost, FillsNoZerosAndKeepsThoseThatWereThere) {
    grid.bIsShowZero(true);
    key(1, 2, "0");
    const std::string zero = text(1, 2);
    key(1, 2, "5");
    grid.bIsShowZero(false);
    history().Undo();
    EXPECT_EQ(text(1, 2), zero);
    history().Redo();
    EXPECT_EQ(text(1, 2), "5");
}

// --- Listeners that write the same cells

TEST_F(HistoryBesideAHost, UndoesAFillWhoseCellsAListenerRewrites) {
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (col == 3 && !text(row, 3).empty() && !text(row, 3).ends_with("!"))
            vs().Text(row, 3, text(row, 3) + "!");
    });
    key(1, 3, "a");
    vs().Select(1, 3);
    const Lines before = stateOf(grid);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格"); });
    desk.rightClick(0, 1);
    desk.onPopup({});
    ASSERT_EQ(text(5, 3), "a!");
    const Lines after = stateOf(grid);
    for (int round = 0; round < 2; ++round) {
        history().Undo();
        EXPECT_EQ(stateOf(grid), before);
        history().Redo();
        EXPECT_EQ(stateOf(grid), after);
    }
}

TEST_F(HistoryBesideAHost, WritesARefusingHandlerDown) {
    key(1, 1, "a");
    key(1, 1, "b");
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (row == 1 && col == 1 && text(1, 1) != "b") vs().Text(1, 1, "b");
    });
    history().Undo();
    history().Redo();
    EXPECT_EQ(text(1, 1), "b");
    EXPECT_FALSE(history().CanRedo());
}

TEST_F(HistoryBesideAHost, GoesOnWhenAHandlerInsertsAndRemovesRowsMeanwhile) {
    {
        const auto step = grid.Step("several");
        for (std::int32_t row = 1; row < 6; ++row) grid.SetCell(row, 1, std::to_string(row));
    }
    int left = 2;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (left-- > 0) vs().RemoveRow(row);
        if (left == 0) vs().InsertRow(1);
    });
    history().Undo();
    for (std::int32_t row = 1; row < vs().Rows(); ++row) EXPECT_EQ(text(row, 1), "") << row;
    const int rows = vs().Rows();
    history().Redo();
    history().Undo();
    for (std::int32_t row = 1; row < vs().Rows(); ++row) EXPECT_EQ(text(row, 1), "") << row;
    EXPECT_EQ(vs().Rows(), rows);
}

TEST_F(HistoryBesideAHost, CountsNoRowAsUsedForDefaultsThatCameBack) {
    column(3).sDefaultText_Name("default");
    grid.Options().FillsToLastLine(true);
    key(1, 2, "5");
    vs().Select(4, 2);
    ASSERT_EQ(text(4, 3), "default");
    const auto filled = [this] {
        vs().Select(1, 2);
        desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "序列方式填充"); });
        desk.rightClick(0, 1);
        desk.onPopup({});
        return text(4, 2);
    };
    EXPECT_EQ(filled(), "");
    history().Undo();
    history().Redo();
    EXPECT_EQ(filled(), "");
    removesRow(4);
    history().Undo();
    ASSERT_EQ(text(4, 3), "default");
    EXPECT_EQ(filled(), "");
}

// --- What the host is told

TEST_F(HistoryBesideAHost, RaisesAsManyCellChangedAsCellsChangeAndAsksNobody) {
    key(1, 1, "a");
    removesRow(1);
    vs().Select(4, 4);
    grid.AddVsRow.connect([](std::int32_t, bool&) { ADD_FAILURE() << "asked to add"; });
    grid.DeleteVsRow.connect([](std::int32_t, bool&) { ADD_FAILURE() << "asked to delete"; });
    heard();
    history().Undo();
    EXPECT_EQ(named(heard(), "CellChanged"), changed(1, 1));
    history().Redo();
    EXPECT_EQ(named(heard(), "CellChanged"), Nothing);
}

TEST_F(HistoryBesideAHost, KeepsTheDirtyFlagWhenAllIsUndone) {
    grid.Changes().Saved();
    grid.Unmodified();
    key(1, 1, "a");
    history().Undo();
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_TRUE(grid.Changes().empty());
    grid.Unmodified();
    history().Redo();
    EXPECT_FALSE(grid.Changes().empty());
}

TEST_F(HistoryBesideAHost, ClosesAStepWholeWhenTheHostThrowsInIt) {
    int settled = 0;
    grid.Changes().AddSettler([&](const StepChanges&) { ++settled; });
    grid.AfterEdit.connect([this](std::int32_t row, std::int32_t) {
        grid.SetCell(row, 4, "written");
        throw std::runtime_error("boom");
    });
    vs().Select(2, 1);
    desk.type("a");
    try {
        desk.press(Key::Enter);
    } catch (const std::runtime_error&) {
    }
    if (desk.editor().visible) desk.press(Key::Escape);
    EXPECT_EQ(settled, 1);
    EXPECT_TRUE(history().CanUndo());
    undoAll();
    EXPECT_EQ(text(2, 1) + text(2, 4), "");
}

TEST_F(HistoryBesideAHost, ClosesAStepWholeWhenASettlerThrows) {
    int later = 0, told = 0;
    grid.Changes().AddSettler([](const StepChanges&) { throw std::runtime_error("boom"); });
    grid.Changes().AddSettler([&](const StepChanges&) { ++later; });
    grid.Changes().After.connect([&](const StepChanges&) { ++told; });
    auto step = grid.Step("step");
    grid.SetCell(1, 1, "x");
    EXPECT_THROW(step.close(), std::runtime_error);
    EXPECT_EQ(later, 1);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(HistoryBesideAHost, CallsASettlerThatIsAddedByASettler) {
    int added = 0;
    grid.Changes().AddSettler([&](const StepChanges&) {
        for (int i = 0; i < 50; ++i) grid.Changes().AddSettler([&](const StepChanges&) { ++added; });
        if (added > 200) throw std::runtime_error("endless");
    });
    {
        const auto step = grid.Step("step");
        grid.SetCell(1, 1, "x");
    }
    EXPECT_LE(added, 50);
}

TEST_F(HistoryBesideAHost, KeepsStepsWithinItsLimitWhole) {
    history().Limit(20000);
    for (int i = 0; i < 40; ++i) {
        const auto step = grid.Step("pair");
        grid.SetCell(1, 1, std::to_string(i) + std::string(300, 'x'));
        grid.SetCell(2, 1, std::to_string(i) + std::string(300, 'y'));
    }
    const int steps = undoAll();
    EXPECT_GT(steps, 3);
    EXPECT_LT(steps, 39);
    EXPECT_EQ(text(1, 1).substr(0, 2), text(2, 1).substr(0, 2));
    while (history().Redo()) {
    }
    EXPECT_EQ(text(1, 1).substr(0, 2), "39");
    history().Limit(0);
    EXPECT_FALSE(history().CanUndo());
    key(3, 1, "a");
    EXPECT_FALSE(history().CanUndo());
    EXPECT_EQ(text(3, 1), "a");
}

TEST_F(HistoryBesideAHost, HasNoMoreToUndoThanWasDoneWhileItWasOff) {
    history().Enabled(false);
    key(1, 1, "a");
    history().Enabled(true);
    EXPECT_FALSE(history().CanUndo());
    key(2, 1, "b");
    EXPECT_EQ(undoAll(), 1);
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(HistoryBesideAHost, IsSwitchedOnInsideAStep) {
    history().Enabled(false);
    {
        auto step = grid.Step("step");
        grid.SetCell(1, 1, "x");
        history().Enabled(true);
        grid.SetCell(2, 1, "y");
    }
    undoAll();
    EXPECT_EQ(text(2, 1), "");
}
}  // namespace
}  // namespace kxVsGrid::testing
