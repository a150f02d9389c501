#include "host/qv_host_meta_data.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "host/qv_lookup_scope.h"

// The first entry whose key is not below `key`. Options come in the order of
// their keys, one object after the other: most belong at the end, or shortly
// before.
QVHostMetaData::Entries::Sorted::const_iterator QVHostMetaData::Entries::placeOf(
    std::string_view key) const {
    auto place = mSorted.end();
    for (int steps = 8; place != mSorted.begin() && !((place - 1)->key < key); --place) {
        if (steps-- == 0) {
            return std::lower_bound(
                mSorted.begin(), place, key, [](const Entry& entry, std::string_view name) {
                    return entry.key < name;
                });
        }
    }
    return place;
}

bool QVHostMetaData::Entries::isAt(Sorted::const_iterator place, std::string_view key) const {
    return place != mSorted.end() && place->key == key;
}

// The entry under `key`; null when there is none. Most keys differ in length:
// among a few, looking at each is quicker than halving.
const QVHostMetaData::Entries::Entry* QVHostMetaData::Entries::find(std::string_view key) const {
    if (mSorted.size() > 32) {
        const auto place = placeOf(key);
        return isAt(place, key) ? &*place : nullptr;
    }
    for (const Entry& entry : mSorted) {
        if (entry.key == key) {
            return &entry;
        }
    }
    return nullptr;
}

// A copy of the string, NUL-terminated.
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

// Changes nothing when memory runs out.
template <typename Type>
int QVHostMetaData::Entries::set(std::string_view key, Type value) {
    const auto place = mSorted.begin() + (placeOf(key) - mSorted.cbegin());
    if (isAt(place, key)) {
        place->value = keep(value);
    } else {
        const std::string_view name(keep(key), key.size());
        mSorted.insert(place, {name, keep(value)});
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
    const Entries::Entry* entry = mEntries.find(key);
    if (entry == nullptr) {
        return 0;
    }
    const Type* found = std::get_if<Type>(&entry->value);
    QVLookupScope::note(this, key, found != nullptr, decltype(entry->value)(Type()).index());
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
