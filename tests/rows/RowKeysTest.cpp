// The Insert and Delete keys: rows are added and removed only with the host's consent.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class RowKeys : public ClerkTest {
  protected:
    void consentToDeletes() {
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    }
    void coloured(std::int32_t col) {
        column(col).b是否设列颜色(true);
        column(col).d列前景色(Red);
        column(col).d列背景色(Yellow);
    }
    void expectColoured(std::int32_t row, std::int32_t col) {
        EXPECT_EQ(grid.Grid().CellForeColor(row, col), Red) << row << ' ' << col;
        EXPECT_EQ(grid.Grid().CellBackColor(row, col), Yellow) << row << ' ' << col;
    }
};

class InsertKey : public RowKeys {};

TEST_F(InsertKey, OnlyAsksWhenTheHostDoesNotAnswer) {
    at(2, 3);
    desk.press(Key::Insert);
    EXPECT_EQ(heard(), asksForRow(2, false));
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(current(), (Cell{2, 3}));
}

TEST_F(InsertKey, AppendsARowAtTheEndAndGoesThere) {
    consentToRows();
    at(2, 3);
    desk.press(Key::Insert);
    EXPECT_EQ(heard(), asksForRow(2, false) + moves(2, 3, 6, 3));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{6, 3}));
    EXPECT_EQ(grid.RowHeight(6), 300);
}

TEST_F(InsertKey, FillsTheDefaultTextsOfTheNewRow) {
    consentToRows();
    column(2).sDefaultText_Name("件");
    desk.press(Key::Insert);
    EXPECT_EQ(heard(),
              asksForRow(1, false) + asks(1, 1, 6, 1) + arrives() + changed(6, 2) + settles(1, 1, 6, 1));
    EXPECT_EQ(text(6, 2), "件");
}

TEST_F(InsertKey, ColoursTheNewRow) {
    consentToRows();
    coloured(2);
    coloured(0);
    desk.press(Key::Insert);
    expectColoured(6, 2);
    expectColoured(6, 0);
}

TEST_F(InsertKey, NumbersTheNewRow) {
    consentToRows();
    desk.press(Key::Insert);
    EXPECT_EQ(text(6, 0), "6");
    EXPECT_EQ(text(1, 0), "1");
}

TEST_F(InsertKey, BringsTheNewRowIntoView) {
    rows(60);
    consentToRows();
    desk.press(Key::Insert);
    EXPECT_EQ(current(), (Cell{60, 1}));
    EXPECT_TRUE(grid.Grid().RowIsVisible(60)) << desk.ascii();
}

TEST_F(InsertKey, AppendsTheRowAlsoWhenTheHostKeepsTheCell) {
    consentToRows();
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    desk.press(Key::Insert);
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(heard(), asksForRow(1, false) + asks(1, 1, 6, 1));
}

