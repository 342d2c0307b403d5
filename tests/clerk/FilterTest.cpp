// Rows that are hidden by the texts of a column, and those that stay shown for a while.
#include "clerk/FilterTest.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {
namespace filtered {

class Filter : public FilteredGrid {};

TEST_F(Filter, ShowsTheRowsWithOneOfTheTextsAndKeepsTheTotals) {
    EXPECT_TRUE(show({"北京", "广州"}));
    EXPECT_EQ(shownRows(), (Places{1, 3, 4, 6, 8}));
    EXPECT_EQ(grid.Filters().HiddenRows(), 3);
    EXPECT_EQ(grid.ReadSum(Quantity), "36");
    EXPECT_TRUE(grid.Filters().On());
    EXPECT_TRUE(grid.Filters().On(City));
    EXPECT_FALSE(grid.Filters().On(Quantity));
    EXPECT_EQ(grid.Filters().Shown(City).size(), 2U);
    EXPECT_FALSE(grid.History().CanUndo());
}

TEST_F(Filter, OfSeveralColumnsShowsWhatAllLetThrough) {
    show({"北京"});
    show({"3", "4"}, Quantity);
    EXPECT_EQ(shownRows(), (Places{3}));
    EXPECT_TRUE(grid.Filters().ShowAll(City));
    EXPECT_EQ(shownRows(), (Places{3, 4}));
    EXPECT_TRUE(grid.Filters().ShowAll());
    EXPECT_EQ(shownRows().size(), 8U);
    EXPECT_FALSE(grid.Filters().On());
}

TEST_F(Filter, GoesByWhatIsSeenOfACell) {
    grid.ColFormat(Quantity, "#,##0.00");
    grid.SetCell(2, Quantity, "1234.5");
    show({"1,234.50"}, Quantity);
    EXPECT_EQ(shownRows(), (Places{2}));
    grid.Filters().ShowAll();
    grid.SetCell(5, Paid, "-1");
    show({"是"}, Paid);
    EXPECT_EQ(shownRows(), (Places{5}));
    show({"否"}, Paid);
    EXPECT_EQ(shownRows(), (Places{1, 2, 3, 4, 6, 7, 8}));
    grid.Filters().ShowAll();
    cells.Text(4, City, " 北京 ");
    show({"北京"});
    EXPECT_EQ(shownRows(), (Places{1, 3, 4, 6}));
    show({""});
    EXPECT_EQ(shownRows(), (Places{7}));
}

TEST_F(Filter, OfARowNumberGoesByTheNumberThatShows) {
    grid.Options(0).filterable(true);
    cells.NumberRows();
    grid.Filters().Show(0, {"2", "5"});
    EXPECT_EQ(shownRows(), (Places{2, 5}));
}

TEST_F(Filter, HidesBesideWhatTheHostHides) {
    cells.RowHidden(3, true);
    show({"北京"});
    EXPECT_EQ(shownRows(), (Places{1, 6}));
    EXPECT_EQ(grid.Filters().HiddenRows(), 5);
    grid.Filters().ShowAll();
    EXPECT_TRUE(cells.RowHidden(3));
    EXPECT_FALSE(cells.RowShown(3));
    EXPECT_TRUE(cells.RowShown(2));
}

TEST_F(Filter, TakesTheCurrentCellToTheNextShownRowInOneMove) {
    at(2);
    Places moves;
    cells.AfterRowColChange.connect([&](auto, auto, std::int32_t row, auto) { moves.push_back(row); });
    show({"广州"});
    EXPECT_EQ(moves, (Places{4}));
    at(8);
    moves.clear();
    show({"北京"});
    EXPECT_EQ(moves, (Places{6}));
    EXPECT_EQ(grid.Row(), 6);
}

TEST_F(Filter, BringsTheCurrentCellIntoViewWhenItEnds) {
    grid.Rows(300);
    at(250);
    show({""});
    EXPECT_EQ(grid.Row(), 250);
    cells.TopRow(7);
    grid.Filters().ShowAll();
    EXPECT_TRUE(cells.RowIsVisible(250));
}

// --- Rows that stay for a while

TEST_F(Filter, KeepsARowThatIsTypedIntoUntilItIsLeft) {
    show({"北京"});
    at(3);
    desk.type("上海").press(Key::Tab);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
    desk.press(Key::Down);
    EXPECT_EQ(shownRows(), (Places{1, 6}));
    EXPECT_EQ(text(3), "上海");
    EXPECT_EQ(grid.Row(), 6);
}

TEST_F(Filter, HidesARowAtOnceThatEnterHasLeft) {
    show({"北京"});
    at(1, Paid);
    at(1);
    desk.type("天津").press(Key::Enter);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));  // Enter has gone to the next column
    at(3);
    EXPECT_EQ(shownRows(), (Places{3, 6}));
}

