// Which texts and tags of a few columns that lie side by side were empty before they were written, in a word.
#pragma once

#include <cstdint>

#include "kxVsGrid/ChangeListener.h"

namespace kxVsGrid::changes {

struct EmptyCells {
    static constexpr std::int32_t Cols = 32;
    static constexpr std::uint64_t bits(std::uint32_t texts, std::uint32_t tags) {
        return texts | (std::uint64_t{tags} << Cols);
    }
    static constexpr std::uint64_t bit(std::int32_t offset, CellPart part) {
        return std::uint64_t{1} << (part == CellPart::Text ? offset : offset + Cols);
    }
};
}  // namespace kxVsGrid::changes
