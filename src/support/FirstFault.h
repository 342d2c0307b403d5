// Brings what was begun to its end although some of its steps throw.
#pragma once

#include <exception>
#include <new>

namespace kxVsGrid::support {

/// Keeps the first exception of the works it is given, to be thrown when all of them are done.
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
    /// Throws what it has kept, if anything.
    void raise() const {
        if (fault_) std::rethrow_exception(fault_);
    }

    bool outOfMemory() const {
        try {
            raise();
        } catch (const std::bad_alloc&) {
            return true;
        } catch (...) {
            return false;
        }
        return false;
    }

  private:
    std::exception_ptr fault_;
};
}  // namespace kxVsGrid::support
