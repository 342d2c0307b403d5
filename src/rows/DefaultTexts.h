// Default texts of an entered row.
#pragma once

#include <cstdint>

#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"
#include "rows/DefaultedCells.h"
#include "rows/FollowedRow.h"

namespace kxVsGrid::rows {

/// Gives every data cell of the row whose text is empty its column's defaults: the code default becomes the
/// tag, the name default the text. A default "[row,column]" copies from the cell that it names, when that is
/// a data cell and not empty. An empty default leaves text or tag as it is. True when the current cell was
/// written to. The texts are noted in `defaulted`.
bool fillDefaultTexts(CellGrid& grid, columns::ColumnArray& columns, DefaultedCells& defaulted,
                      RowFollower& follower, std::int32_t row);
}  // namespace kxVsGrid::rows
