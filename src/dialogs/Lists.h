// Lists written as one text.
#pragma once

#include <string_view>
#include <vector>

namespace kxVsGrid::dialogs {

/// The parts between separators: one more than there are separators. Views into `text`.
inline std::vector<std::string_view> splitAt(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}
}  // namespace kxVsGrid::dialogs
