#include "clerk/RowCommands.h"

#include <cmath>
#include <string>

#include "clerk/ShownCells.h"
#include "editing/BringIntoView.h"
#include "support/Numbers.h"

namespace kxVsGrid::clerk {

bool RowCommands::wholeRows() const {
    const SelectionKind kind = c_.grid.SelectedAs();
    return kind == SelectionKind::Rows || kind == SelectionKind::All;
}

// --- Going

/// Handlers may insert and remove rows meanwhile: the rows are known by their ids.
void RowCommands::remove() {
    CellGrid& grid = c_.grid;
    if (!wholeRows()) return c_.rows.removeCurrent();
    const CellRange range = grid.Selected();
    std::vector<RowId> ids;
    ShownRows rows(grid, c_.rows.follower(), range.firstRow, range.lastRow);
    while (rows.next()) ids.push_back(grid.IdOf(rows.row().row()));
    c_.steps.during("删除 " + std::to_string(ids.size()) + " 行", Cause::Rows, [&] {
        for (auto id = ids.rbegin(); id != ids.rend() && c_.host.there(); ++id)
            if (const std::int32_t row = grid.RowOf(*id); row >= 0) c_.rows.remove(row);
    });
}

// --- Places

RowCommands::Block RowCommands::movedRows() const {
    if (c_.grid.SelectedAs() != SelectionKind::Rows) return {c_.grid.Row(), c_.grid.Row()};
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

/// Rows that are hidden stay where they are: the shown ones change places with the next shown one.
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
    const bool there = grid.Select(grid.FixedRows() + static_cast<std::int32_t>(*number) - 1, grid.Col());
    if (there && c_.host.there()) editing::bringCurrentCellIntoView(grid);
    return there;
}
}  // namespace kxVsGrid::clerk
