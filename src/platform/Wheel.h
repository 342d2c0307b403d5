// What the control tells the hook of its mouse wheel. There is none before settings were read, nor on
// machines that need none.
#pragma once

#include <cstdint>
#include <memory>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Platform.h"

namespace kxVsGrid::platform {

class Wheel {
  public:
    explicit Wheel(const CellGrid& grid) : grid_(grid) {}

    void hook(Seat& seat) {
        divisor_ = 5;
        hook_.reset();  // one at a time: the old one lets go before the new one takes the wheel
        hook_ = seat.wheelHook();
        rowsChanged();
    }
    void rowsChanged() const {
        if (hook_) hook_->range(grid_.FixedRows(), static_cast<std::int32_t>((grid_.Rows() - 1) / divisor_));
    }
    void moved() const {
        if (hook_) hook_->position(grid_.TopRow(), grid_.Rows() - 1);
    }
    void mouseOver() const {
        if (hook_) hook_->attach();
    }

  private:
    const CellGrid& grid_;
    std::unique_ptr<WheelHook> hook_;
    double divisor_ = 5;
};
}  // namespace kxVsGrid::platform