TEST_F(Filter, LooksAtNoRowThatNobodyHasTouched) {
    show({"北京"});
    cells.RowFiltered(2, false);  // past the filter: as it is found again unless it is looked at
    at(3);
    at(6);
    EXPECT_EQ(shownRows(), (Places{1, 2, 3, 6}));
    cells.Text(2, Quantity, "5");
    at(1);
    EXPECT_TRUE(cells.RowShown(2));
    cells.Text(2, City, "广州");
    at(3);
    EXPECT_FALSE(cells.RowShown(2));
}

TEST_F(Filter, ShowsARowAgainThatPassesWhenTheCurrentRowIsLeft) {
    show({"北京"});
    cells.Text(2, City, "北京");
    EXPECT_FALSE(cells.RowShown(2));
    desk.press(Key::Down);
    EXPECT_TRUE(cells.RowShown(2));
}

TEST_F(Filter, KnowsTheRowsAnewThatCameToOtherPlacesWhileNothingFiltered) {
    show({"北京"});
    cells.Text(3, City, "广州");
    grid.Filters().ShowAll();
    cells.MoveRows(6, 1, 3);
    show({"北京"});
    cells.Text(3, City, "广州");
    at(1);
    at(4);
    EXPECT_FALSE(cells.RowShown(3));
}

TEST_F(Filter, KeepsRowsThatWereFilledUntilTheCurrentRowIsLeft) {
    show({"北京"});
    desk.clipboard("广州\n广州");
    desk.run(Command::Paste);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
    EXPECT_EQ(text(3), "广州");
    EXPECT_EQ(text(2), "上海");
    desk.press(Key::End, CtrlKey);
    EXPECT_EQ(shownRows(), (Places{6}));
}

TEST_F(Filter, KeepsAddedRowsUntilTheyAreLeft) {
    show({"北京"});
    desk.run(Command::AppendRow);
    EXPECT_EQ(grid.Row(), 9);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6, 9}));
    desk.press(Key::Up);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
    EXPECT_EQ(grid.Rows(), 10);
}

TEST_F(Filter, KeepsAllRowsOfOneActUntilItsRowIsLeft) {
    show({"北京"});
    desk.answerInputBox("3");
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("新增..行"); });
    desk.press(Key::Menu, CtrlKey);
    desk.onPopup({});
    EXPECT_EQ(shownRows(), (Places{1, 3, 6, 9, 10, 11}));
    desk.press(Key::Home, CtrlKey);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
}

TEST_F(Filter, ShowsARowThatAnUndoLeadsTo) {
    at(2);
    desk.type("北").press(Key::Tab);
    at(1);
    show({"北京"});
    EXPECT_FALSE(cells.RowShown(2));
    desk.run(Command::Undo);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(text(2), "上海");
    EXPECT_TRUE(cells.RowShown(2));
    desk.press(Key::Down);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
}

TEST_F(Filter, KeepsRowsThatAnUndoBringsBack) {
    cells.SelectRows(4, 5);
    at(4);
    cells.SelectRows(4, 5);
    desk.run(Command::DeleteRows);
    at(1);
    show({"北京"});
    EXPECT_EQ(shownRows(), (Places{1, 3, 4}));
    desk.run(Command::Undo);
    EXPECT_EQ(shownRows(), (Places{1, 3, 4, 5, 6}));
    desk.press(Key::Home, CtrlKey);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
}

TEST_F(Filter, ShowsAgainAtOnceWhatAnUndoHasMadePass) {
    show({"北京"});
    desk.clipboard("广州\n广州\n广州");
    desk.run(Command::Paste);
    desk.run(Command::AppendRow);
    EXPECT_EQ(shownRows(), (Places{9}));
    desk.run(Command::Undo);
    desk.run(Command::Undo);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
}

