#include "cellgrid/Axis.h"

#include <algorithm>

namespace kxVsGrid::cellgrid {

void Axis::insert(std::int32_t index, std::int32_t n) {
    runs_.insert(index, n, AxisSize{std::max(defaultSize_, minimum_)});
}

bool Axis::setSize(std::int32_t index, std::int32_t size) {
    size = std::max(size, minimum_);
    return runs_.transform(index, 1, [size](AxisSize s) {
        s.size = size;
        return s;
    });
}

bool Axis::setHidden(std::int32_t index, bool hidden) {
    return runs_.transform(index, 1, [hidden](AxisSize s) {
        s.hidden = hidden;
        return s;
    });
}

bool Axis::setFiltered(std::int32_t index, bool filtered) {
    return runs_.transform(index, 1, [filtered](AxisSize s) {
        s.filtered = filtered;
        return s;
    });
}

bool Axis::setFiltered(std::int32_t first, const std::vector<bool>& filtered) {
    std::size_t i = 0;
    auto prepared = runs_.prepareMap(first, static_cast<std::int32_t>(filtered.size()), [&](AxisSize s) {
        s.filtered = filtered[i++];
        return s;
    });
    if (prepared) runs_.replace(*prepared);
    return prepared.has_value();
}

bool Axis::setFiltered(const std::vector<std::pair<std::int32_t, bool>>& elements) {
    constexpr std::size_t Apart = 64;  // a change of one element costs as much as looking at so many
    if (elements.empty()) return false;
    const std::int32_t first = elements.front().first;
    const std::int32_t span = elements.back().first - first + 1;
    if (static_cast<std::size_t>(span) / Apart > elements.size()) {
        bool changed = false;
        for (const auto& [index, filtered] : elements) changed = setFiltered(index, filtered) || changed;
        return changed;
    }
    auto next = elements.begin();
    std::int32_t index = first;
    auto prepared = runs_.prepareMap(first, span, [&](AxisSize s) {
        if (next->first == index++) {
            s.filtered = next->second;
            if (next + 1 != elements.end()) ++next;
        }
        return s;
    });
    if (prepared) runs_.replace(*prepared);
    return prepared.has_value();
}

std::int32_t Axis::filteredAlone(std::int32_t first, std::int32_t stop) const {
    const auto& blocks = runs_.blocks();
    std::int64_t found = 0;
    for (auto place = blocks.find(first); !blocks.atEnd(place) && place.first < stop;
         place = blocks.next(place)) {
        const auto& run = blocks[place];
        if (!run.value.filtered || run.value.hidden || run.value.size <= 0) continue;
        found += std::min<std::int64_t>(stop, place.first + run.count) -
                 std::max<std::int64_t>(first, place.first);
    }
    return static_cast<std::int32_t>(found);
}

bool Axis::setMinimum(std::int32_t minimum) {
    minimum_ = minimum;
    return runs_.transform(0, count(), [minimum](AxisSize s) {
        s.size = std::max(s.size, minimum);
        return s;
    });
}

std::int64_t Axis::position(std::int32_t index) const {
    const auto& blocks = runs_.blocks();
    const auto place = blocks.find(index);
    if (blocks.atEnd(place)) return place.position;
    return place.position + (index - place.first) * extentOf(blocks[place].value);
}

std::int32_t Axis::indexAt(std::int64_t position) const {
    const auto& blocks = runs_.blocks();
    position = std::max<std::int64_t>(position, 0);
    if (position >= blocks.extent()) return count();
    const auto place = blocks.findPosition(position);
    // A run that is found by a position in it has an extent.
    const std::int64_t extent = std::max<std::int64_t>(1, extentOf(blocks[place].value));
    return static_cast<std::int32_t>(place.first + (position - place.position) / extent);
}

std::int32_t Axis::firstFrom(std::int64_t position) const {
    if (position <= 0) return indexAt(0);
    // The element over the position before it is the last that begins earlier.
    const std::int32_t before = indexAt(position - 1);
    return before == count() ? before : indexAt(this->position(before) + extent(before));
}

std::int32_t Axis::shownAfter(std::int32_t index, std::int32_t steps) const {
    const auto& blocks = runs_.blocks();
    std::int32_t found = -1;
    std::int64_t from = std::max<std::int64_t>(std::int64_t{index} + 1, 0);
    for (auto place = blocks.find(from); !blocks.atEnd(place) && steps > 0; place = blocks.next(place)) {
        from = std::max(from, place.first);
        const auto& run = blocks[place];
        if (run.extent() == 0) continue;
        const std::int64_t here = std::min<std::int64_t>(steps, place.first + run.count - from);
        found = static_cast<std::int32_t>(from + here - 1);
        steps -= static_cast<std::int32_t>(here);
    }
    return found;
}

std::int32_t Axis::shownBefore(std::int32_t index, std::int32_t steps) const {
    const auto& blocks = runs_.blocks();
    std::int32_t found = -1;
    std::int64_t to = std::min<std::int64_t>(index, count());
    auto place = to > 0 ? blocks.find(to - 1) : blocks.begin();
    while (to > 0 && steps > 0) {
        const auto& run = blocks[place];
        if (run.extent() != 0) {
            const std::int64_t here = std::min<std::int64_t>(steps, to - place.first);
            found = static_cast<std::int32_t>(to - here);
            steps -= static_cast<std::int32_t>(here);
        }
        to = place.first;
        if (to > 0) place = blocks.previous(place);
    }
    return found;
}
}  // namespace kxVsGrid::cellgrid
