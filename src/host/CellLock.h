// Whether the host keeps the clerk out of a cell: what WriteGate, the keys and the scans for the next cell ask
// alike.
#pragma once

#include <cstdint>

#include "columns/EditableColumn.h"
#include "host/ControlContext.h"

namespace kxVsGrid::host {

/// Asks for data cells alone, and only where somebody listens, who may change anything meanwhile. True once
/// the control has gone.
inline bool isLocked(const ControlContext& c, std::int32_t row, std::int32_t col) {
    bool locked = false;
    if (c.options.CellLocked.heard() && columns::isDataCell(c.grid, row, col))
        c.options.CellLocked(row, col, locked);
    return locked || !c.host.there();
}

/// A data cell of an editable column that is not locked; what the grid's Editable says does not count.
inline bool isOpenCell(const ControlContext& c, std::int32_t row, std::int32_t col) {
    if (!columns::isEditableCell(c.grid, c.columns, row, col)) return false;
    if (!c.options.CellLocked.heard()) return true;
    return !isLocked(c, row, col) && columns::isEditableCell(c.grid, c.columns, row, col);
}
}  // namespace kxVsGrid::host
