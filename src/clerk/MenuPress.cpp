// What opens a menu: a press in the grid, which goes to what was pressed first, or a key.
#include "clerk/KeptSelection.h"
#include "clerk/Menus.h"
#include "editing/BringIntoView.h"

namespace kxVsGrid::clerk {

/// The commands act on the current cell, which shall be the one that the clerk points at: where it could not
/// become the current one, no menu offers them.
bool Menus::mouseDown(std::int16_t button, std::int16_t shift, float x, float y, bool leadsThere) {
    const Rect place{static_cast<std::int32_t>(x), static_cast<std::int32_t>(y), 0, 0};
    const bool there = button != RightButton || (leadsThere && goWherePressed(place.left, place.top));
    const std::int32_t header = headers_->columnAt(place.left, place.top);
    if (!letGoOn(button, shift, x, y)) return false;
    if (button != RightButton || !there) return true;
    if (header < 0)
        popUpAt(place, shift);
    else if (headers_->columnAt(place.left, place.top) == header)  // the host may have changed columns
        headers_->popUp(header, place);
    return true;
}

/// A row number stands for its row, in the column where the clerk is. A header and the empty area stand for
/// no cell. What is selected stays where the press is inside of it. False when the host has kept the current
/// cell away.
bool Menus::goWherePressed(std::int32_t x, std::int32_t y) {
    CellGrid& grid = c_.grid;
    const GridHit hit = grid.HitTest(x, y);
    const bool onCell = hit.part == GridHit::Part::Cell || hit.part == GridHit::Part::FixedCell;
    if (!onCell || hit.row < grid.FixedRows()) return true;
    const std::int32_t col = hit.part == GridHit::Part::Cell ? hit.col : grid.Col();
    const rows::FollowedRow wanted(c_.rows.follower(), hit.row);
    goTo(hit.row, col);
    if (!wanted.there() || grid.Row() != wanted.row() || grid.Col() != col) return false;
    editing::bringCurrentCellIntoView(grid);
    return true;
}

void Menus::goTo(std::int32_t row, std::int32_t col) {
    CellGrid& grid = c_.grid;
    const bool inside = grid.Selected().contains(row, col);
    if (row == grid.Row() && col == grid.Col()) {
        if (!inside) grid.Unselect();
        return;
    }
    const KeptSelection selection(grid, c_.rows.follower());
    grid.Select(row, col);
    if (inside) selection.putBack();
}

void Menus::open(std::int16_t shift) {
    CellGrid& grid = c_.grid;
    editing::bringCurrentCellIntoView(grid);
    if (!c_.host.there() || grid.Row() < 0 || grid.Col() < 0) return;
    const Rect cell = grid.CellRect(grid.Row(), grid.Col());
    if (letGoOn(RightButton, shift, static_cast<float>(cell.left), static_cast<float>(cell.top)))
        popUpAt({cell.left, cell.bottom(), 0, 0}, shift);
}

bool Menus::letGoOn(std::int16_t button, std::int16_t shift, float x, float y) {
    bool cancel = false;
    c_.host.raise(&GridEvents::MouseDown, button, shift, x, y, cancel);
    return !cancel && c_.host.there();
}
}  // namespace kxVsGrid::clerk
