// How a cell was told to look, each of the three "not set" or a value. Cells hold numbers of styles; equal
// styles have one number, 0 is "nothing set".
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "kxVsGrid/Enumerations.h"
#include "support/Room.h"

namespace kxVsGrid::cellgrid {

struct CellStyle {
    std::optional<mEmflexAlign> alignment;
    std::optional<std::uint32_t> foreColor;
    std::optional<std::uint32_t> backColor;
    friend bool operator==(const CellStyle&, const CellStyle&) = default;
};

using StyleNumber = std::uint32_t;

class CellStyles {
  public:
    const CellStyle& operator[](StyleNumber number) const { return styles_[number]; }

    StyleNumber number(const CellStyle& style) {
        if (style == styles_[last_]) return last_;
        support::makeRoom(styles_);  // a number stands for a style that is there
        const auto [known, fresh] = numbers_.try_emplace(style, static_cast<StyleNumber>(styles_.size()));
        if (fresh) styles_.push_back(style);
        return last_ = known->second;
    }

  private:
    struct Hash {
        std::size_t operator()(const CellStyle& s) const {
            std::size_t h = s.alignment ? static_cast<std::size_t>(*s.alignment) + 1 : 0;
            for (const auto& color : {s.foreColor, s.backColor})
                h = h * 0x9E37'79B9'7F4A'7C15u + (color ? std::size_t{*color} + 1 : 0);
            return h ^ (h >> 29);
        }
    };
    std::vector<CellStyle> styles_{CellStyle{}};
    std::unordered_map<CellStyle, StyleNumber, Hash> numbers_{{CellStyle{}, 0}};
    StyleNumber last_ = 0;
};
}  // namespace kxVsGrid::cellgrid
