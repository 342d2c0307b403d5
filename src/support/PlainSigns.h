// Full-width signs and their ASCII selves: what an input method types where a number or a date is meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kxVsGrid::support {

struct PlainSign {
    std::string_view fullWidth;  ///< one character
    char plain = 0;              ///< what it is taken as
};

/// All of them, the digits first.
std::span<const PlainSign> plainSigns();

/// The text with each full-width sign as its ASCII self; everything else unchanged. One character becomes one
/// character: a place counted in characters stays where it is.
std::string inPlainSigns(std::string_view text);
}  // namespace kxVsGrid::support
