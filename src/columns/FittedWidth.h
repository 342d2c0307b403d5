// How wide a column has to be for its texts.
#pragma once

#include <cstdint>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::columns {

/// What a column takes at least, twips, so that its header can be pressed and its edge grabbed.
inline constexpr std::int32_t NarrowestFit = 300;

/// The width, twips, in which the widest text of the column's shown rows, headers among them, can be read:
/// from NarrowestFit to half of the view (but 3000 in a smaller one), and no more than a layout keeps. `boxSide`
/// is that of the box that Boolean cells show instead of a text. The total row `sums`, where there is one,
/// counts as a row.
///
/// Reads every shown row, and measures each of its distinct texts up to a thousand of them. Of more it measures those
/// that are at least half as long in bytes as the longest one, and of each length up to sixty-four: a text that is
/// cut then is hardly wider than those that are not.
std::int32_t fittedWidth(const CellGrid& grid, std::int32_t col, std::int32_t boxSide, const CellGrid* sums);
}  // namespace kxVsGrid::columns
