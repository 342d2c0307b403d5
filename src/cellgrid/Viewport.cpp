#include "cellgrid/Viewport.h"

#include <algorithm>

namespace kxVsGrid::cellgrid {

namespace {
/// Places further away are cut to this, so that adding a size to one never overflows.
constexpr std::int64_t FarAway = 1'000'000'000;
/// How near a press must be to a column's right edge to grab it.
constexpr std::int32_t EdgeReach = 60;

std::int32_t nearby(std::int64_t place) {
    return static_cast<std::int32_t>(std::clamp(place, -FarAway, FarAway));
}
}  // namespace

std::int32_t Lane::fixedExtent() const {
    return nearby(axis.position(fixed));
}

std::int32_t Lane::stillExtent() const {
    return nearby(axis.position(still));
}

/// How far the scrollable elements are moved.
std::int64_t Lane::shift() const {
    return axis.position(first) + offset - axis.position(still);
}

std::int32_t Lane::place(std::int32_t index) const {
    const std::int64_t position = axis.position(index);
    return nearby(index < still ? position : position - shift());
}

bool Lane::isVisible(std::int32_t index, std::int32_t client) const {
    if (index >= still && index < first) return false;
    return axis.extent(index) > 0 && place(index) < client;
}

std::int32_t Lane::at(std::int32_t point) const {
    if (point < 0) return -1;
    const std::int32_t index = axis.indexAt(point < stillExtent() ? point : point + shift());
    return index < axis.count() ? index : -1;
}

std::int32_t Lane::visibleEnd(std::int32_t client) const {
    if (client <= 0) return 0;
    const std::int32_t last = at(client - 1);
    return last < 0 ? axis.count() : last + 1;
}

std::int32_t Lane::maxFirst(std::int32_t end) const {
    const std::int32_t last = axis.shownBefore(axis.count());
    if (last < still) return still;
    const std::int64_t room = std::max<std::int64_t>(std::int64_t{end} - axis.position(still), 0);
    return std::clamp(axis.firstFrom(axis.total() - room), still, last);
}

Start Lane::startToShow(std::int32_t index, std::int32_t end) const {
    if (index < still || axis.extent(index) == 0) return start();
    if (index < first || (index == first && offset > 0)) return {std::min(index, axis.count()), 0};
    const std::int64_t bottom = axis.position(index) + axis.extent(index);
    const std::int64_t room = std::max<std::int64_t>(std::int64_t{end} - axis.position(still), 0);
    if (bottom - axis.position(first) - offset <= room) return start();
    return {std::clamp(axis.firstFrom(bottom - room), first, index), 0};
}

/// Some of the last element is always left in the view.
std::int64_t Lane::lastPosition(std::int32_t end) const {
    const std::int64_t begin = axis.position(still);
    return std::max(begin, axis.total() - std::max<std::int64_t>(end - begin, 1));
}

Start Lane::startAt(std::int64_t position) const {
    if (position <= axis.position(still)) return {still, 0};
    const std::int32_t index = axis.indexAt(position);
    return {index, static_cast<std::int32_t>(position - axis.position(index))};
}

Start Lane::limited(Start asked, std::int32_t end) const {
    if (asked.index < still) return {still, 0};
    const bool cuts =
        asked.offset > 0 && asked.index < axis.count() && asked.offset < axis.extent(asked.index);
    const std::int32_t most = maxFirst(end);
    if (!cuts) return {std::min(asked.index, most), 0};
    const std::int64_t position = axis.position(asked.index) + asked.offset;
    const std::int64_t last = lastPosition(end);
    return position <= std::max(last, axis.position(most)) ? asked : startAt(last);
}

Start Lane::movedBy(std::int32_t twips, std::int32_t end) const {
    const std::int64_t here = axis.position(first) + offset;
    const std::int64_t there =
        std::clamp(here + twips, axis.position(still), std::max(here, lastPosition(end)));
    return there == here ? start() : startAt(there);
}

bool Viewport::rowsNeedBar(std::int32_t room) const {
    return scrollBars && height > 0 && rows.axis.count() > rows.fixed && rows.axis.total() > room;
}

bool Viewport::colsNeedBar(std::int32_t room) const {
    return scrollBars && width > 0 && cols.axis.count() > cols.fixed && cols.axis.total() > room;
}

/// Each bar takes room from the other direction, so that one may make the other needed.
bool Viewport::verticalBar() const {
    const std::int32_t room = height - bottomStrip;
    if (rowsNeedBar(room)) return true;
    return colsNeedBar(width) && rowsNeedBar(room - CellGrid::HorizontalBarHeight);
}

bool Viewport::horizontalBar() const {
    if (colsNeedBar(width)) return true;
    return rowsNeedBar(height - bottomStrip) && colsNeedBar(width - CellGrid::VerticalBarWidth);
}

std::int32_t Viewport::clientWidth() const {
    return std::max(0, width - (verticalBar() ? CellGrid::VerticalBarWidth : 0));
}

std::int32_t Viewport::clientHeight() const {
    return std::max(0, height - (horizontalBar() ? CellGrid::HorizontalBarHeight : 0));
}

/// A grid without scroll bars (a total row) does as it is told: the one that it follows has limited them.
std::int32_t Viewport::stillCols() const {
    const auto wanted = static_cast<std::int32_t>(
        std::min<std::int64_t>(std::int64_t{cols.fixed} + cols.frozen, cols.axis.count()));
    if (wanted == cols.fixed || !scrollBars) return wanted;
    const std::int32_t room = clientWidth();
    if (cols.axis.total() <= room) return wanted;
    const std::int32_t end = room - LeastScrolled;
    if (cols.axis.position(wanted) <= end) return wanted;
    return end < 0 ? cols.fixed : std::clamp(cols.axis.indexAt(end), cols.fixed, wanted);
}

void Viewport::settle() {
    const auto put = [](Lane& lane, std::int32_t still) {
        if (lane.first == lane.still && lane.offset == 0) lane.first = still;
        lane.still = still;
    };
    put(rows, rows.fixed);
    put(cols, stillCols());
}

/// The start is always allowed; asking for the end costs more than that.
void Viewport::go(const Place& to) {
    const auto isStart = [](const Lane& lane, Start asked) {
        return asked.index < lane.still || (asked.index == lane.still && asked.offset <= 0);
    };
    rows.start(isStart(rows, to.down) ? Start{rows.still, 0} : rows.limited(to.down, rowsEnd()));
    cols.start(isStart(cols, to.across) ? Start{cols.still, 0} : cols.limited(to.across, colsEnd()));
}

Rect Viewport::cellRect(std::int32_t row, std::int32_t col) const {
    return {cols.place(col), rows.place(row), cols.axis.extent(col), rows.axis.extent(row)};
}

GridHit Viewport::hit(std::int32_t x, std::int32_t y) const {
    GridHit hit;
    if (x < 0 || y < 0 || x >= clientWidth() || y >= clientHeight()) return hit;
    const std::int32_t row = rows.at(y);
    if (row < 0) return hit;
    if (row < rows.fixed) {
        const std::int32_t edge = columnEdge(x);
        if (edge >= 0) return {GridHit::Part::ColumnEdge, row, edge};
    }
    const std::int32_t col = cols.at(x);
    if (col < 0) return hit;
    const bool fixed = row < rows.fixed || col < cols.fixed;
    return {fixed ? GridHit::Part::FixedCell : GridHit::Part::Cell, row, col};
}

/// The column whose right edge is in reach of x, the nearer one of two; -1 for none.
std::int32_t Viewport::columnEdge(std::int32_t x) const {
    constexpr std::int32_t OutOfReach = EdgeReach + 1;
    const auto rightEdge = [this](std::int32_t col) { return cols.place(col) + cols.axis.extent(col); };
    const std::int32_t under = cols.at(x);
    const std::int32_t toRight = under < 0 ? OutOfReach : rightEdge(under) - x;
    // Left of the first scrolled column stands the last still one, whatever lies between them.
    const bool firstScrolled = under >= cols.still && under == cols.axis.shownAfter(cols.first - 1);
    const std::int32_t before =
        cols.axis.shownBefore(under < 0 ? cols.axis.count() : (firstScrolled ? cols.still : under));
    const std::int32_t toLeft = before < 0 ? OutOfReach : x - rightEdge(before);
    if (std::min(toRight, toLeft) > EdgeReach) return -1;
    return toRight <= toLeft ? under : before;
}
}  // namespace kxVsGrid::cellgrid
