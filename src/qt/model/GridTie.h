// Whether a grid is still there: from the moment on when it is destroyed it is not, also while something goes on behind
// it whose listener has destroyed it.
#pragma once

#include <memory>

#include "kxVsGrid/ChangeListener.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::qt {

class GridTie {
  public:
    explicit GridTie(kxGrid& grid) : life_(grid.life()), behind_(grid.input()), cells_(grid.Grid()) {}

    bool there() const { return !life_.expired(); }
    void leave() { life_.reset(); }
    /// Also where the control has gone, and what is behind it goes on for a call.
    void removeListener(ChangeListener& listener) {
        if (const auto behind = behind_.lock()) cells_.RemoveListener(listener);
    }

  private:
    std::weak_ptr<const void> life_;
    std::weak_ptr<Input> behind_;
    CellGrid& cells_;
};
}  // namespace kxVsGrid::qt
