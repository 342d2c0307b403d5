// Rows and columns come and go under an open editor: it follows its cell, or goes with it.
#include "kit/ClerkTest.h"
#include "kit/Life.h"

namespace kxVsGrid::testing {
namespace {

class FollowedCell : public ClerkTest {
  protected:
    FollowedCell() {
        rows(20);
        fill(10, 3, "old", "tag");
        openAt(10, 3);
        desk.type("abc");
    }
    void expectCommitGoesTo(Cell cell) {
        EXPECT_EQ(current(), cell);
        EXPECT_TRUE(open());
        EXPECT_EQ(desk.editor().text, "abc");
        heard();
        EXPECT_TRUE(grid.ValidTextData());
        EXPECT_EQ(heard(), changed(cell.row, cell.col) + edited(cell.row, cell.col));
        EXPECT_EQ(text(cell.row, cell.col), "abc");
        EXPECT_EQ(tag(cell.row, cell.col), "tag");
    }
    void expectGoneWithoutACommit() {
        EXPECT_FALSE(open());
        EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
        EXPECT_FALSE(grid.bIsDirty());
        // The grid is usable again.
        desk.focusGrid();
        desk.type("next").press(Key::Enter);
        EXPECT_EQ(named(heard(), "AfterEdit").size(), 1u);
        EXPECT_FALSE(open());
    }
};

TEST_F(FollowedCell, MovesDownWithARowInsertedBeforeIt) {
    const std::int32_t top = desk.editor().rect.top;
    grid.Grid().InsertRow(5);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.editor().rect.top, top + 300) << desk.ascii();
    expectCommitGoesTo({11, 3});
    EXPECT_EQ(text(10, 3), "");
}

TEST_F(FollowedCell, MovesDownWithARowInsertedAtIt) {
    grid.Grid().InsertRow(10);
    expectCommitGoesTo({11, 3});
}

TEST_F(FollowedCell, StaysWithARowInsertedBehindIt) {
    grid.Grid().InsertRow(11);
    expectCommitGoesTo({10, 3});
}

TEST_F(FollowedCell, GoesWithItsRowToAnotherPlace) {
    const std::int32_t top = desk.editor().rect.top;
    grid.Grid().MoveRows(10, 1, 5);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.editor().rect.top, top - 5 * 300) << desk.ascii();
    expectCommitGoesTo({5, 3});
    EXPECT_EQ(text(10, 3), "");
}

TEST_F(FollowedCell, MovesUpWithARowThatGoesBehindIt) {
    grid.Grid().MoveRows(4, 2, 15);
    expectCommitGoesTo({8, 3});
}

TEST_F(FollowedCell, MovesUpWithARowRemovedBeforeIt) {
    const std::int32_t top = desk.editor().rect.top;
    grid.Grid().RemoveRow(5);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.editor().rect.top, top - 300) << desk.ascii();
    expectCommitGoesTo({9, 3});
}

TEST_F(FollowedCell, StaysWithARowRemovedBehindIt) {
    grid.Grid().RemoveRow(11);
    expectCommitGoesTo({10, 3});
}

TEST_F(FollowedCell, HidesTheEditorWhenItsRowIsRemoved) {
    grid.Grid().Text(11, 3, "below");
    heard();
    grid.Grid().RemoveRow(10);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(10, 3), "below");
    expectGoneWithoutACommit();
}

TEST_F(FollowedCell, HidesTheEditorWhenTheEngineCutsTheRows) {
    grid.Grid().Rows(6);
    EXPECT_EQ(grid.Rows(), 6);
    expectGoneWithoutACommit();
}

TEST_F(FollowedCell, HidesTheEditorWhenTheEngineCutsTheColumns) {
    grid.Grid().Cols(3);
    expectGoneWithoutACommit();
}

TEST_F(FollowedCell, IsCommittedBeforeTheControlCutsTheRows) {
    heard();
    grid.Rows(6);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(10, 3));
    EXPECT_FALSE(open());
}

TEST_F(FollowedCell, IsCommittedBeforeTheControlCutsTheColumns) {
    heard();
    grid.Cols(3);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(10, 3));
    EXPECT_FALSE(open());
}

TEST_F(FollowedCell, HidesTheEditorWhenAllColumnsGo) {
    grid.Cols(0);
    EXPECT_EQ(grid.Grid_Sum().Cols(), 0);
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(10, 3));
    EXPECT_TRUE(grid.bIsDirty());
    grid.Editable(false);
    grid.Editable(true);
    grid.SetCell(1, 1, "nowhere");
    desk.press(Key::Enter).type("x").press(Key::Tab);
    EXPECT_EQ(desk.messages().size(), 0u);
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
    grid.Cols(6);
    grid.Grid().Select(1, 1);
    expectGoneWithoutACommit();
}

TEST_F(FollowedCell, HidesTheEditorWhenTheEngineLosesItsLastColumn) {
    grid.Grid().FixedCols(0);
    grid.Grid().Cols(0);
    EXPECT_FALSE(open());
    grid.Grid().Cols(6);
    grid.Grid().Select(1, 1);
    expectGoneWithoutACommit();
}

