// What is in view: scrolling, and the damage that changes do to the picture.
#include <algorithm>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

CellGrid::Impl::Scroll CellGrid::Impl::scroll(std::int32_t topRow, std::int32_t leftCol) {
    cellgrid::Lane& down = layout.rows;
    cellgrid::Lane& across = layout.cols;
    Scroll done{down.first, across.first, 0, 0};
    // The start is always allowed; asking for the end costs more than that.
    down.first = topRow <= down.still ? down.still : std::min(topRow, layout.maxTopRow());
    across.first = leftCol <= across.still ? across.still : std::min(leftCol, layout.maxLeftCol());
    done.top = down.first;
    done.left = across.first;
    if (done.top == done.oldTop && done.left == done.oldLeft) return done;
    rowsKnown = false;
    damage.addAll();
    return done;
}

void CellGrid::Impl::announce(const Scroll& done) {
    if (done.top == done.oldTop && done.left == done.oldLeft) return;
    if (done.top != layout.rows.first || done.left != layout.cols.first) return;
    tell(&CellGrid::AfterScroll, done.oldTop, done.oldLeft, done.top, done.left);
}

CellGrid::Impl::Scroll CellGrid::Impl::settle() {
    const std::int32_t oldTop = layout.rows.first;
    const std::int32_t oldLeft = layout.cols.first;
    rowsKnown = false;
    damage.addAll();
    layout.settle();
    const Scroll done = scroll(layout.rows.first, layout.cols.first);
    return {oldTop, oldLeft, done.top, done.left};
}

void CellGrid::Impl::geometryChanged() {
    const Scroll scrolled = settle();
    tell(&CellGrid::PlacesChanged);
    announce(scrolled);
}

void CellGrid::Impl::bringIntoView(std::int32_t row, std::int32_t col, bool alongRows, bool alongCols) {
    if (!there || row < 0 || col < 0) return;
    const std::int32_t bottom = layout.clientHeight() - layout.bottomStrip;
    scrollTo(alongRows ? grid.TopRowToShow(row, bottom) : layout.rows.first,
             alongCols ? grid.LeftColToShow(col, layout.clientWidth()) : layout.cols.first);
}

void CellGrid::Impl::damageCell(std::int32_t atRow, std::int32_t atCol) {
    if (damage.all()) return;
    if (!rowsKnown) {
        visibleRowsEnd = layout.rows.visibleEnd(layout.clientHeight());
        visibleColsEnd = layout.cols.visibleEnd(layout.clientWidth());
        rowsKnown = true;
    }
    const auto outside = [](const cellgrid::Lane& lane, std::int32_t index, std::int32_t end) {
        return index >= end || (index >= lane.still && index < lane.first);
    };
    if (outside(layout.rows, atRow, visibleRowsEnd) || outside(layout.cols, atCol, visibleColsEnd)) return;
    Rect rect = layout.cellRect(atRow, atCol);
    if (textsRunOver) rect = {0, rect.top, layout.clientWidth(), rect.height};
    damage.add(rect);
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
