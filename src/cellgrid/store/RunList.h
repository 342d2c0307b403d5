// A value per index, for long stretches of equal values: a stretch costs one run, however long it is.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "cellgrid/store/RunBlocks.h"

namespace kxVsGrid::cellgrid {

/// What one element of a value adds to the sequence's extent. Values that measure something overload it.
template <class T>
std::int64_t extentOf(const T&) {
    return 0;
}

/// A sequence of `count()` values. Neighbouring runs always differ.
template <class T>
class RunList {
  public:
    struct Run {
        std::int32_t count;
        T value;
        std::int64_t extent() const { return count * extentOf(value); }
    };
    using Blocks = RunBlocks<Run>;
    using Place = typename Blocks::Place;

    std::int64_t count() const { return blocks_.count(); }
    const Blocks& blocks() const { return blocks_; }

    const T& at(std::int64_t index) const { return blocks_[blocks_.find(index)].value; }

    /// Puts `n` elements of one value before `index`.
    void insert(std::int64_t index, std::int32_t n, const T& value) {
        if (n <= 0) return;
        Place place = blocks_.find(index);
        if (!blocks_.atEnd(place) && blocks_[place].value == value)
            return blocks_.change(place, [n](Run& run) { run.count += n; });
        if (place.first == index && !blocks_.atBegin(place)) {
            const Place before = blocks_.previous(place);
            if (blocks_[before].value == value)
                return blocks_.change(before, [n](Run& run) { run.count += n; });
        }
        blocks_.insert(split(index), Run{n, value});
    }

    /// Takes `n` elements out.
    void remove(std::int64_t index, std::int32_t n) {
        Place place = blocks_.find(index);
        while (n > 0) {
            const std::int32_t offset = static_cast<std::int32_t>(index - place.first);
            const std::int32_t here = std::min(n, blocks_[place].count - offset);
            n -= here;
            if (here == blocks_[place].count) {
                place = blocks_.erase(place);
            } else {
                blocks_.change(place, [here](Run& run) { run.count -= here; });
                if (n > 0) place = blocks_.next(place);
            }
        }
        joinAt(index);
    }

    /// Gives `n` elements from `index` on the value that `map` makes of their present one. Answers whether
    /// any of them changed.
    template <class Map>
    bool transform(std::int64_t index, std::int32_t n, Map map) {
        if (n <= 0) return false;
        bool changed = false;
        const std::int64_t stop = index + n;
        for (std::int64_t i = index; i < stop;) {
            const Place place = blocks_.find(i);
            const std::int64_t runEnd = std::min(stop, place.first + blocks_[place].count);
            const T value = map(blocks_[place].value);
            if (!(value == blocks_[place].value)) {
                changed = true;
                assign(i, runEnd, value);
            }
            i = runEnd;
        }
        return changed;
    }

    using Replacement = typename Blocks::Replacement;
    /// Elements [first, first + from.size()) shall change places: `from[i]` is the old place of the one that
    /// stands at first + i then. Takes the memory for it; nothing where all are alike. Elements beyond the
    /// end are T{}, and come to stand within it.
    std::optional<Replacement> prepareReorder(std::int64_t first, std::span<const std::int32_t> from) {
        const std::int64_t stop =
            std::min<std::int64_t>(first + static_cast<std::int64_t>(from.size()), count());
        const Place start = blocks_.find(first);
        if (start.first + blocks_[start].count >= first + static_cast<std::int64_t>(from.size())) return {};
        std::vector<T> old;
        old.reserve(from.size());
        for (Place place = start; !blocks_.atEnd(place) && place.first < stop; place = blocks_.next(place)) {
            const Run& run = blocks_[place];
            const std::int64_t here = std::min(stop, place.first + run.count) - std::max(first, place.first);
            old.insert(old.end(), static_cast<std::size_t>(here), run.value);
        }
        old.resize(from.size());
        return prepareReplace(first, stop, from, old);
    }
    /// `n` elements from `first` on shall have the values that `map` makes of their present ones, each asked
    /// about once and in order. Takes the memory for it; nothing where all stay as they are.
    template <class Map>
    std::optional<Replacement> prepareMap(std::int64_t first, std::int32_t n, Map map) {
        if (n <= 0) return {};
        const std::int64_t stop = first + n;
        const Place begin = blocks_.blockBefore(blocks_.find(first));
        const Place end = blocks_.blockAfter(blocks_.find(stop));
        std::vector<Run> runs;
        bool changed = false;
        for (Place place = begin; place.block < end.block && !blocks_.atEnd(place);
             place = blocks_.next(place)) {
            const Run& run = blocks_[place];
            const std::int64_t last = place.first + run.count;
            const std::int64_t from = std::clamp(first, place.first, last);
            const std::int64_t to = std::clamp(stop, place.first, last);
            if (from > place.first) append(runs, from - place.first, run.value);
            for (std::int64_t i = from; i < to; ++i) {
                const T value = map(run.value);
                changed = changed || !(value == run.value);
                append(runs, 1, value);
            }
            if (last > to) append(runs, last - to, run.value);
        }
        if (!changed) return {};
        return blocks_.prepareReplace(begin, end, runs);
    }
    /// What was prepared, nothing else having changed since.
    void replace(Replacement& with) noexcept { blocks_.replace(with); }

