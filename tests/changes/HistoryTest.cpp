// Undo and redo: act by act, with all that belongs to an act.
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "changes/HistoryOfAGrid.h"
#include "grid/FailingAllocator.h"

namespace kxVsGrid::testing {
namespace {

TEST_F(HistoryOfAGrid, BringsTheTextAndTheTotalOfBeforeBackAndGoesThere) {
    key(1, 2, "5");
    key(2, 2, "7");
    ASSERT_EQ(grid.ReadSum(2), "12");
    EXPECT_EQ(history().UndoName(), "录入");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(2, 2), "");
    EXPECT_EQ(grid.ReadSum(2), "5");
    EXPECT_EQ(vs().Row(), 2);
    EXPECT_EQ(vs().Col(), 2);
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(1, 2), "");
    EXPECT_FALSE(history().CanUndo());
    EXPECT_FALSE(history().Undo());
    EXPECT_TRUE(history().Redo());
    EXPECT_TRUE(history().Redo());
    EXPECT_FALSE(history().CanRedo());
    EXPECT_EQ(text(1, 2), "5");
    EXPECT_EQ(text(2, 2), "7");
    EXPECT_EQ(grid.ReadSum(2), "12");
}

TEST_F(HistoryOfAGrid, HoldsWhatTheHostWritesInACommitAsPartOfIt) {
    grid.AfterEdit.connect(
        [this](std::int32_t row, std::int32_t) { grid.SetCell(row, 3, "by the host", "tag"); });
    key(1, 1, "a");
    ASSERT_EQ(text(1, 3), "by the host");
    history().Undo();
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(text(1, 3), "");
    EXPECT_EQ(tag(1, 3), "");
    history().Redo();
    EXPECT_EQ(text(1, 1), "a");
    EXPECT_EQ(text(1, 3), "by the host");
    EXPECT_EQ(tag(1, 3), "tag");
}

/// A grid whose writes nobody hears of one by one.
class HistoryOfAFill : public ::testing::Test {
  protected:
    HistoryOfAFill() {
        grid.Cols(40);
        grid.Rows(6);
        for (std::int32_t row = 1; row < 6; ++row) grid.SetCell(row, 1, "line");
        grid.Changes().Saved();
    }
    /// The columns of a row that hold a text or a tag, and which of the two.
    std::string held(std::int32_t row) {
        std::string found;
        for (std::int32_t col = 2; col < 40; ++col) {
            if (!grid.Grid().Text(row, col).empty()) found += std::to_string(col) + " ";
            if (!grid.Grid().Data(row, col).empty()) found += std::to_string(col) + "tag ";
        }
        return found;
    }
    headless::Desk desk;
    kxGrid& grid = desk.place();
};

TEST_F(HistoryOfAFill, TakesBackWhatWasFilledAndNothingElse) {
    {
        auto step = grid.Step("fill");
        for (const std::int32_t col : {3, 38, 2}) grid.SetCell(2, col, "x", "tag");
        {
            const auto span = grid.Unrecorded();
            grid.SetCell(2, 4, "stays");
        }
        grid.SetCell(2, 5, "y");
        grid.SetCell(3, 2, "z");
    }
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(held(2), "4 ");
    EXPECT_EQ(held(3), "");
    EXPECT_EQ(grid.Grid().Row(), 2);
    EXPECT_EQ(grid.Grid().Col(), 3);
    EXPECT_EQ(grid.Changes().Changed().size(), 1U);
    EXPECT_TRUE(grid.History().Redo());
    EXPECT_EQ(held(2), "2 2tag 3 3tag 4 5 38 38tag ");
    EXPECT_EQ(grid.Changes().Changed().size(), 2U);
}

