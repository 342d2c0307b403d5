// Counts what the test program takes from the heap: AllocationCounter.cpp replaces operator new for all of
// it.
#pragma once

#include <cstddef>

namespace kxVsGrid::test {

/// How often memory was taken since the program started.
std::size_t allocations();
}  // namespace kxVsGrid::test
