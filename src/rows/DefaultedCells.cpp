#include "rows/DefaultedCells.h"

#include <algorithm>

namespace kxVsGrid::rows {

void DefaultedCells::put(std::int32_t row, std::int32_t col, std::string_view text) {
    if (rows_.size() > mostRows_) forgetRowsThatHaveGone();
    if (filled_.size() <= static_cast<std::size_t>(col)) filled_.resize(static_cast<std::size_t>(col) + 1);
    filled_[static_cast<std::size_t>(col)] = true;
    rows_[grid_.IdOf(row)][col] = text;
}

RowId DefaultedCells::known(std::int32_t row) const {
    return row >= 0 && row < grid_.Rows() ? grid_.KnownId(row) : RowId::None;
}

bool DefaultedCells::holds(std::int32_t row, std::int32_t col, std::string_view text) const {
    if (!mayHold(col)) return false;
    const auto found = rows_.find(known(row));
    if (found == rows_.end()) return false;
    const auto cell = found->second.find(col);
    return cell != found->second.end() && cell->second == text;
}

void DefaultedCells::forget(std::int32_t row, std::int32_t col) {
    const auto found = rows_.find(known(row));
    if (found == rows_.end()) return;
    found->second.erase(col);
    if (found->second.empty()) rows_.erase(found);
}

/// Next when twice as many rows are held, so that a row is looked for a few times at most.
void DefaultedCells::forgetRowsThatHaveGone() {
    constexpr std::size_t Fewest = 64;
    std::erase_if(rows_, [this](const auto& row) { return grid_.RowOf(row.first) < 0; });
    mostRows_ = std::max(Fewest, 2 * rows_.size());
}

void DefaultedCells::colsLimited(std::int32_t cols) {
    if (cols < cols_)
        for (auto& [row, texts] : rows_) texts.erase(texts.lower_bound(cols), texts.end());
    cols_ = cols;
}
}  // namespace kxVsGrid::rows
