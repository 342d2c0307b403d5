// Rows that have changed places: where one of them has gone.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

namespace kxVsGrid::support {

/// Where the row stands that was at `row`, when `from[i]` says which one stands at first + i now. A row that
/// is none of them is where it was. Looks through all of them.
inline std::int32_t placeAfter(std::int32_t row, std::int32_t first, std::span<const std::int32_t> from) {
    if (row < first || row - first >= static_cast<std::int64_t>(from.size())) return row;
    return first + static_cast<std::int32_t>(std::find(from.begin(), from.end(), row) - from.begin());
}
}  // namespace kxVsGrid::support
