#include "host/qv_host_meta_data.h"

#include <string_view>
#include <utility>

int QVHostMetaData::set(const char* key, Value value) {
    mEntries.insert_or_assign(key, std::move(value));
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
