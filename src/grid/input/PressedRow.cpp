#include "grid/input/PressedRow.h"

#include <algorithm>

namespace kxVsGrid::grid {
namespace {

/// The row of the cell at a point, -1 beside the cells.
std::int32_t rowAt(const CellGrid& grid, std::int32_t x, std::int32_t y) {
    const GridHit hit = grid.HitTest(x, y);
    const bool onCell = hit.part == GridHit::Part::Cell || hit.part == GridHit::Part::FixedCell;
    return onCell ? hit.row : -1;
}
}  // namespace

PressedRow::PressedRow(CellGrid& grid, rows::RowFollower& follower, std::int32_t x, std::int32_t y)
    : grid_(grid), x_(x), y_(y), pressed_(rowAt(grid, x, y)), row_(follower, pressed_) {
    if (pressed_ != None) topBefore_ = top();
}

std::optional<std::int32_t> PressedRow::place() const {
    if (pressed_ == None || grid_.Cols() == 0) return y_;
    if (!row_.there() || !grid_.RowShown(row_.row())) return std::nullopt;
    if (rowAt(grid_, x_, y_) == row_.row()) return y_;
    const std::int32_t end = grid_.ClientHeight() - grid_.BottomStrip();
    const auto now = [&] { return y_ + top() - topBefore_; };
    if (row_.row() >= grid_.FixedRows() && (now() < grid_.FixedHeight() || now() >= end))
        grid_.BringRowIntoView(row_.row(), end);
    if (!row_.there() || grid_.Cols() == 0) return std::nullopt;  // a host hears of the scrolling
    const std::int32_t y = std::min(now(), end - 1);  // of a row that is cut the part that is seen
    if (rowAt(grid_, x_, y) != row_.row()) return std::nullopt;
    return y;
}
}  // namespace kxVsGrid::grid