TEST_F(FollowedCell, HidesTheEditorWhenTheEngineLosesItsLastRow) {
    grid.Grid().FixedRows(0);
    grid.Grid().Rows(0);
    EXPECT_FALSE(open());
    grid.Rows(20);
    grid.Grid().Select(1, 1);
    expectGoneWithoutACommit();
}

TEST_F(FollowedCell, HidesTheEditorWhenTheGridIsCleared) {
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(grid.TextTag(), "");
    expectGoneWithoutACommit();
}

TEST_F(FollowedCell, KeepsTheEditorWhenOtherRowsAreCut) {
    grid.Grid().Rows(12);
    expectCommitGoesTo({10, 3});
}

TEST_F(FollowedCell, IsWrittenAlsoWhenTheHostInsertsARowAboveWhileItIsAskedForTheCode) {
    column(3).i有效性判断(1);
    column(3).i字段有效性判断类型(ij编码型);
    grid.TxtValidBmS.connect([&](const std::string&, const std::string&, const std::string&,
                                 const std::string& typed, std::string& code, std::string& name) {
        grid.Grid().InsertRow(5);
        code = name = typed;
    });
    desk.press(Key::Down);
    EXPECT_EQ(text(11, 3), "abc");
    EXPECT_EQ(tag(11, 3), "abc");
    EXPECT_FALSE(open());
    EXPECT_EQ(current(), (Cell{12, 3}));
}

TEST_F(FollowedCell, FollowsSeveralChangesInARow) {
    grid.Grid().RemoveRow(3);
    grid.Grid().RemoveRow(3);
    grid.Grid().InsertRow(1);
    expectCommitGoesTo({9, 3});
}

TEST_F(FollowedCell, KeepsTheEditorOverItWhenAColumnBecomesWider) {
    const Rect before = desk.editor().rect;
    grid.ColWidth(2, 1500);
    grid.ColWidth(3, 1200);
    desk.resize(9000, 6000);
    const Rect after = desk.editor().rect;
    EXPECT_EQ(after.left, before.left + 500);
    EXPECT_EQ(after.width, before.width + 200);
    expectCommitGoesTo({10, 3});
}

class RowsLostDuringTheCommit : public FollowedCell {};

TEST_F(RowsLostDuringTheCommit, ByAHostThatClearsTheGridInAfterEdit) {
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { grid.Clear(); });
    desk.press(Key::Enter);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(10, 3));
    EXPECT_LT(grid.Row(), 6);
}

TEST_F(RowsLostDuringTheCommit, ByAHostThatRemovesTheRowInAfterEdit) {
    bool once = true;
    grid.AfterEdit.connect([&](std::int32_t row, std::int32_t) {
        if (std::exchange(once, false)) grid.Grid().RemoveRow(row);
    });
    desk.press(Key::Down);
    EXPECT_EQ(grid.Rows(), 19);
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(10, 3));
}

TEST_F(RowsLostDuringTheCommit, ByAHostThatCutsTheRowsInCellChanged) {
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        if (std::exchange(once, false)) grid.Rows(6);
    });
    desk.press(Key::Right);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_FALSE(open());
}

TEST_F(RowsLostDuringTheCommit, ByAHostThatRemovesTheRowInCellChangedLeaveTheNextRowAlone) {
    grid.Grid().Data(11, 3, "next");
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (std::exchange(once, false)) grid.Grid().RemoveRow(row);
    });
    heard();
    desk.press(Key::Down);
    EXPECT_EQ(grid.Rows(), 19);
    EXPECT_FALSE(open());
    EXPECT_EQ(tag(10, 3), "next");
    const Lines told = heard();
    EXPECT_EQ(named(told, "CellChanged"), changed(10, 3));
    EXPECT_EQ(named(told, "AfterEdit"), Lines{});
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(RowsLostDuringTheCommit, ByAHostThatTakesAllColumnsInCellChanged) {
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { grid.Cols(0); });
    desk.press(Key::Enter);
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(RowsLostDuringTheCommit, ByAHostThatCutsTheColumnsInAfterEdit) {
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { grid.Cols(2); });
    desk.press(Key::Enter);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_FALSE(open());
    EXPECT_LT(grid.Col(), 2);
}

TEST_F(RowsLostDuringTheCommit, ByAHostThatClearsTheGridWhenItIsAskedForARow) {
    desk.press(Key::Escape);
    openAt(19, 3);
    desk.type("abc");
    grid.AddVsRow.connect([&](std::int32_t, bool& consent) {
        grid.Clear();
        consent = true;
    });
    desk.press(Key::Enter);
    EXPECT_FALSE(open());
    EXPECT_GE(grid.Rows(), 6);
    EXPECT_LE(grid.Rows(), 7);
}

TEST(ControlThatGoes, InsideAfterEditTakesNothingAlong) {
    headless::Desk desk;
    kxGrid& stays = desk.place();
    kxGrid& goes = desk.place();
    int edits = 0;
    goes.AfterEdit.connect([&](std::int32_t, std::int32_t) {
        ++edits;
        desk.remove(goes);
    });
    desk.focusGrid();
    desk.type("abc").press(Key::Enter);
    EXPECT_EQ(edits, 1);
    kit::expectKeyedAsEver(desk, stays);
}

}  // namespace
}  // namespace kxVsGrid::testing
