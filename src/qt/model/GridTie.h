// Whether a grid is still there: from the moment on when it is destroyed it is not, also while something goes on behind
// it whose listener has destroyed it.
#pragma once

#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::qt {

class GridTie {
  public:
    /// What a control raises ends first of all.
    explicit GridTie(kxGrid& grid) : tie_(grid.Options().AllRowsNeeded.connect([] {})) {}

    bool there() const { return tie_.connected(); }
    void leave() { tie_.disconnect(); }

  private:
    ScopedConnection tie_;
};
}  // namespace kxVsGrid::qt
