// Rows that change places at random: which one, by its old place, stands at each of them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

#include "kit/Dice.h"

namespace kxVsGrid::kit {

struct AnyOrder {
    /// Of some of the rows [fixed, rows), mostly few; all as they are now and then.
    AnyOrder(Dice& dice, std::int32_t fixed, std::int32_t rows) : first(fixed) {
        if (rows <= fixed) return;
        const std::int32_t at = dice.index(rows);
        first = std::max(fixed, at);
        const std::int32_t most = dice.oneIn(10) ? rows : dice.oneIn(3) ? 100 : 4;
        from.resize(static_cast<std::size_t>(std::min(rows - first, dice.between(0, most))));
        std::iota(from.begin(), from.end(), first);
        if (from.empty()) return;
        const auto one = from.begin() + dice.between(0, static_cast<std::int32_t>(from.size()) - 1);
        switch (dice.between(0, 5)) {
            case 0:
                std::reverse(from.begin(), from.end());
                return;
            case 1:
                std::swap(*one, from.front());
                return;
            case 2:
            case 3:
                std::rotate(from.begin(), one, from.end());
                return;
            default:
                for (std::size_t i = from.size(); i > 1; --i)
                    std::swap(
                        from[i - 1],
                        from[static_cast<std::size_t>(dice.between(0, static_cast<std::int32_t>(i) - 1))]);
        }
    }
    /// What they do to a plain table.
    template <class Rows>
    void apply(Rows& rows) const {
        const Rows old(rows.begin() + first, rows.begin() + first + static_cast<std::int32_t>(from.size()));
        for (std::size_t i = 0; i < from.size(); ++i)
            rows[static_cast<std::size_t>(first) + i] = old[static_cast<std::size_t>(from[i] - first)];
    }

    std::int32_t first;
    std::vector<std::int32_t> from;
};
}  // namespace kxVsGrid::kit
