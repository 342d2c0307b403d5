// What an editable column is, for everybody who skips the others.
#pragma once

#include <cstdint>

#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::columns {

/// Narrower columns cannot be typed into.
inline constexpr std::int32_t NarrowestEditableWidth = 16;

/// Wide enough, not hidden, and its definition allows editing.
inline bool isEditableColumn(const CellGrid& grid, ColumnArray& columns, std::int32_t col) {
    return grid.ColWidth(col) >= NarrowestEditableWidth && !grid.ColHidden(col) &&
           columns.at(col).bIsEditable();
}

/// Neither in the fixed rows or columns nor outside the grid.
inline bool isDataCell(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    return row >= grid.FixedRows() && row < grid.Rows() && col >= grid.FixedCols() && col < grid.Cols();
}

/// A data cell of an editable column.
inline bool isEditableCell(const CellGrid& grid, ColumnArray& columns, std::int32_t row, std::int32_t col) {
    return isDataCell(grid, row, col) && isEditableColumn(grid, columns, col);
}
}  // namespace kxVsGrid::columns
