// Counts everything that the program allocates with new, and lets allocations fail
// on request. Linking counted_allocations.cpp replaces new and delete of the
// complete program.
#ifndef QVGRAPH_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H_
#define QVGRAPH_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H_

#include <atomic>
#include <cstddef>

struct CountedAllocations {
    std::atomic<int> made{0};            // since the program started
    std::atomic<int> living{0};          // allocated and not freed yet
    std::atomic<size_t> largest{0};      // in bytes; a test may reset it to 0
    std::atomic<size_t> inUse{0};        // bytes not freed yet, with what the heap adds to each
    std::atomic<size_t> peak{0};         // maximum of inUse; a test may reset it to inUse
    std::atomic<int> untilFailure{-1};   // this many succeed, then all fail; -1: none fails
    std::atomic<bool> failsOnce{false};  // only one fails, and all later ones succeed
    std::atomic<int> failed{0};          // since the program started
};

extern CountedAllocations allocations;

#endif  // QVGRAPH_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H_
