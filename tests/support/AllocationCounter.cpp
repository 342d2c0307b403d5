#include "support/AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t taken = 0;
}

std::size_t kxVsGrid::test::allocations() {
    return taken;
}

void* operator new(std::size_t size) {
    ++taken;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
