// Where Enter goes from a column once its value is committed.
#pragma once

#include "columns/ColumnArray.h"
#include "editing/EditorOwner.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::editing {

/// Moves by the current column's `sCellInput`: empty or c the next editable cell, r one row down (one is
/// added after the last), else a target "row,column", taken back into the grid's bounds. A target that cannot
/// be read moves nothing.
void moveByEnterRule(CellGrid& grid, columns::ColumnArray& columns, EditorOwner& owner);
}  // namespace kxVsGrid::editing
