// Whether somebody hears of the changes of a grid: he is told from on(true) on, until on(false) or the end of this.
// It is the last member of its listener: what was filled is still told when it ends.
#pragma once

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::changes {

class Listening {
  public:
    /// Both must outlive it.
    Listening(CellGrid& grid, ChangeListener& listener) : grid_(grid), listener_(listener) {}
    ~Listening() { on(false); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

    bool on() const { return on_; }
    /// Beginning takes memory.
    void on(bool hears) {
        if (hears == on_) return;
        if (hears)
            grid_.AddListener(listener_);
        else
            grid_.RemoveListener(listener_);
        on_ = hears;
    }

  private:
    CellGrid& grid_;
    ChangeListener& listener_;
    bool on_ = false;
};
}  // namespace kxVsGrid::changes
