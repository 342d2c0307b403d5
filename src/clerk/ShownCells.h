// What is shown of a stretch of cells, which is all that a clerk's commands touch: neither hidden nor without
// extent.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "rows/FollowedRow.h"

namespace kxVsGrid::clerk {

inline bool isShownCol(const CellGrid& grid, std::int32_t col) {
    return !grid.ColHidden(col) && grid.ColWidth(col) > 0;
}

inline bool isShownRow(const CellGrid& grid, std::int32_t row) {
    return grid.RowShown(row);
}

inline std::vector<std::int32_t> shownCols(const CellGrid& grid, std::int32_t first, std::int32_t last) {
    std::vector<std::int32_t> cols;
    for (std::int32_t col = first; col <= last && col < grid.Cols(); ++col)
        if (isShownCol(grid, col)) cols.push_back(col);
    return cols;
}

/// Selections of more rows are not gone through row by row to their end where nothing is there.
constexpr std::int32_t VeryLong = 10'000;

/// The last row of a range in which one of its cells holds something; its first row when none does. Takes a
/// time that grows with the rows that were ever written to.
inline std::int32_t lastFilledRow(const CellGrid& grid, const CellRange& range) {
    std::int32_t last = range.firstRow;
    grid.ForEachCell(range.firstRow, range.lastRow,
                     [&](std::int32_t row, std::int32_t col, std::string_view, std::string_view) {
                         if (col >= range.firstCol && col <= range.lastCol && row > last) last = row;
                     });
    return last;
}

/// The shown rows of a stretch, one after the other, while handlers may insert and remove rows.
class ShownRows {
  public:
    ShownRows(const CellGrid& grid, rows::RowFollower& follower, std::int32_t first,
              std::optional<std::int32_t> last = std::nullopt)
        : grid_(grid), follower_(follower), first_(first) {
        if (last) end_.emplace(follower, *last);
    }

    /// Goes to the next one, at first to the first one; False behind the last one, and when gone().
    bool next() {
        if (gone()) return false;
        const std::int32_t from = row_ ? row_->row() : first_ - 1;
        const std::int32_t to = grid_.ShownRowAfter(from);
        if (to <= from || (end_ && to > end_->row())) return false;
        row_.emplace(follower_, to);
        return true;
    }
    /// Only after next() was True.
    const rows::FollowedRow& row() const { return *row_; }
    /// A handler has removed the row, or the one to stop at.
    bool gone() const { return (row_ && !row_->there()) || (end_ && !end_->there()); }

  private:
    const CellGrid& grid_;
    rows::RowFollower& follower_;
    std::int32_t first_;
    std::optional<rows::FollowedRow> end_;
    std::optional<rows::FollowedRow> row_;
};
}  // namespace kxVsGrid::clerk