TEST_F(Filter, ShowsARowThatIsGoneToByItsNumber) {
    show({"北京"});
    desk.answerInputBox("4");
    desk.run(Command::GoToRow);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(shownRows(), (Places{1, 3, 4, 6}));
    desk.press(Key::Down);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
}

TEST_F(Filter, LeadsToAShownRowWhenTheCurrentOneIsDeleted) {
    show({"北京"});
    at(3);
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Row(), 5);  // 北京, that stood in row 6
    EXPECT_EQ(shownRows(), (Places{1, 5}));
    desk.press(Key::Delete);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(shownRows(), (Places{1}));
    cells.RemoveRow(1);  // a host past all commands
    EXPECT_EQ(shownRows(), (Places{}));
}

TEST_F(Filter, GoesAlongWhenRowsAreSorted) {
    grid.Options(City).sortable(true);
    show({"上海", "广州"});
    desk.run(Command::SortUp);
    for (std::int32_t row = 1; row <= 8; ++row)
        EXPECT_EQ(cells.RowShown(row), text(row) == "上海" || text(row) == "广州") << row;
}

TEST_F(Filter, NotesRowsThatACodeFillsByTheThousand) {
    grid.Rows(30'001);
    show({"北京"});
    for (std::int32_t row = 9; row <= 30'000; ++row) cells.Cell(row, City, row % 2 ? "北京" : "上海", "");
    desk.press(Key::Down);
    EXPECT_EQ(grid.Filters().HiddenRows(), 30'000 - 3 - 14'996);
    grid.Rows(60'001);
    EXPECT_EQ(shownRows().size(), std::size_t{3 + 14'996 + 30'000});
    desk.press(Key::Down);
    EXPECT_EQ(shownRows().size(), std::size_t{3 + 14'996});
}

TEST_F(Filter, OfAMillionEqualTextsIsPutAndEnds) {
    grid.Rows(1'000'001);
    for (std::int32_t row = 1; row <= 1'000'000; ++row) cells.Text(row, City, "北京");
    show({"北京"});
    EXPECT_EQ(grid.Filters().HiddenRows(), 0);
    show({"上海"});
    EXPECT_EQ(grid.Filters().HiddenRows(), 1'000'000);
    grid.Filters().ShowAll();
    EXPECT_EQ(grid.Filters().HiddenRows(), 0);
}

// --- The editor

TEST_F(Filter, CommitsAnOpenEditorFirst) {
    desk.type("广州");
    ASSERT_TRUE(open());
    EXPECT_TRUE(show({"广州"}));
    EXPECT_FALSE(open());
    EXPECT_EQ(shownRows(), (Places{1, 4, 8}));
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(Filter, LeavesAllAsItIsOverARefusedText) {
    grid.VsCtrl(City)->i有效性判断(1);
    grid.VsCtrl(City)->i字段有效性判断类型(ij编码型);
    desk.type("x");
    EXPECT_FALSE(show({"北京"}));
    EXPECT_TRUE(open());
    EXPECT_FALSE(grid.Filters().On());
    EXPECT_EQ(grid.Filters().HiddenRows(), 0);
    EXPECT_FALSE(desk.run(Command::Filter));
    EXPECT_TRUE(desk.dialogs().empty());
}

TEST_F(Filter, PutWhileATextIsCommittedLeavesTheRowShown) {
    auto once = std::make_shared<bool>(false);
    grid.AfterEdit.connect([this, once](std::int32_t, std::int32_t) {
        if (!std::exchange(*once, true)) show({"广州"});
    });
    desk.type("天津").press(Key::Tab);
    EXPECT_EQ(shownRows(), (Places{1, 4, 8}));
    EXPECT_EQ(grid.Row(), 1);
    desk.press(Key::Down);
    EXPECT_EQ(shownRows(), (Places{4, 8}));
}

// --- Nothing is left

TEST_F(Filter, ThatLeavesNothingLetsNoKeyTouchTheUnseenRow) {
    grid.Options().PressToggles(true);
    grid.SetCell(3, Paid, "-1");
    for (const Column col : {City, Quantity, Paid}) {
        grid.Filters().ShowAll();
        at(3, col);
        EXPECT_TRUE(show({"无"}, City));
        EXPECT_EQ(shownRows(), (Places{}));
        EXPECT_EQ(grid.Row(), 3);
        desk.type("7x");
        desk.press(Key::Space).press(Key::F2).press(Key::Delete).press(Key::Back);
        desk.compose("ni").commitComposition("你");
        EXPECT_FALSE(open());
        for (const Command command :
             {Command::Cut, Command::Paste, Command::ClearCells, Command::FillDown, Command::FillRight,
              Command::CopyFromAbove, Command::DuplicateRow, Command::DeleteRows, Command::Today,
              Command::Now, Command::MoveRowUp, Command::MoveRowDown, Command::Help}) {
            EXPECT_FALSE(grid.CanRun(command)) << captionOf(command);
            desk.run(command);
        }
        EXPECT_EQ(grid.Rows(), DataRows + 1);
        EXPECT_EQ(text(3), "北京");
        EXPECT_EQ(text(3, Quantity), "3");
        EXPECT_EQ(text(3, Paid), "-1");
        desk.press(Key::Enter).press(Key::Down).press(Key::Right).press(Key::Tab);
        EXPECT_EQ(shownRows(), (Places{}));
        desk.focusGrid();
        EXPECT_EQ(text(3), "北京");
        EXPECT_FALSE(grid.History().CanUndo());
    }
    EXPECT_TRUE(grid.CanRun(Command::Filter));
    EXPECT_TRUE(desk.run(Command::Unfilter));
    EXPECT_EQ(shownRows().size(), 8U);
}

TEST_F(Filter, ThatLeavesNothingLetsNoMenuTouchTheUnseenRow) {
    at(3);
    show({"无"});
    for (const char* item : {"复制行", "复制插入行", "删除行"}) {
        desk.onPopup([item](headless::PoppedMenu& menu) { menu.choose(item); });
        desk.press(Key::Menu);
    }
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格"); });
    desk.press(Key::Menu);
    desk.onPopup({});
    EXPECT_EQ(grid.Rows(), DataRows + 1);
    EXPECT_EQ(text(4), "广州");
}

TEST_F(Filter, ThatLeavesNothingTakesANewRow) {
    show({"无"});
    desk.press(Key::Insert);
    EXPECT_EQ(shownRows(), (Places{9}));
    desk.type("天津").press(Key::Tab);
    EXPECT_EQ(text(9), "天津");
}

// --- Its end

TEST_F(Filter, EndsWithItsColumn) {
    show({"否"}, Paid);
    show({"北京"});
    grid.Cols(3);
    EXPECT_FALSE(grid.Filters().On(Paid));
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
    grid.Cols(4);
    EXPECT_FALSE(grid.Filters().On(Paid));
    grid.Cols(1);
    EXPECT_FALSE(grid.Filters().On());
    EXPECT_EQ(shownRows().size(), 8U);
}

TEST_F(Filter, EndsWhereItsColumnShowsItsCellsOtherwise) {
    show({"1", "2"}, Quantity);
    grid.ReDraw(true);
    EXPECT_EQ(shownRows(), (Places{1, 2}));
    grid.ColFormat(Quantity, "0.00");
    EXPECT_FALSE(grid.Filters().On());
    EXPECT_EQ(shownRows().size(), 8U);
    show({"1.00"}, Quantity);
    grid.VsCtrl(Quantity)->iType(flexDTBoolean);
    grid.ReDraw(true);
    EXPECT_FALSE(grid.Filters().On());
}

TEST_F(Filter, EndsWhereAllRowsAreReplaced) {
    MemoryBag bag;
    grid.WriteProperties(bag);
    show({"北京"});
    grid.Clear();
    EXPECT_FALSE(grid.Filters().On());
    EXPECT_EQ(shownRows().size(), 5U);
    show({"北京"});
    grid.ReadProperties(bag);
    EXPECT_FALSE(grid.Filters().On());
    EXPECT_EQ(shownRows().size(), static_cast<std::size_t>(grid.Rows() - grid.FixedRows()));
}

TEST_F(Filter, LeavesHeadersShownThatWereDataRows) {
    show({"北京"});
    grid.FixedRows(3);
    EXPECT_TRUE(cells.RowShown(2));
    EXPECT_FALSE(cells.RowShown(4));
    grid.FixedRows(1);
    EXPECT_FALSE(cells.RowShown(2));
}

TEST_F(Filter, StaysWhenThereAreFewerRows) {
    show({"北京"});
    at(6);
    grid.Rows(6);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(shownRows(), (Places{1, 3}));
}

// --- Hosts

TEST_F(Filter, TellsWhenItComesChangesAndEnds) {
    int told = 0;
    grid.Filters().Changed.connect([&] { ++told; });
    show({"北京"});
    EXPECT_EQ(told, 1);
    desk.type("上海").press(Key::Down);
    EXPECT_EQ(told, 2);  // the row that was left is hidden
    desk.press(Key::Down);
    EXPECT_EQ(told, 2);
    grid.Filters().ShowAll();
    EXPECT_EQ(told, 3);
    grid.Filters().ShowAll();
    EXPECT_EQ(told, 3);
}

TEST_F(Filter, OfAColumnThatIsNotThereIsAnError) {
    EXPECT_THROW(grid.Filters().Show(4, {}), GridError);
    EXPECT_THROW(grid.Filters().ShowAll(-1), GridError);
}

TEST_F(Filter, StandsAConflictOfListenersThatFilterToo) {
    auto depth = std::make_shared<int>(0);
    cells.PlacesChanged.connect([this, depth] {
        if (++*depth == 1) show({"广州"});
    });
    show({"北京"});
    EXPECT_EQ(shownRows(), (Places{4, 8}));
    EXPECT_TRUE(cells.RowShown(grid.Row()));
}

TEST_F(Filter, MayEndTheControlInTheMiddle) {
    using Connect = std::function<void(headless::Desk&, kxGrid&)>;
    const std::vector<Connect> ends{
        [](auto& at, kxGrid& one) { one.Grid().PlacesChanged.connect([&] { at.remove(one); }); },
        [](auto& at, kxGrid& one) { one.Filters().Changed.connect([&] { at.remove(one); }); },
        [](auto& at, kxGrid& one) { one.EnterCell.connect([&] { at.remove(one); }); },
        [](auto& at, kxGrid& one) { one.RowColChange.connect([&] { at.remove(one); }); },
        [](auto& at, kxGrid& one) { one.AfterEdit.connect([&](auto, auto) { at.remove(one); }); },
    };
    for (const Connect& connect : ends)
        for (const bool leaves : {false, true}) {
            headless::Desk other;
            kxGrid& one = other.place();
            one.FormatString("行号|城市    |数量    ");
            one.Rows(9);
            one.ReDraw(true);
            for (std::int32_t row = 1; row < 9; ++row) one.SetCell(row, 1, row % 2 ? "甲" : "乙");
            other.focusGrid();
            one.Grid().Select(1, 1);
            if (leaves) {
                one.Filters().Show(1, {"甲"});
                other.type("丙");
                connect(other, one);
                other.press(Key::Down);
            } else {
                connect(other, one);
                one.Filters().Show(1, {"乙"});
            }
        }
}

TEST_F(Filter, LetsAllRowsGoAlthoughAListenerThrowsAtItsEnd) {
    show({"北京"});
    const auto heard = grid.Filters().Changed.connect([] { throw std::runtime_error("host"); });
    EXPECT_THROW(grid.Clear(), std::runtime_error);
    EXPECT_FALSE(grid.Filters().On());
    EXPECT_EQ(text(1), "");
    EXPECT_LT(grid.Rows(), DataRows + 1);
}

TEST_F(Filter, LetsTheCellBeEnteredAlthoughAListenerThrowsAsItsRowIsShown) {
    show({"北京"});
    const auto heard = grid.Filters().Changed.connect([] { throw std::runtime_error("host"); });
    int entered = 0;
    grid.EnterCell.connect([&] { ++entered; });
    EXPECT_THROW(at(2), std::runtime_error);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Text(), "上海");
    EXPECT_EQ(entered, 1);
}

TEST_F(Filter, IsPutAlthoughAListenerThrows) {
    cells.PlacesChanged.connect([] { throw std::runtime_error("host"); });
    EXPECT_THROW(show({"北京"}), std::runtime_error);
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
    EXPECT_TRUE(grid.Filters().On());
}
}  // namespace filtered
}  // namespace
}  // namespace kxVsGrid::testing
