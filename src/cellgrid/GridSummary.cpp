// Counting and adding up what a range of cells holds.
#include <algorithm>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {
namespace {

/// The digits of a code are no amount, and a tick is none.
bool holdsNumbers(mEmDataType type) {
    return type == flexDTDouble || type == flexDTEmpty;
}
}  // namespace

RangeSummary CellGrid::Summary(const CellRange& range) const {
    RangeSummary summary;
    if (range.empty()) return summary;
    impl_->requireCell("Summary", range.firstRow, range.firstCol);
    impl_->requireCell("Summary", range.lastRow, range.lastCol);
    const cellgrid::Axis& down = impl_->layout.rows.axis;
    const cellgrid::Axis& across = impl_->layout.cols.axis;
    const std::int32_t first = std::max(range.firstRow, FixedRows());
    for (std::int32_t col = std::max(range.firstCol, FixedCols()); col <= range.lastCol; ++col) {
        if (across.extent(col) == 0) continue;
        const bool numbers = holdsNumbers(impl_->store.column(col).dataType);
        impl_->store.forEachText(col, first, range.lastRow + 1, [&](std::int32_t row, std::string_view text) {
            if (text.empty() || down.extent(row) == 0) return;
            ++summary.filled;
            if (!numbers) return;
            const std::optional<double> number = impl_->store.completeNumber(col, text);
            if (!number) return;
            summary.smallest = summary.numbers == 0 ? *number : std::min(summary.smallest, *number);
            summary.largest = summary.numbers == 0 ? *number : std::max(summary.largest, *number);
            summary.sum += *number;
            ++summary.numbers;
        });
    }
    if (summary.numbers > 0) summary.average = summary.sum / static_cast<double>(summary.numbers);
    return summary;
}
}  // namespace kxVsGrid
