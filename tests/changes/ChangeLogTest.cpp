// What has changed since a grid was saved, line by line.
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "changes/SavedCopy.h"
#include "grid/FailingAllocator.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class LogOfAGrid : public PlacedGrid {
  protected:
    static constexpr std::int32_t Cols = 70;  ///< more than a word has bits

    LogOfAGrid() {
        grid.Cols(Cols);
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        setUp();
        grid.SetCell(1, 1, "A001", "17");
        grid.SetCell(1, 2, "a bolt that is longer than a slot");
        grid.SetCell(2, 1, "A002", "18");
        grid.SetCell(2, 69, "the last column", "its tag");
        changes().Saved();
    }
    Changes& changes() { return grid.Changes(); }
    History& history() { return grid.History(); }
    RowId id(std::int32_t row) { return vs().IdOf(row); }
    std::string lines() {
        EXPECT_EQ(changes().empty(),
                  changes().Added().empty() && changes().Changed().empty() && changes().Removed().empty());
        return logged(grid).lines;
    }
    std::string line(const char* what, RowId row, const std::string& cells = {}) {
        Difference one;
        one.add(what, row, cells);
        return one.lines;
    }
    void expectNothing() {
        EXPECT_TRUE(changes().empty());
        EXPECT_FALSE(changes().Unknown());
        EXPECT_EQ(lines(), "");
    }
};

TEST(LogOfANewGrid, KnowsNothingBeforeItWasSaved) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    EXPECT_TRUE(grid.Changes().Unknown());
    EXPECT_FALSE(grid.Changes().empty());
    EXPECT_EQ(logged(grid).lines, "");
    grid.Changes().Saved();
    EXPECT_FALSE(grid.Changes().Unknown());
    EXPECT_TRUE(grid.Changes().empty());
}

TEST_F(LogOfAGrid, TellsWhatACellHeldWhenItWasSaved) {
    grid.SetCell(1, 1, "A009", "17");
    grid.SetCell(1, 1, "A010", "19");
    grid.SetCell(1, 2, "");
    grid.SetCell(1, 3, "new");
    const std::vector<ChangedRow> changed = changes().Changed();
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_EQ(changed[0].row, id(1));
    ASSERT_EQ(changed[0].cells.size(), 4U);
    EXPECT_EQ(changed[0].cells[0].col, 1);
    EXPECT_EQ(changed[0].cells[0].part, CellPart::Text);
    EXPECT_EQ(changed[0].cells[0].before, "A001");
    EXPECT_EQ(changed[0].cells[1].col, 1);
    EXPECT_EQ(changed[0].cells[1].part, CellPart::Tag);
    EXPECT_EQ(changed[0].cells[1].before, "17");
    EXPECT_EQ(changed[0].cells[2].before, "a bolt that is longer than a slot");
    EXPECT_EQ(changed[0].cells[3].col, 3);
    EXPECT_EQ(changed[0].cells[3].before, "");
    EXPECT_TRUE(changes().Added().empty());
    EXPECT_TRUE(changes().Removed().empty());
    EXPECT_FALSE(changes().empty());
}

TEST_F(LogOfAGrid, TellsColumnsInOrderHoweverManyThereAre) {
    for (const std::int32_t col : {69, 64, 63, 3, 1}) grid.SetCell(2, col, "x" + std::to_string(col), "t");
    EXPECT_EQ(lines(), line("changed ", id(2),
                            " 1text='A002' 1tag='18' 3text='' 3tag='' 63text='' 63tag='' 64text='' 64tag=''"
                            " 69text='the last column' 69tag='its tag'"));
}

TEST_F(LogOfAGrid, ForgetsAChangeThatWasWrittenBack) {
    grid.SetCell(1, 1, "A009", "17");
    grid.SetCell(2, 40, "x", "y");
    grid.SetCell(2, 40, "");
    EXPECT_EQ(lines(), line("changed ", id(1), " 1text='A001'"));
    grid.SetCell(1, 1, "A001", "17");
    expectNothing();
    grid.SetCell(1, 1, "A008", "17");
    EXPECT_EQ(lines(), line("changed ", id(1), " 1text='A001'"));
}

TEST_F(LogOfAGrid, CountsARowAsAddedOnceItHoldsSomething) {
    vs().InsertRow(2);
    grid.Rows(grid.Rows() + 1);
    expectNothing();
    grid.SetCell(2, 1, "", "a tag is enough");
    const std::int32_t last = grid.Rows() - 1;
    grid.SetCell(last, 5, "5");
    EXPECT_EQ(changes().Added(), (std::vector{id(2), id(last)}));
    EXPECT_TRUE(changes().Changed().empty());
    grid.SetCell(2, 1, "", "");
    EXPECT_EQ(changes().Added(), std::vector{id(last)});
}

