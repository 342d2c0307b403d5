#include "sheet/Deleting.h"

#include "support/FlagSpan.h"

namespace kxVsGrid::sheet {

/// Of rows that are selected whole, empty otherwise.
CellRange Deleting::selected() const {
    const CellGrid& cells = c_.cells();
    const bool whole = cells.SelectedAs() == SelectionKind::Rows || cells.SelectedAs() == SelectionKind::All;
    return whole ? cells.Selected() : CellRange{};
}

Deleting::Rows Deleting::shownRows(const CellRange& range) const {
    Rows rows;
    for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
        if (c_.cells().RowShown(row)) rows.push_back(row);
    return rows;
}

bool Deleting::mayGo(std::int32_t row) {
    if (agreed_ || !c_.mayDelete) return true;
    const CellRange range = selected();
    if (range.empty() || row < range.firstRow || row > range.lastRow) return c_.mayDelete({row});
    if (range == refused_ && row < asked_) {
        asked_ = row;
        return false;
    }
    const Rows rows = shownRows(range);
    if (rows.size() < 2) return c_.mayDelete({row});
    refused_ = range;
    asked_ = row;
    if (c_.mayDelete(rows) && !c_.gone && selected() == range) {
        refused_ = {};
        const support::FlagSpan agreed(agreed_);
        c_.grid.Run(Command::DeleteRows);
    }
    return false;
}
}  // namespace kxVsGrid::sheet
