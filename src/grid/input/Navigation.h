// Moves of the current cell: what the control does with each event of a move, and what the host hears of it.
#pragma once

#include <cstdint>

#include "grid/input/Context.h"

namespace kxVsGrid::events {

class Navigation {
  public:
    explicit Navigation(const Context& context) : c_(context) {}

    /// The grid has the keyboard now: a refused text gets it back. Otherwise keeps the current cell out of
    /// the fixed area.
    void gainedFocus();
    /// Moves the current cell out of the fixed area, if there is another cell for it.
    void leaveFixedArea();

    void beforeRowColChange(std::int32_t oldRow, std::int32_t oldCol, std::int32_t newRow,
                            std::int32_t newCol, bool& cancel);
    void leaveCell();
    void enterCell();
    void rowColChange();
    /// Fills default texts into the entered row.
    void afterRowColChange(std::int32_t oldRow, std::int32_t oldCol, std::int32_t newRow,
                           std::int32_t newCol);
    /// The same for a row that was added, wherever the current cell is: told as a move of it to itself.
    void rowAdded(std::int32_t row);

    /// The grid does not scroll away from an open editor; the total row stays under its columns.
    void scrolled(std::int32_t oldTopRow, std::int32_t oldLeftCol);

    /// Tab and Shift+Tab: commits, then the next or previous editable cell. False when there is none left;
    /// the keyboard then leaves the control.
    bool tab(bool forward);

  private:
    void settleRow(std::int32_t row);

    Context c_;
    bool scrollGuard_ = false;
};
}  // namespace kxVsGrid::events
