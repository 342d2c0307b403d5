#include "editing/NextCell.h"

#include <algorithm>

#include "columns/EditableColumn.h"
#include "host/CellLock.h"

namespace kxVsGrid::editing {
namespace {

using host::ControlContext;

/// Whether cells are passed over because they are filled.
enum class Filled { Stops, MayBePassed };

/// Where the host locks cells, rows differ in what can be edited; it may also change anything as it is asked.
bool rowsDiffer(const ControlContext& c) {
    return c.options.CellLocked.heard();
}

/// The row can be a fixed one, in which the columns count alone.
bool isStop(const ControlContext& c, std::int32_t row, std::int32_t col) {
    if (!columns::isEditableColumn(c.grid, c.columns, col)) return false;
    return !rowsDiffer(c) || (!host::isLocked(c, row, col) && row < c.grid.Rows() && col < c.grid.Cols());
}

bool isPassed(const ControlContext& c, std::int32_t row, std::int32_t col) {
    const auto rules = c.columns.rules(col);
    return rules && rules->skipFilled() && columns::isDataCell(c.grid, row, col) &&
           !c.grid.Text(row, col).empty();
}

std::optional<std::int32_t> firstStopFrom(const ControlContext& c, std::int32_t row, std::int32_t col,
                                          Filled filled) {
    for (; col < c.grid.Cols() && c.host.there(); ++col)
        if (!(filled == Filled::MayBePassed && isPassed(c, row, col)) && isStop(c, row, col)) return col;
    return std::nullopt;
}

std::optional<std::int32_t> lastStopBefore(const ControlContext& c, std::int32_t row, std::int32_t col) {
    while (c.host.there() && (col = std::min(col, c.grid.Cols()) - 1) >= c.grid.FixedCols())
        if (isStop(c, row, col)) return col;
    return std::nullopt;
}

/// The first one at or after (row, col). Where nothing is locked or passed no row holds another set of stops than
/// its neighbours, so one look at the next shown row is enough.
std::optional<CellPlace> scanFrom(const ControlContext& c, std::int32_t row, std::int32_t col,
                                  Filled filled = Filled::Stops) {
    std::int32_t shown = c.grid.ShownRowAfter(row - 1);
    if (shown != row) col = c.grid.FixedCols();
    for (bool again = true; shown >= 0; shown = c.grid.ShownRowAfter(shown)) {
        if (const auto found = firstStopFrom(c, shown, col, filled)) return CellPlace{shown, *found};
        if (!c.host.there() || (!again && !rowsDiffer(c) && filled == Filled::Stops)) break;
        again = false;
        col = c.grid.FixedCols();
    }
    return std::nullopt;
}

/// The cell after (row, col); after that of the last row and column the first one of its row.
CellPlace placeAfter(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    if (++col < grid.Cols()) return {row, col};
    return {row < grid.Rows() - 1 ? row + 1 : row, grid.FixedCols()};
}

bool passesAny(const ControlContext& c) {
    for (std::int32_t col = c.grid.FixedCols(); col < c.grid.Cols(); ++col)
        if (const auto rules = c.columns.rules(col); rules && rules->skipFilled()) return true;
    return false;
}

/// Where Enter goes from (row, col). In the last column the row has ended as it is.
std::optional<CellPlace> enterFrom(const ControlContext& c, std::int32_t row, std::int32_t col) {
    const CellPlace after = placeAfter(c.grid, row, col);
    if (!passesAny(c)) return scanFrom(c, after.row, after.col);
    const auto found = scanFrom(c, after.row, after.col, Filled::MayBePassed);
    if (found || !c.host.there()) return found;
    if (after.col != col + 1) return scanFrom(c, after.row, after.col);
    return scanFrom(c, row + 1, c.grid.FixedCols());
}
}  // namespace

std::optional<CellPlace> nextEditableCell(const ControlContext& c) {
    const CellPlace from = placeAfter(c.grid, c.grid.Row(), c.grid.Col());
    return scanFrom(c, from.row, from.col);
}

std::optional<CellPlace> nextCellForEnter(const ControlContext& c) {
    return enterFrom(c, c.grid.Row(), c.grid.Col());
}

std::optional<CellPlace> cellForEnter(const ControlContext& c, std::int32_t row, std::int32_t col) {
    if (!isPassed(c, row, col)) return CellPlace{row, col};
    return enterFrom(c, row, col);
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
    if (grid.RowShown(row))
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
