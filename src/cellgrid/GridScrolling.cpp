// What is in view: scrolling, and the damage that changes do to the picture.
#include <algorithm>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

CellGrid::Impl::Scroll CellGrid::Impl::scroll(const cellgrid::Viewport::Place& to) {
    const cellgrid::Viewport::Place from = layout.place();
    layout.go(to);
    const Scroll done{from, layout.place()};
    if (done.to == from) return done;
    placeBefore = from;
    rowsKnown = false;
    damage.addAll();
    return done;
}

void CellGrid::Impl::announce(const Scroll& done) {
    const auto& [from, to] = done;
    if (to == from || to != layout.place()) return;
    if (to.down.index != from.down.index || to.across.index != from.across.index)
        tell(&CellGrid::AfterScroll, from.down.index, from.across.index, to.down.index, to.across.index);
    else
        tell(&CellGrid::OffsetChanged, from.down.offset, from.across.offset, to.down.offset,
             to.across.offset);
}

CellGrid::Impl::Scroll CellGrid::Impl::settle() {
    const cellgrid::Viewport::Place from = layout.place();
    rowsKnown = false;
    damage.addAll();
    layout.settle();
    const Scroll done{from, scroll(layout.place()).to};
    if (done.to != from) placeBefore = from;
    return done;
}

void CellGrid::Impl::geometryChanged() {
    const Scroll scrolled = settle();
    tell(&CellGrid::PlacesChanged);
    announce(scrolled);
}

void CellGrid::Impl::bringIntoView(std::int32_t row, std::int32_t col, bool alongRows, bool alongCols) {
    if (!there || row < 0 || col < 0) return;
    cellgrid::Viewport::Place to = layout.place();
    if (alongRows) to.down = layout.rows.startToShow(row, layout.rowsEnd());
    if (alongCols) to.across = layout.cols.startToShow(col, layout.clientWidth());
    scrollTo(to);
}

namespace {

bool outOfView(const cellgrid::Lane& lane, std::int32_t index, std::int32_t end) {
    return index >= end || (index >= lane.still && index < lane.first);
}
}  // namespace

void CellGrid::Impl::damageCell(std::int32_t atRow, std::int32_t atCol) {
    if (damage.all()) return;
    findView();
    if (outOfView(layout.rows, atRow, visibleRowsEnd) || outOfView(layout.cols, atCol, visibleColsEnd))
        return;
    Rect rect = layout.cellRect(atRow, atCol);
    if (textsRunOver) rect = {0, rect.top, layout.clientWidth(), rect.height};
    damage.add(rect);
}

void CellGrid::Impl::findView() {
    if (rowsKnown) return;
    visibleRowsEnd = layout.rows.visibleEnd(layout.clientHeight());
    visibleColsEnd = layout.cols.visibleEnd(layout.clientWidth());
    rowsKnown = true;
}

/// Answers `row` itself for one that is shown.
std::int32_t CellGrid::Impl::unseenEnd(std::int32_t row, std::int32_t col) {
    if (damage.all()) return rows();
    findView();
    if (outOfView(layout.cols, col, visibleColsEnd) || row >= visibleRowsEnd) return rows();
    return outOfView(layout.rows, row, visibleRowsEnd) ? layout.rows.first : row;
}

namespace {
struct Stretch {
    std::int32_t start;
    std::int32_t length;
};

/// What the view shows of a range of elements, which leaves no gap: it lies in one part, or the scrolled ones
/// follow the still ones.
Stretch shownPart(const cellgrid::Lane& lane, std::int32_t first, std::int32_t last, std::int32_t client) {
    if (first >= lane.still)
        first = std::max(first, lane.first);
    else if (last < lane.first)
        last = std::min(last, lane.still - 1);
    if (last < first) return {0, 0};
    const std::int32_t start = lane.place(first);
    return {start, std::min(lane.place(last) + lane.axis.extent(last), client) - start};
}
}  // namespace

void CellGrid::Impl::damageRange(const CellRange& range) {
    if (range.empty()) return;
    const Stretch down = shownPart(layout.rows, range.firstRow, range.lastRow, layout.clientHeight());
    Stretch across = shownPart(layout.cols, range.firstCol, range.lastCol, layout.clientWidth());
    if (across.length > 0 && textsRunOver) across = {0, layout.clientWidth()};
    damage.add({across.start, down.start, across.length, down.length});
}

/// What the current cell looks like changes with its place: the cell, or its whole row.
void CellGrid::Impl::damageCursor() {
    if (damage.all() || currentRow < 0 || currentCol < 0 || !showCursor) return;
    if (!selectsRows) {
        // The headers of the current row and column are marked too.
        for (std::int32_t c = 0; c < layout.cols.fixed; ++c) damageCell(currentRow, c);
        for (std::int32_t r = 0; r < layout.rows.fixed; ++r) damageCell(r, currentCol);
        return damageCell(currentRow, currentCol);
    }
    if (!layout.rows.isVisible(currentRow, layout.clientHeight())) return;
    damage.add({0, layout.rows.place(currentRow), layout.clientWidth(), layout.rows.axis.extent(currentRow)});
}
}  // namespace kxVsGrid