TEST_F(HistoryOfAFill, PartsWhatStepsFillInOneRow) {
    auto outer = grid.Step("outer");
    grid.SetCell(2, 2, "outer");
    auto inner = grid.Step("inner");
    grid.SetCell(2, 3, "inner");
    ASSERT_TRUE(inner.takeBack());
    EXPECT_EQ(held(2), "2 ");
    inner.close();
    grid.SetCell(2, 4, "outer");
    outer.close();
    {
        auto next = grid.Step("next");
        grid.SetCell(2, 5, "next");
    }
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(held(2), "2 4 ");
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(held(2), "");
}

TEST_F(HistoryOfAFill, KnowsAtOnceThatNothingCanBeRedoneAnyMore) {
    {
        auto step = grid.Step("first");
        grid.SetCell(2, 2, "x");
        grid.SetCell(2, 2, "y");
        grid.SetCell(2, 3, "z");
    }
    {
        auto step = grid.Step("second");
        grid.SetCell(3, 2, "x");
    }
    ASSERT_TRUE(grid.History().Undo());
    grid.SetCell(3, 3, "written outside of steps");
    EXPECT_FALSE(grid.History().CanRedo());
    EXPECT_EQ(grid.History().UndoName(), "first");
    grid.Grid().InsertRow(1);
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(held(1) + held(2) + held(3), "");
    EXPECT_TRUE(grid.Changes().empty());
}

TEST_F(HistoryOfAGrid, GivesBackTheNumberThatARefusedExpressionHasEmptied) {
    key(1, 2, "12");
    typeInto(1, 2, "19x5");
    desk.press(Key::Enter);
    ASSERT_EQ(text(1, 2), "");
    ASSERT_TRUE(desk.editor().visible);
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(1, 2), "12");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(grid.ReadSum(2), "12");
}

TEST_F(HistoryOfAGrid, BringsADeletedRowBackAsItWas) {
    key(3, 1, "third");
    vs().Data(3, 4, "hidden tag");
    vs().RowHeight(3, 777);
    vs().CellBackColor(3, 1, Yellow);
    vs().CellAlignment(3, 2, flexAlignLeftTop);
    vs().MergeRow(3, true);
    const RowId id = vs().IdOf(3);
    vs().Select(3, 1);
    desk.press(Key::Delete);
    ASSERT_EQ(vs().RowOf(id), -1);
    EXPECT_EQ(history().UndoName(), "删除行");
    ASSERT_TRUE(history().Undo());
    EXPECT_EQ(vs().RowOf(id), 3);
    EXPECT_EQ(vs().Rows(), 6) << "the row that refilled the grid goes";
    EXPECT_EQ(text(3, 1), "third");
    EXPECT_EQ(tag(3, 4), "hidden tag");
    EXPECT_EQ(vs().RowHeight(3), 777);
    EXPECT_EQ(vs().CellBackColor(3, 1), color(Yellow));
    EXPECT_EQ(vs().CellAlignment(3, 2), flexAlignLeftTop);
    EXPECT_TRUE(vs().MergeRow(3));
    EXPECT_EQ(vs().Row(), 3);
    EXPECT_EQ(text(3, 0), "3");
    history().Redo();
    EXPECT_EQ(vs().RowOf(id), -1);
    EXPECT_EQ(vs().Rows(), 6);
    history().Undo();
    EXPECT_EQ(text(3, 1), "third");
}

TEST_F(HistoryOfAGrid, FollowsRowsThatTheHostHasMovedAndPassesOverThoseThatHaveGone) {
    key(2, 1, "kept");
    key(3, 1, "gone");
    {
        const auto span = grid.Unrecorded();
        vs().InsertRow(1);
        vs().RemoveRow(4);
        EXPECT_TRUE(history().CanUndo());
    }
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(3, 1), "kept");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(3, 1), "");
}

