// What the menus' commands work on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/ControlContext.h"
#include "kxVsGrid/Platform.h"
#include "rows/Rows.h"

namespace kxVsGrid::clerk {

/// What they ask of the control above them: cells as hosts read and write them, and where places lie.
class CommandOwner {
  public:
    virtual ~CommandOwner() = default;
    virtual std::string readCell(std::int32_t row, std::int32_t col, bool text) = 0;
    /// False when it failed and a box told of it.
    virtual bool setCell(std::int32_t row, std::int32_t col, std::string_view text, std::string_view tag) = 0;
    /// Where a place in the control's grid lies on the screen.
    virtual Rect onScreen(const Rect& place) const = 0;
};

struct ClerkContext : host::ControlContext {
    const rows::DefaultedCells& defaulted;
    Platform& platform;
    rows::Rows& rows;
    CommandOwner& owner;
};
}  // namespace kxVsGrid::clerk
