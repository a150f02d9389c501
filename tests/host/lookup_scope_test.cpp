// Lookups in option stores, and those as types that the options do not have.
#include "host/qv_lookup_scope.h"

#include <gtest/gtest.h>

#include <string>

#include "host/qv_host_meta_data.h"
#include "tests/host/in_threads.h"

namespace {

class LookupScopeTest : public testing::Test {
protected:
    LookupScopeTest() {
        store.setInt32("gain", 1);
        store.setInt32("rate", 25);
    }

    // "key: type", one per line.
    static std::string MissesOf(const QVLookupScope& lookups, const QvMetaData& store) {
        static const char* const TYPES[] = {"string", "int32", "int64", "float"};
        std::string misses;
        for (const QVLookupScope::Miss& miss : lookups.missesOf(&store)) {
            misses += miss.key + ": " + TYPES[miss.type] + '\n';
        }
        return misses;
    }

    // "key type result", one per line.
    static std::string LookupsIn(const QVLookupScope& scope) {
        static const char* const TYPES[] = {" string", " int32", " int64", " float"};
        static const char* const RESULTS[] = {" found", " different type", " missing"};
        std::string lookups;
        for (const QVLookupScope::Lookup& lookup : scope.lookups()) {
            lookups += lookup.key;
            lookups += TYPES[lookup.type];
            lookups += RESULTS[static_cast<size_t>(lookup.result)];
            lookups += '\n';
        }
        return lookups;
    }

    QVHostMetaData store;
    const char* text = nullptr;
    int32_t int32 = 0;
    int64_t int64 = 0;
    float real = 0;
};

TEST_F(LookupScopeTest, EveryLookupIsRecordedInOrder) {
    const QVLookupScope scope;
    store.findInt32("rate", &int32);
    store.findCString("gain", &text);
    store.findInt64("zoom", &int64);
    store.findFloat("rate", &real);
    EXPECT_EQ(LookupsIn(scope),
              "rate int32 found\ngain string different type\nzoom int64 missing\n"
              "rate float different type\n");
    EXPECT_EQ(scope.count(), 4U);
}

TEST_F(LookupScopeTest, LookupNamesItsStore) {
    QVHostMetaData other;
    const QVLookupScope scope;
    store.findInt32("gain", &int32);
    other.findInt32("gain", &int32);
    ASSERT_EQ(scope.count(), 2U);
    EXPECT_EQ(scope.lookups()[0].store, &store);
    EXPECT_EQ(scope.lookups()[1].store, &other);
}

TEST_F(LookupScopeTest, LookupAsADifferentTypeIsAMiss) {
    const QVLookupScope lookups;
    store.setCString("url", "25");
    store.setFloat("zoom", 1.5F);
    store.findCString("rate", &text);
    store.findFloat("gain", &real);
    store.findInt32("url", &int32);
    store.findInt64("zoom", &int64);
    EXPECT_EQ(MissesOf(lookups, store), "gain: float\nrate: string\nurl: int32\nzoom: int64\n");
}

TEST_F(LookupScopeTest, LastRequestedTypeWins) {
    const QVLookupScope lookups;
    store.findFloat("gain", &real);
    store.findInt64("gain", &int64);
    EXPECT_EQ(MissesOf(lookups, store), "gain: int64\n");
}

TEST_F(LookupScopeTest, FoundAndAbsentOptionsAreNotMisses) {
    const QVLookupScope lookups;
    store.findInt32("gain", &int32);
    store.findFloat("zoom", &real);
    EXPECT_EQ(MissesOf(lookups, store), "");
}

TEST_F(LookupScopeTest, OptionThatIsFoundLaterIsNotAMiss) {
    const QVLookupScope lookups;
    store.findFloat("gain", &real);
    store.findFloat("rate", &real);
    store.findInt32("gain", &int32);
    EXPECT_EQ(MissesOf(lookups, store), "rate: float\n");
}

TEST_F(LookupScopeTest, StoresAreDistinguished) {
    QVHostMetaData other;
    other.setInt32("gain", 1);
    const QVLookupScope lookups;
    store.findFloat("gain", &real);
    other.findInt32("gain", &int32);
    EXPECT_EQ(MissesOf(lookups, store), "gain: float\n");
    EXPECT_EQ(MissesOf(lookups, other), "");
}

TEST_F(LookupScopeTest, InnermostScopeRecords) {
    const QVLookupScope outer;
    {
        const QVLookupScope inner;
        store.findFloat("gain", &real);
        EXPECT_EQ(MissesOf(inner, store), "gain: float\n");
    }
    store.findFloat("rate", &real);
    EXPECT_EQ(MissesOf(outer, store), "rate: float\n");
}

TEST_F(LookupScopeTest, RecordsLookupsOfAllThreads) {
    const QVLookupScope lookups;
    inThreads(4, [this](int /*number*/) {
        for (int i = 0; i < 1000; ++i) {
            int32_t found = 0;
            float missed = 0;
            store.findFloat("gain", &missed);
            store.findInt32("rate", &found);
            EXPECT_EQ(found, 25);
        }
    });
    EXPECT_EQ(MissesOf(lookups, store), "gain: float\n");
}

}  // namespace
