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
        } catch (const std::bad_alloc&) {
            outOfMemory_ = true;
            keep();
        } catch (...) {
            keep();
        }
    }
    /// Throws what it has kept, if anything.
    void raise() const {
        if (fault_) std::rethrow_exception(fault_);
    }

    /// Something was thrown.
    bool any() const { return fault_ != nullptr; }
    /// One of the works, also a later one, lacked memory.
    bool outOfMemory() const { return outOfMemory_; }

  private:
    void keep() {
        if (!fault_) fault_ = std::current_exception();
    }

    std::exception_ptr fault_;
    bool outOfMemory_ = false;
};
}  // namespace kxVsGrid::support
