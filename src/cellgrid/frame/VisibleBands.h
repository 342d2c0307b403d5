// The rows and columns of a grid that a picture shows, found without walking over those that it does not.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::cellgrid {

/// One row (along y) or column (along x) of the picture.
struct Band {
    std::int32_t index = 0;
    std::int32_t start = 0;
    std::int32_t size = 0;
    bool fixed = false;
    bool still = false;  ///< does not scroll: fixed, or frozen

    std::int32_t end() const { return start + size; }
};

/// In the order of their places, without gaps between them: those of the fixed area, frozen ones, scrolled ones.
/// The first scrolled one may begin under those before it, which are painted over it.
struct Bands {
    std::vector<Band> all;
    std::size_t fixedCount = 0;
    std::size_t stillCount = 0;

    std::span<const Band> fixed() const { return {all.data(), fixedCount}; }
    std::span<const Band> frozen() const {
        return std::span(all).subspan(fixedCount, stillCount - fixedCount);
    }
    std::span<const Band> still() const { return {all.data(), stillCount}; }
    std::span<const Band> scrolled() const { return std::span(all).subspan(stillCount); }
    /// All but the fixed ones.
    std::span<const Band> data() const { return std::span(all).subspan(fixedCount); }
    /// Where the last one ends, at most `limit`; 0 without any.
    std::int32_t end(std::int32_t limit) const { return all.empty() ? 0 : std::min(all.back().end(), limit); }
    const Band* find(std::int32_t index) const;
};

/// The rows that overlap the area, which lies in the view. None of a grid without columns.
Bands visibleRows(const CellGrid& grid, const Rect& area);
/// The columns that overlap it. None of a grid without rows.
Bands visibleCols(const CellGrid& grid, const Rect& area);
}  // namespace kxVsGrid::cellgrid
