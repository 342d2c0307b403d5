// Texts of data cells that are drawn over empty neighbours, because their own cells are too narrow.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "cellgrid/frame/VisibleBands.h"

namespace kxVsGrid::cellgrid {

/// Room between a cell's edges and its text.
constexpr std::int32_t TextMargin = 45;

/// The stretch of one row that a text has, by the numbers of the columns' bands; the last one is part of it.
struct Stretch {
    std::size_t firstCol = 0;
    std::size_t lastCol = 0;
    bool several() const { return firstCol != lastCol; }
};

/// For each of the columns the stretch that its text in this row has. Texts run away from the side that they
/// are aligned to, centred ones to both; no two over the same cell. Where there is too little room they
/// take what there is.
std::vector<Stretch> stretches(const CellGrid& grid, std::int32_t row, std::span<const Band> cols);
}  // namespace kxVsGrid::cellgrid
