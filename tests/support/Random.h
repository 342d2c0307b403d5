// Random choices for tests, from a seed that the failing test prints. KX_TEST_SEED repeats a run.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <string_view>

namespace kxVsGrid::test {

class Random {
  public:
    Random() : Random(chosenSeed()) {}
    explicit Random(std::uint32_t seed) : seed_(seed), engine_(seed) {
        std::cout << "[   seed   ] KX_TEST_SEED=" << seed << std::endl;
    }

    std::uint32_t seed() const { return seed_; }

    /// A whole number from `first` to `last`, both included.
    std::int64_t between(std::int64_t first, std::int64_t last) {
        return std::uniform_int_distribution<std::int64_t>(first, last)(engine_);
    }

    bool oneIn(int n) { return between(1, n) == 1; }

    char anyOf(std::string_view characters) {
        return characters[static_cast<std::size_t>(
            between(0, static_cast<std::int64_t>(characters.size()) - 1))];
    }

    std::uint64_t bits() { return engine_(); }

  private:
    static std::uint32_t chosenSeed() {
        if (const char* fixed = std::getenv("KX_TEST_SEED"))
            return static_cast<std::uint32_t>(std::strtoul(fixed, nullptr, 10));
        return std::random_device{}();
    }

    std::uint32_t seed_;
    std::mt19937_64 engine_;
};
}  // namespace kxVsGrid::test
