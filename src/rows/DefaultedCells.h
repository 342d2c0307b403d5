// Which texts nobody has typed or loaded: those that default filling has put into entered rows.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace kxVsGrid::rows {

/// The cells follow their rows. Cells are written past it: a text that has changed since shows by itself, and
/// only who writes for the host tells of texts that may be the same.
class DefaultedCells {
  public:
    void put(std::int32_t row, std::int32_t col, std::string_view text) { rows_[row][col] = text; }
    /// The host has given the cell a text of its own.
    void written(std::int32_t row, std::int32_t col) {
        if (!rows_.empty()) forget(row, col);
    }
    /// Whether a text that stands in a cell was put there by default filling.
    bool holds(std::int32_t row, std::int32_t col, std::string_view text) const;

    void rowInserted(std::int32_t position);
    void rowRemoved(std::int32_t position);
    /// There are only so many rows and columns any more.
    void limited(std::int32_t rows, std::int32_t cols);

  private:
    using Texts = std::map<std::int32_t, std::string>;  ///< of one row, by column
    void forget(std::int32_t row, std::int32_t col);

    std::map<std::int32_t, Texts> rows_;
    std::int32_t cols_ = 0;
};
}  // namespace kxVsGrid::rows
