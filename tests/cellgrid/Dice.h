// Random choices for tests that compare a clever structure with its slow, obvious twin. The seed is new in
// every run and printed; KX_SEED=<number> repeats a run.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

namespace kxVsGrid::test {

class Dice {
  public:
    Dice() : seed_(chosenSeed()), engine_(seed_) { std::cout << "seed " << seed_ << "\n"; }

    std::uint32_t seed() const { return seed_; }
    /// From low to high, both included.
    std::int32_t between(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(engine_);
    }
    bool oneIn(std::int32_t n) { return between(1, n) == 1; }
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
    static std::uint32_t chosenSeed() {
        const char* const given = std::getenv("KX_SEED");
        return given ? static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
    }

    std::uint32_t seed_;
    std::mt19937 engine_;
    std::int32_t near_ = 0;
};
}  // namespace kxVsGrid::test
