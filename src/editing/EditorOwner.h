// What the editor asks of the control above it.
#pragma once

#include <cstdint>

#include "kxVsGrid/Geometry.h"

namespace kxVsGrid::editing {

class EditorOwner {
  public:
    virtual ~EditorOwner() = default;
    /// The clerk has written a cell; row and column -1: one that has gone since.
    virtual void clerkWrote(std::int32_t row, std::int32_t col) = 0;
    /// Recalculates the total of one column, or of all with -1.
    virtual void recalculate(std::int32_t col) = 0;
    /// Asks the host for another row when `row` is the last one.
    virtual void appendIfLast(std::int32_t row) = 0;
    /// One more row through the control's public row count.
    virtual void addRowAtEnd() = 0;
    /// The editor is hidden. The keyboard goes to the grid, if the editor had it.
    virtual void editorHidden() = 0;
    /// Where a place in the control's grid lies on the screen.
    virtual Rect onScreen(const Rect& place) const = 0;
};
}  // namespace kxVsGrid::editing
