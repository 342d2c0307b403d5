#include "cellgrid/frame/VisibleBands.h"

#include <limits>

namespace kxVsGrid::cellgrid {
namespace {

struct Extent {
    /// A last column may be as wide as numbers go; its end stays a number.
    Extent(std::int32_t from, std::int32_t twips)
        : start(from), size(std::min(twips, std::numeric_limits<std::int32_t>::max() - std::max(from, 0))) {}

    std::int32_t start;
    std::int32_t size;
    std::int32_t end() const { return start + size; }
};

/// The first of the places behind `hidden` that has an extent, `count` without one. A million hidden rows in
/// a row take some twenty steps: the end of a row is the end of the last shown one up to it.
template <class ExtentOf>
std::int32_t nextShown(std::int32_t hidden, std::int32_t count, const ExtentOf& extentOf) {
    const std::int32_t start = extentOf(hidden).start;
    std::int32_t before = hidden;
    std::int32_t step = 1;
    while (step < count - hidden && extentOf(hidden + step).end() <= start) {
        before = hidden + step;
        step = step > count / 2 ? count : step * 2;
    }
    std::int32_t after = std::min(count - hidden, step) + hidden;
    while (after - before > 1) {
        const std::int32_t middle = before + (after - before) / 2;
        (extentOf(middle).end() <= start ? before : after) = middle;
    }
    return after;
}

struct Part {
    bool fixed;
    bool still;
};

/// Adds those of the places `from` to `count` - 1 that overlap the stretch.
template <class ExtentOf>
void addBands(std::vector<Band>& bands, std::int32_t from, std::int32_t count, Extent stretch, Part part,
              const ExtentOf& extentOf) {
    for (std::int32_t i = from; i < count;) {
        const Extent extent = extentOf(i);
        if (extent.start >= stretch.end()) return;
        if (extent.size <= 0) {
            i = nextShown(i, count, extentOf);
            continue;
        }
        if (extent.end() > stretch.start)
            bands.push_back({i, extent.start, extent.size, part.fixed, part.still});
        ++i;
    }
}

template <class ExtentOf>
Bands visible(std::int32_t fixed, std::int32_t still, std::int32_t firstScrolled, std::int32_t count,
              Extent stretch, const ExtentOf& extentOf) {
    Bands bands;
    if (stretch.size <= 0) return bands;
    addBands(bands.all, 0, fixed, stretch, {true, true}, extentOf);
    bands.fixedCount = bands.all.size();
    addBands(bands.all, fixed, still, stretch, {false, true}, extentOf);
    bands.stillCount = bands.all.size();
    addBands(bands.all, std::max(firstScrolled, still), count, stretch, {false, false}, extentOf);
    return bands;
}
}  // namespace

const Band* Bands::find(std::int32_t index) const {
    for (const Band& band : all)
        if (band.index == index) return &band;
    return nullptr;
}

Bands visibleRows(const CellGrid& grid, const Rect& area) {
    if (grid.Cols() == 0) return {};
    return visible(grid.FixedRows(), grid.FixedRows(), grid.TopRow(), grid.Rows(), {area.top, area.height},
                   [&](std::int32_t row) {
                       const Rect rect = grid.CellRect(row, 0);
                       return Extent{rect.top, rect.height};
                   });
}

Bands visibleCols(const CellGrid& grid, const Rect& area) {
    if (grid.Rows() == 0) return {};
    return visible(grid.FixedCols(), grid.StillCols(), grid.LeftCol(), grid.Cols(), {area.left, area.width},
                   [&](std::int32_t col) {
                       const Rect rect = grid.CellRect(0, col);
                       return Extent{rect.left, rect.width};
                   });
}
}  // namespace kxVsGrid::cellgrid
