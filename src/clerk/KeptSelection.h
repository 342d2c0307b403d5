// What is selected, over a move of the current cell that stays within it.
#pragma once

#include <cstdint>

#include "kxVsGrid/CellGrid.h"
#include "rows/FollowedRow.h"

namespace kxVsGrid::clerk {

class KeptSelection {
  public:
    KeptSelection(CellGrid& grid, rows::RowFollower& follower)
        : grid_(grid),
          kind_(grid.SelectedAs()),
          any_(!grid.SelectsOneCell()),
          anchor_(follower, grid.SelRow()),
          corner_(follower, grid.RowSel()),
          anchorCol_(grid.SelCol()),
          cornerCol_(grid.ColSel()) {}

    /// Nothing, where nothing was selected, where it is gone, and where a host has selected something else.
    void putBack() const {
        if (!any_ || !grid_.SelectsOneCell() || !there()) return;
        switch (kind_) {
            case SelectionKind::Cells:
                return grid_.SelectRange(anchor_.row(), anchorCol_, corner_.row(), cornerCol_);
            case SelectionKind::Rows:
                return grid_.SelectRows(anchor_.row(), corner_.row());
            case SelectionKind::Columns:
                return grid_.SelectCols(anchorCol_, cornerCol_);
            case SelectionKind::All:
                return grid_.SelectAll();
        }
    }

  private:
    bool there() const {
        const auto isRow = [this](const rows::FollowedRow& row) {
            return row.there() && row.row() >= grid_.FixedRows();
        };
        const auto isCol = [this](std::int32_t col) {
            return col >= grid_.FixedCols() && col < grid_.Cols();
        };
        const bool rows = kind_ == SelectionKind::Columns || (isRow(anchor_) && isRow(corner_));
        const bool cols = kind_ == SelectionKind::Rows || (isCol(anchorCol_) && isCol(cornerCol_));
        return kind_ == SelectionKind::All || (rows && cols);
    }

    CellGrid& grid_;
    SelectionKind kind_;
    bool any_;
    rows::FollowedRow anchor_;
    rows::FollowedRow corner_;
    std::int32_t anchorCol_;
    std::int32_t cornerCol_;
};
}  // namespace kxVsGrid::clerk
