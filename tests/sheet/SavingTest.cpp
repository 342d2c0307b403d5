// What is to be saved: while the clerk types on, after undo, where rows have moved, behind the sheet's back.
#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

class SheetSaving : public OrderSheet {
  protected:
    RecordChanges<OrderLine> stored() {
        auto changes = sheet.changes();
        for (auto& line : changes.added) {
            line.record.id = ++lastId;
            line.record.version = 1;
        }
        for (auto& line : changes.changed) ++line.after.version;
        return changes;
    }
    void save() {
        const auto changes = stored();
        sheet.accept(changes);
    }
    std::int64_t lastId = 100;
};

TEST_F(SheetSaving, WhatIsBeingTypedIsNeitherSavedNorDropped) {
    loaded();
    type(1, Price, "7");
    grid.Grid().Select(2, Price);
    desk.type("9");
    ASSERT_TRUE(desk.editor().visible);
    const auto changes = stored();
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "9");
    ASSERT_EQ(changes.changed.size(), 1u);
    sheet.accept(changes);
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "9");
    EXPECT_FALSE(sheet.modified());
    desk.press(Key::Enter);
    EXPECT_TRUE(sheet.modified());
    ASSERT_EQ(sheet.changes().changed.size(), 1u);
    EXPECT_EQ(sheet.changes().changed[0].after.price, 9);
}

TEST_F(SheetSaving, WhatWasAddedSavedAndUndoneIsARemovedLineWithItsId) {
    loaded();
    type(4, Code, "new");
    save();
    EXPECT_EQ(sheet.record(4).id, 101);
    grid.History().Undo();
    EXPECT_TRUE(sheet.modified());
    auto changes = sheet.changes();
    ASSERT_EQ(changes.removed.size(), 1u);
    EXPECT_EQ(changes.removed[0].before.id, 101);
    EXPECT_TRUE(changes.added.empty());
    sheet.accept(changes);
    EXPECT_FALSE(sheet.modified());
    grid.History().Redo();
    changes = sheet.changes();
    ASSERT_EQ(changes.added.size(), 1u);
    EXPECT_EQ(changes.added[0].record.id, 0);
    EXPECT_EQ(changes.added[0].record.version, 0);
}

TEST_F(SheetSaving, AnotherLineThatIsRemovedMeanwhileIsRemovedWithItsNewId) {
    loaded();
    type(4, Code, "new");
    const auto changes = stored();
    grid.Grid().Select(4, Code);
    EXPECT_TRUE(desk.run(Command::DeleteRows));
    sheet.accept(changes);
    ASSERT_EQ(sheet.changes().removed.size(), 1u);
    EXPECT_EQ(sheet.changes().removed[0].before.id, 101);
    EXPECT_TRUE(sheet.modified());
}

TEST_F(SheetSaving, ALineThatComesBackMeanwhileIsAddedAgain) {
    loaded();
    grid.Grid().Select(2, Code);
    EXPECT_TRUE(desk.run(Command::DeleteRows));
    const auto changes = stored();
    grid.History().Undo();
    EXPECT_FALSE(sheet.modified());
    sheet.accept(changes);
    EXPECT_TRUE(sheet.modified());
    ASSERT_EQ(sheet.changes().added.size(), 1u);
    EXPECT_EQ(sheet.changes().added[0].record.id, 0);
}

TEST_F(SheetSaving, AcceptingTellsOnce) {
    loaded();
    std::vector<bool> told;
    sheet.onModified([&](bool modified) { told.push_back(modified); });
    type(1, Price, "7");
    save();
    grid.History().Undo();
    EXPECT_EQ(told, (std::vector<bool>{true, false, true}));
}

TEST_F(SheetSaving, AcceptingTheSameTwiceOrNothingDoesNoHarm) {
    loaded();
    sheet.accept({});
    EXPECT_FALSE(sheet.modified());
    type(1, Price, "7");
    const auto changes = stored();
    sheet.accept(changes);
    sheet.accept(changes);
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(sheet.record(1).version, 2);
}

TEST_F(SheetSaving, AnAcceptThatIsRefusedChangesNothing) {
    loaded();
    type(1, Price, "7");
    type(4, Code, "new");
    auto changes = sheet.changes();
    changes.changed[0].after.version = 2;
    EXPECT_THROW(sheet.accept(changes), GridError);
    EXPECT_EQ(sheet.record(1).version, 1);
    EXPECT_EQ(sheet.changes().changed.size(), 1u);
    EXPECT_EQ(sheet.changes().added.size(), 1u);
}

