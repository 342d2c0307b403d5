// The goods of a shop, as many as are wanted: what is looked for in a search box and under an editor.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace kxbench {

struct Good {
    std::string code;
    std::string name;
    std::string initials;
};

/// Codes share their beginning, as a shop's codes do; names are made of a dozen syllables.
inline Good goodOf(std::int32_t row) {
    static constexpr std::array Syllables = {"签", "字", "笔", "矿", "泉", "水",
                                             "打", "印", "纸", "螺", "栓", "母"};
    static constexpr std::string_view Initials = "qzbkqsdyzlsm";
    Good good;
    std::array<char, 32> code{};
    std::snprintf(code.data(), code.size(), "SKU-24-%07d", row);
    good.code = code.data();
    auto mixed = static_cast<std::uint32_t>(row) * 2'654'435'761U;
    for (int i = 0; i < 5; ++i, mixed /= Syllables.size()) {
        good.name += Syllables[mixed % Syllables.size()];
        good.initials += Initials[mixed % Syllables.size()];
    }
    good.name += std::to_string(row % 977);
    return good;
}
}  // namespace kxbench
