// Counts what the whole program allocates with new, and makes it run out of
// memory on request. A program that links counted_allocations.cpp has all its
// new and delete replaced.
#ifndef QVGRAPH_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H_
#define QVGRAPH_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H_

#include <atomic>
#include <cstddef>

struct CountedAllocations {
    std::atomic<int> made{0};            // since the program began
    std::atomic<int> living{0};          // of these, not freed yet
    std::atomic<size_t> largest{0};      // in bytes; a test may set it back to 0
    std::atomic<int> untilFailure{-1};   // so many succeed, then all fail; -1: none
    std::atomic<bool> failsOnce{false};  // after one that failed, all succeed
    std::atomic<int> failed{0};          // since the program began
};

extern CountedAllocations allocations;

#endif  // QVGRAPH_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H_
