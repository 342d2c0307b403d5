// A press on the drawn box of a Boolean cell, where the host has it turn the cell over.
//
// The place is looked at before the press moves the current cell, which may scroll; the cell is turned over
// when it has become the current one and the host has let the press go on.
#pragma once

#include <cstdint>
#include <optional>

#include "grid/events/Context.h"
#include "grid/events/FollowedRow.h"

namespace kxVsGrid::events {

class RowAdder;

class BoxPress {
  public:
    BoxPress(const Context& context, RowAdder& rows) : c_(context), rows_(rows) {}

    /// A button goes down at a place of the grid.
    void begins(std::int16_t button, std::int32_t x, std::int32_t y);
    /// The grid has handled the press, and the host has heard of it.
    void ends(bool goesOn);
    /// The last press has turned a cell over.
    bool turned() const { return turned_; }

  private:
    struct Pressed {
        Pressed(RowFollower& follower, std::int32_t r, std::int32_t c) : row(follower, r), col(c) {}
        FollowedRow row;
        std::int32_t col;
    };

    bool isBox(const GridHit& hit, std::int32_t x, std::int32_t y) const;
    bool isCurrent(const Pressed& pressed) const;

    Context c_;
    RowAdder& rows_;
    std::optional<Pressed> pressed_;
    bool turned_ = false;
};
}  // namespace kxVsGrid::events
