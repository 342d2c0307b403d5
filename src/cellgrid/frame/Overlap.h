// What two rectangles have in common.
#pragma once

#include <algorithm>
#include <cstdint>

#include "kxVsGrid/Geometry.h"

namespace kxVsGrid::cellgrid {

/// Empty, of size 0 in one direction at least, where they do not overlap. Neither needs an end that is a
/// number: a clip may be as large as numbers go.
inline Rect overlap(const Rect& a, const Rect& b) {
    const auto size = [](std::int32_t from, std::int64_t aEnd, std::int64_t bEnd) {
        return static_cast<std::int32_t>(std::max<std::int64_t>(std::min(aEnd, bEnd) - from, 0));
    };
    const std::int32_t left = std::max(a.left, b.left);
    const std::int32_t top = std::max(a.top, b.top);
    return {left, top, size(left, std::int64_t{a.left} + a.width, std::int64_t{b.left} + b.width),
            size(top, std::int64_t{a.top} + a.height, std::int64_t{b.top} + b.height)};
}
}  // namespace kxVsGrid::cellgrid
