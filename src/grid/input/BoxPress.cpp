#include "grid/input/BoxPress.h"

#include <algorithm>

namespace kxVsGrid::grid {
namespace {

/// Between a box and the edges of a cell that is hardly larger.
constexpr std::int32_t Edge = 15;
/// No smaller box is drawn.
constexpr std::int32_t SmallestBox = 45;

/// Where the box is drawn: in the middle of its cell.
Rect boxIn(const Rect& cell, std::int32_t side) {
    side = std::min({side, cell.width - 2 * Edge, cell.height - 2 * Edge});
    if (side < SmallestBox) return {};
    return {cell.left + (cell.width - side) / 2, cell.top + (cell.height - side) / 2, side, side};
}
}  // namespace

void BoxPress::begins(std::int16_t button, std::int32_t x, std::optional<std::int32_t> y) {
    turned_ = false;
    pressed_.reset();
    if (button != LeftButton || !y || !c_.options.PressToggles()) return;
    const GridHit hit = c_.grid.HitTest(x, *y);
    if (isBox(hit, x, *y)) pressed_.emplace(c_.rows.follower(), hit.row, hit.col);
}

bool BoxPress::isBox(const GridHit& hit, std::int32_t x, std::int32_t y) const {
    const CellGrid& grid = c_.grid;
    if (hit.part != GridHit::Part::Cell || grid.ColDataType(hit.col) != flexDTBoolean) return false;
    return boxIn(grid.CellRect(hit.row, hit.col), c_.platform.checkBoxSide()).contains(x, y);
}

bool BoxPress::isCurrent(const Pressed& pressed) const {
    const CellGrid& grid = c_.grid;
    return pressed.row.there() && grid.Row() == pressed.row.row() && grid.Col() == pressed.col &&
           c_.columns.at(pressed.col).iType() == flexDTBoolean;
}

/// The host may let another press begin while it is asked for a row: this one is kept apart.
void BoxPress::ends(bool goesOn) {
    if (!pressed_) return;
    const bool there = pressed_->row.there();
    const Pressed pressed(c_.rows.follower(), pressed_->row.row(), pressed_->col);
    pressed_.reset();
    if (!goesOn || !there || !isCurrent(pressed) || !c_.editor.opensHere()) return;
    turned_ = true;
    c_.rows.appendIfLast(c_.grid.Row());
    if (isCurrent(pressed)) c_.editor.open();
}
}  // namespace kxVsGrid::grid
