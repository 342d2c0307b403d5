// Switches by which a host asks for more than the control does of itself. Each begins as the control has
// always behaved; none is stored with the settings of a grid.
//
//     grid.Options().EscRestores(true);
#pragma once

namespace kxVsGrid {

class GridOptions {
  public:
    /// Esc in a refused editor gives a number cell back the number that the refused expression has emptied.
    /// False at first: the cell stays empty.
    bool EscRestores() const { return escRestores_; }
    void EscRestores(bool restores) { escRestores_ = restores; }

  private:
    bool escRestores_ = false;
};
}  // namespace kxVsGrid
