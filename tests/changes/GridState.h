// All that an undo brings back of a grid, as lines that a failing test shows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "kit/HostLog.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::testing {

/// One line for each row, the heading too: its height, what is set of its look, its cells and what they show.
inline Lines stateOf(kxGrid& grid) {
    const CellGrid& cells = grid.Grid();
    const auto set = [](const char* name, auto value) {
        return value ? name + std::to_string(static_cast<std::int64_t>(*value)) : std::string();
    };
    Lines state;
    for (std::int32_t row = 0; row < cells.Rows(); ++row) {
        std::string line = std::to_string(cells.RowHeight(row));
        if (cells.RowHidden(row)) line += " hidden";
        if (cells.MergeRow(row)) line += " merged";
        for (std::int32_t col = 0; col < cells.Cols(); ++col) {
            line += " | " + cells.Text(row, col);
            if (!cells.Data(row, col).empty()) line += " #" + cells.Data(row, col);
            line += set(" fore ", cells.CellForeColor(row, col)) +
                    set(" back ", cells.CellBackColor(row, col)) + set(" at ", cells.CellAlignment(row, col));
        }
        state.push_back(line);
    }
    std::string totals = "totals";
    for (std::int32_t col = 0; col < cells.Cols(); ++col) totals += " | " + grid.ReadSum(col);
    state.push_back(totals);
    return state;
}
}  // namespace kxVsGrid::testing
