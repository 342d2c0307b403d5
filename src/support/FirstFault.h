// Work that is brought to its end although a handler of the host's has failed in the middle of it.
#pragma once

#include <exception>

namespace kxVsGrid::support {

/// Keeps the first exception of several pieces of work.
class FirstFault {
  public:
    template <class Work>
    void during(Work work) {
        try {
            work();
        } catch (...) {
            if (!fault_) fault_ = std::current_exception();
        }
    }
    /// Throws it on, if there was one.
    void raise() const {
        if (fault_) std::rethrow_exception(fault_);
    }

  private:
    std::exception_ptr fault_;
};
}  // namespace kxVsGrid::support
