// What a single measurement reads: a clock, and the heap.
//
// The clock counts the processor time of this program, its system calls included. Nothing that is measured
// waits, so on an idle machine that is the time on the wall; on a busy one it is what the wall clock would
// have shown.
#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <time.h>

#include <cstddef>

namespace kxbench {

inline double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Seconds that `work` takes.
template <class Work>
double seconds(Work work) {
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

/// Bytes that the program has taken from malloc and not given back.
inline std::size_t heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Gives the freed memory of former measurements back to the system, so that everybody starts alike.
inline void returnFreedMemory() {
    malloc_trim(0);
}
}  // namespace kxbench
