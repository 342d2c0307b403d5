// A flag that is True for the length of a scope, also when an exception ends it.
#pragma once

namespace kxVsGrid::support {

class FlagSpan {
  public:
    /// Sets the flag now; puts `after` into it when the scope ends, whatever it held before.
    explicit FlagSpan(bool& flag, bool now = true, bool after = false) : flag_(flag), after_(after) {
        flag_ = now;
    }
    ~FlagSpan() { flag_ = after_; }
    FlagSpan(const FlagSpan&) = delete;
    FlagSpan& operator=(const FlagSpan&) = delete;

  private:
    bool& flag_;
    bool after_;
};
}  // namespace kxVsGrid::support
