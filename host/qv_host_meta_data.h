/// @file
/// The option store of the host framework.
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

/// Keeps one typed value under each key, in the byte order of the keys. A
/// setter replaces the value under its key, whatever its type, and returns 0. A
/// finder finds only a value of its own type and converts nothing; QVLookupScope
/// records lookups with a different type. A key may be empty.
/// @code
/// QVHostMetaData options;
/// parser.syncLinkOptions(&options, 0, 1);
/// for (const auto& [key, value] : options.entries()) ...
/// @endcode
///
/// The store is designed for the dozens of options of a node: a small store
/// occupies one block of memory, inserting a key moves the entries after it,
/// and strings that are replaced or removed occupy memory until the store is
/// destroyed.
///
/// Thread safety: as a standard container. It must not be changed while another
/// thread uses it.
class QVHostMetaData : public QvMetaData {
public:
    /// A value: a string, a 32-bit integer, a 64-bit integer or a 32-bit float.
    using Value = std::variant<std::string, int32_t, int64_t, float>;

    /// The contents of a store, in key order. Keys and values are created on
    /// access.
    class Entries {
        struct Entry {
            std::string_view key;
            std::variant<const char*, int32_t, int64_t, float> value;
        };
        using Sorted = std::pmr::vector<Entry>;

    public:
        /// An input iterator over pairs of a key and its value.
        class Iterator {
        public:
            using iterator_category = std::input_iterator_tag;  ///< single pass
            using value_type = std::pair<std::string, Value>;   ///< a key and its value
            using difference_type = std::ptrdiff_t;             ///< not used
            using pointer = void;                               ///< there is no operator->
            using reference = value_type;                       ///< entries are copied

            /// Called by begin() and end().
            explicit Iterator(Sorted::const_iterator position) : mPosition(position) {}

            /// Returns a new pair each time.
            reference operator*() const {
                return {std::string(mPosition->key), valueOf(*mPosition)};
            }
            /// Advances to the next entry.
            Iterator& operator++() {
                ++mPosition;
                return *this;
            }
            /// Returns whether both iterators are at the same entry. REQUIRES: they
            /// belong to the same store.
            bool operator==(const Iterator& other) const { return mPosition == other.mPosition; }
            /// The opposite of operator==.
            bool operator!=(const Iterator& other) const { return mPosition != other.mPosition; }

        private:
            Sorted::const_iterator mPosition;
        };

        /// Returns an iterator to the first entry.
        Iterator begin() const { return Iterator(mSorted.begin()); }
        /// Returns an iterator to the position after the last entry.
        Iterator end() const { return Iterator(mSorted.end()); }
        /// Returns whether the store has no entries.
        bool empty() const { return mSorted.empty(); }
        /// Returns the number of entries.
        size_t size() const { return mSorted.size(); }
        /// Returns 1 if there is a value under `key`, otherwise 0.
        size_t count(std::string_view key) const { return find(key) != nullptr ? 1 : 0; }

        /// Returns the value under `key`. Throws std::out_of_range if there is
        /// none.
        Value at(std::string_view key) const;

    private:
        friend class QVHostMetaData;

        static Value valueOf(const Entry& entry);

        Entries() { mSorted.reserve(11); }
        template <typename Type>
        int set(std::string_view key, Type value);
        int remove(std::string_view key);
        const Entry* find(std::string_view key) const;

        Sorted::const_iterator lowerBound(std::string_view key) const;
        bool isAt(Sorted::const_iterator position, std::string_view key) const;
        const char* keep(std::string_view string);
        template <typename Number>
        Number keep(Number number);

        // Enough for a dozen options without an allocation.
        std::array<std::byte, 544> mFirstMemory;
        std::pmr::monotonic_buffer_resource mMemory{mFirstMemory.data(), mFirstMemory.size()};
        Sorted mSorted{&mMemory};
    };

    int setCString(const char* key, const char* value) override;
    int setInt32(const char* key, int32_t value) override;
    int setInt64(const char* key, int64_t value) override;
    int setFloat(const char* key, float value) override;
    int remove(const char* key) override;
    int findCString(const char* key, const char** value) override;
    int findInt32(const char* key, int32_t* value) override;
    int findInt64(const char* key, int64_t* value) override;
    int findFloat(const char* key, float* value) override;

    /// Returns all entries, in key order. The reference is valid as long as the
    /// store and reflects later changes.
    const Entries& entries() const { return mEntries; }

private:
    template <typename Type>
    int find(const char* key, Type* value);

    Entries mEntries;
};

#endif  // QVGRAPH_HOST_QV_HOST_META_DATA_H_
