// The mark of a problem that a sheet has put on a cell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::sheet {

inline void putProblem(kxGrid& grid, std::int32_t row, std::int32_t col, const std::string& reason) {
    const CellMark mark{CellMark::Kind::Problem, reason};
    if (const CellMark* const there = grid.Mark(row, col); !there || *there != mark)
        grid.Mark(row, col, mark);
}

/// Unless another one stands there by now.
inline void takeProblemAway(kxGrid& grid, std::int32_t row, std::int32_t col, const std::string& reason) {
    if (const CellMark* const there = grid.Mark(row, col); there && there->text == reason)
        grid.Mark(row, col, std::nullopt);
}
}  // namespace kxVsGrid::sheet