TEST_F(SheetSaving, ComparesValues) {
    loaded();
    {
        auto step = grid.Step("by the host");
        grid.SetCell(1, Price, "1.500");
        grid.SetCell(1, Quantity, "+2");
    }
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
}

TEST_F(SheetSaving, AMovedLineIsNoChange) {
    loaded();
    grid.Grid().Select(1, Code);
    EXPECT_TRUE(desk.run(Command::MoveRowDown));
    EXPECT_EQ(sheet.record(1).code, "B2");
    EXPECT_EQ(sheet.record(1).id, 12);
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
}

TEST_F(SheetSaving, FollowsWritesOutsideOfSteps) {
    loaded();
    grid.SetCell(1, Price, "8");
    EXPECT_TRUE(sheet.modified());
    ASSERT_EQ(sheet.changes().changed.size(), 1u);
    EXPECT_EQ(sheet.changes().changed[0].after.price, 8);
    sheet.recompute();
    EXPECT_EQ(text(1, Amount), "16");
}

TEST_F(SheetSaving, RowsThatTheHostTakesAwayAreRemovedLines) {
    loaded();
    grid.Grid().RemoveRow(2);
    EXPECT_TRUE(sheet.modified());
    ASSERT_EQ(sheet.changes().removed.size(), 1u);
    EXPECT_EQ(sheet.changes().removed[0].before.id, 12);
    sheet.load(std::vector<OrderLine>(20, line(5, "x", "1", "1")));
    grid.Rows(10);
    EXPECT_TRUE(sheet.modified());
    EXPECT_EQ(sheet.changes().removed.size(), 20u - 9u);
    EXPECT_EQ(sheet.records().size(), 9u);
}

TEST_F(SheetSaving, AGridThatTheHostHasClearedHasRemovedAllLines) {
    loaded();
    grid.Clear();
    EXPECT_TRUE(sheet.records().empty());
    EXPECT_TRUE(sheet.modified());
    const auto changes = sheet.changes();
    EXPECT_EQ(changes.removed.size(), 3u);
    EXPECT_TRUE(changes.added.empty());
    sheet.accept(changes);
    EXPECT_FALSE(sheet.modified());
    type(1, Code, "n");
    EXPECT_EQ(sheet.changes().added.size(), 1u);
}

TEST_F(SheetSaving, AColumnMoreOrLessOfTheHostIsNoHarm) {
    loaded();
    grid.Cols(9);
    type(1, Price, "7");
    EXPECT_EQ(text(1, Amount), "14");
    ASSERT_EQ(sheet.changes().changed.size(), 1u);
    grid.Cols(7);
    EXPECT_TRUE(sheet.modified());
    ASSERT_EQ(sheet.changes().changed.size(), 1u);
    grid.Cols(4);
    EXPECT_THROW(static_cast<void>(sheet.records()), GridError);
    EXPECT_THROW(static_cast<void>(sheet.changes()), GridError);
    EXPECT_NO_THROW(static_cast<void>(sheet.modified()));
    desk.press(Key::Down).type("1").press(Key::Enter);
    loaded();
    EXPECT_EQ(sheet.records().size(), 3u);
    EXPECT_EQ(text(0, Gift), "赠品");
}

TEST_F(SheetSaving, FilteredAndHiddenRowsAreLinesToo) {
    loaded();
    grid.Grid().RowHidden(1, true);
    grid.Grid().RowFiltered(2, true);
    EXPECT_EQ(sheet.records().size(), 3u);
    {
        auto step = grid.Step("by the host");
        grid.SetCell(2, Quantity, "3");
        grid.SetCell(1, Price, "5x");
    }
    EXPECT_EQ(text(2, Amount), "12");
    ASSERT_TRUE(sheet.firstFault().has_value());
    EXPECT_EQ(sheet.firstFault()->row, 1);
    grid.SetCell(1, Price, "2");
    EXPECT_EQ(sheet.changes().changed.size(), 2u);
    EXPECT_EQ(sheet.sum("quantity"), 5);
}

TEST_F(SheetSaving, ALineThatIsEmptiedIsARemovedOne) {
    loaded();
    {
        auto step = grid.Step("by the host");
        for (std::int32_t col = Code; col <= Gift; ++col) grid.SetCell(1, col, "");
    }
    EXPECT_FALSE(sheet.isInUse(1));
    ASSERT_EQ(sheet.changes().removed.size(), 1u);
    EXPECT_EQ(sheet.changes().removed[0].before.id, 11);
    grid.History().Undo();
    EXPECT_FALSE(sheet.modified());
}

