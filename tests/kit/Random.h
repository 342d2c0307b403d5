// Random choices for tests. KX_SEED=<number> repeats a run: every failure names it, and so does the first line that
// a random test prints, for a run that ends before it can fail.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <string_view>

namespace kxVsGrid::kit {

/// The number that the choices follow from.
class Seed {
  public:
    /// Another one in every run.
    Seed() : Seed(std::random_device{}()) { std::cout << "[   seed   ] " << name(value_) << std::endl; }
    /// The same in every run, unless KX_SEED asks for another one; `turn` sets tests apart that run with one seed.
    explicit Seed(std::uint32_t preset, std::uint32_t turn = 0)
        : value_(givenOr(preset) + turn), trace_(__FILE__, __LINE__, name(value_ - turn)) {}

    std::uint32_t value() const { return value_; }

  private:
    static std::uint32_t givenOr(std::uint32_t preset) {
        const char* const given = std::getenv("KX_SEED");
        return given ? static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10)) : preset;
    }
    static std::string name(std::uint32_t seed) { return "KX_SEED=" + std::to_string(seed); }

    std::uint32_t value_;
    ::testing::ScopedTrace trace_;
};

class Random {
  public:
    Random() = default;
    explicit Random(std::uint32_t preset, std::uint32_t turn = 0) : seed_(preset, turn) {}

    std::uint32_t seed() const { return seed_.value(); }

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
    Seed seed_;
    std::mt19937_64 engine_{seed_.value()};
};
}  // namespace kxVsGrid::kit
