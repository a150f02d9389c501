// The host framework's option store.
#include "host/qv_host_meta_data.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace {

struct AsText {
    std::string operator()(const std::string& value) const { return "string " + value; }
    std::string operator()(int32_t value) const { return "int32 " + std::to_string(value); }
    std::string operator()(int64_t value) const { return "int64 " + std::to_string(value); }
    std::string operator()(float value) const {
        std::ostringstream text;
        text << "float " << value;
        return text.str();
    }
};

// One type of value: its setter and its finder.
struct Type {
    const char* name;
    std::function<int(QvMetaData*, const char*)> set;
    // Finds into a variable of the type, which contains `untouched` before the
    // call; `left` reports whether it still does.
    std::function<int(QvMetaData*, const char*, bool* left)> find;
};

template <typename Value>
auto finder(int (QvMetaData::*find)(const char*, Value*), Value untouched) {
    return [find, untouched](QvMetaData* store, const char* key, bool* left) {
        Value value = untouched;
        const int found = (store->*find)(key, &value);
        *left = value == untouched;
        return found;
    };
}

// Each value would also be a plausible value of the other types.
const std::vector<Type>& types() {
    static const std::vector<Type> all = {
        {"string",
         [](QvMetaData* store, const char* key) { return store->setCString(key, "1"); },
         finder<const char*>(&QvMetaData::findCString, "untouched")},
        {"int32",
         [](QvMetaData* store, const char* key) { return store->setInt32(key, 1); },
         finder<int32_t>(&QvMetaData::findInt32, -99)},
        {"int64",
         [](QvMetaData* store, const char* key) { return store->setInt64(key, 1); },
         finder<int64_t>(&QvMetaData::findInt64, -99)},
        {"float",
         [](QvMetaData* store, const char* key) { return store->setFloat(key, 1.0F); },
         finder<float>(&QvMetaData::findFloat, -99.0F)}};
    return all;
}

class MetaDataTest : public testing::Test {
protected:
    // All entries in iteration order: "key: type value", one per line.
    void AssertStored(const std::string& expected) {
        std::string actual;
        for (const auto& [key, value] : entries) {
            actual += key + ": " + std::visit(AsText(), value) + '\n';
        }
        EXPECT_EQ(actual, expected);
    }

    // Only the finder of `type` finds a value under `key`; the others leave their
    // variables unchanged.
    void AssertFoundAs(const std::string& type, const char* key) {
        for (const Type& other : types()) {
            bool left = false;
            const int found = other.find(&store, key, &left);
            EXPECT_EQ(found != 0, type == other.name) << other.name << " finder, " << type;
            EXPECT_EQ(left, type != other.name) << other.name << " finder, " << type;
        }
    }

    std::string FoundString(const char* key) {
        const char* text = nullptr;
        EXPECT_NE(store.findCString(key, &text), 0) << key;
        return text != nullptr ? text : "(null)";
    }

    QVHostMetaData hostStore;

    // As the parser sees it.
    QvMetaData& store = hostStore;

    // Obtained once: it reflects every later change.
    const QVHostMetaData::Entries& entries = hostStore.entries();
};

}  // namespace

TEST_F(MetaDataTest, StartsEmpty) {
    AssertStored("");
    AssertFoundAs("nothing", "");
    AssertFoundAs("nothing", "key");
}

TEST_F(MetaDataTest, SettersSucceedAndKeepTheTypes) {
    EXPECT_EQ(store.setCString("name", "Camera#front"), 0);
    EXPECT_EQ(store.setInt32("fps", 30), 0);
    EXPECT_EQ(store.setInt64("bitrate", 0x100000000), 0);
    EXPECT_EQ(store.setFloat("gain", 0.5F), 0);
    AssertStored(
        "bitrate: int64 4294967296\n"
        "fps: int32 30\n"
        "gain: float 0.5\n"
        "name: string Camera#front\n");
}

TEST_F(MetaDataTest, TypesHaveTheDocumentedIndexes) {
    for (size_t index = 0; index < types().size(); ++index) {
        EXPECT_EQ(types()[index].set(&store, "key"), 0);
        EXPECT_EQ(entries.at("key").index(), index) << types()[index].name;
    }
}