  private:
    static void append(std::vector<Run>& runs, std::int64_t count, const T& value) {
        const auto n = static_cast<std::int32_t>(count);
        if (!runs.empty() && runs.back().value == value)
            runs.back().count += n;
        else
            runs.push_back({n, value});
    }

    /// The blocks of the runs that change, and of those beside them, which may become one with them.
    Replacement prepareReplace(std::int64_t first, std::int64_t stop, std::span<const std::int32_t> from,
                               const std::vector<T>& old) {
        const Place begin = blocks_.blockBefore(blocks_.find(first));
        const Place end = blocks_.blockAfter(blocks_.find(stop));
        std::vector<Run> runs;
        for (Place place = begin; place.first < first; place = blocks_.next(place))
            append(runs, std::min<std::int64_t>(blocks_[place].count, first - place.first),
                   blocks_[place].value);
        for (const std::int32_t one : from) append(runs, 1, old[static_cast<std::size_t>(one - first)]);
        for (Place place = blocks_.find(stop); place.block < end.block; place = blocks_.next(place)) {
            const std::int64_t here = place.first + blocks_[place].count - std::max(stop, place.first);
            append(runs, here, blocks_[place].value);
        }
        return blocks_.prepareReplace(begin, end, runs);
    }

    /// Gives the elements of [first, stop), which lie in one run, another value.
    void assign(std::int64_t first, std::int64_t stop, const T& value) {
        split(stop);
        const Place place = split(first);
        blocks_.change(place, [&value](Run& run) { run.value = value; });
        joinAt(stop);
        joinAt(first);
    }

    /// Makes a run begin at `index` and returns its place.
    Place split(std::int64_t index) {
        Place place = blocks_.find(index);
        if (place.first == index) return place;
        const std::int32_t head = static_cast<std::int32_t>(index - place.first);
        Run tail = blocks_[place];
        tail.count -= head;
        // The tail first: should there be no memory for it, the run is still whole.
        const Place after = blocks_.insert(blocks_.next(place), tail);
        blocks_.change(blocks_.previous(after), [head](Run& run) { run.count = head; });
        return blocks_.find(index);
    }

    /// Joins the runs that meet at `index` when their values are equal.
    void joinAt(std::int64_t index) {
        if (index <= 0 || index >= blocks_.count()) return;
        const Place place = blocks_.find(index);
        if (place.first != index) return;
        const Place before = blocks_.previous(place);
        if (!(blocks_[before].value == blocks_[place].value)) return;
        const std::int32_t n = blocks_[place].count;
        blocks_.erase(place);
        blocks_.change(blocks_.find(index - 1), [n](Run& run) { run.count += n; });
    }

    Blocks blocks_;
};

/// A value per index without an end: what was never set has the value T{}. Costs nothing until something is
/// set.
template <class T>
class SparseRuns {
  public:
    T at(std::int64_t index) const { return index < runs_.count() ? runs_.at(index) : T{}; }

    /// The elements from `index` on move up; the new ones have the value T{}.
    void insert(std::int64_t index, std::int32_t n) {
        if (index < runs_.count()) runs_.insert(index, n, T{});
    }
    void remove(std::int64_t index, std::int32_t n) {
        if (index >= runs_.count()) return;
        runs_.remove(index, static_cast<std::int32_t>(std::min<std::int64_t>(n, runs_.count() - index)));
    }
    template <class Map>
    bool transform(std::int64_t index, std::int32_t n, Map map) {
        const std::int64_t missing = index + n - runs_.count();
        if (missing > 0) runs_.insert(runs_.count(), static_cast<std::int32_t>(missing), T{});
        const bool changed = runs_.transform(index, n, map);
        trim();
        return changed;
    }
    bool set(std::int64_t index, std::int32_t n, const T& value) {
        return transform(index, n, [&value](const T&) { return value; });
    }
    bool empty() const { return runs_.count() == 0; }

    using Replacement = typename RunList<T>::Replacement;
    /// As of a RunList.
    std::optional<Replacement> prepareReorder(std::int64_t first, std::span<const std::int32_t> from) {
        if (first >= runs_.count()) return {};
        return runs_.prepareReorder(first, from);
    }
    void replace(Replacement& with) noexcept {
        runs_.replace(with);
        trim();
    }

  private:
    /// Unset elements at the end are not kept.
    void trim() {
        const auto& blocks = runs_.blocks();
        if (blocks.count() == 0) return;
        const auto last = blocks.previous(blocks.end());
        if (blocks[last].value == T{}) runs_.remove(last.first, blocks[last].count);
    }

    RunList<T> runs_;
};
}  // namespace kxVsGrid::cellgrid