TEST_F(LogOfAGrid, CountsAnEmptyRowThatWasThereAsAddedToo) {
    grid.SetCell(4, 1, "A004");
    EXPECT_EQ(lines(), line("added ", id(4)));
}

TEST_F(LogOfAGrid, NamesAddedAndChangedRowsAsTheyStand) {
    grid.SetCell(5, 1, "below");
    grid.SetCell(4, 1, "above");
    grid.SetCell(2, 1, "A020", "18");
    grid.SetCell(1, 1, "A010", "17");
    EXPECT_EQ(changes().Added(), (std::vector{id(4), id(5)}));
    ASSERT_EQ(changes().Changed().size(), 2U);
    EXPECT_EQ(changes().Changed()[0].row, id(1));
    EXPECT_EQ(changes().Changed()[1].row, id(2));
}

TEST_F(LogOfAGrid, HoldsNothingOfARowThatCameAndWent) {
    vs().InsertRow(2);
    grid.SetCell(2, 1, "for a moment", "tag");
    EXPECT_FALSE(changes().empty());
    vs().RemoveRow(2);
    expectNothing();
}

TEST_F(LogOfAGrid, TellsAllThatARemovedRowHeldWhenItWasSaved) {
    const RowId row = id(2);
    grid.SetCell(2, 1, "changed before", "18");
    grid.SetCell(2, 30, "and this is new");
    vs().RemoveRow(2);
    const std::vector<RemovedRow> removed = changes().Removed();
    ASSERT_EQ(removed.size(), 1U);
    EXPECT_EQ(removed[0].row, row);
    ASSERT_EQ(removed[0].cells.size(), 2U);
    EXPECT_EQ(removed[0].cells[0].col, 1);
    EXPECT_EQ(removed[0].cells[0].text, "A002");
    EXPECT_EQ(removed[0].cells[0].tag, "18");
    EXPECT_EQ(removed[0].cells[1].col, 69);
    EXPECT_EQ(removed[0].cells[1].text, "the last column");
    EXPECT_EQ(removed[0].cells[1].tag, "its tag");
    EXPECT_TRUE(changes().Changed().empty());
}

TEST_F(LogOfAGrid, PassesOverARemovedRowThatHeldNothingWhenItWasSaved) {
    grid.SetCell(3, 1, "typed since");
    vs().RemoveRow(3);
    vs().RemoveRow(3);
    expectNothing();
}

TEST_F(LogOfAGrid, CountsALineWhoseCellsWereAllEmptiedAsRemoved) {
    const RowId row = id(1);
    grid.SetCell(1, 1, "");
    grid.SetCell(1, 2, "");
    EXPECT_EQ(lines(), line("removed ", row, " 1='A001','17' 2='a bolt that is longer than a slot',''"));
    grid.SetCell(1, 5, "another line");
    EXPECT_EQ(lines(), line("changed ", row,
                            " 1text='A001' 1tag='17' 2text='a bolt that is longer than a slot' 5text=''"));
}

TEST_F(LogOfAGrid, NamesRemovedRowsInTheOrderOfTheirIds) {
    const RowId second = id(2);
    const RowId first = id(1);
    vs().RemoveRow(1);
    vs().RemoveRow(1);
    ASSERT_EQ(changes().Removed().size(), 2U);
    EXPECT_EQ(changes().Removed()[0].row, second);
    EXPECT_EQ(changes().Removed()[1].row, first);
}

TEST_F(LogOfAGrid, IsEmptyAgainWhenAllIsUndoneAndTellsItAgainWhenRedone) {
    desk.focusGrid();
    vs().Select(1, 1);
    desk.type("A009").press(Key::Enter);
    vs().Select(2, 1);
    desk.press(Key::Delete);
    ASSERT_EQ(vs().Text(2, 1), "");
    const std::string all = lines();
    EXPECT_EQ(changes().Removed().size(), 1U);
    EXPECT_EQ(changes().Changed().size(), 1U);
    while (history().CanUndo()) ASSERT_TRUE(history().Undo());
    expectNothing();
    while (history().CanRedo()) ASSERT_TRUE(history().Redo());
    EXPECT_EQ(lines(), all);
    changes().Saved();
    expectNothing();
    while (history().CanUndo()) ASSERT_TRUE(history().Undo());
    EXPECT_EQ(changes().Added().size(), 1U);
    EXPECT_EQ(changes().Changed().size(), 1U);
}

