// How much memory a load takes at its peak: counted in bytes of the heap, with
// what the heap adds to each block, for the whole program.
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "tests/support/temporary_folder.h"

namespace {

size_t inUse = 0;
size_t peak = 0;

// The heap keeps the size of each block in front of it.
size_t sizeOf(void* memory) {
    return malloc_usable_size(memory) + sizeof(size_t);
}

void* allocate(size_t size) {
    void* const memory = malloc(size != 0 ? size : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    inUse += sizeOf(memory);
    peak = inUse > peak ? inUse : peak;
    return memory;
}

void release(void* memory) {
    if (memory != nullptr) {
        inUse -= sizeOf(memory);
        free(memory);
    }
}

}  // namespace

void* operator new(size_t size) {
    return allocate(size);
}
void* operator new[](size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, size_t /*size*/) noexcept {
    release(memory);
}
void operator delete[](void* memory, size_t /*size*/) noexcept {
    release(memory);
}

namespace {

const size_t MIB = size_t{1} << 20;

// Twice as much where a pointer takes twice as much.
const size_t LIMIT = 32 * MIB * (sizeof(void*) / 4);

// Small values, each of which takes far more as a part of the tree than as
// text.
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

// An object of 1 MiB whose members have short keys of their own.
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
    // Loads from a file, which takes its text in memory besides.
    void AssertStaysBelowTheLimit(const std::string& text, const std::string& what) {
        ASSERT_LE(text.size(), MIB);
        ASSERT_GE(text.size(), MIB - 400);
        const std::string path = folder.write("graph.json", text);
        QVGraphParser parser;
        const size_t before = inUse;
        peak = inUse;
        const int result = parser.parseConfigFile(path.c_str());
        const size_t taken = peak - before;
        EXPECT_EQ(result, 0) << what;
        EXPECT_LT(taken, LIMIT) << what;
        most = taken > most ? taken : most;
    }

    void TearDown() override {
        if (most == 0) {
            return;
        }
        printf("most heap used for 1 MiB of text: %.1f MiB\n",
               static_cast<double>(most) / static_cast<double>(MIB));
    }

    const TemporaryFolder folder;
    const QVLogScope log{0, [](const QVLogRecord&) {}};
    size_t most = 0;
};

TEST_F(MemoryTest, TheCounterCounts) {
    const size_t before = inUse;
    const std::string text(MIB, ' ');
    EXPECT_GE(inUse - before, text.size());
    EXPECT_LT(inUse - before, text.size() + 8192);
}

TEST_F(MemoryTest, ArraysOfSmallValues) {
    for (const char* element : ELEMENTS) {
        AssertStaysBelowTheLimit(arrayOf(element), element);
    }
}

TEST_F(MemoryTest, NestedArrays) {
    AssertStaysBelowTheLimit(arrayOf(std::string(190, '[') + std::string(190, ']') + ","),
                             "nested");
}

TEST_F(MemoryTest, ObjectOfShortKeys) {
    AssertStaysBelowTheLimit(objectOfShortKeys(), "short keys");
}

TEST_F(MemoryTest, TheSecondLoadTakesTheFirstOneBesides) {
    const std::string text = arrayOf("0,");
    QVGraphParser parser;
    ASSERT_EQ(parser.parseConfigText(text.c_str()), 0);
    const size_t before = inUse;
    peak = inUse;
    ASSERT_EQ(parser.parseConfigText(text.c_str()), 0);
    EXPECT_LT(peak - before, LIMIT);
    EXPECT_LT(inUse, before + 8192) << "the first one is gone";
}

}  // namespace
