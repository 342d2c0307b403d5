// Where a cell that a host names lies.
#pragma once

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::grid {

/// The grid has such a cell.
inline bool holds(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    return row >= 0 && col >= 0 && row < grid.Rows() && col < grid.Cols();
}

/// It is in a header or in the columns beside the data.
inline bool isFixed(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    return row < grid.FixedRows() || col < grid.FixedCols();
}
}  // namespace kxVsGrid::grid
