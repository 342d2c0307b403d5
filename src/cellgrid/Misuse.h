// How the grid engine refuses: a GridError that names the member and the value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kxVsGrid/Members.h"

namespace kxVsGrid::cellgrid {

[[noreturn]] inline void misuse(std::string_view member, std::int64_t value, std::string_view why) {
    throw GridError("CellGrid." + std::string(member) + ": " + std::to_string(value) + " " +
                    std::string(why));
}

[[noreturn]] inline void misuseIndex(const char* member, const char* what, std::int32_t value,
                                     std::int32_t count) {
    misuse(member, value, "is no " + std::string(what) + " (there are " + std::to_string(count) + ")");
}

/// Throws unless 0 <= value < count. Every look at a cell comes through here.
inline void requireIndex(const char* member, const char* what, std::int32_t value, std::int32_t count) {
    if (static_cast<std::uint32_t>(value) >= static_cast<std::uint32_t>(count)) [[unlikely]]
        misuseIndex(member, what, value, count);
}

/// Larger sizes could not be added up in 32 bits.
constexpr std::int32_t MaxSize = 1'000'000'000;

inline void requireSize(const char* member, std::int32_t twips) {
    if (twips < 0) misuse(member, twips, "is negative");
    if (twips > MaxSize) misuse(member, twips, "is more than the maximum");
}
}  // namespace kxVsGrid::cellgrid
