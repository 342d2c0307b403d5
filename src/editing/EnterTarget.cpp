#include "editing/EnterTarget.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

#include "columns/CellTarget.h"
#include "editing/NextCell.h"

namespace kxVsGrid::editing {
namespace {

void oneRowDown(CellGrid& grid, EditorOwner& owner) {
    if (grid.Row() >= grid.Rows() - 1) owner.addRowAtEnd();
    const std::int32_t below = grid.ShownRowAfter(grid.Row());
    if (below >= 0) grid.Row(below);
}

/// So many shown rows down, or up when negative; as far as there are any.
std::int32_t shownRowFrom(const CellGrid& grid, std::int32_t row, std::int64_t steps) {
    const auto many = static_cast<std::int32_t>(std::min<std::int64_t>(std::abs(steps), grid.Rows()));
    if (steps > 0) return std::max(grid.ShownRowAfter(row, many), row);
    if (steps == 0) return row;
    const std::int32_t above = grid.ShownRowBefore(row, many);
    if (above >= grid.FixedRows()) return above;
    const std::int32_t first = grid.ShownRowAfter(grid.FixedRows() - 1);
    return first < 0 ? row : std::min(first, row);
}

/// Rows that the host has hidden do not count on the way; one that the column names is out of reach.
std::optional<std::int32_t> rowOf(const CellGrid& grid, const columns::CellTarget& target) {
    if (target.rowIsRelative) return shownRowFrom(grid, grid.Row(), target.row - grid.Row());
    const auto row =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(target.row, grid.FixedRows(), grid.Rows() - 1));
    return grid.ShownRowAfter(row - 1) == row ? std::optional(row) : std::nullopt;
}

void toTarget(const EditingContext& c, std::string_view rule) {
    CellGrid& grid = c.grid;
    const auto target = columns::resolveTarget(rule, grid.Row(), grid.Col());
    if (!target || grid.Rows() <= grid.FixedRows() || grid.Cols() <= grid.FixedCols()) return;
    const auto row = rowOf(grid, *target);
    if (!row) return;
    const auto col = std::clamp<std::int64_t>(target->col, grid.FixedCols(), grid.Cols() - 1);
    if (const auto cell = cellForEnter(c, *row, static_cast<std::int32_t>(col)))
        grid.Select(cell->row, cell->col);
}
}  // namespace

void moveByEnterRule(const EditingContext& c) {
    CellGrid& grid = c.grid;
    if (grid.Col() < 0) return;
    const std::string rule = c.columns.at(grid.Col()).sCellInput();
    if (rule.empty() || rule == "c") {
        if (const auto next = nextCellForEnter(c)) grid.Select(next->row, next->col);
    } else if (rule == "r") {
        oneRowDown(grid, c.owner);
    } else {
        toTarget(c, rule);
    }
}
}  // namespace kxVsGrid::editing
