// Which texts nobody has typed or loaded: those that default filling has put into entered rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::rows {

/// The cells follow their rows. Cells are written past it: a text that has changed since shows by itself, and
/// only who writes for the host tells of texts that may be the same.
class DefaultedCells {
  public:
    /// The grid must outlive it.
    explicit DefaultedCells(CellGrid& grid) : grid_(grid) {}

    void put(std::int32_t row, std::int32_t col, std::string_view text);
    /// Some cell of the column may hold such a text.
    bool mayHold(std::int32_t col) const {
        return static_cast<std::size_t>(col) < filled_.size() && filled_[static_cast<std::size_t>(col)];
    }
    /// The host has given the cell a text of its own.
    void written(std::int32_t row, std::int32_t col) {
        if (mayHold(col)) forget(row, col);
    }
    /// The same for `n` rows from `row` on.
    void written(std::int32_t row, std::int32_t n, std::int32_t col) {
        if (!mayHold(col)) return;
        for (const std::int32_t stop = row + n; row < stop; ++row) forget(row, col);
    }
    /// Whether a text that stands in a cell was put there by default filling.
    bool holds(std::int32_t row, std::int32_t col, std::string_view text) const;
    /// There are only so many columns any more.
    void colsLimited(std::int32_t cols);

  private:
    using Texts = std::map<std::int32_t, std::string>;  ///< of one row, by column
    RowId known(std::int32_t row) const;
    void forget(std::int32_t row, std::int32_t col);
    void forgetRowsThatHaveGone();

    CellGrid& grid_;
    std::unordered_map<RowId, Texts> rows_;  ///< also of rows that have gone since they were last looked for
    /// Columns that default filling has put texts into: few, and most writes go elsewhere.
    std::vector<bool> filled_;
    std::size_t mostRows_ = 0;  ///< with more they are looked for
    std::int32_t cols_ = 0;
};
}  // namespace kxVsGrid::rows
