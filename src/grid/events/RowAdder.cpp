#include "grid/events/RowAdder.h"

#include <algorithm>
#include <string>

#include "grid/columns/ColumnColors.h"
#include "grid/events/Navigation.h"
#include "grid/events/PairWrite.h"
#include "support/Span.h"

namespace kxVsGrid::events {

using grid::TotalRow;

void RowAdder::addRow(std::int32_t position, bool withDefaults, bool copyData) {
    CellGrid& grid = c_.grid;
    bool consent = true;
    c_.host.raise(&GridEvents::AddVsRow, grid.Row(), consent);
    if (!consent) return;

    support::Span automatic(c_.moves.AutoDefault, withDefaults, true);
    const std::int32_t col = grid.Col();
    const std::int32_t current = grid.Row();
    position = insertRow(position);
    const FollowedRow made(c_.follower, position);
    const FollowedRow source(c_.follower, current < position ? current : current + 1);
    if (!grid.RowIsVisible(position))
        grid.TopRow(grid.TopRowToShow(position, grid.ClientHeight() - grid.BottomStrip()));
    if (grid.Col() >= 0 && made.there()) grid.Row(made.row());
    grid.NumberRows();

    if (copyData)
        copyRow(source, made);
    else if (grid.Col() == col && withDefaults && made.there())
        navigation_.rowAdded(made.row());

    bool keep = false;
    c_.host.raise(&GridEvents::AfterAddRow, keep, made.row(), copyData, source.row());
    if (copyData && !keep) emptyRow(made);
    c_.totals.recalculate(TotalRow::AllColumns);
}

/// A row never goes in between the fixed ones; a host that took rows away meanwhile gets it after the last
/// one.
std::int32_t RowAdder::insertRow(std::int32_t position) {
    CellGrid& grid = c_.grid;
    position = std::clamp(position, grid.FixedRows(), grid.Rows());
    {
        const TotalRow::EmptyRows emptyRow(c_.totals);
        grid.InsertRow(position);
    }
    grid.RowHeight(position, NewRowHeight);
    columns::paintRow(grid, c_.columns, position);
    return position;
}

/// A host that takes one of the rows away as it hears of a change ends the copy.
void RowAdder::copyRow(const FollowedRow& from, const FollowedRow& to) {
    for (std::int32_t c = c_.grid.FixedCols(); c < c_.grid.Cols() && from.there() && to.there(); ++c)
        copyCell(from, to, c);
}

void RowAdder::copyCell(const FollowedRow& from, const FollowedRow& to, std::int32_t col) {
    CellGrid& grid = c_.grid;
    const PairWrite pair(grid, c_.follower, to.row(), col);
    const std::string tag = grid.Data(from.row(), col);
    pair.during(tag, [&] {
        grid.Data(to.row(), col, tag);
        if (from.there() && to.there() && col < grid.Cols())
            grid.Text(to.row(), col, grid.Text(from.row(), col));
        else
            pair.putBack(tag);
    });
}

void RowAdder::emptyRow(const FollowedRow& row) {
    CellGrid& grid = c_.grid;
    for (std::int32_t c = grid.FixedCols(); c < grid.Cols() && row.there(); ++c) {
        const PairWrite pair(grid, c_.follower, row.row(), c);
        pair.during("", [&] {
            grid.Data(row.row(), c, "");
            if (row.there() && c < grid.Cols()) grid.Text(row.row(), c, "");
        });
    }
}

void RowAdder::appendIfLast(std::int32_t row) {
    if (row < c_.grid.Rows() - 1) return;
    bool consent = false;
    c_.host.raise(&GridEvents::AddVsRow, row, consent);
    if (!consent) return;
    appendEmptyRow();
    c_.grid.NumberRows();
}

void RowAdder::appendEmptyRow() {
    insertRow(c_.grid.Rows());
}

void RowAdder::refill() {
    while (c_.grid.Rows() < c_.grid.FixedRows() + FewestDataRows) appendEmptyRow();
}
}  // namespace kxVsGrid::events
