// A flag that is True for the length of a scope, also when an exception ends it.
#pragma once

namespace kxVsGrid::support {

class Span {
  public:
    /// Sets the flag now; puts `after` into it when the scope ends, whatever it held before.
    explicit Span(bool& flag, bool now = true, bool after = false) : flag_(flag), after_(after) {
        flag_ = now;
    }
    ~Span() { flag_ = after_; }
    Span(const Span&) = delete;
    Span& operator=(const Span&) = delete;

  private:
    bool& flag_;
    bool after_;
};
}  // namespace kxVsGrid::support
