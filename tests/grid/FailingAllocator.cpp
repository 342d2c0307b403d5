#include "grid/FailingAllocator.h"

#include <cstdlib>
#include <new>

namespace {

bool armed = false;
std::size_t untilFailure = 0;

void* take(std::size_t size) {
    if (armed && untilFailure > 0 && --untilFailure == 0) throw std::bad_alloc();
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void* takeOrNothing(std::size_t size) noexcept {
    try {
        return take(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
}  // namespace

namespace kxVsGrid::testing {

FailingAllocation::FailingAllocation(std::size_t number) {
    untilFailure = number;
    armed = true;
}
FailingAllocation::~FailingAllocation() {
    armed = false;
}
bool FailingAllocation::failed() const {
    return untilFailure == 0;
}
}  // namespace kxVsGrid::testing

// All forms, so that none goes to the sanitizer's own while its counterpart does not.
void* operator new(std::size_t size) {
    return take(size);
}
void* operator new[](std::size_t size) {
    return take(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return takeOrNothing(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return takeOrNothing(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
