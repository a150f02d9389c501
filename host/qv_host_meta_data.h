// The desk's option store.
#ifndef QVGRAPH_HOST_QV_HOST_META_DATA_H_
#define QVGRAPH_HOST_QV_HOST_META_DATA_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory_resource>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "framework/qv_meta_data.h"

// Keeps one typed value under each key, in the byte order of the keys. A
// setter replaces what stood under its key, whatever the type. The finders find
// a value of their own type and convert nothing (QVLookupScope tells of those
// that find another).
//
//   QVHostMetaData options;
//   parser.syncLinkOptions(&options, 0, 1);
//   for (const auto& [key, value] : options.entries()) ...
//
// Made for the dozens of options of a node: all of a store is in one block of
// memory as long as it is small, a new key moves the entries behind it, and
// strings that are replaced or removed keep their memory until the store ends.
//
// Thread safety: as a standard container; it must not be changed while another
// thread uses it.
class QVHostMetaData : public QvMetaData {
public:
    // The types in the order in which they are told: string, 32-bit and 64-bit
    // integer, 32-bit float.
    using Value = std::variant<std::string, int32_t, int64_t, float>;

    // What a store holds, in key order. Keys and values are made when they are
    // looked at.
    class Entries {
        struct Entry {
            std::string_view key;
            std::variant<const char*, int32_t, int64_t, float> value;
        };
        using Sorted = std::pmr::vector<Entry>;

    public:
        // An input iterator over pairs of a key and its value.
        class Iterator {
        public:
            // What algorithms ask of an iterator.
            using iterator_category = std::input_iterator_tag;
            using value_type = std::pair<std::string, Value>;
            using difference_type = std::ptrdiff_t;
            using pointer = void;
            using reference = value_type;

            // Made by begin() and end().
            explicit Iterator(Sorted::const_iterator place) : mPlace(place) {}

            // As of every input iterator. The pair is made anew each time.
            reference operator*() const { return {std::string(mPlace->key), valueOf(*mPlace)}; }
            Iterator& operator++() {
                ++mPlace;
                return *this;
            }
            // Iterators of one store are equal at the same entry.
            bool operator==(const Iterator& other) const { return mPlace == other.mPlace; }
            bool operator!=(const Iterator& other) const { return mPlace != other.mPlace; }

        private:
            Sorted::const_iterator mPlace;
        };

        // As of a standard map.
        Iterator begin() const { return Iterator(mSorted.begin()); }
        Iterator end() const { return Iterator(mSorted.end()); }
        bool empty() const { return mSorted.empty(); }
        size_t size() const { return mSorted.size(); }
        size_t count(std::string_view key) const { return find(key) != nullptr ? 1 : 0; }

        // Throws std::out_of_range when there is nothing under `key`.
        Value at(std::string_view key) const;

    private:
        friend class QVHostMetaData;

        static Value valueOf(const Entry& entry);

        Entries() { mSorted.reserve(11); }
        template <typename Type>
        int set(std::string_view key, Type value);
        int remove(std::string_view key);
        const Entry* find(std::string_view key) const;

        Sorted::const_iterator placeOf(std::string_view key) const;
        bool isAt(Sorted::const_iterator place, std::string_view key) const;
        const char* keep(std::string_view string);
        template <typename Number>
        Number keep(Number number);

        // Room for a dozen options, inside the store.
        std::array<std::byte, 544> mFirstMemory;
        std::pmr::monotonic_buffer_resource mMemory{mFirstMemory.data(), mFirstMemory.size()};
        Sorted mSorted{&mMemory};
    };

    // The setters return 0. A key may be empty.
    int setCString(const char* key, const char* value) override;
    int setInt32(const char* key, int32_t value) override;
    int setInt64(const char* key, int64_t value) override;
    int setFloat(const char* key, float value) override;
    int remove(const char* key) override;
    int findCString(const char* key, const char** value) override;
    int findInt32(const char* key, int32_t* value) override;
    int findInt64(const char* key, int64_t* value) override;
    int findFloat(const char* key, float* value) override;

    // All entries, in key order. Valid while the store lives, and up to date.
    const Entries& entries() const { return mEntries; }

private:
    template <typename Type>
    int find(const char* key, Type* value);

    Entries mEntries;
};

#endif  // QVGRAPH_HOST_QV_HOST_META_DATA_H_
