// The full set-up of the main grid from the column definitions.
#pragma once

#include "columns/ClerkColumns.h"
#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"
#include "totals/TotalRow.h"

namespace kxVsGrid::grid {

/// Applies data types, alignments, visibility and colours of every column, then prepares the total row. An
/// error is not raised: the rest is skipped, and painting may stay off until the next set-up.
/// What the clerk has hidden stays hidden.
void setUpGrid(CellGrid& grid, columns::ColumnArray& columns, const columns::ClerkColumns* clerks,
               totals::TotalRow& totals);
}  // namespace kxVsGrid::grid