TEST_F(MetaDataTest, FindersFindTheirOwnTypeAndConvertNothing) {
    for (const Type& type : types()) {
        type.set(&store, type.name);
        AssertFoundAs(type.name, type.name);
    }
}

TEST_F(MetaDataTest, FindersReturnTheValueThatWasSet) {
    store.setCString("string", "text");
    store.setInt32("int32", -5);
    store.setInt64("int64", -6);
    store.setFloat("float", -7.5F);

    int32_t int32 = 0;
    int64_t int64 = 0;
    float real = 0;
    EXPECT_EQ(FoundString("string"), "text");
    EXPECT_NE(store.findInt32("int32", &int32), 0);
    EXPECT_NE(store.findInt64("int64", &int64), 0);
    EXPECT_NE(store.findFloat("float", &real), 0);
    EXPECT_EQ(int32, -5);
    EXPECT_EQ(int64, -6);
    EXPECT_EQ(real, -7.5F);
}

TEST_F(MetaDataTest, SetterReplacesAValueOfAnyType) {
    for (const Type& before : types()) {
        for (const Type& after : types()) {
            SCOPED_TRACE(std::string(before.name) + " becomes " + after.name);
            before.set(&store, "key");
            EXPECT_EQ(after.set(&store, "key"), 0);
            EXPECT_EQ(entries.size(), 1U);
            AssertFoundAs(after.name, "key");
        }
    }
}

TEST_F(MetaDataTest, SetterReplacesAValueOfItsOwnType) {
    store.setCString("name", "a longer text than the one after it");
    store.setCString("name", "short");
    store.setInt32("number", 1);
    store.setInt32("number", 2);
    AssertStored("name: string short\nnumber: int32 2\n");
}

TEST_F(MetaDataTest, NumbersAreKeptExactly) {
    for (const int32_t value : {INT32_MIN, 0, INT32_MAX}) {
        int32_t found = 1;
        store.setInt32("key", value);
        EXPECT_NE(store.findInt32("key", &found), 0);
        EXPECT_EQ(found, value);
    }
    for (const int64_t value : {INT64_MIN, int64_t{0}, INT64_MAX}) {
        int64_t found = 1;
        store.setInt64("key", value);
        EXPECT_NE(store.findInt64("key", &found), 0);
        EXPECT_EQ(found, value);
    }
    using Limits = std::numeric_limits<float>;
    for (const float value : {-0.0F, Limits::denorm_min(), -Limits::max(), -Limits::infinity()}) {
        float found = 1;
        store.setFloat("key", value);
        EXPECT_NE(store.findFloat("key", &found), 0);
        EXPECT_EQ(found, value);
        EXPECT_EQ(std::signbit(found), std::signbit(value));
    }
}

TEST_F(MetaDataTest, NotANumberIsFound) {
    float found = 1;
    store.setFloat("key", std::numeric_limits<float>::quiet_NaN());
    EXPECT_NE(store.findFloat("key", &found), 0);
    EXPECT_TRUE(std::isnan(found));
}

TEST_F(MetaDataTest, EmptyStringIsFound) {
    store.setCString("key", "");
    EXPECT_EQ(FoundString("key"), "");
}

TEST_F(MetaDataTest, KeysAndStringsAreCopied) {
    char key[] = "key";
    char value[] = "value";
    store.setCString(key, value);
    key[0] = value[0] = '?';
    AssertStored("key: string value\n");
}

TEST_F(MetaDataTest, KeysAndStringsEndAtTheirFirstNul) {
    store.setCString("key\0more", "value\0more");
    EXPECT_EQ(entries.at("key"), QVHostMetaData::Value(std::string("value")));
    EXPECT_EQ(FoundString("key"), "value");
}

TEST_F(MetaDataTest, FoundStringStaysValidWhileItsEntryExists) {
    for (const char* const text : {"short", "a text that is too long to be kept in place"}) {
        store.setCString("kept", text);
        const char* found = nullptr;
        store.findCString("kept", &found);
        for (int number = 0; number < 1000; ++number) {
            store.setInt32(std::to_string(number).c_str(), number);
        }
        for (int number = 0; number < 1000; ++number) {
            EXPECT_NE(store.remove(std::to_string(number).c_str()), 0);
        }
        EXPECT_STREQ(found, text);
        const char* again = nullptr;
        store.findCString("kept", &again);
        EXPECT_EQ(again, found);
    }
}