TEST_F(HistoryOfAGrid, HasTheMenusFillAsOneStep) {
    key(1, 2, "5");
    vs().Select(1, 2);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "序列方式填充"); });
    desk.press(Key::Menu);
    ASSERT_EQ(text(5, 2), "9");
    EXPECT_EQ(history().UndoName(), "序列填充");
    history().Undo();
    for (std::int32_t row = 2; row < 6; ++row) EXPECT_EQ(text(row, 2) + tag(row, 2), "");
    EXPECT_EQ(grid.ReadSum(2), "5");
    history().Redo();
    EXPECT_EQ(text(5, 2), "9");
    EXPECT_EQ(tag(5, 2), "-1");
}

TEST_F(HistoryOfAGrid, HasATogglesStep) {
    vs().Select(2, 5);
    desk.type(" ");
    ASSERT_EQ(text(2, 5), "-1");
    EXPECT_EQ(history().UndoName(), "勾选");
    history().Undo();
    EXPECT_EQ(text(2, 5), "");
}

TEST_F(HistoryOfAGrid, CountsARowThatATypedKeyAppendedToWhatIsTyped) {
    adds = true;
    vs().Select(5, 1);
    desk.type("a");
    ASSERT_EQ(vs().Rows(), 7);
    EXPECT_EQ(history().UndoName(), "新增行");
    adds = false;
    desk.press(Key::Enter);
    EXPECT_EQ(history().UndoName(), "录入");
    history().Undo();
    EXPECT_EQ(vs().Rows(), 6);
    EXPECT_EQ(text(5, 1), "");
    EXPECT_FALSE(history().CanUndo());
}

TEST_F(HistoryOfAGrid, KeepsAnAppendedRowApartWhenTheTypingIsGivenUp) {
    adds = true;
    vs().Select(5, 1);
    desk.type("a").press(Key::Escape);
    adds = false;
    key(1, 1, "b");
    EXPECT_EQ(history().UndoName(), "录入");
    history().Undo();
    EXPECT_EQ(vs().Rows(), 7);
    EXPECT_EQ(history().UndoName(), "新增行");
    history().Undo();
    EXPECT_EQ(vs().Rows(), 6);
}

TEST_F(HistoryOfAGrid, UndoesAMovesDefaultTextsAndFillsNoneItself) {
    column(3).sDefaultText_Name("default");
    vs().Select(3, 1);
    ASSERT_EQ(text(3, 3), "default");
    EXPECT_EQ(history().UndoName(), "默认值");
    key(3, 1, "a");
    history().Undo();
    ASSERT_EQ(text(3, 1), "");
    history().Undo();
    EXPECT_EQ(text(3, 3), "");
    EXPECT_EQ(vs().Row(), 3);
}

TEST_F(HistoryOfAGrid, ShowsTheRowNumberAgainThatATextHasStoodOver) {
    vs().NumberRows();
    {
        const auto step = grid.Step("标记");
        vs().Text(2, 0, "*");
    }
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(2, 0), "2");
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(text(2, 0), "*");
}

