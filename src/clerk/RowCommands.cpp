#include "clerk/RowCommands.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "clerk/Filters.h"
#include "clerk/PassedRows.h"
#include "clerk/ShownCells.h"
#include "editing/BringIntoView.h"
#include "support/Numbers.h"

namespace kxVsGrid::clerk {

bool RowCommands::wholeRows() const {
    const SelectionKind kind = c_.grid.SelectedAs();
    return kind == SelectionKind::Rows || kind == SelectionKind::All;
}

// --- Going

/// The host is asked about all of them before the first one goes: no box of its own stands in the middle of
/// the step. Handlers may insert and remove rows meanwhile: the rows are known by their ids.
void RowCommands::remove() {
    CellGrid& grid = c_.grid;
    if (!wholeRows()) return c_.rows.removeCurrent();
    std::vector<RowId> going;
    const CellRange selected = grid.Selected();
    const std::int64_t filtered = grid.FilteredRows(selected.firstRow, selected.lastRow);
    for (const RowId id : selectedRows()) {
        if (!c_.host.there()) return;
        const std::int32_t row = grid.RowOf(id);
        if (row >= 0 && c_.rows.mayRemove(row)) going.push_back(id);
    }
    if (going.empty() || !c_.host.there()) return;
    c_.steps.during("删除 " + std::to_string(going.size()) + " 行", Cause::Rows, [&] {
        for (const RowId id : going)
            if (const std::int32_t row = c_.host.there() ? grid.RowOf(id) : -1; row >= grid.FixedRows())
                c_.rows.remove(row);
    });
    tellPassedOver(c_, filtered);
}

/// The shown ones, from the last one up. Of a very long grid the empty rows at its end stay.
std::vector<RowId> RowCommands::selectedRows() {
    CellGrid& grid = c_.grid;
    CellRange range = grid.Selected();
    if (range.rows() > VeryLong && range.lastRow == grid.Rows() - 1)
        range.lastRow = lastFilledRow(grid, range);
    std::vector<RowId> ids;
    ShownRows rows(grid, c_.rows.follower(), range.firstRow, range.lastRow);
    while (rows.next()) ids.push_back(grid.IdOf(rows.row().row()));
    std::reverse(ids.begin(), ids.end());
    return ids;
}

// --- Places

RowCommands::Block RowCommands::movedRows() const {
    if (!wholeRows()) return {c_.grid.Row(), c_.grid.Row()};
    const CellRange range = c_.grid.Selected();
    return {range.firstRow, range.lastRow};
}

bool RowCommands::canMove(bool down) const {
    const CellGrid& grid = c_.grid;
    const Block rows = movedRows();
    if (rows.first < grid.FixedRows()) return false;
    return down ? grid.ShownRowAfter(rows.last) > rows.last
                : grid.ShownRowBefore(rows.first) >= grid.FixedRows();
}

/// The rows change places with the next shown one; what is hidden between them stays between them.
bool RowCommands::move(bool down) {
    if (!canMove(down)) return false;
    CellGrid& grid = c_.grid;
    const Block rows = movedRows();
    c_.steps.during(captionOf(down ? Command::MoveRowDown : Command::MoveRowUp), Cause::Rows, [&] {
        if (down)
            grid.MoveRows(grid.ShownRowAfter(rows.last), 1, rows.first);
        else
            grid.MoveRows(grid.ShownRowBefore(rows.first), 1, rows.last);
        c_.owner.changedData(true);
    });
    if (c_.host.there()) editing::bringCurrentCellIntoView(grid);
    return true;
}

// --- Going there

bool RowCommands::goTo() {
    CellGrid& grid = c_.grid;
    const std::int32_t count = grid.Rows() - grid.FixedRows();
    const std::string preset = std::to_string(grid.Row() - grid.FixedRows() + 1);
    const auto answer =
        c_.platform.askText({"转到第几行（1 到 " + std::to_string(count) + "）", "转到行", preset});
    if (!answer || !c_.host.there()) return false;
    const auto number = support::completeNumber(*answer);
    if (!number || std::floor(*number) != *number || *number < 1 || *number > count) {
        c_.platform.showMessage({"没有第 " + *answer + " 行：行号是 1 到 " + std::to_string(count) + "。",
                                 MessageBox::Information, "提示："});
        return false;
    }
    const std::int32_t row = grid.FixedRows() + static_cast<std::int32_t>(*number) - 1;
    if (row >= grid.Rows() || grid.Col() < 0) return false;
    c_.filters.expose(row);
    if (!c_.host.there() || row >= grid.Rows() || grid.Col() < 0 || !grid.Select(row, grid.Col()))
        return false;
    if (c_.host.there()) editing::bringCurrentCellIntoView(grid);
    return true;
}
}  // namespace kxVsGrid::clerk
