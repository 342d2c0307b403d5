// The cell that the cursor entered last, with what it held then.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "kxVsGrid/CellGrid.h"
#include "support/Reordering.h"

namespace kxVsGrid::editing {

class EnteredCell {
  public:
    /// True when (row, col) is the cell entered last.
    bool is(std::int32_t row, std::int32_t col) const { return row == row_ && col == col_; }
    /// -1 when there is none.
    std::int32_t row() const { return row_; }
    std::int32_t col() const { return col_; }
    /// The display text on entry: a commit of the same text is not checked again.
    const std::string& entryText() const { return text_; }
    const std::string& entryTag() const { return tag_; }

    void capture(const CellGrid& grid, std::int32_t row, std::int32_t col) {
        row_ = row;
        col_ = col;
        text_ = grid.Text(row, col);
        tag_ = grid.Data(row, col);
    }
    void none() { row_ = col_ = -1; }

    /// Keeps naming the same cell when rows come or go above it, or change places; its own removal leaves
    /// none.
    void rowInserted(std::int32_t position) {
        if (row_ >= position) ++row_;
    }
    void rowRemoved(std::int32_t position) {
        if (row_ == position)
            none();
        else if (row_ > position)
            --row_;
    }
    void rowsReordered(std::int32_t first, std::span<const std::int32_t> from) {
        row_ = support::placeAfter(row_, first, from);
    }

  private:
    std::int32_t row_ = -1;
    std::int32_t col_ = -1;
    std::string text_;
    std::string tag_;
};
}  // namespace kxVsGrid::editing
