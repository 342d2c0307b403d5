#include "editing/NextCell.h"

#include <algorithm>

#include "columns/EditableColumn.h"
#include "host/CellLock.h"

namespace kxVsGrid::editing {
namespace {

using host::ControlContext;

/// Where the host locks cells, rows differ in what can be edited; it may also change anything as it is asked.
bool rowsDiffer(const ControlContext& c) {
    return c.options.CellLocked.heard();
}

/// The row can be a fixed one, in which the columns count alone.
bool isStop(const ControlContext& c, std::int32_t row, std::int32_t col) {
    if (!columns::isEditableColumn(c.grid, c.columns, col)) return false;
    return !rowsDiffer(c) || (!host::isLocked(c, row, col) && row < c.grid.Rows() && col < c.grid.Cols());
}

std::optional<std::int32_t> firstStopFrom(const ControlContext& c, std::int32_t row, std::int32_t col) {
    for (; col < c.grid.Cols() && c.host.there(); ++col)
        if (isStop(c, row, col)) return col;
    return std::nullopt;
}

std::optional<std::int32_t> lastStopBefore(const ControlContext& c, std::int32_t row, std::int32_t col) {
    while (c.host.there() && (col = std::min(col, c.grid.Cols()) - 1) >= c.grid.FixedCols())
        if (isStop(c, row, col)) return col;
    return std::nullopt;
}

/// The first one at or after (row, col). Where nothing is locked no row holds another set of editable columns
/// than its neighbours, so one look at the next shown row is enough.
std::optional<CellPlace> scanFrom(const ControlContext& c, std::int32_t row, std::int32_t col) {
    std::int32_t shown = c.grid.ShownRowAfter(row - 1);
    if (shown != row) col = c.grid.FixedCols();
    for (bool again = true; shown >= 0; shown = c.grid.ShownRowAfter(shown)) {
        if (const auto found = firstStopFrom(c, shown, col)) return CellPlace{shown, *found};
        if (!c.host.there() || (!again && !rowsDiffer(c))) break;
        again = false;
        col = c.grid.FixedCols();
    }
    return std::nullopt;
}
}  // namespace

std::optional<CellPlace> nextEditableCell(const ControlContext& c) {
    const CellGrid& grid = c.grid;
    std::int32_t row = grid.Row();
    std::int32_t col = grid.Col() + 1;
    if (col >= grid.Cols()) {
        col = grid.FixedCols();
        if (row < grid.Rows() - 1) ++row;
    }
    return scanFrom(c, row, col);
}

std::optional<CellPlace> nextTabStop(const ControlContext& c) {
    const CellGrid& grid = c.grid;
    const std::int32_t row = grid.Row();
    if (row < grid.FixedRows()) return scanFrom(c, grid.FixedRows(), grid.FixedCols());
    return scanFrom(c, row, std::max(grid.Col() + 1, grid.FixedCols()));
}

std::optional<CellPlace> previousTabStop(const ControlContext& c) {
    const CellGrid& grid = c.grid;
    const std::int32_t row = grid.Row();
    if (row < grid.FixedRows()) return std::nullopt;
    if (!grid.RowHidden(row))
        if (const auto col = lastStopBefore(c, row, grid.Col())) return CellPlace{row, *col};
    std::int32_t before = grid.ShownRowBefore(row);
    while (before >= grid.FixedRows() && c.host.there()) {
        if (const auto col = lastStopBefore(c, before, grid.Cols())) return CellPlace{before, *col};
        if (!rowsDiffer(c)) break;
        before = grid.ShownRowBefore(before);
    }
    return std::nullopt;
}

std::optional<std::int32_t> editableColumnToTheLeft(const ControlContext& c) {
    return lastStopBefore(c, c.grid.Row(), c.grid.Col());
}
}  // namespace kxVsGrid::editing
