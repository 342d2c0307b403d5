// The full set-up of the main grid from the column definitions.
#pragma once

#include "totals/TotalRow.h"
#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::grid {

/// Applies data types, alignments, visibility and colours of every column, then prepares the total row. An
/// error is not raised: the rest is skipped, and painting may stay off until the next set-up.
void setUpGrid(CellGrid& grid, columns::ColumnArray& columns, TotalRow& totals);
}  // namespace kxVsGrid::grid
