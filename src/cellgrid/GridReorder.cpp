// Rows change places: whatever belongs to a row goes along. All is prepared before the first is changed.
#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

using cellgrid::misuse;

namespace {
/// The stretch without the rows at its ends that stay where they are.
std::span<const std::int32_t> changing(std::int32_t& first, std::span<const std::int32_t> from) {
    while (!from.empty() && from.front() == first) {
        from = from.subspan(1);
        ++first;
    }
    while (!from.empty() && from.back() == first + static_cast<std::int32_t>(from.size()) - 1)
        from = from.first(from.size() - 1);
    return from;
}
}  // namespace

void CellGrid::Impl::requireOrder(std::int32_t first, std::span<const std::int32_t> from) const {
    if (first < layout.rows.fixed || first > rows()) misuse("Reorder", first, "is no data row");
    const auto most = static_cast<std::size_t>(rows() - first);
    if (from.size() > most)
        misuse("Reorder", static_cast<std::int64_t>(from.size()), "rows are more than there are");
    std::vector<bool> named(from.size());
    for (const std::int32_t row : from) {
        const auto i = static_cast<std::int64_t>(row) - first;
        if (i < 0 || i >= static_cast<std::int64_t>(from.size()))
            misuse("Reorder", row, "is none of the rows that change places");
        if (named[static_cast<std::size_t>(i)]) misuse("Reorder", row, "is named twice");
        named[static_cast<std::size_t>(i)] = true;
    }
}

void CellGrid::Impl::reorder(std::int32_t first, std::span<const std::int32_t> from) {
    requireOrder(first, from);
    from = changing(first, from);
    if (from.empty()) return;
    // The watcher is not told: who adds up hears of RowsReordered, and adds up anew.
    mayWrite();
    listeners.tellFilled();
    auto cells = store.prepareReorder(first, from);
    auto sizes = layout.rows.axis.prepareReorder(first, from);
    auto merged = mergedRows.prepareReorder(first, from);
    auto nodes = ids.prepareReorder(first, from);
    store.reorder(cells);
    layout.rows.axis.reorder(sizes);
    if (merged) mergedRows.replace(*merged);
    ids.reorder(std::move(nodes));
    rowsReordered(first, from);
    tellStream([&](ChangeListener& one) { one.reordered(first, from); });
    const Scroll scrolled = settle();
    tell(&CellGrid::RowsReordered, first, from);
    announce(scrolled);
}

void CellGrid::Impl::moveRows(std::int32_t first, std::int32_t count, std::int32_t to) {
    if (first < layout.rows.fixed || first > rows()) misuse("MoveRows", first, "is no data row");
    if (count < 0) misuse("MoveRows", count, "is negative");
    if (count > rows() - first) misuse("MoveRows", count, "rows are more than there are");
    if (to < layout.rows.fixed || to > rows() - count) misuse("MoveRows", to, "is no place for the rows");
    const std::int32_t begin = std::min(first, to);
    std::vector<std::int32_t> from(static_cast<std::size_t>(count + std::max(first, to) - begin));
    std::iota(from.begin(), from.end(), begin);
    const auto rest = to < first ? from.end() - count : from.begin() + count;
    std::rotate(from.begin(), rest, from.end());
    if (to != first) reorder(begin, from);
}

void CellGrid::Reorder(std::int32_t first, std::span<const std::int32_t> from) {
    held()->reorder(first, from);
}
void CellGrid::MoveRows(std::int32_t first, std::int32_t count, std::int32_t to) {
    held()->moveRows(first, count, to);
}
}  // namespace kxVsGrid
