#include "host/qv_lookup_scope.h"

#include <atomic>
#include <map>
#include <mutex>

namespace {

std::atomic<QVLookupScope*> watching{nullptr};

// Guards all members of a scope, and keeps it from ending while it records.
std::mutex watchingLock;

}  // namespace

QVLookupScope::QVLookupScope() : mOuter(watching) {
    watching = this;
}

QVLookupScope::~QVLookupScope() {
    const std::lock_guard<std::mutex> lock(watchingLock);
    watching = mOuter;
}

void QVLookupScope::note(const QvMetaData* store, const char* key, size_t type, Result result) {
    if (watching.load(std::memory_order_relaxed) == nullptr) {
        return;
    }
    const std::lock_guard<std::mutex> lock(watchingLock);
    if (QVLookupScope* const scope = watching) {  // it may have ended meanwhile
        scope->mLookups.push_back({store, key, static_cast<unsigned char>(type), result});
    }
}

std::vector<QVLookupScope::Lookup> QVLookupScope::lookups() const {
    const std::lock_guard<std::mutex> lock(watchingLock);
    return mLookups;
}

size_t QVLookupScope::count() const {
    const std::lock_guard<std::mutex> lock(watchingLock);
    return mLookups.size();
}

std::vector<QVLookupScope::Miss> QVLookupScope::missesOf(const QvMetaData* store) const {
    const std::lock_guard<std::mutex> lock(watchingLock);
    std::map<std::string, size_t> types;
    for (const Lookup& lookup : mLookups) {
        if (lookup.store != store) {
            continue;
        }
        if (lookup.result == Result::Found) {
            types.erase(lookup.key);
        } else if (lookup.result == Result::DifferentType) {
            types[lookup.key] = lookup.type;
        }
    }
    std::vector<Miss> misses;
    misses.reserve(types.size());
    for (const auto& [key, type] : types) {
        misses.push_back({key, type});
    }
    return misses;
}
