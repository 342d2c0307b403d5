// What a clerk is told of rows that a command has passed over, since a filter hides them.
#pragma once

#include <cstdint>

#include "clerk/TipAtCell.h"
#include "kxVsGrid/PasteReport.h"

namespace kxVsGrid::clerk {

inline void tellPassedOver(const ClerkContext& c, std::int64_t rows) {
    tellAtCell(c, passedOverText(rows));
}
}  // namespace kxVsGrid::clerk
