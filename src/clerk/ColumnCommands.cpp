#include "clerk/ColumnCommands.h"

#include "cellgrid/Viewport.h"

namespace kxVsGrid::clerk {

bool ColumnCommands::isShown(std::int32_t col) const {
    return col >= c_.grid.FixedCols() && c_.clerkColumns.isShown(col);
}

bool ColumnCommands::wholeSelected() const {
    return !c_.grid.SelectsOneCell() && c_.grid.SelectedAs() == SelectionKind::Columns;
}

std::vector<std::int32_t> ColumnCommands::chosen() const {
    const CellGrid& grid = c_.grid;
    std::vector<std::int32_t> cols;
    if (wholeSelected()) {
        const CellRange range = grid.Selected();
        for (std::int32_t col = range.firstCol; col <= range.lastCol; ++col)
            if (isShown(col)) cols.push_back(col);
    } else if (isShown(grid.Col())) {
        cols.push_back(grid.Col());
    }
    return cols;
}

// --- Hiding

bool ColumnCommands::canHide(const std::vector<std::int32_t>& cols) const {
    return !cols.empty() && c_.clerkColumns.leavesSome(cols);
}

bool ColumnCommands::hide(const std::vector<std::int32_t>& cols) {
    return canHide(cols) && c_.clerkColumns.hide(cols);
}

// --- Widths

/// Reading the texts may run a host's code, as telling of a width does.
bool ColumnCommands::fit(const std::vector<std::int32_t>& cols) {
    CellGrid& grid = c_.grid;
    for (const std::int32_t col : cols) {
        if (!c_.host.there() || col >= grid.Cols()) return false;
        const std::int32_t width =
            c_.clerkColumns.fittedWidth(col, c_.platform.checkBoxSide(), c_.flags.SumRow);
        if (c_.host.there() && col < grid.Cols()) grid.userColWidth(col, width);
    }
    return true;
}

// --- Frozen columns

bool ColumnCommands::endsFreezing(std::int32_t col) const {
    const CellGrid& grid = c_.grid;
    return grid.FrozenCols() > 0 && grid.FrozenCols() == col - grid.FixedCols() + 1;
}

bool ColumnCommands::canFreeze(std::int32_t col) const {
    if (endsFreezing(col)) return true;
    if (!isShown(col)) return false;
    const CellGrid& grid = c_.grid;
    std::int64_t width = 0;
    for (std::int32_t c = 0; c <= col; ++c)
        if (!grid.ColHidden(c)) width += grid.ColWidth(c);
    return width + cellgrid::Viewport::LeastScrolled <= grid.ClientWidth();
}

bool ColumnCommands::freeze(std::int32_t col) {
    c_.clerkColumns.freeze(endsFreezing(col) ? 0 : col - c_.grid.FixedCols() + 1);
    return true;
}

bool ColumnCommands::reset() {
    c_.clerkColumns.resetByClerk();
    return true;
}
}  // namespace kxVsGrid::clerk
