#include "grid/events/RowAdder.h"

#include <algorithm>

#include "grid/columns/ColumnColors.h"
#include "grid/events/Navigation.h"
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
    const std::int32_t source = current < position ? current : current + 1;
    if (!grid.RowIsVisible(position))
        grid.TopRow(grid.TopRowToShow(position, grid.ClientHeight() - grid.BottomStrip()));
    if (grid.Col() >= 0) grid.Row(position);
    grid.NumberRows();

    if (copyData)
        copyRow(source, position);
    else if (grid.Col() == col && withDefaults)
        navigation_.afterRowColChange(grid.Row(), grid.Col(), grid.Row(), grid.Col());

    bool keep = false;
    c_.host.raise(&GridEvents::AfterAddRow, keep, position, copyData, source);
    if (copyData && !keep) emptyRow(position);
    c_.totals.recalculate(TotalRow::AllColumns);
}

/// A row never goes in between the fixed ones; a host that took rows away meanwhile gets it after the last
/// one.
std::int32_t RowAdder::insertRow(std::int32_t position) {
    CellGrid& grid = c_.grid;
    position = std::clamp(position, grid.FixedRows(), grid.Rows());
    {
        TotalRow::Expect allColumns(c_.totals, TotalRow::AllColumns);  // an empty row changes no total
        grid.InsertRow(position);
    }
    grid.RowHeight(position, NewRowHeight);
    columns::paintRow(grid, c_.columns, position);
    return position;
}

void RowAdder::copyRow(std::int32_t from, std::int32_t to) {
    CellGrid& grid = c_.grid;
    for (std::int32_t c = grid.FixedCols(); c < grid.Cols(); ++c) {
        if (std::max(from, to) >= grid.Rows()) return;  // a host took rows away as it heard of a change
        grid.Data(to, c, grid.Data(from, c));
        if (std::max(from, to) >= grid.Rows()) return;
        grid.Text(to, c, grid.Text(from, c));
    }
}

void RowAdder::emptyRow(std::int32_t row) {
    CellGrid& grid = c_.grid;
    for (std::int32_t c = grid.FixedCols(); c < grid.Cols() && row < grid.Rows(); ++c) {
        grid.Data(row, c, "");
        if (row < grid.Rows()) grid.Text(row, c, "");
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
