#include "rows/DefaultedCells.h"

#include <iterator>
#include <utility>

namespace kxVsGrid::rows {

bool DefaultedCells::holds(std::int32_t row, std::int32_t col, std::string_view text) const {
    const auto found = rows_.find(row);
    if (found == rows_.end()) return false;
    const auto cell = found->second.find(col);
    return cell != found->second.end() && cell->second == text;
}

void DefaultedCells::forget(std::int32_t row, std::int32_t col) {
    const auto found = rows_.find(row);
    if (found == rows_.end()) return;
    found->second.erase(col);
    if (found->second.empty()) rows_.erase(found);
}

/// From the end, so that no row takes the place of one that has still to go on.
void DefaultedCells::rowInserted(std::int32_t position) {
    auto after = rows_.end();
    while (after != rows_.begin()) {
        const auto last = std::prev(after);
        if (last->first < position) return;
        auto node = rows_.extract(last);
        ++node.key();
        after = rows_.insert(after, std::move(node));
    }
}

void DefaultedCells::rowRemoved(std::int32_t position) {
    rows_.erase(position);
    for (auto next = rows_.lower_bound(position); next != rows_.end();) {
        const auto following = std::next(next);
        auto node = rows_.extract(next);
        --node.key();
        rows_.insert(following, std::move(node));
        next = following;
    }
}

void DefaultedCells::limited(std::int32_t rows, std::int32_t cols) {
    rows_.erase(rows_.lower_bound(rows), rows_.end());
    if (cols < cols_)
        for (auto& [row, texts] : rows_) texts.erase(texts.lower_bound(cols), texts.end());
    cols_ = cols;
}
}  // namespace kxVsGrid::rows