TEST_F(MetaDataTest, FoundStringMayBeSetUnderTheSameOrAnotherKey) {
    const std::string text = "a text that is too long to be kept in place";
    store.setCString("key", text.c_str());
    const char* found = nullptr;
    store.findCString("key", &found);
    store.setCString("other", found);
    store.setCString("key", found);
    AssertStored("key: string " + text + "\nother: string " + text + "\n");
}

TEST_F(MetaDataTest, RemoveRemovesOneEntry) {
    for (const Type& type : types()) {
        type.set(&store, "key");
        store.setInt32("keys", 2);
        EXPECT_NE(store.remove("key"), 0) << type.name;
        AssertFoundAs("nothing", "key");
        AssertStored("keys: int32 2\n");
    }
}

TEST_F(MetaDataTest, RemoveFindsNothingUnderAMissingKey) {
    store.setInt32("key", 1);
    EXPECT_EQ(store.remove(""), 0);
    EXPECT_EQ(store.remove("ke"), 0);
    EXPECT_EQ(store.remove("keys"), 0);
    EXPECT_EQ(store.remove("KEY"), 0);
    AssertStored("key: int32 1\n");
}

TEST_F(MetaDataTest, EntriesAreInTheByteOrderOfTheirKeys) {
    const std::vector<std::string> ordered = {"",
                                              "\x01",
                                              " ",
                                              "Z",
                                              "a",
                                              "aa",
                                              "a\x7f",
                                              "a\x80",
                                              "node_10",
                                              "node_2",
                                              "\x7f",
                                              "\x80",
                                              "\xc3\xa4",
                                              "\xe6\x97\xa5",
                                              "\xff",
                                              "\xff\x01"};
    for (auto key = ordered.rbegin(); key != ordered.rend(); ++key) {
        store.setInt32(key->c_str(), 0);
    }
    std::vector<std::string> actual;
    for (const auto& entry : entries) {
        actual.push_back(entry.first);
    }
    EXPECT_EQ(actual, ordered);
}

TEST_F(MetaDataTest, KeysAreFoundInAnyNumberAndOrder) {
    for (const int number : {10, 32, 33, 1000}) {
        QVHostMetaData many;
        for (int i = 0; i < number; ++i) {
            many.setInt32(std::to_string(i * 7 % number).c_str(), i);
        }
        std::string before;
        for (const auto& [key, value] : many.entries()) {
            EXPECT_LT(before, key);
            before = key;
        }
        EXPECT_EQ(many.entries().size(), static_cast<size_t>(number));
        for (int i = 0; i < number; ++i) {
            int32_t found = -1;
            EXPECT_NE(many.findInt32(std::to_string(i * 7 % number).c_str(), &found), 0);
            EXPECT_EQ(found, i);
        }
        EXPECT_EQ(many.entries().count("x"), 0U);
    }
}

TEST_F(MetaDataTest, EntriesOfferTheLookupsOfAMap) {
    store.setFloat("gain", 0.5F);
    EXPECT_EQ(entries.count("gain"), 1U);
    EXPECT_EQ(entries.count("gai"), 0U);
    EXPECT_EQ(entries.at("gain"), QVHostMetaData::Value(0.5F));
    EXPECT_THROW(entries.at("gai"), std::out_of_range);
}

TEST_F(MetaDataTest, EmptyKeyIsAnOrdinaryKey) {
    for (const Type& type : types()) {
        EXPECT_EQ(type.set(&store, ""), 0);
        AssertFoundAs(type.name, "");
    }
    EXPECT_EQ(entries.size(), 1U);
    EXPECT_NE(store.remove(""), 0);
    EXPECT_EQ(store.remove(""), 0);
    AssertStored("");
}

TEST_F(MetaDataTest, StoresShareNothing) {
    QVHostMetaData other;
    store.setInt32("key", 1);
    EXPECT_TRUE(other.entries().empty());
}
