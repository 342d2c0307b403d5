// A clerk who pastes, cuts, clears, fills, moves and deletes at random, undoes and redoes, beside a plain table
// that is told the same.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "clerk/PlainTable.h"
#include "kit/HostLog.h"
#include "kit/Random.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {
namespace {

constexpr int ActsOfTheTwins = 4'000;

/// With all rows shown, and with some that the host hides.
class BlockTwin : public ::testing::TestWithParam<bool> {
  protected:
    using Column = PlainTable;

    BlockTwin() {
        grid.Cols(Column::Count);
        column(Column::Number).iType(flexDTDouble);
        column(Column::Number).b是否合计数据(true);
        column(Column::ReadOnly).bIsEditable(false);
        column(Column::Toggle).iType(flexDTBoolean);
        column(Column::Coded).i有效性判断(1);
        column(Column::Coded).i字段有效性判断类型(ij编码型);
        grid.Options(Column::Ruled).accepts([](std::int32_t, std::string_view text) {
            return text.find('x') == std::string_view::npos ? std::string() : std::string("no x");
        });
        connectHost();
        grid.SumRow(true);
        grid.ReDraw(true);
        grid.ColHidden(Column::Hidden, true);
        for (std::int32_t row = 1; row < grid.Rows(); ++row) {
            for (std::int32_t col = 1; col < Column::Count; ++col) {
                if (col == Column::Toggle || col == Column::Number) continue;
                const PlainCell cell{"A" + std::to_string(row) + std::to_string(col),
                                     "tag" + std::to_string(row)};
                grid.SetCell(row, col, cell.text, cell.tag);
                table.at(row, col) = cell;
            }
        }
        for (const std::int32_t row : {2, 4}) {
            grid.Grid().RowHidden(row, GetParam());
            table.rows[static_cast<std::size_t>(row)].hidden = GetParam();
        }
        first = table;
        desk.focusGrid();
        grid.Grid().Select(1, 1);
    }
    void connectHost() {
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) {
            consent = grid.Rows() - 1 < PlainTable::MostRows;
            consents += consent ? 1 : 0;
        });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        grid.TxtValidBmS.connect([](const std::string&, const std::string&, const std::string&,
                                    const std::string& typed, std::string& code, std::string& name) {
            if (!typed.starts_with("A")) return;
            code = typed;
            name = "name of " + typed;
        });
        grid.AfterEdit.connect([this](auto, auto) { ++edits; });
        grid.Commands().Reported.connect([this](const PasteReport& report) { reports.push_back(report); });
        grid.Changes().After.connect([this](const StepChanges& changes) {
            if (changes.cause != Cause::Undo) ++steps;
        });
    }
    void TearDown() override {
        if (HasFailure()) std::cout << desk.ascii();
    }

    cVsControl& column(std::int32_t col) { return *grid.VsCtrl(static_cast<std::int16_t>(col)); }
    std::int32_t roll(std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, to));
    }
    std::int32_t anyRow() {
        const auto shown = table.shownRows(1, table.last());
        return dice.oneIn(4) ? shown.back()
                             : shown[static_cast<std::size_t>(roll(0, static_cast<int>(shown.size()) - 1))];
    }
    bool anyHidden(std::int32_t from, std::int32_t to) const {
        return static_cast<std::int32_t>(table.shownRows(from, to).size()) < to - from + 1;
    }
    std::int32_t anyShown() {
        return PlainTable::shown(1, Column::Count - 1)[static_cast<std::size_t>(roll(0, 5))];
    }
    std::string anyText(bool orEmpty) {
        static const std::vector<std::string> Texts{"",      "0",     "1",   "-1",    "5",     "2*3", " 9 ",
                                                    "-4.50", "12",    "abc", "A1",    "A2",    "B1",  "x1",
                                                    "True",  "False", "是",  "hello", "1,000", "否",  " A3 "};
        return Texts[static_cast<std::size_t>(roll(orEmpty ? 0 : 1, static_cast<int>(Texts.size()) - 1))];
    }
    CellRange selected() const { return grid.Grid().Selected(); }
    bool wholeRows() const {
        const SelectionKind kind = grid.Grid().SelectedAs();
        return kind == SelectionKind::Rows || kind == SelectionKind::All;
    }
    bool cellsAlone() const {
        const SelectionKind kind = grid.Grid().SelectedAs();
        return kind == SelectionKind::Cells || kind == SelectionKind::Rows;
    }

    // --- What the clerk may do.
    void select() {
        act_ = "select";
        const std::int32_t row = anyRow(), col = anyShown();
        grid.Grid().Select(row, col);
        switch (roll(0, 9)) {
            case 0:
                return grid.Grid().SelectRows(anyRow(), anyRow());
            case 1:
                return grid.Grid().SelectCols(col, col);
            case 2:
                return static_cast<void>(desk.run(Command::SelectAll));
            case 3:
                return static_cast<void>(desk.run(Command::SelectRow));
            case 4:
            case 5:
                return;
            default:
                return grid.Grid().SelectRange(row, col,
                                               dice.oneIn(2) ? anyRow()
                                               : table.shownRows(row, table.last()).size() > 1
                                                   ? table.shownRows(row, table.last())[1]
                                                   : row,
                                               anyShown());
        }
    }
    void copy() {
        act_ = "copy";
        if (!cellsAlone()) return;
        if (selected().rows() == 1 && selected().cols() == 1 &&
            grid.Grid().Text(grid.Row(), grid.Col()).empty())
            return;
        clip = table.copy(selected());
        EXPECT_TRUE(desk.run(Command::Copy));
    }
    void pasteText() {
        act_ = "paste a text";
        const int height = dice.oneIn(2) ? 1 : roll(1, 8), width = dice.oneIn(2) ? 1 : roll(1, 9);
        clip.assign(static_cast<std::size_t>(height),
                    std::vector<PlainCopy>(static_cast<std::size_t>(width)));
        std::string text;
        for (auto& line : clip) {
            for (std::size_t i = 0; i < line.size(); ++i) {
                line[i].cell.text = anyText(width > 1);
                text += (i > 0 ? "\t" : "") + line[i].cell.text;
            }
            text += dice.oneIn(2) ? "\n" : "\r\n";
        }
        desk.clipboard(text);
        paste();
    }
    void paste() {
        if (clip.empty()) return;
        CellRange into = selected();
        const std::int32_t inUse = table.lastInUse(into.firstRow);
        if (!cellsAlone() && clip.size() == 1 && clip[0].size() == 1 && inUse >= into.firstRow)
            into.lastRow = inUse;
        const bool single = clip.size() == 1 && clip[0].size() == 1 && into.rows() == 1 && into.cols() == 1 &&
                            into == selected();
        const PlainOutcome outcome = table.paste(clip, into);
        EXPECT_TRUE(desk.run(Command::Paste) || single);
        if (single && outcome.written.empty() && outcome.same == 0) return refusedSingle(into, outcome);
        expect(outcome, true);
    }
    /// On one closed cell: the editor has it where there is one, and nothing was said of rows.
    void refusedSingle(const CellRange& cell, const PlainOutcome& outcome) {
        const bool opens = outcome.passedOver == 0 && cell.firstCol != Column::Toggle;
        EXPECT_EQ(desk.editor().visible, opens);
        EXPECT_TRUE(reports.empty());
        if (opens) desk.press(Key::Escape);
        for (auto n = outcome.rowsAdded; n > consents; --n) table.rows.pop_back();
    }
    void cut() {
        act_ = "cut";
        clip.clear();
        const bool known = cellsAlone() && selected().rows() + selected().cols() > 2;
        if (known) clip = table.copy(selected());
        run(Command::Cut, table.clear(selected()));
        if (!known || reports.empty()) clip.clear();
    }
    void clearCells() {
        act_ = "clear";
        run(Command::ClearCells, table.clear(selected()));
    }
    void fillDown() {
        act_ = "fill down";
        const CellRange range = selected();
        const std::int32_t from = range.rows() == 1 ? 1 : range.firstRow;
        if (table.shownRows(from, range.lastRow).size() < 2) return;
        run(Command::FillDown, table.fillDown(selected()));
    }
    void fillRight() {
        act_ = "fill right";
        if (selected().firstCol == 1 && PlainTable::shown(1, selected().lastCol).size() == 1) return;
        run(Command::FillRight, table.fillRight(selected()));
    }
    void copyFromAbove() {
        act_ = "copy from above";
        if (table.shownRows(1, grid.Row()).size() < 2 || grid.Col() == Column::ReadOnly) return;
        const PlainOutcome outcome = table.copyFromAbove(grid.Row(), grid.Col());
        desk.run(Command::CopyFromAbove);
        if (desk.editor().visible) desk.press(Key::Escape);
        EXPECT_EQ(consents, outcome.rowsAdded);
        EXPECT_EQ(edits, static_cast<int>(outcome.written.size()));
    }
    void run(Command command, const PlainOutcome& outcome) {
        EXPECT_TRUE(desk.run(command) || outcome.written.empty());
        EXPECT_EQ(consents, outcome.rowsAdded);
        if (!reports.empty()) expect(outcome, false);
    }
    void expect(const PlainOutcome& outcome, bool all) {
        ASSERT_EQ(reports.size(), 1U);
        const PasteReport& report = reports[0];
        EXPECT_EQ(report.written, static_cast<std::int64_t>(outcome.written.size()));
        EXPECT_EQ(report.passedOver, outcome.passedOver);
        EXPECT_EQ(report.refused, static_cast<std::int64_t>(outcome.refused.size()) + outcome.beyond);
        EXPECT_EQ(edits, static_cast<int>(outcome.written.size()));
        for (const auto& [row, col] : outcome.written) EXPECT_FALSE(problem(row, col)) << row << ' ' << col;
        for (const auto& [row, col] : outcome.refused) EXPECT_TRUE(problem(row, col)) << row << ' ' << col;
        if (!all) return;
        EXPECT_EQ(report.same, outcome.same);
        EXPECT_EQ(report.rowsAdded, outcome.rowsAdded);
        EXPECT_EQ(consents, outcome.rowsAdded);
    }
    bool problem(std::int32_t row, std::int32_t col) const {
        const CellMark* mark = grid.Mark(row, col);
        return mark != nullptr && mark->kind == CellMark::Kind::Problem;
    }
    void rowCommand() {
        act_ = "row command";
        const std::int32_t row = grid.Row();
        const bool given = table.hostGivesRow();
        switch (roll(0, 2)) {
            case 0:
                if (given) table.insert(row);
                return static_cast<void>(desk.run(Command::InsertRow));
            case 1:
                if (given) table.append();
                return static_cast<void>(desk.run(Command::AppendRow));
            default:
                if (given) table.duplicate(row);
                return static_cast<void>(desk.run(Command::DuplicateRow));
        }
    }
    void deleteRows() {
        act_ = "delete rows";
        const CellRange whole = selected();
        if (wholeRows() && whole.rows() > 8 && !dice.oneIn(10)) return;
        if (wholeRows() && anyHidden(whole.firstRow, whole.lastRow)) return;
        if (wholeRows())
            table.erase(whole.firstRow, whole.lastRow);
        else
            table.erase(grid.Row(), grid.Row());
        EXPECT_TRUE(desk.run(Command::DeleteRows));
    }
    void moveRows() {
        act_ = "move rows";
        if (grid.Grid().SelectedAs() == SelectionKind::All) return;
        const bool whole = wholeRows(), up = dice.oneIn(2);
        const std::int32_t top = whole ? selected().firstRow : grid.Row();
        const std::int32_t bottom = whole ? selected().lastRow : grid.Row();
        if (anyHidden(std::max(top - 1, 1), std::min(bottom + 1, table.last()))) return;
        const bool can = up ? top > 1 : bottom < table.last();
        const Command command = up ? Command::MoveRowUp : Command::MoveRowDown;
        EXPECT_EQ(grid.CanRun(command), can);
        if (can) up ? table.moveUp(top, bottom) : table.moveDown(top, bottom);
        EXPECT_EQ(desk.run(command), can);
    }
    void type() {
        act_ = "type";
        static const std::vector<std::string> Typed{"A7", "5", "12", "x2"};
        const std::string text = Typed[static_cast<std::size_t>(roll(0, 3))];
        const std::int32_t row = anyRow(), col = anyShown();
        grid.Grid().Select(row, col);
        if (col == Column::ReadOnly || (col == Column::Number && (text[0] == 'A' || text[0] == 'x'))) return;
        if (row == table.last() && table.hostGivesRow()) table.append();
        if (col == Column::Toggle) {
            PlainCell& cell = table.at(row, col);
            cell.text = cell.text == "-1" ? "0" : "-1";
            return static_cast<void>(desk.type(" "));
        }
        if (const auto next = table.admitted(row, col, text)) table.at(row, col) = *next;
        desk.type(text).press(Key::Enter);
        if (desk.editor().visible) desk.press(Key::Escape);
    }
    void undo() {
        act_ = "undo";
        ASSERT_EQ(desk.run(Command::Undo), !done.empty());
        goBack(done, undone);
    }
    void redo() {
        act_ = "redo";
        ASSERT_EQ(desk.run(Command::Redo), !undone.empty());
        goBack(undone, done);
    }
    void goBack(std::vector<PlainTable>& from, std::vector<PlainTable>& to) {
        if (from.empty()) return;
        to.push_back(std::move(table));
        table = std::move(from.back());
        from.pop_back();
    }

    // --- The comparison.
    void act() {
        static constexpr void (BlockTwin::*Acts[])() = {
            &BlockTwin::select,     &BlockTwin::select,    &BlockTwin::copy,          &BlockTwin::paste,
            &BlockTwin::pasteText,  &BlockTwin::pasteText, &BlockTwin::cut,           &BlockTwin::clearCells,
            &BlockTwin::fillDown,   &BlockTwin::fillRight, &BlockTwin::copyFromAbove, &BlockTwin::rowCommand,
            &BlockTwin::deleteRows, &BlockTwin::moveRows,  &BlockTwin::moveRows,      &BlockTwin::type,
            &BlockTwin::type,       &BlockTwin::undo,      &BlockTwin::redo};
        if (table.hidden(grid.Row())) grid.Grid().Select(anyRow(), anyShown());
        const PlainTable before = table;
        steps = edits = 0;
        consents = 0;
        reports.clear();
        act_ = "paste";
        (this->*Acts[roll(0, static_cast<int>(std::size(Acts)) - 1)])();
        compare();
        if (act_ == "undo" || act_ == "redo") return;
        EXPECT_LE(steps, act_ == "type" ? 2 : 1) << "a key on the last row adds one before";
        EXPECT_GE(steps, table != before ? 1 : 0);
        if (steps == 0) return;
        done.push_back(before);
        undone.clear();
    }
    void compare() {
        ASSERT_EQ(grid.Rows() - 1, table.last());
        for (std::int32_t row = 1; row <= table.last(); ++row) {
            ASSERT_EQ(grid.Grid().RowHidden(row), table.hidden(row)) << row;
            for (std::int32_t col = 1; col < Column::Count; ++col) {
                ASSERT_EQ(grid.Grid().Text(row, col), table.at(row, col).text) << row << ", " << col;
                ASSERT_EQ(grid.Grid().Data(row, col), table.at(row, col).tag) << row << ", " << col;
            }
        }
        ASSERT_FALSE(desk.editor().visible);
    }

    kit::Random dice;
    headless::Desk desk;
    kxGrid& grid = desk.place();
    PlainTable table;
    PlainTable first;
    PlainBlock clip;
    std::vector<PlainTable> done;
    std::vector<PlainTable> undone;
    std::vector<PasteReport> reports;
    std::int64_t consents = 0;
    int steps = 0;
    int edits = 0;
    std::string_view act_;
};

TEST_P(BlockTwin, AgreesWithAPlainTable) {
    for (int n = 0; n < ActsOfTheTwins; ++n) {
        act();
        if (HasFailure()) {
            ADD_FAILURE() << "act " << n << ", " << act_;
            return;
        }
    }
    while (grid.CanRun(Command::Undo)) ASSERT_TRUE(grid.Run(Command::Undo));
    table = first;
    compare();
}
INSTANTIATE_TEST_SUITE_P(RowsHiddenOrNot, BlockTwin, ::testing::Bool());
}  // namespace
}  // namespace kxVsGrid::testing
