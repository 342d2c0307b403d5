// Reading a format pattern character by character: "..." and a backslash make the characters they hold
// literals.
#pragma once

#include <cstddef>
#include <string_view>

namespace kxVsGrid::cellgrid {

/// Calls `take(byte, isLiteral, position)` for each byte of the pattern, without the quotation marks and
/// backslashes that mark literals. An opening quotation mark without a closing one holds the whole rest, a
/// backslash at the end stands for itself.
template <class Take>
void readPattern(std::string_view pattern, Take take) {
    bool quoted = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && c == '\\' && i + 1 < pattern.size()) {
            ++i;
            take(pattern[i], true, i);
        } else {
            take(c, quoted || c == '\\', i);
        }
    }
}
}  // namespace kxVsGrid::cellgrid
