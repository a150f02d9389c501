// The desk's option store.
#ifndef QVGRAPH_HOST_QV_HOST_META_DATA_H_
#define QVGRAPH_HOST_QV_HOST_META_DATA_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory_resource>
#include <string>
#include <variant>

#include "framework/qv_meta_data.h"

// Keeps one typed value under each key, in the byte order of the keys. A
// setter replaces what stood under its key, whatever the type. The finders find
// a value of their own type and convert nothing.
//
//   QVHostMetaData options;
//   parser.syncLinkOptions(&options, 0, 1);
//   for (const auto& [key, value] : options.entries()) ...
//
// Thread safety: as a standard container; it must not be changed while another
// thread uses it.
class QVHostMetaData : public QvMetaData {
public:
    // The types in the order in which they are told: string, 32-bit and 64-bit
    // integer, 32-bit float.
    using Value = std::variant<std::string, int32_t, int64_t, float>;
    using Entries = std::pmr::map<std::string, Value, std::less<>>;

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
    int set(const char* key, Type value);
    template <typename Type>
    const Type* find(const char* key) const;

    // The memory of the entries, which all have one size: a few at a time, and
    // what was freed is used again.
    class Pool : public std::pmr::memory_resource {
    public:
        Pool() = default;
        ~Pool() override;
        Pool(const Pool&) = delete;
        Pool& operator=(const Pool&) = delete;

    private:
        struct Link {
            Link* next;
        };

        void* do_allocate(size_t bytes, size_t alignment) override;
        void do_deallocate(void* memory, size_t bytes, size_t alignment) override;
        bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
            return this == &other;
        }
        void addBlock(size_t bytes);

        Link* mFree = nullptr;
        Link* mBlocks = nullptr;
    };

    Pool mPool;
    Entries mEntries{&mPool};
};

#endif  // QVGRAPH_HOST_QV_HOST_META_DATA_H_