TEST_F(SheetSaving, MembersWithoutAColumnAreNotCopiedWithARow) {
    loaded();
    grid.Grid().Select(1, Code);
    grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
    EXPECT_TRUE(desk.run(Command::DuplicateRow));
    std::vector<OrderLine> lines = sheet.records();
    ASSERT_EQ(lines.size(), 4u);
    int alike = 0;
    for (const OrderLine& one : lines) alike += one.id == 11;
    EXPECT_EQ(alike, 1);
    const auto changes = sheet.changes();
    ASSERT_EQ(changes.added.size(), 1u);
    EXPECT_EQ(changes.added[0].record.id, 0);
    EXPECT_EQ(changes.added[0].record.code, "A1");
    EXPECT_TRUE(changes.changed.empty());
}

TEST_F(SheetSaving, NothingCanBeTypedWhileTheGridIsNotEditableButTheHostWrites) {
    loaded();
    grid.Editable(false);
    sheet.edit(1, [](OrderLine& line) { line.price = 5; });
    EXPECT_EQ(text(1, Amount), "10");
    EXPECT_TRUE(sheet.modified());
    save();
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(sheet.record(1).version, 2);
}

TEST_F(SheetSaving, WhatIsPutIsOneStep) {
    loaded();
    int steps = 0;
    grid.Changes().After.connect([&](const StepChanges&) { ++steps; });
    sheet.edit(1, [](OrderLine& line) {
        line.price = 5;
        line.quantity = 4;
        line.amount = 99;
    });
    EXPECT_EQ(steps, 1);
    EXPECT_EQ(sheet.record(1).amount, 20);
    sheet.put(1, sheet.record(1));
    EXPECT_EQ(steps, 1);
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(sheet.record(1).amount, 3);
    EXPECT_FALSE(sheet.modified());
}

