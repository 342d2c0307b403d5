// Where the rows, or the columns, of a grid lie: a size and two flags per element that hide it, and the way between
// index and position in logarithmic time. A hidden element keeps its size and has extent 0. Elements of equal
// size cost one run together, so that a hundred million rows of default height cost nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "cellgrid/store/RunList.h"

namespace kxVsGrid::cellgrid {

struct AxisSize {
    std::int32_t size = 0;
    bool hidden = false;    ///< by the host
    bool filtered = false;  ///< by a filter, beside that
    friend bool operator==(const AxisSize&, const AxisSize&) = default;
};
inline std::int64_t extentOf(const AxisSize& s) {
    return s.hidden || s.filtered ? 0 : s.size;
}

class Axis {
  public:
    explicit Axis(std::int32_t defaultSize) : defaultSize_(defaultSize) {}

    std::int32_t count() const { return static_cast<std::int32_t>(runs_.count()); }
    /// New elements have the default size, or the minimum when that is larger, and are not hidden.
    void insert(std::int32_t index, std::int32_t n);
    void remove(std::int32_t index, std::int32_t n) { runs_.remove(index, n); }

    /// Elements that shall change places (RunList::prepareReorder): what cannot fail after it.
    using Reordering = std::optional<RunList<AxisSize>::Replacement>;
    Reordering prepareReorder(std::int32_t first, std::span<const std::int32_t> from) {
        return runs_.prepareReorder(first, from);
    }
    void reorder(Reordering& prepared) noexcept {
        if (prepared) runs_.replace(*prepared);
    }

    std::int32_t size(std::int32_t index) const { return runs_.at(index).size; }
    /// A size below the minimum becomes the minimum. Answers whether something changed; so do those below.
    bool setSize(std::int32_t index, std::int32_t size);
    bool hidden(std::int32_t index) const { return runs_.at(index).hidden; }
    bool setHidden(std::int32_t index, bool hidden);
    bool filtered(std::int32_t index) const { return runs_.at(index).filtered; }
    bool setFiltered(std::int32_t index, bool filtered);
    /// The elements from `first` on, one for each flag. All or nothing when memory fails.
    bool setFiltered(std::int32_t first, const std::vector<bool>& filtered);
    /// The elements that are named, ascending. Many that lie close together are all or nothing.
    bool setFiltered(const std::vector<std::pair<std::int32_t, bool>>& elements);
    /// How many elements of [first, stop) would have an extent but for the filter.
    std::int32_t filteredAlone(std::int32_t first, std::int32_t stop) const;
    std::int32_t minimum() const { return minimum_; }
    /// Raises smaller elements, now and later; lowering it lowers none.
    bool setMinimum(std::int32_t minimum);

    /// Size, 0 when hidden.
    std::int32_t extent(std::int32_t index) const {
        return static_cast<std::int32_t>(extentOf(runs_.at(index)));
    }
    std::int64_t total() const { return runs_.blocks().extent(); }
    /// Where an element begins; of count(), where the last one ends.
    std::int64_t position(std::int32_t index) const;
    /// The element that lies over a position; count() beyond the last, the first
    /// shown one before it.
    std::int32_t indexAt(std::int64_t position) const;
    /// The first element with an extent that begins at the position or after it; count() when there is none.
    std::int32_t firstFrom(std::int64_t position) const;

    /// The `steps`-th element with an extent after `index`, or the last such; -1 when there is none.
    std::int32_t shownAfter(std::int32_t index, std::int32_t steps = 1) const;
    /// The same before `index`.
    std::int32_t shownBefore(std::int32_t index, std::int32_t steps = 1) const;

  private:
    RunList<AxisSize> runs_;
    std::int32_t defaultSize_;
    std::int32_t minimum_ = 0;
};
}  // namespace kxVsGrid::cellgrid