TEST_F(InsertKey, IsIgnoredWhenTheGridIsNotEditable) {
    consentToRows();
    grid.Editable(false);
    log.clear();
    desk.press(Key::Insert);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(InsertKey, WorksInAReadOnlyColumn) {
    consentToRows();
    readOnly(1);
    desk.press(Key::Insert);
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(InsertKey, DoesNotOpenTheEditor) {
    consentToRows();
    desk.press(Key::Insert);
    EXPECT_FALSE(open());
}

TEST_F(InsertKey, InTheOpenEditorBelongsToTheTextBox) {
    consentToRows();
    desk.type("a");
    heard();
    desk.press(Key::Insert);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    EXPECT_EQ(grid.Rows(), 6);
}

class DeleteKey : public RowKeys {};

TEST_F(DeleteKey, OnlyAsksWhenTheHostDoesNotAnswer) {
    fill(2, 1, "A001");
    at(2, 3);
    desk.press(Key::Delete);
    EXPECT_EQ(heard(), (Lines{line("DeleteVsRow", 2, false)}));
    EXPECT_EQ(text(2, 1), "A001");
}

TEST_F(DeleteKey, RemovesTheRowWithoutAMove) {
    rows(10);
    fill(2, 1, "A001");
    fill(3, 1, "A002");
    at(2, 1);
    consentToDeletes();
    desk.press(Key::Delete);
    EXPECT_EQ(heard(), (Lines{line("DeleteVsRow", 2, false), line("AfterDeleteVsRow")}));
    EXPECT_EQ(grid.Rows(), 9);
    EXPECT_EQ(current(), (Cell{2, 1}));
    EXPECT_EQ(text(2, 1), "A002");
}

TEST_F(DeleteKey, LoadsTheEditorFromTheCellThatHasMovedUp) {
    rows(10);
    fill(2, 1, "螺栓", "A001");
    fill(3, 1, "螺母", "A002");
    at(2, 1);
    consentToDeletes();
    std::string seen;
    grid.AfterDeleteVsRow.connect([&] { seen = grid.Text() + "/" + grid.TextTag(); });
    desk.press(Key::Delete);
    EXPECT_EQ(seen, "螺母/A002");
    EXPECT_EQ(grid.Text(), "螺母");
    EXPECT_EQ(grid.TextTag(), "A002");
    EXPECT_FALSE(open());
}

TEST_F(DeleteKey, TakesTheNewLastRowWhenTheLastOneGoes) {
    rows(10);
    fill(8, 2, "A008");
    at(9, 2);
    consentToDeletes();
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Rows(), 9);
    EXPECT_EQ(current(), (Cell{8, 2}));
    EXPECT_EQ(grid.Text(), "A008");
}

TEST_F(DeleteKey, RefillsTheGridToFiveDataRows) {
    for (int r = 1; r <= 5; ++r) fill(r, 1, "A00" + std::to_string(r));
    consentToDeletes();
    coloured(2);
    at(2, 1);
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(text(2, 1), "A003");
    EXPECT_EQ(text(4, 1), "A005");
    EXPECT_EQ(text(5, 1), "");
    EXPECT_EQ(grid.RowHeight(5), 300);
    expectColoured(5, 2);
    EXPECT_EQ(heard(), (Lines{line("DeleteVsRow", 2, false), line("AfterDeleteVsRow")}));
}

TEST_F(DeleteKey, RefillsFiveRowsBelowTwoFixedOnes) {
    grid.FixedRows(2);
    rows(7);
    at(3, 1);
    consentToDeletes();
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(DeleteKey, HasTheGridRefilledAndNumberedWhenTheHostHearsOfIt) {
    consentToDeletes();
    std::int32_t rowsSeen = 0;
    std::string numberSeen;
    grid.AfterDeleteVsRow.connect([&] {
        rowsSeen = grid.Rows();
        numberSeen = text(5, 0);
    });
    desk.press(Key::Delete);
    EXPECT_EQ(rowsSeen, 6);
    EXPECT_EQ(numberSeen, "5");
}

TEST_F(DeleteKey, TakesTheRowOutOfTheTotals) {
    summed(3);
    fill(1, 3, "10");
    fill(2, 3, "5");
    consentToDeletes();
    desk.press(Key::Delete);
    EXPECT_EQ(grid.ReadSum(3), "5");
}

TEST_F(DeleteKey, DoesNothingAfterConsentWhenThereAreOnlyFixedRows) {
    grid.Grid().Rows(1);
    log.clear();
    consentToDeletes();
    desk.press(Key::Delete);
    EXPECT_EQ(heard(), (Lines{line("DeleteVsRow", 0, false)}));
    EXPECT_EQ(grid.Rows(), 1);
}

TEST_F(DeleteKey, IsIgnoredWhenTheGridIsNotEditable) {
    consentToDeletes();
    grid.Editable(false);
    log.clear();
    desk.press(Key::Delete);
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(DeleteKey, InTheOpenEditorDeletesACharacter) {
    consentToDeletes();
    desk.type("ab");
    heard();
    desk.select(0);
    desk.press(Key::Delete);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.editor().text, "b");
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(DeleteKey, ReadsTheRowsAfreshWhenTheHostHasRemovedThemAll) {
    grid.DeleteVsRow.connect([&](std::int32_t, bool& consent) {
        grid.Grid().Rows(1);
        consent = true;
    });
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(named(heard(), "AfterDeleteVsRow"), Lines{});
}

TEST_F(DeleteKey, OfTheOnlyDataRowLeavesTheClerkInTheNewOne) {
    consentToDeletes();
    grid.Grid().Rows(2);
    fill(1, 3, "last");
    at(1, 3);
    desk.press(Key::Delete);
    EXPECT_EQ(heard(), (Lines{line("DeleteVsRow", 1, false), line("AfterDeleteVsRow")}));
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(current(), (Cell{1, 3}));
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(text(1, 3), "");
    desk.type("next").press(Key::Enter);
    EXPECT_EQ(text(1, 3), "next");
}

TEST_F(DeleteKey, PressedTwiceRemovesTwoRows) {
    rows(12);
    fill(4, 1, "A004");
    at(2, 1);
    consentToDeletes();
    desk.press(Key::Delete);
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Rows(), 10);
    EXPECT_EQ(grid.Text(), "A004");
}

TEST_F(RowKeys, OtherKeysAskNothing) {
    consentToRows();
    consentToDeletes();
    for (const int code : {44, 47, 12, 19}) desk.press(static_cast<std::int16_t>(code));
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(grid.Rows(), 6);
}

}  // namespace
}  // namespace kxVsGrid::testing
