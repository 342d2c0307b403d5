// The commands of the menu that add, insert, copy or delete one row.
#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class RowCommand : public MenuTest {
  protected:
    RowCommand() {
        column(4).sDefaultText_Name("件");
        column(4).sDefaultText_Code("01");
    }
    void expectDefaults(std::int32_t row) {
        EXPECT_EQ(text(row, 4), "件");
        EXPECT_EQ(tag(row, 4), "01");
        for (const int c : {1, 2, 3, 5}) EXPECT_EQ(text(row, c), "");
    }
    /// The events of one copied row, tag and text of five columns.
    static Lines writesAll(std::int32_t row) {
        Lines lines;
        for (int c = 1; c < 6; ++c) lines = lines + changed(row, c) + changed(row, c);
        return lines;
    }
    /// A move in which the default text and code of column 4 are filled.
    static Lines movesAndFills(std::int32_t r0, std::int32_t c0, std::int32_t r1, std::int32_t c1) {
        return asks(r0, c0, r1, c1) + arrives() + changed(r1, 4) + changed(r1, 4) + settles(r0, c0, r1, c1);
    }
};

TEST_F(RowCommand, AddsARowAtTheEndWithDefaultTexts) {
    content(2);
    at(2, 3);
    run(caption::AddRow);
    EXPECT_EQ(told(),
              asksTheHost(2) + movesAndFills(2, 3, 6, 3) + fillsInPlace(6, 3) + tellsTheHost(6, false, 2));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{6, 3}));
    EXPECT_EQ(grid.RowHeight(6), 300);
    EXPECT_EQ(text(6, 0), "6");
    expectDefaults(6);
    expectContent(2, 2);
}

TEST_F(RowCommand, InsertsARowAtTheCurrentOneWithDefaultTexts) {
    content(3);
    at(3, 2);
    run(caption::InsertRow);
    EXPECT_EQ(told(),
              asksTheHost(3) + movesAndFills(4, 2, 3, 2) + fillsInPlace(3, 2) + tellsTheHost(3, false, 4));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{3, 2}));
    expectDefaults(3);
    expectContent(4, 3);
}

TEST_F(RowCommand, AddsAnEmptyRowAtTheEnd) {
    content(2);
    at(2, 3);
    run(caption::AddEmptyRow);
    EXPECT_EQ(told(), asksTheHost(2) + moves(2, 3, 6, 3) + tellsTheHost(6, false, 2));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{6, 3}));
    expectEmpty(6);
}

TEST_F(RowCommand, InsertsAnEmptyRowAtTheCurrentOne) {
    content(3);
    at(3, 2);
    run(caption::InsertEmptyRow);
    EXPECT_EQ(told(), asksTheHost(3) + moves(4, 2, 3, 2) + tellsTheHost(3, false, 4));
    EXPECT_EQ(grid.Rows(), 7);
    expectEmpty(3);
    expectContent(4, 3);
}

TEST_F(RowCommand, CopiesTheRowToTheEndAndKeepsItWhenTheHostConfirms) {
    content(2);
    confirmCopies();
    at(2, 3);
    run(caption::CopyRow);
    EXPECT_EQ(told(), asksTheHost(2) + moves(2, 3, 6, 3) + writesAll(6) + tellsTheHost(6, true, 2));
    expectContent(6, 2);
    expectContent(2, 2);
    EXPECT_EQ(current(), (Cell{6, 3}));
}

