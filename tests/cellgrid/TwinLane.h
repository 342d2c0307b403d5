// The slow, obvious columns of a view: places are found by walking over all of them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::test {

class TwinLane {
  public:
    std::vector<std::int32_t> extents;  ///< 0 of hidden ones
    std::int32_t fixed = 0;
    std::int32_t still = 0;
    std::int32_t first = 0;
    std::int32_t offset = 0;  ///< so much of the first one is scrolled away
    std::int32_t client = 0;  ///< where the view ends

    std::int32_t count() const { return static_cast<std::int32_t>(extents.size()); }
    std::int32_t extent(std::int32_t index) const { return extents[static_cast<std::size_t>(index)]; }
    std::int32_t sum(std::int32_t from, std::int32_t to) const {
        std::int32_t total = 0;
        for (std::int32_t i = from; i < to; ++i) total += extent(i);
        return total;
    }

    /// What `grid` is told to freeze, as far as it leaves room.
    void settle(const CellGrid& grid) {
        extents.clear();
        for (std::int32_t col = 0; col < grid.Cols(); ++col)
            extents.push_back(grid.ColHidden(col) ? 0 : grid.ColWidth(col));
        fixed = grid.FixedCols();
        client = grid.ClientWidth();
        const bool atStart = first == still && offset == 0;
        still = std::min(fixed + grid.FrozenCols(), count());
        while (grid.ScrollBars() && sum(0, count()) > client && still > fixed &&
               sum(0, still) > client - 1000)
            --still;
        if (atStart) first = still;
        if (first >= count() || offset >= extent(first) || first < still) offset = 0;
        if (offset == 0) return scrollTo(first, grid.ScrollBars());
        const std::int32_t end = lastPosition(grid.ScrollBars());
        if (position() > std::max(end, sum(0, last(grid.ScrollBars())))) begin(end);
    }
    std::int32_t position() const { return sum(0, first) + offset; }
    /// Where the view stands when the last one ends with it.
    std::int32_t lastPosition(bool limited) const {
        const std::int32_t start = sum(0, still);
        return std::max(start, sum(0, count()) - std::max((limited ? client : 0) - start, 1));
    }
    void begin(std::int32_t at) {
        offset = 0;
        first = still;
        if (at <= sum(0, still)) return;
        while (sum(0, first + 1) <= at) ++first;
        offset = at - sum(0, first);
    }
    void moveBy(std::int32_t twips, bool limited) {
        const std::int32_t here = position();
        const std::int32_t there =
            std::clamp(here + twips, sum(0, still), std::max(here, lastPosition(limited)));
        if (there != here) begin(there);
    }
    void show(std::int32_t index, bool limited) {
        if (index < still || extent(index) == 0) return;
        const bool wholly =
            (index > first || (index == first && offset == 0)) && place(index) + extent(index) <= client;
        if (!wholly) scrollTo(firstToShow(index, limited), limited);
    }
    void scrollTo(std::int32_t to, bool limited) {
        first = std::max(std::min(to, last(limited)), still);
        offset = 0;
    }
    /// The first one to begin with when the last one shown shall be seen wholly.
    std::int32_t last(bool limited) const {
        std::int32_t shown = count() - 1;
        while (shown >= 0 && extent(shown) == 0) --shown;
        if (shown < still) return still;
        const std::int32_t room = std::max((limited ? client : 0) - sum(0, still), 0);
        std::int32_t at = still;
        while (at < shown && (sum(at, count()) > room || extent(at) == 0)) {
            if (sum(at, count()) <= room && at == still) break;
            ++at;
        }
        return at;
    }

    std::int32_t place(std::int32_t index) const {
        return index < still
                   ? sum(0, index)
                   : sum(0, still) + (index < first ? -sum(index, first) : sum(first, index)) - offset;
    }
    bool isVisible(std::int32_t index) const {
        return extent(index) > 0 && (index < still || index >= first) && place(index) < client;
    }
    std::int32_t at(std::int32_t point) const {
        for (std::int32_t i = 0; i < count(); ++i)
            if (isVisible(i) && point >= place(i) && point < place(i) + extent(i) &&
                (i < still || point >= sum(0, still)))
                return i;
        return -1;
    }
    /// Steps to the right from the first one, until it is seen.
    std::int32_t firstToShow(std::int32_t index, bool limited) const {
        if (index < still || extent(index) == 0) return first;
        TwinLane moved = *this;
        if (index < first) moved.first = index;
        while (moved.first < index && moved.place(index) + extent(index) > client) {
            moved.offset = 0;
            if (moved.place(index) + extent(index) > client || extent(moved.first) > 0) ++moved.first;
        }
        return std::min(moved.first, std::max(first, last(limited)));
    }
};
}  // namespace kxVsGrid::test
