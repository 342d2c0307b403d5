// Scrolls just so far that the current cell can be seen and keyed.
#pragma once

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::editing {

/// The current row comes to lie wholly between the fixed rows and the bottom, clear of the strip that a total
/// row covers. A row higher than that space is shown from its top.
void bringCurrentRowIntoView(CellGrid& grid);
/// The current column: one left of the view becomes the first; one that reaches beyond the right edge is
/// moved in.
void bringCurrentColIntoView(CellGrid& grid);
inline void bringCurrentCellIntoView(CellGrid& grid) {
    bringCurrentRowIntoView(grid);
    bringCurrentColIntoView(grid);
}
}  // namespace kxVsGrid::editing
