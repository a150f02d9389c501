#include "tests/support/counted_allocations.h"

#include <malloc.h>

#include <cstddef>
#include <cstdlib>
#include <new>

CountedAllocations allocations;

namespace {

// The heap stores the size of each block in front of the block.
size_t bytesOf(void* memory) {
    return malloc_usable_size(memory) + sizeof(size_t);
}

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
    const size_t inUse = allocations.inUse += bytesOf(memory);
    if (inUse > allocations.peak) {
        allocations.peak = inUse;
    }
    return memory;
}

void release(void* memory) {
    if (memory != nullptr) {
        --allocations.living;
        allocations.inUse -= bytesOf(memory);
        free(memory);
    }
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

// Memory resources request an alignment, even if it is the default one.
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
