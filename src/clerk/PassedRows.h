// What a clerk is told of rows that a command has passed over, since a filter hides them.
#pragma once

#include <cstdint>
#include <string>

#include "clerk/ClerkContext.h"
#include "kxVsGrid/PasteReport.h"

namespace kxVsGrid::clerk {

/// Beside the current cell; nothing for an empty text.
inline void tellAtCell(const ClerkContext& c, const std::string& text) {
    const CellGrid& grid = c.grid;
    if (text.empty() || !c.host.there() || grid.Row() < 0 || grid.Col() < 0) return;
    c.platform.showTip(text, c.owner.onScreen(grid.CellRect(grid.Row(), grid.Col())));
}

inline void tellPassedOver(const ClerkContext& c, std::int64_t rows) {
    tellAtCell(c, passedOverText(rows));
}
}  // namespace kxVsGrid::clerk
