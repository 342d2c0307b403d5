// What is shown of a stretch of cells, which is all that a clerk's commands touch.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "rows/FollowedRow.h"

namespace kxVsGrid::clerk {

inline std::vector<std::int32_t> shownCols(const CellGrid& grid, std::int32_t first, std::int32_t last) {
    std::vector<std::int32_t> cols;
    for (std::int32_t col = first; col <= last && col < grid.Cols(); ++col)
        if (!grid.ColHidden(col)) cols.push_back(col);
    return cols;
}

/// The shown rows of a stretch, one after the other, while handlers may insert and remove rows.
class ShownRows {
  public:
    /// Rows that are inserted move it: there is room for them behind it.
    static constexpr std::int32_t NoEnd = std::numeric_limits<std::int32_t>::max() / 2;

    ShownRows(const CellGrid& grid, rows::RowFollower& follower, std::int32_t first, std::int32_t last)
        : grid_(grid), follower_(follower), first_(first), end_(follower, last) {}

    /// Goes to the next one, at first to the first one; False behind the last one.
    bool next() {
        const std::int32_t from = row_ ? row_->row() : first_ - 1;
        const std::int32_t to = grid_.ShownRowAfter(from);
        if (to <= from || to > end_.row()) return false;
        row_.emplace(follower_, to);
        return true;
    }
    /// Only after next() was True.
    const rows::FollowedRow& row() const { return *row_; }
    /// A handler has removed the row.
    bool gone() const { return row_ && !row_->there(); }

  private:
    const CellGrid& grid_;
    rows::RowFollower& follower_;
    std::int32_t first_;
    rows::FollowedRow end_;
    std::optional<rows::FollowedRow> row_;
};
}  // namespace kxVsGrid::clerk
