// Switches by which a host asks for more than the control does of itself. Each begins as the control has
// always behaved; none is stored with the settings of a grid.
//
//     grid.Options().EscRestores(true);
#pragma once

#include <cstdint>

#include "kxVsGrid/Event.h"

namespace kxVsGrid {

class GridOptions {
  public:
    /// Esc gives a number cell back the number that a refused expression has emptied, and its tag, unless
    /// code has written another text there since. False at first: the cell stays empty.
    bool EscRestores() const { return escRestores_; }
    void EscRestores(bool restores) { escRestores_ = restores; }

    /// Fills of the menu end at the last row in use, so that a sheet with empty rows below its lines keeps
    /// them empty; empty rows between lines are filled. False at first: fills go down to the last row.
    bool FillsToLastLine() const { return fillsToLastLine_; }
    void FillsToLastLine(bool ends) { fillsToLastLine_ = ends; }
    /// Is the row in use? Preset to whether some cell that can be edited has a text that default filling has
    /// not put there; the host may answer otherwise. Asked before a fill, from the last row up to the first
    /// one in use or to the current row.
    Event<std::int32_t, bool&> RowInUse;

  private:
    bool escRestores_ = false;
    bool fillsToLastLine_ = false;
};
}  // namespace kxVsGrid
