// Switches by which a host asks for more than the control does of itself. Each begins as the control has
// always behaved; none is stored with the settings of a grid.
//
//     grid.Options().EscRestores(true);
#pragma once

namespace kxVsGrid {

class GridOptions {
  public:
    /// Esc gives a number cell back the number that a refused expression has emptied, and its tag, unless
    /// code has written another text there since. False at first: the cell stays empty.
    bool EscRestores() const { return escRestores_; }
    void EscRestores(bool restores) { escRestores_ = restores; }

  private:
    bool escRestores_ = false;
};
}  // namespace kxVsGrid
