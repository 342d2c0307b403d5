// What the lines of a draft hold, by their first field.
//
//     B format again key version rows fixedRows cols caption...   it begins, with so many rows; `again`: in place
//                                                                  of what stands before it, once it is whole
//     R steps lastStep {a at count | r at count}...                what has become of the rows since, in a draft
//                                                                  that was written anew, and how many steps it was
//     S first count {row col text tag}...                          all that these rows hold
//     E                                                            the last row has been given
//     P name bytes                                                 what the host has beside the grid
//     T name cause {change}...                                     a step; of no name: outside of steps
//
// Changes: w row col text; g row col tag; a at count (rows were added); r at count (removed); c first last
// (texts and tags emptied).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::changes {

inline constexpr std::int32_t DraftFormat = 1;

/// The texts of the lowest fixed row: by them a draft knows the columns it belongs to.
inline std::vector<std::string> captionsOf(const CellGrid& grid) {
    std::vector<std::string> captions(static_cast<std::size_t>(grid.Cols()));
    if (grid.FixedRows() == 0) return captions;
    for (std::int32_t col = 0; col < grid.Cols(); ++col)
        captions[static_cast<std::size_t>(col)] = grid.Text(grid.FixedRows() - 1, col);
    return captions;
}
}  // namespace kxVsGrid::changes
