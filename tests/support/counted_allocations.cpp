#include "tests/support/counted_allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

CountedAllocations allocations;

namespace {

void* allocate(size_t size) {
    if (allocations.untilFailure == 0) {
        ++allocations.failed;
        if (allocations.failsOnce) {
            allocations.untilFailure = -1;
        }
        throw std::bad_alloc();
    }
    if (allocations.untilFailure > 0) {
        --allocations.untilFailure;
    }
    void* const memory = malloc(size != 0 ? size : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++allocations.made;
    ++allocations.living;
    if (size > allocations.largest) {
        allocations.largest = size;
    }
    return memory;
}

void release(void* memory) {
    allocations.living -= memory != nullptr ? 1 : 0;
    free(memory);
}

}  // namespace

void* operator new(size_t size) {
    return allocate(size);
}
void* operator new[](size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, size_t /*size*/) noexcept {
    release(memory);
}
void operator delete[](void* memory, size_t /*size*/) noexcept {
    release(memory);
}

// Memory resources ask for an alignment, if only for the usual one.
void* operator new(size_t size, std::align_val_t alignment) {
    if (static_cast<size_t>(alignment) > alignof(std::max_align_t)) {
        abort();
    }
    return allocate(size);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    release(memory);
}
void operator delete(void* memory, size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    release(memory);
}
