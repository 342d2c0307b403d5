#include "editing/NextCell.h"

#include <algorithm>

#include "columns/EditableColumn.h"

namespace kxVsGrid::editing {
namespace {

std::optional<std::int32_t> firstEditableFrom(const CellGrid& grid, columns::ColumnArray& columns,
                                              std::int32_t col) {
    for (; col < grid.Cols(); ++col)
        if (columns::isEditableColumn(grid, columns, col)) return col;
    return std::nullopt;
}

std::optional<std::int32_t> lastEditableBefore(const CellGrid& grid, columns::ColumnArray& columns,
                                               std::int32_t col) {
    while (--col >= grid.FixedCols())
        if (columns::isEditableColumn(grid, columns, col)) return col;
    return std::nullopt;
}

/// The first editable cell at or after (row, col). No row holds another set of editable columns than its
/// neighbours, so one look at the next shown row is enough.
std::optional<CellPlace> scanFrom(const CellGrid& grid, columns::ColumnArray& columns, std::int32_t row,
                                  std::int32_t col) {
    const std::int32_t shown = grid.ShownRowAfter(row - 1);
    if (shown != row) col = grid.FixedCols();
    if (shown < 0) return std::nullopt;
    if (const auto found = firstEditableFrom(grid, columns, col)) return CellPlace{shown, *found};
    const std::int32_t next = grid.ShownRowAfter(shown);
    if (next < 0) return std::nullopt;
    if (const auto found = firstEditableFrom(grid, columns, grid.FixedCols())) return CellPlace{next, *found};
    return std::nullopt;
}
}  // namespace

std::optional<CellPlace> nextEditableCell(const CellGrid& grid, columns::ColumnArray& columns) {
    std::int32_t row = grid.Row();
    std::int32_t col = grid.Col() + 1;
    if (col >= grid.Cols()) {
        col = grid.FixedCols();
        if (row < grid.Rows() - 1) ++row;
    }
    return scanFrom(grid, columns, row, col);
}

std::optional<CellPlace> nextTabStop(const CellGrid& grid, columns::ColumnArray& columns) {
    const std::int32_t row = grid.Row();
    if (row < grid.FixedRows()) return scanFrom(grid, columns, grid.FixedRows(), grid.FixedCols());
    return scanFrom(grid, columns, row, std::max(grid.Col() + 1, grid.FixedCols()));
}

std::optional<CellPlace> previousTabStop(const CellGrid& grid, columns::ColumnArray& columns) {
    const std::int32_t row = grid.Row();
    if (row < grid.FixedRows()) return std::nullopt;
    if (!grid.RowHidden(row))
        if (const auto col = lastEditableBefore(grid, columns, grid.Col())) return CellPlace{row, *col};
    const std::int32_t before = grid.ShownRowBefore(row);
    if (before < grid.FixedRows()) return std::nullopt;
    if (const auto col = lastEditableBefore(grid, columns, grid.Cols())) return CellPlace{before, *col};
    return std::nullopt;
}

std::optional<std::int32_t> editableColumnToTheLeft(const CellGrid& grid, columns::ColumnArray& columns) {
    return lastEditableBefore(grid, columns, grid.Col());
}
}  // namespace kxVsGrid::editing
