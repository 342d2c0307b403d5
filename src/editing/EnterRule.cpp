#include "editing/EnterRule.h"

#include <algorithm>
#include <string>

#include "editing/NextCell.h"
#include "grid/columns/CellTarget.h"
#include "grid/columns/EditableColumn.h"

namespace kxVsGrid::editing {
namespace {

void oneRowDown(CellGrid& grid, EditorOwner& owner) {
    if (grid.Row() >= grid.Rows() - 1) owner.addRowAtEnd();
    if (grid.Row() < grid.Rows() - 1) grid.Row(grid.Row() + 1);
}

void toTarget(CellGrid& grid, std::string_view rule) {
    const auto target = columns::resolveTarget(rule, grid.Row(), grid.Col());
    if (!target || grid.Rows() <= grid.FixedRows() || grid.Cols() <= grid.FixedCols()) return;
    const auto row = std::clamp<std::int64_t>(target->row, grid.FixedRows(), grid.Rows() - 1);
    const auto col = std::clamp<std::int64_t>(target->col, grid.FixedCols(), grid.Cols() - 1);
    grid.Select(static_cast<std::int32_t>(row), static_cast<std::int32_t>(col));
}
}  // namespace

void moveByEnterRule(CellGrid& grid, columns::ColumnArray& columns, EditorOwner& owner) {
    if (grid.Col() < 0) return;
    const std::string rule = columns.at(grid.Col()).sCellInput();
    if (rule.empty() || rule == "c") {
        if (const auto next = nextEditableCell(grid, columns)) grid.Select(next->row, next->col);
    } else if (rule == "r") {
        oneRowDown(grid, owner);
    } else {
        toTarget(grid, rule);
    }
}
}  // namespace kxVsGrid::editing
