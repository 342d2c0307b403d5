// What the hidden editor has taken from the current cell.
//
// Cells are written in many ways, millions of them in a row: none of these writes tells the editor. Whoever
// looks at the hidden editor has it compare instead.
#pragma once

#include <string>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::editing {

class MirroredCell {
  public:
    const std::string& text() const { return text_; }
    const std::string& tag() const { return tag_; }

    /// The grid has a current cell.
    void take(const CellGrid& grid) {
        text_ = grid.Text(grid.Row(), grid.Col());
        tag_ = grid.Data(grid.Row(), grid.Col());
        taken_ = true;
    }
    /// What was taken is no longer what the editor shows.
    void forget() { taken_ = false; }
    /// False when the current cell holds something else by now, or nothing was taken.
    bool holds(const CellGrid& grid) const {
        return taken_ && grid.Text(grid.Row(), grid.Col()) == text_ &&
               grid.Data(grid.Row(), grid.Col()) == tag_;
    }

  private:
    std::string text_;
    std::string tag_;
    bool taken_ = false;
};
}  // namespace kxVsGrid::editing
