// Presses, clicks, the wheel and the dragging of column edges.
#include <algorithm>
#include <utility>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

namespace {
/// The least width that dragging leaves: the column can be grabbed again.
constexpr std::int32_t MinDraggedWidth = 60;
constexpr std::int32_t MaxDraggedWidth = 1'000'000;
}  // namespace

void CellGrid::Impl::pressed(std::int16_t shift, std::int32_t x, std::int32_t y) {
    const GridHit hit = layout.hit(x, y);
    if (hit.part == GridHit::Part::ColumnEdge)
        grabbed(hit.col, x);
    else if (hit.part == GridHit::Part::Cell)
        pressedCell(shift, {hit.row, hit.col});
    else if (hit.part == GridHit::Part::FixedCell)
        pressedHeader(shift, {hit.row, hit.col});
    if (!selecting) return;
    selecting->fromStill = hit.col < layout.cols.still;
    selecting->at = pointed(x, y).place;
}

/// A listener that takes columns away meanwhile ends the drag (setCols).
void CellGrid::Impl::grabbed(std::int32_t atCol, std::int32_t x) {
    drag = {atCol, layout.cols.place(atCol) + layout.cols.axis.extent(atCol) - x, atCol < layout.cols.still};
    tell(&CellGrid::BeforeUserResize, -1, atCol);
}

/// A frozen column that has become too wide to stand still is out of view then: its edge goes on from where
/// it was grabbed.
void CellGrid::Impl::dragged(std::int32_t x) {
    const std::int64_t left =
        drag.still ? layout.cols.axis.position(drag.col) : std::int64_t{layout.cols.place(drag.col)};
    const std::int64_t width = std::int64_t{x} + drag.grip - left;
    grid.ColWidth(drag.col, static_cast<std::int32_t>(
                                std::clamp<std::int64_t>(width, MinDraggedWidth, MaxDraggedWidth)));
}

void CellGrid::Impl::resizeByUser(std::int32_t atCol, std::int32_t twips) {
    requireCol("ColWidth", atCol);
    tell(&CellGrid::BeforeUserResize, -1, atCol);
    if (!there || atCol >= cols()) return;
    grid.ColWidth(atCol, twips);
    tell(&CellGrid::AfterUserResize, -1, atCol);
}

void CellGrid::mouseDown(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y,
                         bool leadsThere) {
    const auto impl = held();
    if (button == LeftButton) {
        impl->drag = {};
        impl->selecting.reset();
        impl->pressInside = x >= 0 && y >= 0 && x < Width() && y < Height();
        if (leadsThere) impl->pressed(shift, x, y);
    }
    impl->tell(&CellGrid::MouseDown, button, shift, static_cast<float>(x), static_cast<float>(y));
}

void CellGrid::mouseMove(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    const auto impl = held();
    if (impl->drag.col >= 0) impl->dragged(x);
    if ((button & LeftButton) == 0) impl->selecting.reset();  // it went up where nobody has heard of it
    if (impl->selecting) impl->draggedOver(x, y);
    impl->tell(&CellGrid::MouseMove, button, shift, static_cast<float>(x), static_cast<float>(y));
}

void CellGrid::mouseUp(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    const auto impl = held();
    const bool left = button == LeftButton;
    if (left) impl->selecting.reset();
    const Impl::Drag drag = left ? std::exchange(impl->drag, {}) : Impl::Drag{};
    const bool clicked = left && std::exchange(impl->pressInside, false) && drag.col < 0;
    impl->tell(&CellGrid::MouseUp, button, shift, static_cast<float>(x), static_cast<float>(y));
    if (drag.col >= 0 && drag.col < impl->cols()) impl->tell(&CellGrid::AfterUserResize, -1, drag.col);
    if (clicked) impl->tell(&CellGrid::Click);
}

void CellGrid::doubleClick(std::int16_t button, std::int16_t, std::int32_t x, std::int32_t y) {
    if (button != LeftButton) return;
    const GridHit hit = HitTest(x, y);
    if (hit.part == GridHit::Part::ColumnEdge)
        EdgeDblClick(hit.col);
    else
        DblClick();
}

void CellGrid::wheel(std::int32_t rows) {
    const cellgrid::Axis& axis = impl_->layout.rows.axis;
    const std::int32_t top = impl_->layout.rows.first;
    rows = std::clamp(rows, -MaxRows, MaxRows);
    if (rows < 0 && TopOffset() > 0 && ++rows == 0) return TopRow(top);  // to its own beginning first
    const std::int32_t target = rows > 0 ? axis.shownAfter(top, rows) : axis.shownBefore(top, -rows);
    if (rows != 0 && target >= 0) TopRow(target);
}

void CellGrid::userColWidth(std::int32_t col, std::int32_t twips) {
    held()->resizeByUser(col, twips);
}
}  // namespace kxVsGrid
