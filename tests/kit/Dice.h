// Random choices for tests that compare a clever structure with its slow, obvious twin.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "kit/Random.h"

namespace kxVsGrid::kit {

class Dice : public Random {
  public:
    /// From low to high, both included.
    std::int32_t between(std::int32_t low, std::int32_t high) {
        return static_cast<std::int32_t>(Random::between(low, high));
    }
    /// An index below count, mostly near a place that wanders: clerks and clever caches live on locality.
    std::int32_t index(std::int32_t count) {
        if (oneIn(4)) near_ = between(0, count - 1);
        near_ = std::min(std::max(near_ + between(-2, 2), 0), count - 1);
        return near_;
    }
    /// Texts of all the sizes that are kept in different ways.
    std::string text() {
        static const std::string Letters = "abcXYZ0123456789.-/: ,|货号";
        static constexpr int Longest[] = {0, 3, 7, 8, 14, 15, 30, 200, 1024, 3000};
        const bool digits = oneIn(2);
        const int size = between(0, Longest[between(0, oneIn(20) ? 9 : 6)]);
        std::string text;
        for (int i = 0; i < size; ++i) {
            const auto last = digits ? 15 : static_cast<std::int32_t>(Letters.size()) - 1;
            text += Letters[static_cast<std::size_t>(between(digits ? 6 : 0, last))];
        }
        return text;
    }

  private:
    std::int32_t near_ = 0;
};
}  // namespace kxVsGrid::kit
