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

/// Throws unless 0 <= value < count.
inline void requireIndex(std::string_view member, std::string_view what, std::int32_t value,
                         std::int32_t count) {
    if (static_cast<std::uint32_t>(value) < static_cast<std::uint32_t>(count)) return;
    misuse(member, value, "is no " + std::string(what) + " (there are " + std::to_string(count) + ")");
}
}  // namespace kxVsGrid::cellgrid
