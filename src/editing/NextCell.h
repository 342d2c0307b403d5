// Where the cursor goes when a cell is done: scans over the editable columns. Hidden rows and locked cells are
// passed over; the host is asked of each that the scan comes to (GridOptions::CellLocked), and may do anything.
#pragma once

#include <cstdint>
#include <optional>

#include "host/ControlContext.h"

namespace kxVsGrid::editing {

struct CellPlace {
    std::int32_t row;
    std::int32_t col;
};

/// The editable cell after the current one, row by row. From the last column of the last row the scan starts
/// over in that same row: Enter there returns to its first editable cell, and never leads beyond the last row
/// otherwise.
std::optional<CellPlace> nextEditableCell(const host::ControlContext& context);

/// The same for Enter, which passes over filled cells of columns that have it so (ColumnOptions::skipFilled).
/// Where all that follow are passed over, it is the first editable one of a row below, filled as it is; in the
/// last row nothing.
std::optional<CellPlace> nextCellForEnter(const host::ControlContext& context);
/// The cell itself, unless Enter passes over it: then the next one for Enter.
std::optional<CellPlace> cellForEnter(const host::ControlContext& context, std::int32_t row,
                                      std::int32_t col);

/// The same for Tab, which ends after the last row's last editable cell instead of starting over.
std::optional<CellPlace> nextTabStop(const host::ControlContext& context);
/// Backwards, ending before the first one.
std::optional<CellPlace> previousTabStop(const host::ControlContext& context);

/// The nearest editable column left of the current one in its row.
std::optional<std::int32_t> editableColumnToTheLeft(const host::ControlContext& context);
}  // namespace kxVsGrid::editing
