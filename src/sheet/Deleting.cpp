#include "sheet/Deleting.h"

#include <algorithm>
#include <iterator>

#include "support/FlagSpan.h"

namespace kxVsGrid::sheet {

Deleting::Rows Deleting::selectedRows() const {
    const CellGrid& cells = c_.cells();
    Rows rows;
    if (cells.SelectedAs() != SelectionKind::Rows && cells.SelectedAs() != SelectionKind::All) return rows;
    const CellRange range = cells.Selected();
    for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
        if (cells.RowShown(row)) rows.push_back(row);
    return rows;
}

bool Deleting::mayGo(std::int32_t row) {
    if (agreed_ || !c_.mayDelete) return true;
    const Rows rows = selectedRows();
    const auto asked = std::find(rows.begin(), rows.end(), row);
    if (rows.size() < 2 || asked == rows.end()) return c_.mayDelete({row});
    if (rows == refused_ && !left_.empty() && left_.back() == row) {
        left_.pop_back();
        return false;
    }
    refused_ = rows;
    left_.assign(rows.begin(), asked);
    if (c_.mayDelete(rows) && !c_.gone && selectedRows() == rows) {
        left_.clear();
        const support::FlagSpan agreed(agreed_);
        c_.grid.Run(Command::DeleteRows);
    }
    return false;
}
}  // namespace kxVsGrid::sheet
