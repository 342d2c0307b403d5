// The row under a press, which what the press brings about may move.
#pragma once

#include <cstdint>
#include <optional>

#include "kxVsGrid/CellGrid.h"
#include "rows/FollowedRow.h"

namespace kxVsGrid::grid {

class PressedRow {
  public:
    /// The point is one of the grid's.
    PressedRow(CellGrid& grid, rows::RowFollower& follower, std::int32_t x, std::int32_t y);

    /// Where the press is now to be delivered: where it was while its row is there, else as high as it was
    /// within the row, which is brought into view for it. Nothing when the row has gone or is hidden.
    std::optional<std::int32_t> place() const;

  private:
    static constexpr std::int32_t None = -1;
    std::int32_t top() const { return grid_.CellRect(row_.row(), 0).top; }

    CellGrid& grid_;
    std::int32_t x_;
    std::int32_t y_;
    std::int32_t pressed_;  ///< the row, None beside the cells
    rows::FollowedRow row_;
    std::int32_t topBefore_ = 0;
};
}  // namespace kxVsGrid::grid
