#include "rows/PairWrite.h"

namespace kxVsGrid::rows {

PairWrite::PairWrite(CellGrid& grid, RowFollower& follower, std::int32_t row, std::int32_t col)
    : grid_(grid), row_(follower, row), col_(col) {
    if (row >= grid.Rows() || col >= grid.Cols()) return;
    tag_ = grid.Data(row, col);
    try {
        text_ = grid.Text(row, col);
    } catch (...) {
        // A host computes it, and could not; the write takes its place.
    }
}

void PairWrite::putBack(std::string_view newTag) const noexcept {
    try {
        if (!text_ || newTag == tag_ || !row_.there() || col_ >= grid_.Cols()) return;
        const std::int32_t row = row_.row();
        if (grid_.Data(row, col_) == newTag && grid_.Text(row, col_) == *text_)
            grid_.RestoreData(row, col_, tag_);
    } catch (...) {
        // The failure that led here is the one that is told.
    }
}
}  // namespace kxVsGrid::rows
