#include "rows/RowsInUse.h"

#include <algorithm>
#include <string>

#include "columns/EditableColumn.h"

namespace kxVsGrid::rows {
namespace {

/// The grid's own answer. What default filling has left in a row that the cursor passed is nobody's line.
bool hasTextOfItsOwn(const host::ControlContext& c, const DefaultedCells& defaulted, std::int32_t row) {
    for (std::int32_t col = c.grid.FixedCols(); col < c.grid.Cols(); ++col) {
        if (!columns::isEditableCell(c.grid, c.columns, row, col)) continue;
        const std::string text = c.grid.Text(row, col);
        if (!text.empty() && !defaulted.holds(row, col, text)) return true;
    }
    return false;
}
}  // namespace

std::int32_t lastRowInUse(const host::ControlContext& context, const DefaultedCells& defaulted,
                          std::int32_t first) {
    std::int32_t row = context.grid.Rows() - 1;
    for (; row >= first; --row) {
        row = std::min(row, context.grid.Rows() - 1);  // a host may take rows away as it is asked
        if (row < first || !context.host.there()) break;
        bool inUse = hasTextOfItsOwn(context, defaulted, row);
        context.options.RowInUse(row, inUse);
        if (inUse) return row;
    }
    return first - 1;
}
}  // namespace kxVsGrid::rows