TEST_F(HistoryOfAGrid, EndsTheRedoWithTheNextWrite) {
    key(1, 1, "a");
    key(2, 1, "b");
    history().Undo();
    ASSERT_TRUE(history().CanRedo());
    grid.SetCell(4, 4, "host");
    EXPECT_FALSE(history().CanRedo());
    history().Undo();
    EXPECT_EQ(text(4, 4), "") << "it has joined the newest step";
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(HistoryOfAGrid, KeepsNothingOfWhatIsWrittenBeforeTheFirstStep) {
    grid.SetCell(1, 1, "loaded");
    EXPECT_FALSE(history().CanUndo());
    {
        const auto step = grid.Step("套用价格");
        grid.SetCell(1, 1, "x");
        EXPECT_FALSE(history().CanUndo()) << "a step is open";
        EXPECT_FALSE(history().Undo());
    }
    EXPECT_EQ(history().UndoName(), "套用价格");
    history().Undo();
    EXPECT_EQ(text(1, 1), "loaded");
    EXPECT_EQ(history().RedoName(), "套用价格");
}

TEST_F(HistoryOfAGrid, TakesAHostsStepBackAlsoWhereItIsOff) {
    history().Enabled(false);
    grid.SetCell(1, 1, "before", "tag");
    {
        auto step = grid.Step("outer");
        grid.SetCell(1, 1, "outer");
        {
            auto inner = grid.Step("inner");
            grid.SetCell(1, 1, "inner");
            grid.SetCell(2, 1, "inner");
            vs().RemoveRow(4);
            EXPECT_TRUE(inner.takeBack());
            EXPECT_EQ(text(1, 1), "outer");
            EXPECT_EQ(text(2, 1), "");
            EXPECT_EQ(vs().Rows(), 6);
        }
        EXPECT_TRUE(step.takeBack());
        EXPECT_EQ(text(1, 1), "before");
        EXPECT_EQ(tag(1, 1), "tag");
        step.close();
        EXPECT_FALSE(step.takeBack());
    }
    EXPECT_FALSE(history().CanUndo());
}

TEST_F(HistoryOfAGrid, DoesNothingOnAReadOnlyGrid) {
    key(1, 1, "a");
    grid.Editable(false);
    EXPECT_FALSE(history().CanUndo());
    EXPECT_FALSE(history().Undo());
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(HistoryOfAGrid, ForgetsWithTheDocument) {
    for (const auto& forgets :
         std::vector<std::function<void()>>{[&] { grid.Clear(); }, [&] { grid.Cols(7); },
                                            [&] { history().Forget(); }, [&] { history().Enabled(false); }}) {
        key(1, 1, "a");
        key(2, 1, "b");
        history().Undo();
        forgets();
        EXPECT_FALSE(history().CanUndo());
        EXPECT_FALSE(history().CanRedo());
        vs().Text(1, 1, "");
    }
}

TEST_F(HistoryOfAGrid, LetsTheOldestStepsGoWholeAtItsLimit) {
    history().Limit(4000);
    for (int i = 0; i < 50; ++i) key(1, 1, std::to_string(i) + std::string(200, 'x'));
    int steps = 0;
    while (history().Undo()) ++steps;
    EXPECT_GT(steps, 2);
    EXPECT_LT(steps, 20);
    EXPECT_EQ(text(1, 1), std::to_string(49 - steps) + std::string(200, 'x'));
}

TEST_F(HistoryOfAGrid, SaysThatItForgotWhenAStepIsTooLarge) {
    int forgot = 0;
    history().Forgot.connect([&] { ++forgot; });
    key(1, 1, "a");
    history().Limit(2000);
    {
        const auto step = grid.Step("large");
        grid.SetCell(1, 1, std::string(5000, 'x'));
        grid.SetCell(1, 1, "y");
    }
    EXPECT_EQ(forgot, 1);
    EXPECT_EQ(text(1, 1), "y");
    EXPECT_FALSE(history().CanUndo());
}

TEST_F(HistoryOfAGrid, CommitsAnOpenEditorFirst) {
    key(1, 1, "a");
    typeInto(2, 1, "b");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(2, 1), "");
    EXPECT_EQ(text(1, 1), "a");
    EXPECT_EQ(history().RedoName(), "录入");
    history().Redo();
    EXPECT_EQ(text(2, 1), "b");
}

TEST_F(HistoryOfAGrid, KeepsARefusedCodeInTheEditor) {
    key(1, 1, "a");
    refusesCodes(3);
    typeInto(2, 3, "nothing");
    desk.press(Key::Enter);
    ASSERT_TRUE(desk.editor().refused);
    EXPECT_FALSE(history().Undo());
    EXPECT_EQ(desk.editor().text, "nothing");
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(HistoryOfAGrid, DoesNothingFromInsideAnAct) {
    key(1, 1, "a");
    bool undone = true;
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { undone = history().Undo(); });
    key(2, 1, "b");
    EXPECT_FALSE(undone);
    EXPECT_EQ(text(2, 1), "b");
}

TEST_F(HistoryOfAGrid, LetsHandlersWriteElsewhereMeanwhile) {
    key(1, 1, "a");
    key(1, 1, "b");
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (col == 1) {
            vs().Text(row, 1, "mine");
            vs().Text(row, 4, "seen");
        }
    });
    history().Undo();
    EXPECT_EQ(text(1, 4), "seen");
    history().Redo();
    EXPECT_EQ(text(1, 4), "");
}

