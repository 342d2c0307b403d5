// How the texts of cells are ordered in a window.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kxVsGrid::qt {

/// For each text its rank in the order of the default locale, the same for texts that count as equal. Chinese
/// stands by its pinyin, also in the locales C and English, which have no order of their own for it.
std::vector<std::uint32_t> ranksOf(const std::vector<std::string_view>& texts);
}  // namespace kxVsGrid::qt
