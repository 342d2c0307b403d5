#include <algorithm>
#include <numeric>

#include "kxVsGrid/Platform.h"

namespace kxVsGrid {

/// The bytes of UTF-8 stand in the order of the code points.
std::vector<std::uint32_t> Platform::collationRanks(const std::vector<std::string_view>& texts) const {
    std::vector<std::uint32_t> order(texts.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [&](auto a, auto b) { return texts[a] < texts[b]; });
    std::vector<std::uint32_t> ranks(texts.size());
    for (std::uint32_t rank = 0; rank < order.size(); ++rank) ranks[order[rank]] = rank;
    return ranks;
}
}  // namespace kxVsGrid
