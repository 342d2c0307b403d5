// What a clerk is told beside the current cell, for a moment.
#pragma once

#include <string>

#include "clerk/ClerkContext.h"

namespace kxVsGrid::clerk {

/// Nothing for an empty text, and where there is no current cell.
inline void tellAtCell(const ClerkContext& c, const std::string& text) {
    const CellGrid& grid = c.grid;
    if (text.empty() || !c.host.there() || grid.Row() < 0 || grid.Col() < 0) return;
    c.platform.showTip(text, c.owner.onScreen(grid.CellRect(grid.Row(), grid.Col())));
}
}  // namespace kxVsGrid::clerk
