// The peak memory of a load, in bytes of the heap of the complete program,
// including what the heap adds to each block.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "tests/support/counted_allocations.h"
#include "tests/support/temporary_folder.h"

namespace {

const size_t MIB = size_t{1} << 20;

// On a machine with pointers of 64 bits, twice that of the device.
const size_t LIMIT = 32 * MIB * (sizeof(void*) / 4);

// Small values. Each takes far more memory in the tree than in the text.
const char* const ELEMENTS[] = {
    "0,",
    "1.5,",
    "\"\",",
    "[],",
    "{},",
    "[0],",
    "[[]],",
    "{\"\":0},",
    "null,",
    "true,",
    "\"0123456789abcdef\",",
};

// An array of 1 MiB that repeats one element.
std::string arrayOf(const std::string& element) {
    std::string text = "[";
    text.reserve(MIB);
    while (text.size() + element.size() <= MIB) {
        text += element;
    }
    text.back() = ']';
    return text;
}

// An object of 1 MiB whose members have short keys, all different.
std::string objectOfShortKeys() {
    std::string text = "{";
    text.reserve(MIB);
    for (int number = 0; text.size() + 10 <= MIB; ++number) {
        text += "\"" + std::string(1, static_cast<char>('a' + number % 26)) +
                std::to_string(number / 26) + "\":0,";
    }
    text.back() = '}';
    return text;
}

class MemoryTest : public testing::Test {
protected:
    // Loads from a file: the text of the file takes memory in addition to the tree.
    void AssertStaysBelowTheLimit(const std::string& text, const std::string& what) {
        ASSERT_LE(text.size(), MIB);
        ASSERT_GE(text.size(), MIB - 400);
        const std::string path = folder.write("graph.json", text);
        QVGraphParser parser;
        const size_t before = allocations.inUse;
        allocations.peak = before;
        const int result = parser.parseConfigFile(path.c_str());
        const size_t taken = allocations.peak - before;
        EXPECT_EQ(result, 0) << what;
        EXPECT_LT(taken, LIMIT) << what;
        maximum = taken > maximum ? taken : maximum;
    }

    void TearDown() override {
        if (maximum == 0) {
            return;
        }
        printf("maximum heap for 1 MiB of text: %.1f MiB\n",
               static_cast<double>(maximum) / static_cast<double>(MIB));
    }

    const TemporaryFolder folder;
    const QVLogScope log{0, [](const QVLogRecord&) {}};
    size_t maximum = 0;
};

TEST_F(MemoryTest, TheCounterCounts) {
    const size_t before = allocations.inUse;
    const std::string text(MIB, ' ');
    EXPECT_GE(allocations.inUse - before, text.size());
    EXPECT_LT(allocations.inUse - before, text.size() + 8192);
}

TEST_F(MemoryTest, ArraysOfSmallValuesStayBelowTheLimit) {
    for (const char* element : ELEMENTS) {
        AssertStaysBelowTheLimit(arrayOf(element), element);
    }
}

TEST_F(MemoryTest, NestedArraysStayBelowTheLimit) {
    AssertStaysBelowTheLimit(arrayOf(std::string(190, '[') + std::string(190, ']') + ","),
                             "nested");
}

TEST_F(MemoryTest, ObjectOfShortKeysStaysBelowTheLimit) {
    AssertStaysBelowTheLimit(objectOfShortKeys(), "short keys");
}

TEST_F(MemoryTest, ASecondLoadTakesMemoryInAdditionToTheFirst) {
    const std::string text = arrayOf("0,");
    QVGraphParser parser;
    ASSERT_EQ(parser.parseConfigText(text.c_str()), 0);
    const size_t before = allocations.inUse;
    allocations.peak = before;
    ASSERT_EQ(parser.parseConfigText(text.c_str()), 0);
    EXPECT_LT(allocations.peak - before, LIMIT);
    EXPECT_LT(allocations.inUse, before + 8192) << "the first document is freed";
}

}  // namespace
