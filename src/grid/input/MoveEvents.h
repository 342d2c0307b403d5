// Moves of the current cell: what the control does with each event of a move, and what the host hears of it.
#pragma once

#include <cstdint>

#include "grid/input/InputContext.h"

namespace kxVsGrid::grid {

class MoveEvents {
  public:
    explicit MoveEvents(const InputContext& context) : c_(context) {}

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

    /// The grid does not scroll away from an open editor; the total row stays under its columns.
    void scrolled();

    /// Tab and Shift+Tab: commits, then the next or previous editable cell. False when there is none left;
    /// the keyboard then leaves the control.
    bool tab(bool forward);

  private:
    InputContext c_;
    bool MovingInternally_ =
        false;  ///< the control itself moves the current cell: the move brings nothing with it
    bool leaving_ =
        false;  ///< the host's or the clerk's move has begun: no other one begins for the keyboard
    bool scrollGuard_ = false;
};
}  // namespace kxVsGrid::grid
