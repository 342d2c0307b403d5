// The height that rows need for their text: a row that cannot hold it is made higher, never the text smaller.
#pragma once

#include <algorithm>
#include <cstdint>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::qt {

/// For one grid. The control's settings and its host have a least height of their own, which may change at
/// any time and comes back when a smaller font no longer needs more.
class RowFit {
  public:
    void fit(CellGrid& grid, std::int32_t textHeight) {
        const std::int32_t needed = textHeight > CellGrid::DefaultRowHeight ? textHeight : 0;
        if (grid.RowHeightMin() != given_) own_ = grid.RowHeightMin();
        given_ = std::max(own_, needed);
        if (grid.RowHeightMin() != given_) grid.RowHeightMin(given_);
    }

  private:
    std::int32_t own_ = 0;
    std::int32_t given_ = 0;
};
}  // namespace kxVsGrid::qt
