// What the lines of a draft hold, by their first field.
//
//     B format n again key version over rows fixedRows cols caption...
//         It begins, the n-th of its program. `again`: in place of what stands before it, once it is whole. `over`: the
//         rows are those of the document, from which the changes lead to its own; else its own.
//     R steps lastStep {a at count | r at count | o first n {row count}...}...
//         In one that was written anew: how many steps it was, and what has become of the document's rows since.
//     S first count {row col text tag}...
//         All that these rows hold.
//     E
//         The last row has been given.
//     P name bytes
//         What the host has beside the grid.
//     T name cause {change}...
//         A step; of no name: outside of steps.
//
// Changes: w row col text; g row col tag; a at count (rows were added); r at count (removed); c first last
// (texts and tags emptied); o first n {row count}... (from `first` on stand n stretches of rows, by their old
// places, which together are those that stood there).
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::changes {

inline constexpr std::int32_t DraftFormat = 1;

/// Rows that stood one below the other, and do so again.
struct DraftStretch {
    std::int32_t row;
    std::int32_t count;
};

inline std::vector<DraftStretch> stretchesOf(std::span<const std::int32_t> from) {
    std::vector<DraftStretch> stretches;
    for (const std::int32_t row : from) {
        if (!stretches.empty() && stretches.back().row + stretches.back().count == row)
            ++stretches.back().count;
        else
            stretches.push_back({row, 1});
    }
    return stretches;
}

/// The texts of the lowest fixed row: by them a draft knows the columns it belongs to.
inline std::vector<std::string> captionsOf(const CellGrid& grid) {
    std::vector<std::string> captions(static_cast<std::size_t>(grid.Cols()));
    if (grid.FixedRows() == 0) return captions;
    for (std::int32_t col = 0; col < grid.Cols(); ++col)
        captions[static_cast<std::size_t>(col)] = grid.Text(grid.FixedRows() - 1, col);
    return captions;
}
}  // namespace kxVsGrid::changes
