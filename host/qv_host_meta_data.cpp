#include "host/qv_host_meta_data.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "host/qv_lookup_scope.h"

// Returns the first entry whose key is not less than `key`. Options arrive in
// key order, one object after another, so most belong at or near the end.
QVHostMetaData::Entries::Sorted::const_iterator QVHostMetaData::Entries::lowerBound(
    std::string_view key) const {
    auto position = mSorted.end();
    for (int steps = 8; position != mSorted.begin() && !((position - 1)->key < key); --position) {
        if (steps-- == 0) {
            return std::lower_bound(
                mSorted.begin(), position, key, [](const Entry& entry, std::string_view name) {
                    return entry.key < name;
                });
        }
    }
    return position;
}

bool QVHostMetaData::Entries::isAt(Sorted::const_iterator position, std::string_view key) const {
    return position != mSorted.end() && position->key == key;
}

// Returns the entry under `key`; null if there is none. Most keys differ in
// length, so for few entries a linear search is faster than a binary one.
const QVHostMetaData::Entries::Entry* QVHostMetaData::Entries::find(std::string_view key) const {
    if (mSorted.size() > 32) {
        const auto position = lowerBound(key);
        return isAt(position, key) ? &*position : nullptr;
    }
    for (const Entry& entry : mSorted) {
        if (entry.key == key) {
            return &entry;
        }
    }
    return nullptr;
}

// Returns a copy of the string, NUL-terminated.
const char* QVHostMetaData::Entries::keep(std::string_view string) {
    char* const copy = static_cast<char*>(mMemory.allocate(string.size() + 1, 1));
    memcpy(copy, string.data(), string.size());
    copy[string.size()] = '\0';
    return copy;
}

template <typename Number>
Number QVHostMetaData::Entries::keep(Number number) {
    return number;
}

// Changes nothing if an allocation fails.
template <typename Type>
int QVHostMetaData::Entries::set(std::string_view key, Type value) {
    const auto position = mSorted.begin() + (lowerBound(key) - mSorted.cbegin());
    if (isAt(position, key)) {
        position->value = keep(value);
    } else {
        const std::string_view name(keep(key), key.size());
        mSorted.insert(position, {name, keep(value)});
    }
    return 0;
}

int QVHostMetaData::Entries::remove(std::string_view key) {
    const Entry* entry = find(key);
    if (entry == nullptr) {
        return 0;
    }
    mSorted.erase(mSorted.begin() + (entry - mSorted.data()));
    return 1;
}

QVHostMetaData::Value QVHostMetaData::Entries::valueOf(const Entry& entry) {
    return std::visit([](auto kept) -> Value { return kept; }, entry.value);
}

QVHostMetaData::Value QVHostMetaData::Entries::at(std::string_view key) const {
    const Entry* entry = find(key);
    if (entry == nullptr) {
        throw std::out_of_range("no entry under this key");
    }
    return valueOf(*entry);
}

template <typename Type>
int QVHostMetaData::find(const char* key, Type* value) {
    using Result = QVLookupScope::Result;
    const Entries::Entry* entry = mEntries.find(key);
    const Type* found = entry == nullptr ? nullptr : std::get_if<Type>(&entry->value);
    const size_t type = decltype(entry->value)(Type()).index();
    QVLookupScope::note(this,
                        key,
                        type,
                        found != nullptr   ? Result::Found
                        : entry != nullptr ? Result::DifferentType
                                           : Result::Missing);
    if (found == nullptr) {
        return 0;
    }
    *value = *found;
    return 1;
}

int QVHostMetaData::setCString(const char* key, const char* value) {
    return mEntries.set(key, std::string_view(value));
}

int QVHostMetaData::setInt32(const char* key, int32_t value) {
    return mEntries.set(key, value);
}

int QVHostMetaData::setInt64(const char* key, int64_t value) {
    return mEntries.set(key, value);
}

int QVHostMetaData::setFloat(const char* key, float value) {
    return mEntries.set(key, value);
}

int QVHostMetaData::remove(const char* key) {
    return mEntries.remove(key);
}

int QVHostMetaData::findCString(const char* key, const char** value) {
    return find(key, value);
}

int QVHostMetaData::findInt32(const char* key, int32_t* value) {
    return find(key, value);
}

int QVHostMetaData::findInt64(const char* key, int64_t* value) {
    return find(key, value);
}

int QVHostMetaData::findFloat(const char* key, float* value) {
    return find(key, value);
}
