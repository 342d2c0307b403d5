// A mark on a cell: a small triangle in its corner, with a text for the clerk.
//
//     grid.Mark(3, 2, kxVsGrid::CellMark{kxVsGrid::CellMark::Kind::Problem, "库存只有 20。"});
//     if (const auto cell = grid.NextMark(grid.Row(), grid.Col(), kxVsGrid::CellMark::Kind::Problem))
//         grid.Grid().Select(cell->row, cell->col);
#pragma once

#include <cstdint>
#include <string>

namespace kxVsGrid {

struct CellMark {
    enum class Kind {
        Problem,  ///< what stands there, or was to stand there, cannot stay so; the clerk's next commit ends it
        Warning,  ///< it may be wrong
        Note,     ///< worth knowing
    };
    Kind kind = Kind::Problem;
    std::string text;
    friend bool operator==(const CellMark&, const CellMark&) = default;
};

/// Where a marked cell is.
struct MarkedCell {
    std::int32_t row;
    std::int32_t col;
    friend bool operator==(const MarkedCell&, const MarkedCell&) = default;
};
}  // namespace kxVsGrid
