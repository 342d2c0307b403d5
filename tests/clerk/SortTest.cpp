// Rows sorted by the column of the current cell.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "kit/Dice.h"
#include "kit/Random.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxVsGrid.h"

namespace kxVsGrid::testing {
namespace {

using Lines = std::vector<std::string>;

class SortedGrid : public ::testing::Test {
  protected:
    enum Column : std::int32_t { Name = 1, Quantity, Day };

    SortedGrid() {
        grid.FormatString("行号|品名    |数量    |日期    ");
        grid.VsCtrl(Quantity)->iType(flexDTDouble);
        grid.VsCtrl(Day)->iType(flexDTDate);
        for (const Column col : {Name, Quantity, Day}) {
            grid.VsCtrl(static_cast<std::int16_t>(col))->bIsEditable(true);
            grid.Options(col).sortable(true);
        }
        grid.Rows(13);
        grid.ReDraw(true);
        desk.focusGrid();
    }
    /// Writes the texts into a column from the first data row on.
    void fill(Column col, const Lines& texts) {
        for (std::size_t i = 0; i < texts.size(); ++i)
            grid.Grid().Text(static_cast<std::int32_t>(i) + 1, col, texts[i]);
    }
    Lines column(Column col, std::int32_t rows) const {
        Lines texts;
        for (std::int32_t row = 1; row <= rows; ++row) texts.push_back(grid.Grid().Text(row, col));
        return texts;
    }
    bool sort(Column col, Command command = Command::SortUp) {
        grid.Grid().Select(grid.Grid().Row(), col);
        return desk.run(command);
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
};

TEST_F(SortedGrid, HasItsNumbersInTheOrderOfTheirValues) {
    fill(Quantity, {"10", "9", "-1.5", "1e2", "0"});
    EXPECT_TRUE(sort(Quantity));
    EXPECT_EQ(column(Quantity, 5), (Lines{"-1.5", "0", "9", "10", "1e2"}));
    EXPECT_TRUE(sort(Quantity, Command::SortDown));
    EXPECT_EQ(column(Quantity, 5), (Lines{"1e2", "10", "9", "0", "-1.5"}));
}

TEST_F(SortedGrid, HasDatesInTheOrderOfTheCalendarHoweverTheyAreWritten) {
    fill(Day, {"2026-11-20", "2026/2/3", "2025-12-31 08:00", "2025-12-31"});
    sort(Day);
    EXPECT_EQ(column(Day, 4), (Lines{"2025-12-31", "2025-12-31 08:00", "2026/2/3", "2026-11-20"}));
}

TEST_F(SortedGrid, HasTextsThatAreNoNumbersBehindThoseThatAreWhicheverWay) {
    fill(Quantity, {"乙", "2", "", "1", "甲"});
    fill(Name, {"a", "b", "c", "d", "e"});
    sort(Quantity);
    EXPECT_EQ(column(Quantity, 5), (Lines{"1", "2", "乙", "甲", ""}));
    sort(Quantity, Command::SortDown);
    EXPECT_EQ(column(Quantity, 5), (Lines{"2", "1", "甲", "乙", ""}));
}

TEST_F(SortedGrid, HasEmptyCellsBehindTheOthersAndEmptyRowsLast) {
    fill(Name, {"", "b", "", "a", ""});
    fill(Quantity, {"1", "2", "", "3", "4"});
    sort(Name);
    EXPECT_EQ(column(Name, 5), (Lines{"a", "b", "", "", ""}));
    EXPECT_EQ(column(Quantity, 5), (Lines{"3", "2", "1", "4", ""}));
    sort(Name, Command::SortDown);
    EXPECT_EQ(column(Quantity, 5), (Lines{"2", "3", "1", "4", ""}));
}

TEST_F(SortedGrid, HasRowsLastThatOnlyDefaultFillingHasFilled) {
    grid.VsCtrl(Name)->sDefaultText_Name("a");
    fill(Name, {"b"});
    grid.Grid().Select(2, Quantity);
    ASSERT_EQ(column(Name, 2), (Lines{"b", "a"}));
    sort(Name);
    EXPECT_EQ(column(Name, 2), (Lines{"b", "a"}));
    grid.Grid().Text(2, Quantity, "1");
    sort(Name);
    EXPECT_EQ(column(Name, 2), (Lines{"a", "b"}));
}

TEST_F(SortedGrid, KeepsTheOrderOfRowsThatAreEqualWhicheverWay) {
    fill(Name, {"b", "a", "b", "a"});
    fill(Quantity, {"1", "2", "3", "4"});
    sort(Name);
    EXPECT_EQ(column(Quantity, 4), (Lines{"2", "4", "1", "3"}));
    sort(Name, Command::SortDown);
    EXPECT_EQ(column(Quantity, 4), (Lines{"1", "3", "2", "4"}));
}

TEST_F(SortedGrid, TakesTagsHeightsColoursMarksAndTheCurrentCellAlong) {
    fill(Name, {"b", "a"});
    CellGrid& cells = grid.Grid();
    cells.Data(1, Name, "tag");
    cells.RowHeight(1, 600);
    cells.CellBackColor(1, Name, 0x123456);
    cells.Mark(1, Name, CellMark{CellMark::Kind::Note, "note"});
    cells.RowHidden(2, true);
    cells.Select(1, Name);
    sort(Name);
    EXPECT_EQ(cells.Row(), 2);
    EXPECT_EQ(cells.Text(2, Name), "b");
    EXPECT_EQ(cells.Data(2, Name), "tag");
    EXPECT_EQ(cells.RowHeight(2), 600);
    EXPECT_EQ(cells.CellBackColor(2, Name), 0x123456U);
    ASSERT_NE(cells.Mark(2, Name), nullptr);
    EXPECT_TRUE(cells.RowHidden(1));
}

TEST_F(SortedGrid, IsOneStepThatUndoTakesBack) {
    fill(Name, {"c", "a", "b"});
    grid.Grid().Select(1, Name);
    desk.type("d").press(Key::Enter);
    std::vector<Cause> causes;
    grid.Changes().After.connect([&](const StepChanges& changes) { causes.push_back(changes.cause); });
    sort(Name);
    EXPECT_EQ(causes, std::vector<Cause>{Cause::Sort});
    EXPECT_EQ(grid.History().UndoName(), "按品名升序");
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_EQ(column(Name, 3), (Lines{"d", "a", "b"}));
    EXPECT_TRUE(desk.run(Command::Redo));
    EXPECT_EQ(column(Name, 3), (Lines{"a", "b", "d"}));
}

TEST_F(SortedGrid, CommitsTheOpenEditorFirst) {
    fill(Name, {"b", "a"});
    grid.Grid().Select(1, Name);
    desk.type("0");
    EXPECT_TRUE(desk.run(Command::SortDown));
    EXPECT_EQ(column(Name, 2), (Lines{"a", "0"}));
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(SortedGrid, StaysAsItIsWhileTheEditorHoldsARefusedText) {
    fill(Quantity, {"2", "1"});
    grid.Grid().Select(1, Quantity);
    desk.type("2x");
    EXPECT_FALSE(desk.run(Command::SortUp));
    EXPECT_EQ(desk.editor().text, "2x");
    EXPECT_EQ(grid.Grid().Text(2, Quantity), "1");
}

TEST_F(SortedGrid, IsNotSortedWhereItsHostDoesNotAllowIt) {
    fill(Name, {"b", "a"});
    grid.Options(Name).sortable(false);
    EXPECT_FALSE(grid.CanRun(Command::SortUp));
    EXPECT_FALSE(sort(Name));
    grid.Options(Name).sortable(true);
    grid.Editable(false);
    EXPECT_FALSE(grid.CanRun(Command::SortUp));
}

TEST_F(SortedGrid, IsNotSortedWhereRowHeadersMerge) {
    fill(Name, {"b", "a"});
    grid.MergeCells(flexMergeFixedOnly);
    grid.MergeRow(0, true);  // captions may
    grid.Grid().Select(1, Name);
    EXPECT_TRUE(grid.CanRun(Command::SortUp));
    EXPECT_EQ(grid.Commands().WhyNot(Command::SortUp), "");
    grid.MergeCol(0, true);
    EXPECT_FALSE(grid.CanRun(Command::SortUp));
    EXPECT_EQ(grid.Commands().WhyNot(Command::SortUp), "行标题有合并的单元格，不能排序。");
    grid.Options(Name).sortable(false);
    EXPECT_EQ(grid.Commands().WhyNot(Command::SortUp), "");  // it would not be sorted anyway
}

TEST_F(SortedGrid, GoesBackIntoTheOrderItHadBeforeAllSorting) {
    fill(Name, {"c", "a", "b"});
    fill(Quantity, {"1", "3", "2"});
    grid.Grid().Select(1, Name);
    EXPECT_FALSE(grid.CanRun(Command::Unsort));
    sort(Name);
    sort(Quantity, Command::SortDown);
    grid.Grid().Text(1, Name, "changed");
    EXPECT_TRUE(desk.run(Command::Unsort));
    EXPECT_EQ(column(Quantity, 3), (Lines{"1", "3", "2"}));
    EXPECT_EQ(grid.Grid().Text(2, Name), "changed");
    EXPECT_FALSE(grid.CanRun(Command::Unsort));
}

TEST_F(SortedGrid, HasRowsThatCameLaterBehindTheOthersWhenItGoesBack) {
    fill(Name, {"c", "a", "b"});
    sort(Name);
    grid.Grid().InsertRow(2);
    grid.Grid().Text(2, Name, "new");
    grid.Grid().RemoveRow(1);
    EXPECT_TRUE(desk.run(Command::Unsort));
    EXPECT_EQ(column(Name, 3), (Lines{"c", "b", "new"}));
}

TEST_F(SortedGrid, IsInNoOtherOrderOnceTheSortIsUndone) {
    fill(Name, {"b", "a"});
    sort(Name);
    desk.run(Command::Undo);
    EXPECT_FALSE(grid.CanRun(Command::Unsort));
    desk.press(Key::Down, AltKey);  // moved by the clerk: that is the order now
    EXPECT_FALSE(grid.CanRun(Command::Unsort));
}

TEST_F(SortedGrid, GoesBackIntoItsFirstOrderAlsoFromASortThatWasRedone) {
    fill(Name, {"c", "a", "b"});
    fill(Quantity, {"1", "3", "2"});
    sort(Name);
    desk.run(Command::Undo);
    desk.run(Command::Redo);
    EXPECT_TRUE(grid.CanRun(Command::Unsort));
    sort(Quantity);
    EXPECT_TRUE(desk.run(Command::Unsort));
    EXPECT_EQ(column(Name, 3), (Lines{"c", "a", "b"}));
}

TEST_F(SortedGrid, KeepsTheClerkOnTheRowWhenASortIsUndone) {
    fill(Name, {"c", "a", "b"});
    grid.Grid().RowsReordered.connect(
        [&](std::int32_t, std::span<const std::int32_t>) { grid.Grid().Text(1, Quantity, "of the host"); });
    grid.Grid().Select(1, Name);
    desk.run(Command::SortUp);
    ASSERT_EQ(grid.Grid().Row(), 3);
    desk.run(Command::Undo);
    EXPECT_EQ(grid.Grid().Row(), 1);
    EXPECT_EQ(grid.Grid().Col(), Name);
    desk.run(Command::Redo);
    EXPECT_EQ(grid.Grid().Row(), 3);
    EXPECT_EQ(grid.Grid().Col(), Name);
}

TEST_F(SortedGrid, HasAHundredMillionRowsInNoTimeWhenFewAreFilled) {
    grid.Rows(100'000'000);
    fill(Name, {"b", "a"});
    EXPECT_TRUE(sort(Name));
    EXPECT_EQ(column(Name, 2), (Lines{"a", "b"}));
}

/// What stands where when plain rows are sorted in the plain way.
class PlainRows {
  public:
    struct Row {
        std::string name, quantity;
    };
    std::vector<Row> rows;

    void sort(bool byQuantity, bool down) {
        std::stable_sort(rows.begin(), rows.end(), [&](const Row& a, const Row& b) {
            const auto place = [&](const Row& row) {
                const std::string& text = byQuantity ? row.quantity : row.name;
                const int group = row.name.empty() && row.quantity.empty() ? 3
                                  : text.empty()                           ? 2
                                  : byQuantity && isNumber(text)           ? 0
                                                                           : 1;
                return std::pair(group, text);
            };
            const auto [groupA, textA] = place(a);
            const auto [groupB, textB] = place(b);
            if (groupA != groupB) return groupA < groupB;
            if (groupA >= 2) return false;
            if (groupA == 0)
                return down ? std::stod(textB) < std::stod(textA) : std::stod(textA) < std::stod(textB);
            return down ? textB < textA : textA < textB;
        });
    }

  private:
    static bool isNumber(const std::string& text) {
        return text.find_first_not_of("-.0123456789") == std::string::npos;
    }
};

TEST_F(SortedGrid, SortsLikePlainRows) {
    kit::Dice dice;
    const Lines names = {"", "", "甲", "乙", "丙丁", "a", "b", "long enough to be kept elsewhere"};
    const Lines quantities = {"", "0", "-3", "2.5", "10", "9", "x", "12 个"};
    for (int round = 0; round < 60; ++round) {
        PlainRows plain;
        const std::int32_t count = dice.between(0, 12);
        grid.Grid().ClearText(1, grid.Rows() - 1);
        for (std::int32_t row = 1; row <= count; ++row) {
            plain.rows.push_back({names[static_cast<std::size_t>(dice.between(0, 7))],
                                  quantities[static_cast<std::size_t>(dice.between(0, 7))]});
            grid.Grid().Text(row, Name, plain.rows.back().name);
            grid.Grid().Text(row, Quantity, plain.rows.back().quantity);
        }
        for (int times = 0; times < 3; ++times) {
            const bool byQuantity = dice.oneIn(2), down = dice.oneIn(2);
            plain.sort(byQuantity, down);
            sort(byQuantity ? Quantity : Name, down ? Command::SortDown : Command::SortUp);
        }
        for (std::int32_t row = 1; row <= count; ++row) {
            EXPECT_EQ(grid.Grid().Text(row, Name), plain.rows[static_cast<std::size_t>(row) - 1].name);
            EXPECT_EQ(grid.Grid().Text(row, Quantity),
                      plain.rows[static_cast<std::size_t>(row) - 1].quantity);
        }
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