TEST_F(HistoryOfAGrid, IsWholeWhenAHandlerThrows) {
    {
        const auto step = grid.Step("several");
        for (std::int32_t row = 1; row < 5; ++row) grid.SetCell(row, 1, "x");
    }
    auto boom = grid.CellChanged.connect(Boom());
    EXPECT_THROW(history().Undo(), std::runtime_error);
    for (std::int32_t row = 1; row < 5; ++row) EXPECT_EQ(text(row, 1), "");
    boom.disconnect();
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(text(4, 1), "x");
}

TEST_F(HistoryOfAGrid, SurvivesTheEndOfItsControl) {
    key(1, 1, "a");
    grid.CellChanged.connect([this](std::int32_t, std::int32_t) { desk.remove(grid); });
    history().Undo();
    SUCCEED();
}

TEST_F(HistoryOfAGrid, SettlesAStepOnceAndTellsWhatItChanged) {
    std::vector<std::string> told;
    grid.Changes().AddSettler([&](const StepChanges& changes) {
        for (const std::int32_t row : changes.rows) grid.SetCell(row, 2, text(row, 1) + "1");
    });
    grid.Changes().After.connect([&](const StepChanges& changes) {
        std::string entry(changes.name);
        for (const std::int32_t row : changes.rows) entry += " " + std::to_string(row);
        entry += ":";
        for (const std::int32_t col : changes.cols) entry += " " + std::to_string(col);
        told.push_back(entry);
    });
    key(2, 1, "4");
    EXPECT_EQ(text(2, 2), "41");
    EXPECT_EQ(grid.ReadSum(2), "41");
    history().Undo();
    EXPECT_EQ(text(2, 1) + text(2, 2), "");
    EXPECT_EQ(told, (std::vector<std::string>{"录入 2: 1 2", "录入 2: 1 2"}));
}

/// Each allocation of a step fails once: the step stands as far as it came, and is undone whole or not kept.
TEST(HistoryShortOfMemory, UndoesAStepWholeOrForgetsIt) {
    const std::string longText = "a text that fits into no slot of a cell";
    bool failed = true;
    for (std::size_t point = 1; failed && point < 2000; ++point) {
        SCOPED_TRACE(point);
        headless::Desk desk;
        kxGrid& grid = desk.place();
        grid.Grid().Text(3, 2, longText);
        {
            const auto step = grid.Step("first");
            grid.Grid().Text(1, 1, "first");
        }
        const auto work = [&] {
            const auto step = grid.Step("a second step with a long name");
            grid.Grid().Cell(1, 1, longText, longText);
            grid.Grid().RemoveRow(3);
        };
        {
            const FailingAllocation failing(point);
            try {
                work();
            } catch (const std::bad_alloc&) {
            }
            failed = failing.failed();
        }
        if (!grid.History().CanUndo()) continue;
        if (grid.History().UndoName() != "first") {
            ASSERT_TRUE(grid.History().Undo());
        }
        EXPECT_EQ(grid.Grid().Text(1, 1), "first");
        EXPECT_EQ(grid.Grid().Data(1, 1), "");
        EXPECT_EQ(grid.Grid().Rows(), 6);
        EXPECT_EQ(grid.Grid().Text(3, 2), longText);
    }
    EXPECT_FALSE(failed);
}
}  // namespace
}  // namespace kxVsGrid::testing
