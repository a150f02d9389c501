#include "host/qv_lookup_scope.h"

#include <atomic>
#include <mutex>

namespace {

std::atomic<QVLookupScope*> watching{nullptr};

// Guards all that a scope has, and that it does not end while it is told.
std::mutex watchingLock;

}  // namespace

QVLookupScope::QVLookupScope() : mOuter(watching) {
    watching = this;
}

QVLookupScope::~QVLookupScope() {
    const std::lock_guard<std::mutex> lock(watchingLock);
    watching = mOuter;
}

void QVLookupScope::note(const QvMetaData* store, const char* key, bool isFound, size_t type) {
    if (watching.load(std::memory_order_relaxed) == nullptr) {
        return;
    }
    const std::lock_guard<std::mutex> lock(watchingLock);
    if (QVLookupScope* const scope = watching) {  // it may have ended meanwhile
        if (isFound) {
            scope->mMisses.erase({store, key});
        } else {
            scope->mMisses[{store, key}] = type;
        }
    }
}

std::vector<QVLookupScope::Miss> QVLookupScope::missesOf(const QvMetaData* store) const {
    const std::lock_guard<std::mutex> lock(watchingLock);
    std::vector<Miss> misses;
    for (const auto& [place, type] : mMisses) {
        if (place.first == store) {
            misses.push_back({place.second, type});
        }
    }
    return misses;
}
