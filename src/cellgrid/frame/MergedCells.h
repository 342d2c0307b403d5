// Neighbouring header cells of equal text that are shown as one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "cellgrid/frame/VisibleBands.h"

namespace kxVsGrid::cellgrid {

/// A rectangle of cells, by the numbers of their bands; the last ones are part of it.
struct MergedBlock {
    std::size_t firstRow = 0;
    std::size_t lastRow = 0;
    std::size_t firstCol = 0;
    std::size_t lastCol = 0;
};

class MergedCells {
  public:
    /// Of the fixed cells where the bands meet: to the right along rows that merge, downwards along columns
    /// that merge. None unless the grid merges fixed cells.
    MergedCells(const CellGrid& grid, std::span<const Band> rows, std::span<const Band> cols);

    const std::vector<MergedBlock>& blocks() const { return blocks_; }
    /// True for every cell of a block.
    bool covers(std::size_t row, std::size_t col) const {
        return !covered_.empty() && covered_[row * cols_ + col];
    }

  private:
    class Finder;
    std::vector<MergedBlock> blocks_;
    std::vector<bool> covered_;
    std::size_t cols_;
};
}  // namespace kxVsGrid::cellgrid
