#include "host/qv_host_meta_data.h"

#include <iterator>
#include <string_view>
#include <utility>

QVHostMetaData::Pool::~Pool() {
    while (mBlocks != nullptr) {
        ::operator delete(std::exchange(mBlocks, mBlocks->next));
    }
}

// A block holds its link to the next one in the room of an entry. It stays
// below the size at which the heap tidies itself up on every request.
void QVHostMetaData::Pool::addBlock(size_t bytes) {
    const size_t entries = 6;
    auto* const block = static_cast<std::byte*>(::operator new((entries + 1) * bytes));
    mBlocks = new (block) Link{mBlocks};
    for (size_t i = entries; i > 0; --i) {
        mFree = new (block + i * bytes) Link{mFree};
    }
}

void* QVHostMetaData::Pool::do_allocate(size_t bytes, size_t /*alignment*/) {
    if (mFree == nullptr) {
        addBlock(bytes);
    }
    return std::exchange(mFree, mFree->next);
}

void QVHostMetaData::Pool::do_deallocate(void* memory, size_t /*bytes*/, size_t /*alignment*/) {
    mFree = new (memory) Link{mFree};
}

// Options come in the order of their keys, one object after the other: most
// belong at the end.
template <typename Type>
int QVHostMetaData::set(const char* key, Type value) {
    const std::string_view name(key);
    auto place = mEntries.end();
    if (!mEntries.empty() && name <= std::prev(place)->first) {
        place = mEntries.lower_bound(name);
        if (place->first == name) {
            place->second = std::move(value);
            return 0;
        }
    }
    mEntries.emplace_hint(place, name, std::move(value));
    return 0;
}

// The value under `key`; null when there is none of that type.
template <typename Type>
const Type* QVHostMetaData::find(const char* key) const {
    const auto entry = mEntries.find(std::string_view(key));
    return entry != mEntries.end() ? std::get_if<Type>(&entry->second) : nullptr;
}

namespace {

// Copies a value that was found. Returns whether there was one.
template <typename Type>
int copyFound(const Type* found, Type* value) {
    if (found == nullptr) {
        return 0;
    }
    *value = *found;
    return 1;
}

}  // namespace

int QVHostMetaData::setCString(const char* key, const char* value) {
    return set(key, std::string(value));
}

int QVHostMetaData::setInt32(const char* key, int32_t value) {
    return set(key, value);
}

int QVHostMetaData::setInt64(const char* key, int64_t value) {
    return set(key, value);
}

int QVHostMetaData::setFloat(const char* key, float value) {
    return set(key, value);
}

int QVHostMetaData::remove(const char* key) {
    const auto entry = mEntries.find(std::string_view(key));
    if (entry == mEntries.end()) {
        return 0;
    }
    mEntries.erase(entry);
    return 1;
}

int QVHostMetaData::findCString(const char* key, const char** value) {
    const auto* found = find<std::string>(key);
    if (found == nullptr) {
        return 0;
    }
    *value = found->c_str();
    return 1;
}

int QVHostMetaData::findInt32(const char* key, int32_t* value) {
    return copyFound(find<int32_t>(key), value);
}

int QVHostMetaData::findInt64(const char* key, int64_t* value) {
    return copyFound(find<int64_t>(key), value);
}

int QVHostMetaData::findFloat(const char* key, float* value) {
    return copyFound(find<float>(key), value);
}