TEST_F(SheetSaving, AppendedLinesComeBelowTheLastOneAndAreUndoneAtOnce) {
    loaded();
    const auto rows = sheet.append(std::vector<OrderLine>(10, line(99, "x", "2", "3")));
    EXPECT_EQ(rows, (std::vector<std::int32_t>{4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
    EXPECT_EQ(text(13, Amount), "6");
    EXPECT_EQ(sheet.changes().added.size(), 10u);
    EXPECT_EQ(sheet.changes().added[0].record.id, 0);
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(sheet.records().size(), 3u);
}

/// A second program, which recovers the draft of the first one.
class SheetWithDraft : public SheetSaving {
  protected:
    SheetWithDraft() {
        const std::vector<OrderLine> lines = loaded();
        Draft draft(grid.Grid(), [this](std::string_view more) {
            bytes += more;
            return true;
        });
        draft.begin("order", "1");
        while (draft.writeSlice()) {
        }
        type(3, Price, "7");
        grid.Grid().Select(1, Code);
        EXPECT_TRUE(desk.run(Command::DeleteRows));
        draft.flush();

        second.identity(&OrderLine::id).version(&OrderLine::version);
        second.text("code", "货号", &OrderLine::code);
        second.text("name", "品名", &OrderLine::name);
        second.number("quantity", "数量", &OrderLine::quantity).decimals(3);
        second.number("price", "单价", &OrderLine::price).decimals(2);
        second.number("amount", "金额", &OrderLine::amount).decimals(2);
        second.flag("gift", "赠品", &OrderLine::gift);
    }
    std::string bytes;
    headless::Desk otherDesk;
    kxGrid& other = otherDesk.place();
    Sheet<OrderLine> second{other};
};

TEST_F(SheetWithDraft, OverItsDocumentKnowsWhichLinesItHasChanged) {
    second.load(std::vector<OrderLine>{line(11, "A1", "2", "1.5"), line(12, "B2", "", "4"),
                                       line(13, "C3", "0", "0.25")});
    EXPECT_EQ(other.Recover(bytes, true).refusal, "");
    EXPECT_TRUE(second.modified());
    ASSERT_EQ(second.records().size(), 2u);
    EXPECT_EQ(second.records()[1].price, 7);
    const auto changes = second.changes();
    EXPECT_TRUE(changes.added.empty());
    ASSERT_EQ(changes.changed.size(), 1u);
    EXPECT_EQ(changes.changed[0].before.id, 13);
    EXPECT_EQ(changes.changed[0].after.price, 7);
    ASSERT_EQ(changes.removed.size(), 1u);
    EXPECT_EQ(changes.removed[0].before.id, 11);
}

TEST_F(SheetWithDraft, OverAnotherDocumentIsSavedAnew) {
    second.load(std::vector<OrderLine>{line(21, "X1", "2", "1.5")});
    EXPECT_EQ(other.Recover(bytes, false).refusal, "");
    EXPECT_TRUE(second.modified());
    const auto changes = second.changes();
    EXPECT_EQ(changes.added.size(), 2u);
    EXPECT_TRUE(changes.changed.empty());
    ASSERT_EQ(changes.removed.size(), 1u);
    EXPECT_EQ(changes.removed[0].before.id, 21);
    second.load(std::vector<OrderLine>{});
    EXPECT_FALSE(second.modified());
}

/// Lines with their number.
struct NumberedSheet : ::testing::Test {
    struct Line {
        std::int64_t id = 0;
        int number = 0;
        std::string name;
        friend bool operator==(const Line&, const Line&) = default;
    };
    NumberedSheet() {
        sheet.identity(&Line::id).position(&Line::number);
        sheet.text("name", "名称", &Line::name);
        sheet.load(std::vector<Line>{{11, 1, "a"}, {12, 2, "b"}, {13, 3, "c"}});
        desk.focusGrid();
    }
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Line> sheet{grid};
};

TEST_F(NumberedSheet, LinesThatStandElsewhereHaveChanged) {
    EXPECT_FALSE(sheet.modified());
    grid.Grid().Select(1, 1);
    EXPECT_TRUE(desk.run(Command::MoveRowDown));
    EXPECT_EQ(sheet.records(), (std::vector<NumberedSheet::Line>{{12, 1, "b"}, {11, 2, "a"}, {13, 3, "c"}}));
    EXPECT_TRUE(sheet.modified());
    const auto changes = sheet.changes();
    ASSERT_EQ(changes.changed.size(), 2u);
    EXPECT_EQ(changes.changed[0].before, (NumberedSheet::Line{12, 2, "b"}));
    EXPECT_EQ(changes.changed[0].after, (NumberedSheet::Line{12, 1, "b"}));
    sheet.accept(changes);
    EXPECT_FALSE(sheet.modified());
    grid.History().Undo();
    EXPECT_TRUE(sheet.modified());
    EXPECT_EQ(sheet.changes().changed.size(), 2u);
    grid.History().Redo();
    EXPECT_FALSE(sheet.modified());
}

TEST_F(NumberedSheet, ALineThatIsRemovedMovesTheOthers) {
    bool heard = false;
    sheet.onModified([&](bool modified) { heard = modified; });
    grid.Grid().Select(1, 1);
    EXPECT_TRUE(desk.run(Command::DeleteRows));
    EXPECT_TRUE(heard);
    const auto changes = sheet.changes();
    ASSERT_EQ(changes.changed.size(), 2u);
    EXPECT_EQ(changes.changed[1].after, (NumberedSheet::Line{13, 2, "c"}));
    ASSERT_EQ(changes.removed.size(), 1u);
    grid.History().Undo();
    EXPECT_FALSE(heard);
    EXPECT_TRUE(sheet.changes().empty());
}

TEST_F(NumberedSheet, RowsThatAreNoLinesAreNotCounted) {
    grid.Grid().Select(2, 1);
    EXPECT_TRUE(desk.run(Command::InsertRow));
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    desk.type("between").press(Key::Enter);
    EXPECT_TRUE(sheet.modified());
    const auto changes = sheet.changes();
    EXPECT_EQ(changes.added.size(), 1u);
    EXPECT_EQ(changes.changed.size(), 2u);
    EXPECT_EQ(changes.added[0].record.number, 2);
}

TEST_F(NumberedSheet, LinesLoadedWithOtherNumbersCountAsLoadedAndKeepTheseUntilTheNextSave) {
    sheet.load(std::vector<NumberedSheet::Line>{{11, 5, "a"}, {12, 9, "b"}});
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(sheet.modified(), !sheet.changes().empty());
    EXPECT_EQ(sheet.record(1).number, 5);
    EXPECT_EQ(sheet.record(2).number, 9);
    grid.Grid().Select(1, 1);
    desk.type("A").press(Key::Enter);
    const auto changes = sheet.changes();
    EXPECT_EQ(changes.changed.size(), 2u);
    sheet.accept(changes);
    EXPECT_EQ(sheet.record(1).number, 1);
    EXPECT_EQ(sheet.record(2).number, 2);
}
}  // namespace
}  // namespace kxVsGrid::testing
