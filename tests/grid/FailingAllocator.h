// Lets one allocation of the test program fail: FailingAllocator.cpp replaces operator new for all of it.
#pragma once

#include <cstddef>

namespace kxVsGrid::testing {

/// While it lives the `number`-th allocation from its beginning on, counted from 1, throws std::bad_alloc,
/// once.
class FailingAllocation {
  public:
    explicit FailingAllocation(std::size_t number);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    /// The allocation came, and failed.
    bool failed() const;
};
}  // namespace kxVsGrid::testing
