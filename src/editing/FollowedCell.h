// The cell that is current now, while others do what they like with the grid.
#pragma once

#include <cstdint>

#include "editing/EnteredCell.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::editing {

/// Names the same cell when rows come or go above it, or change places, and none once it was taken away, even
/// if a cell of the same place has come since.
class FollowedCell {
  public:
    explicit FollowedCell(CellGrid& grid) : grid_(grid) {
        cell_.capture(grid, grid.Row(), grid.Col());
        rows_ = grid.RowMoved.connect([this](std::int32_t position, bool inserted) {
            inserted ? cell_.rowInserted(position) : cell_.rowRemoved(position);
        });
        order_ = grid.RowsReordered.connect([this](std::int32_t first, std::span<const std::int32_t> from) {
            cell_.rowsReordered(first, from);
        });
        size_ = grid.SizeChanged.connect([this] {
            if (cell_.row() >= grid_.Rows() || cell_.col() >= grid_.Cols()) cell_.none();
        });
    }
    FollowedCell(const FollowedCell&) = delete;
    FollowedCell& operator=(const FollowedCell&) = delete;

    bool there() const { return cell_.row() >= 0; }
    /// -1 once it was taken away.
    std::int32_t row() const { return cell_.row(); }
    std::int32_t col() const { return cell_.col(); }
    bool isCurrent() const { return grid_.Row() >= 0 && cell_.is(grid_.Row(), grid_.Col()); }

  private:
    CellGrid& grid_;
    EnteredCell cell_;
    ScopedConnection rows_;
    ScopedConnection order_;
    ScopedConnection size_;
};
}  // namespace kxVsGrid::editing
