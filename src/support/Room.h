// Room in a vector, taken before anything changes: what comes after it cannot fail.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kxVsGrid::support {

/// `more` elements can be added without taking memory. Grows as adding one by one would, never step by step.
template <class T>
void makeRoom(std::vector<T>& elements, std::size_t more = 1) {
    constexpr std::size_t Fewest = 4;
    const std::size_t needed = elements.size() + more;
    if (needed > elements.capacity()) elements.reserve(std::max({needed, elements.capacity() * 2, Fewest}));
}
}  // namespace kxVsGrid::support
