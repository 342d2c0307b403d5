// A press on the drawn box of a Boolean cell, where the host has it turn the cell over.
//
// The place is looked at before the press moves the current cell, which may scroll; the cell is turned over
// when it has become the current one and the host has let the press go on.
#pragma once

#include <cstdint>
#include <optional>

#include "grid/input/InputContext.h"
#include "rows/FollowedRow.h"

namespace kxVsGrid::grid {

class BoxPress {
  public:
    explicit BoxPress(const InputContext& context) : c_(context) {}

    /// A button goes down at a place of the grid; nowhere without a y.
    void begins(std::int16_t button, std::int32_t x, std::optional<std::int32_t> y);
    /// The grid has handled the press, and the host has heard of it.
    void ends(bool goesOn);
    /// The last press has turned a cell over.
    bool turned() const { return turned_; }

  private:
    struct Pressed {
        Pressed(rows::RowFollower& follower, std::int32_t r, std::int32_t c) : row(follower, r), col(c) {}
        rows::FollowedRow row;
        std::int32_t col;
    };

    bool isBox(const GridHit& hit, std::int32_t x, std::int32_t y) const;
    bool isCurrent(const Pressed& pressed) const;

    InputContext c_;
    std::optional<Pressed> pressed_;
    bool turned_ = false;
};
}  // namespace kxVsGrid::grid
