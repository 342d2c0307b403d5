// Where the two grids lie inside the control.
#pragma once

#include <cstdint>

#include "kxVsGrid/CellGrid.h"
#include "totals/TotalRow.h"

namespace kxVsGrid::grid {

class Layout {
  public:
    Layout(CellGrid& main, CellGrid& sums, totals::TotalRow& totals)
        : main_(main), sums_(sums), totals_(totals) {}

    /// Places both grids in a control of this inner size.
    void resize(std::int32_t width, std::int32_t height);
    /// Lays the total row over the bottom edge of the main grid, above a horizontal scroll bar, and copies
    /// the column widths.
    void alignTotalRow();
    void showTotalRow(bool shown);

    bool totalRowShown() const { return totalRowShown_; }
    Rect mainRect() const { return mainRect_; }
    Rect totalRowRect() const { return totalRect_; }
    /// A place in the main grid as one in the control.
    Rect inControl(const Rect& inGrid) const {
        return {mainRect_.left + inGrid.left, mainRect_.top + inGrid.top, inGrid.width, inGrid.height};
    }

  private:
    std::int32_t scrollBarAllowance() const;
    void coverStrip();

    CellGrid& main_;
    CellGrid& sums_;
    totals::TotalRow& totals_;
    Rect mainRect_{1, 1, 0, 0};
    Rect totalRect_;
    bool totalRowShown_ = false;
};
}  // namespace kxVsGrid::grid