TEST_F(LogOfAGrid, KnowsARowThatComesBackAlsoWhenNobodyHadAskedForItsId) {
    desk.focusGrid();
    {
        auto step = grid.Step("replaced");
        grid.Rows(1);
        grid.Rows(4);
        grid.SetCell(1, 1, "another one");
    }
    EXPECT_EQ(changes().Removed().size(), 2U);
    EXPECT_EQ(changes().Added(), std::vector{id(1)});
    ASSERT_TRUE(history().Undo());
    expectNothing();
    EXPECT_EQ(text(1, 1), "A001");
}

TEST_F(LogOfAGrid, IsTheSameAfterAStepThatWasTakenBack) {
    auto step = grid.Step("not to stand");
    vs().RemoveRow(1);
    vs().InsertRow(3);
    grid.SetCell(3, 3, "x");
    EXPECT_FALSE(changes().empty());
    ASSERT_TRUE(step.takeBack());
    expectNothing();
}

TEST_F(LogOfAGrid, PassesOverThePlaceOfARow) {
    vs().MoveRows(1, 1, 4);
    vs().Reorder(1, std::vector<std::int32_t>{3, 1, 2});
    expectNothing();
    const RowId first = id(4);
    const RowId second = id(2);
    vs().Text(4, 3, "written");
    vs().MoveRows(4, 1, 1);
    vs().Text(3, 3, "written too");
    EXPECT_EQ(lines(), line("changed ", first, " 3text=''") + line("changed ", second, " 3text=''"));
    vs().Text(1, 3, "");
    EXPECT_EQ(lines(), line("changed ", second, " 3text=''"));
}

TEST_F(LogOfAGrid, TellsOfUnrecordedWritesAndOfAGridWithoutHistory) {
    {
        const auto span = grid.Unrecorded();
        grid.SetCell(1, 1, "A009", "17");
    }
    history().Enabled(false);
    grid.SetCell(2, 1, "A020", "18");
    EXPECT_EQ(changes().Changed().size(), 2U);
}

TEST_F(LogOfAGrid, TellsWhatWasClearedAtOnce) {
    const RowId first = id(1);
    const RowId second = id(2);
    vs().ClearText(1, 2);
    EXPECT_EQ(lines(), line("removed ", first, " 1='A001','17' 2='a bolt that is longer than a slot',''") +
                           line("removed ", second, " 1='A002','18' 69='the last column','its tag'"));
    grid.SetCell(1, 1, "A001", "17");
    grid.SetCell(1, 2, "a bolt that is longer than a slot");
    EXPECT_EQ(lines(), line("removed ", second, " 1='A002','18' 69='the last column','its tag'"));
}

TEST_F(LogOfAGrid, TellsOfAGridThatTheHostClearedAndFilledAnew) {
    grid.Clear();
    EXPECT_EQ(changes().Removed().size(), 2U);
    grid.Rows(3);
    grid.SetCell(1, 1, "A001", "17");
    EXPECT_EQ(changes().Removed().size(), 2U);
    EXPECT_EQ(changes().Added(), std::vector{id(1)});
}

TEST_F(LogOfAGrid, LooksAtDataRowsAlone) {
    grid.SetCell(0, 1, "a caption");
    expectNothing();
}

TEST_F(LogOfAGrid, IsNotTouchedByMoreColumnsAndUnknownWithFewer) {
    grid.SetCell(1, 1, "A009", "17");
    grid.Cols(Cols + 1);
    EXPECT_EQ(lines(), line("changed ", id(1), " 1text='A001'"));
    grid.SetCell(1, Cols, "in the new one");
    grid.Cols(Cols);
    EXPECT_TRUE(changes().Unknown());
    EXPECT_FALSE(changes().empty());
    EXPECT_EQ(logged(grid).lines, "");
    changes().Saved();
    expectNothing();
    grid.SetCell(1, 1, "A001", "17");
    EXPECT_EQ(lines(), line("changed ", id(1), " 1text='A009'"));
}