TEST_F(RowCommand, CopiesTheRowInPlaceFromTheOneThatWasPushedDown) {
    content(2);
    content(3);
    confirmCopies();
    at(2, 3);
    run(caption::InsertCopy);
    EXPECT_EQ(told(), asksTheHost(2) + moves(3, 3, 2, 3) + writesAll(2) + tellsTheHost(2, true, 3));
    expectContent(2, 2);
    expectContent(3, 2);
    expectContent(4, 3);
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(RowCommand, DiscardsACopyThatTheHostDoesNotConfirm) {
    content(2);
    for (const bool insert : {false, true}) {
        at(2, 3);
        const std::int32_t made = insert ? 2 : grid.Rows();
        run(insert ? caption::InsertCopy : caption::CopyRow);
        EXPECT_EQ(named(told(), "AfterAddRow"), tellsTheHost(made, true, insert ? 3 : 2));
        expectEmpty(made);
        expectContent(insert ? 3 : 2, 2);
    }
    EXPECT_EQ(grid.Rows(), 8);
}

TEST_F(RowCommand, KeepsACopyForTheRowsThatTheHostConfirmsAlone) {
    content(2);
    fill(3, 2, "no code");
    grid.AfterAddRow.connect([&](bool& keep, std::int32_t row, bool copied, std::int32_t source) {
        EXPECT_TRUE(copied);
        EXPECT_EQ(tag(row, 1), tag(source, 1));
        keep = !tag(row, 1).empty();
    });
    at(2, 1);
    run(caption::CopyRow);
    expectContent(6, 2);
    at(3, 1);
    run(caption::CopyRow);
    expectEmpty(7);
    EXPECT_EQ(text(3, 2), "no code");
}

TEST_F(RowCommand, AConfirmationMattersNotWhereNothingWasCopied) {
    for (const bool keep : {true, false}) {
        grid.AfterAddRow.connect(
            [keep](bool& confirmed, std::int32_t, bool, std::int32_t) { confirmed = keep; });
        at(2, 1);
        run(caption::AddRow);
        expectDefaults(grid.Rows() - 1);
    }
}

TEST_F(RowCommand, IsStoppedByARefusal) {
    content(2);
    grid.AddVsRow.connect([](std::int32_t row, bool& consent) {
        EXPECT_EQ(row, 2);
        EXPECT_TRUE(consent);
        consent = false;
    });
    for (const char* command : {caption::AddRow, caption::CopyRow, caption::InsertRow, caption::InsertCopy,
                                caption::AddEmptyRow, caption::InsertEmptyRow}) {
        SCOPED_TRACE(command);
        at(2, 3);
        run(command);
        EXPECT_EQ(told(), asksTheHost(2));
        EXPECT_EQ(grid.Rows(), 6);
        EXPECT_EQ(current(), (Cell{2, 3}));
        expectContent(2, 2);
    }
    at(4, 1);
    EXPECT_EQ(text(4, 4), "件") << "later moves fill default texts as before";
}

TEST_F(RowCommand, LeavesTheDefaultTextsOnAfterEveryCommand) {
    for (const char* command :
         {caption::AddEmptyRow, caption::InsertEmptyRow, caption::CopyRow, caption::InsertCopy}) {
        at(2, 1);
        run(command);
        grid.Grid().Text(4, 4, "");
        at(4, 1);
        EXPECT_EQ(text(4, 4), "件") << command;
    }
}

TEST_F(RowCommand, AddsOneRowAlsoWhenTheHostAddedOthersWhenItWasAsked) {
    grid.AddVsRow.connect([&](std::int32_t, bool&) { grid.Rows(10); });
    at(2, 1);
    run(caption::AddEmptyRow);
    EXPECT_EQ(grid.Rows(), 11);
    EXPECT_GE(grid.Row(), 6);
}

TEST_F(RowCommand, ReadsTheCurrentCellWhenItIsChosenNotWhenTheMenuPopsUp) {
    content(4);
    confirmCopies();
    at(2, 1);
    desk.onPopup([&](headless::PoppedMenu& menu) {
        at(4, 2);
        menu.choose(caption::CopyRow);
    });
    desk.rightClick(2, 1);
    expectContent(6, 4);
}

TEST_F(RowCommand, WorksOnAGridOfFixedRowsAlone) {
    grid.Grid().Rows(1);
    log.clear();
    run(caption::AddEmptyRow);
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(named(told(), "AfterAddRow").size(), 1U);
}

TEST_F(RowCommand, KeepsTheTotalsFresh) {
    summed(3);
    fill(2, 3, "10");
    fill(3, 3, "5");
    confirmCopies();
    at(2, 1);
    run(caption::CopyRow);
    EXPECT_EQ(grid.ReadSum(3), "25");
    at(3, 1);
    run(caption::InsertCopy);
    EXPECT_EQ(grid.ReadSum(3), "30");
    consentToDeletes();
    at(2, 1);
    run(caption::DeleteRow);
    EXPECT_EQ(grid.ReadSum(3), "20");
}

class DeleteCommand : public RowCommand {};

TEST_F(DeleteCommand, OnlyAsksWhenTheHostDoesNotAnswer) {
    content(2);
    at(2, 3);
    run(caption::DeleteRow);
    EXPECT_EQ(told(), (Lines{line("DeleteVsRow", 2, false)}));
    EXPECT_EQ(grid.Rows(), 6);
    expectContent(2, 2);
}

TEST_F(DeleteCommand, RemovesTheCurrentRowWithConsentAndLoadsTheOneThatMovedUp) {
    rows(10);
    content(2);
    content(3);
    consentToDeletes();
    at(2, 3);
    run(caption::DeleteRow);
    EXPECT_EQ(told(), (Lines{line("DeleteVsRow", 2, false), line("AfterDeleteVsRow")}));
    EXPECT_EQ(grid.Rows(), 9);
    EXPECT_EQ(current(), (Cell{2, 3}));
    expectContent(2, 3);
    EXPECT_EQ(grid.Text(), "t33");
    EXPECT_EQ(grid.TextTag(), "d33");
}

TEST_F(DeleteCommand, RefillsTheGridToFiveNumberedRowsBeforeTheHostHearsOfIt) {
    content(5);
    consentToDeletes();
    grid.AfterDeleteVsRow.connect([&] {
        EXPECT_EQ(grid.Rows(), 6);
        EXPECT_EQ(text(5, 0), "5");
    });
    at(2, 1);
    run(caption::DeleteRow);
    expectContent(4, 5);
    expectEmpty(5);
    EXPECT_EQ(grid.RowHeight(5), 300);
    EXPECT_EQ(named(told(), "AfterDeleteVsRow").size(), 1U);
}

TEST_F(DeleteCommand, StandsThereWithCtrlToo) {
    consentToDeletes();
    rows(10);
    at(2, 1);
    run(caption::DeleteRow, CtrlKey);
    EXPECT_EQ(grid.Rows(), 9);
}

TEST_F(DeleteCommand, DoesNothingWhenTheGridWasClosedToChangesMeanwhile) {
    rows(10);
    consentToDeletes();
    at(2, 1);
    desk.onPopup([&](headless::PoppedMenu& menu) {
        grid.Editable(false);
        menu.choose(caption::DeleteRow);
    });
    desk.rightClick(2, 1);
    EXPECT_EQ(told(), Lines{});
    EXPECT_EQ(grid.Rows(), 10);
}

TEST_F(DeleteCommand, LeavesFixedRowsAloneAfterConsent) {
    grid.Grid().Rows(1);
    log.clear();
    consentToDeletes();
    run(caption::DeleteRow);
    EXPECT_EQ(told(), (Lines{line("DeleteVsRow", 0, false)}));
    EXPECT_EQ(grid.Rows(), 1);
}

}  // namespace
}  // namespace kxVsGrid::testing
