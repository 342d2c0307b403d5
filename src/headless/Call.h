// The length of one call that a desk carries out: a control that is removed meanwhile goes when the outermost
// ends.
#pragma once

#include "headless/Station.h"

namespace kxVsGrid::headless {

class Desk::Call {
  public:
    explicit Call(Desk& desk) : desk_(desk) { ++desk_.records_->calls; }
    ~Call() {
        if (--desk_.records_->calls == 0) desk_.sweep();
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

  private:
    Desk& desk_;
};
}  // namespace kxVsGrid::headless
