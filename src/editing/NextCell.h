// Where the cursor goes when a cell is done: scans over the editable columns. Hidden rows are passed over.
#pragma once

#include <cstdint>
#include <optional>

#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::editing {

struct CellPlace {
    std::int32_t row;
    std::int32_t col;
};

/// The editable cell after the current one, row by row. From the last column of the last row the scan starts
/// over in that same row: Enter there returns to its first editable cell, and never leads beyond the last row
/// otherwise.
std::optional<CellPlace> nextEditableCell(const CellGrid& grid, columns::ColumnArray& columns);

/// The same for Tab, which ends after the last row's last editable cell instead of starting over.
std::optional<CellPlace> nextTabStop(const CellGrid& grid, columns::ColumnArray& columns);
/// Backwards, ending before the first one.
std::optional<CellPlace> previousTabStop(const CellGrid& grid, columns::ColumnArray& columns);

/// The nearest editable column left of the current one in its row.
std::optional<std::int32_t> editableColumnToTheLeft(const CellGrid& grid, columns::ColumnArray& columns);
}  // namespace kxVsGrid::editing
