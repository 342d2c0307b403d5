#include "editing/BringIntoView.h"

namespace kxVsGrid::editing {

void bringCurrentRowIntoView(CellGrid& grid) {
    const std::int32_t row = grid.Row();
    if (row < grid.FixedRows() || !grid.RowShown(row)) return;
    grid.BringRowIntoView(row, grid.ClientHeight() - grid.BottomStrip());
    if (grid.Row() < 0 || grid.Col() < 0) return;  // a host has heard of the scrolling
    // The fixed area counts as so many rows of the first one's height, which may be more than it takes.
    const std::int64_t fixedArea =
        grid.FixedRows() > 0 ? std::int64_t{grid.RowHeight(0)} * grid.FixedRows() : 0;
    const std::int32_t bottom = grid.ClientHeight() - grid.BottomStrip();
    while (grid.FixedRows() > 0 && grid.TopRow() > grid.FixedRows() && grid.CellTop() < fixedArea) {
        const std::int32_t before = grid.TopRow();
        const std::int64_t above = grid.RowShown(before - 1) ? grid.RowHeight(before - 1) : 0;
        if (grid.CellTop() + above + grid.CellHeight() > bottom) break;
        grid.TopRow(before - 1);
        if (grid.TopRow() == before || grid.Row() < 0 || grid.Col() < 0) break;
    }
}

void bringCurrentColIntoView(CellGrid& grid) {
    const std::int32_t col = grid.Col();
    if (col < grid.FixedCols() || grid.ColHidden(col)) return;
    grid.BringColIntoView(col, grid.ClientWidth());
}
}  // namespace kxVsGrid::editing
