// Takes back the first steps of a change whose later steps fail.
#pragma once

#include <utility>

namespace kxVsGrid::support {

template <class TakeBack>
class Undo {
  public:
    /// `takeBack()` runs when the scope ends before keep(), and must not fail.
    explicit Undo(TakeBack takeBack) : takeBack_(std::move(takeBack)) {}
    ~Undo() {
        if (armed_) takeBack_();
    }
    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;
    void keep() { armed_ = false; }

  private:
    TakeBack takeBack_;
    bool armed_ = true;
};
}  // namespace kxVsGrid::support
