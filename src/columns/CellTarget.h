// A cell named relative to another one: "row,column", each part empty, absolute, "+n" or "-n".
//
// Enter rules and reference defaults of columns are written so.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kxVsGrid::columns {

struct CellTarget {
    std::int64_t row;
    std::int64_t col;
    bool rowIsRelative;  ///< so many rows from the first cell, or its own row
};

/// Resolves `text` from the cell (row, col). Nothing when it has no comma or a part is no number.
std::optional<CellTarget> resolveTarget(std::string_view text, std::int32_t row, std::int32_t col);
}  // namespace kxVsGrid::columns