TEST_F(LogOfAGrid, IsUnknownWhileOtherRowsAreHeadings) {
    grid.FixedRows(2);
    EXPECT_TRUE(changes().Unknown());
    grid.SetCell(1, 1, "A009", "17");
    grid.FixedRows(1);
    EXPECT_EQ(lines(), line("changed ", id(1), " 1text='A001'"));
    vs().InsertRow(0);
    EXPECT_TRUE(changes().Unknown());
    changes().Saved();
    expectNothing();
    vs().RemoveRow(0);
    EXPECT_TRUE(changes().Unknown());
}

TEST_F(LogOfAGrid, IsUnknownAndHearsNothingFromForgettingUntilItIsSaved) {
    grid.SetCell(1, 1, "A009", "17");
    changes().Forget();
    EXPECT_TRUE(changes().Unknown());
    EXPECT_FALSE(changes().empty());
    grid.SetCell(2, 1, "A010");
    vs().RemoveRow(3);
    EXPECT_TRUE(changes().Unknown());
    EXPECT_TRUE(changes().Changed().empty());
    changes().Saved();
    expectNothing();
    grid.SetCell(2, 1, "A011");
    EXPECT_EQ(lines(), line("changed ", id(2), " 1text='A010'"));
}

TEST_F(LogOfAGrid, CountsNothingThatIsComputed) {
    vs().NumberRows();
    vs().ComputedText(3, 4, [] { return std::string("computed"); });
    expectNothing();
    vs().ComputedText(1, 1, [] { return std::string("instead of a text"); });
    EXPECT_EQ(lines(), line("changed ", id(1), " 1text='A001'"));
}

TEST_F(LogOfAGrid, LeavesTheDirtyFlagAlone) {
    desk.focusGrid();
    vs().Select(1, 1);
    desk.type("A009").press(Key::Enter);
    ASSERT_TRUE(grid.bIsDirty());
    changes().Saved();
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(LogOfAGrid, StaysSmallUnderRowsThatComeAndGo) {
    for (int n = 0; n < 300; ++n) {
        vs().InsertRow(3);
        grid.SetCell(3, 1, "for a moment");
        vs().RemoveRow(3);
        if (n % 7 == 0) grid.SetCell(1, 1, "A" + std::to_string(n), "17");
    }
    EXPECT_EQ(lines(), line("changed ", id(1), " 1text='A001'"));
}

/// Whatever fails: what is told is right, or said to be unknown, and the grid holds what was written.
TEST(LogShortOfMemory, IsRightOrUnknown) {
    const auto longText = [](int n) { return "a text that fits into no slot " + std::to_string(n); };
    int unknown = 0;
    bool failed = true;
    for (std::size_t point = 1; failed && point < 5'000; ++point) {
        headless::Desk desk;
        kxGrid& grid = desk.place();
        grid.Cols(6);
        grid.Rows(30);
        for (int row = 1; row < 30; ++row) grid.Grid().Text(row, 1, longText(row));
        SavedCopy copy(grid);
        copy.take();
        grid.Changes().Saved();
        int done = 0;
        {
            const FailingAllocation failing(point);
            try {
                for (int row = 20; row > 0; --row, ++done) grid.Grid().Text(row, 2, "short");
                for (int row = 20; row > 2; --row, ++done) grid.Grid().Text(row, 1, longText(-row));
                grid.Grid().RemoveRow(5);
                grid.Grid().ClearText(2, 4);
                grid.Grid().Data(1, 1, longText(100));
                done = 1000;
            } catch (const std::bad_alloc&) {
            }
            failed = failing.failed();
        }
        const bool lost = grid.Changes().Unknown();
        if (lost) {
            ++unknown;
            EXPECT_FALSE(grid.Changes().empty());
            EXPECT_EQ(done, 1000) << "a write was broken";
        } else {
            EXPECT_EQ(logged(grid), copy.difference());
        }
        grid.Changes().Saved();
        EXPECT_TRUE(grid.Changes().empty());
    }
    EXPECT_FALSE(failed);
    EXPECT_GT(unknown, 3);
}

TEST(LogShortOfMemory, CanBeAskedAgain) {
    bool failed = true;
    for (std::size_t point = 1; failed && point < 1'000; ++point) {
        headless::Desk desk;
        kxGrid& grid = desk.place();
        {
            const FailingAllocation failing(point);
            grid.Changes().Saved();
            failed = failing.failed();
        }
        EXPECT_EQ(grid.Changes().Unknown(), failed);
        grid.Changes().Saved();
        grid.Grid().Text(1, 1, "x");
        EXPECT_EQ(grid.Changes().Added().size(), 1U);
    }
    EXPECT_FALSE(failed);
}
}  // namespace
}  // namespace kxVsGrid::testing
