// What the parser allocates, counted for the whole program. The framework in
// this file allocates nothing.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <string>
#include <system_error>

#include "framework/qv_log.h"
#include "graph/qv_graph_parser.h"
#include "tests/support/counted_allocations.h"
#include "tests/support/temporary_folder.h"

using json11::Json;

namespace {

char lastRecord[512];

}  // namespace

int qv_log(uint32_t /*module*/,
           int /*level*/,
           const char* /*tag*/,
           const char* format,
           const char* /*function*/,
           int line,
           ...) {
    va_list arguments;
    va_start(arguments, line);
    vsnprintf(lastRecord, sizeof(lastRecord), format, arguments);
    va_end(arguments);
    return 0;
}

int qv_err(uint32_t /*module*/,
           int /*level*/,
           const char* /*tag*/,
           const char* format,
           const char* /*function*/,
           int line,
           ...) {
    va_list arguments;
    va_start(arguments, line);
    vsnprintf(lastRecord, sizeof(lastRecord), format, arguments);
    va_end(arguments);
    return 0;
}

int util_snprintf(char* buffer, size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

std::string util_to_string(int value) {
    return std::to_string(value);
}

int util_strcasecmp(const char* a, const char* b) {
    return strcasecmp(a, b);
}

void* qv_memset(void* memory, int value, size_t size) {
    return memset(memory, value, size);
}

void node_proxy_parse_stub_uid(_QVNodeInfo* /*info*/, const char* /*name*/) {}
void node_proxy_node_create(_QVNodeInfo* /*info*/) {}

namespace {

// Keeps the last stored value unchanged.
class LastStore : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* value) override {
        return snprintf(text, sizeof(text), "%s", value);
    }
    int setInt32(const char* /*key*/, int32_t value) override {
        return snprintf(text, sizeof(text), "int32 %d", value);
    }
    int setInt64(const char* /*key*/, int64_t value) override {
        return snprintf(text, sizeof(text), "int64 %lld", static_cast<long long>(value));
    }
    int setFloat(const char* /*key*/, float value) override {
        return snprintf(text, sizeof(text), "float %g", static_cast<double>(value));
    }
    int findCString(const char* /*key*/, const char** /*value*/) override { return 0; }

    char text[256] = "";
};

class OptionAllocationTest : public testing::Test {
protected:
    void AssertAllocatesNothing(const Json& value, int result, const std::string& stored) {
        store.text[0] = '\0';
        const int before = allocations.made;
        const int actual = parser.parseOptions(&store, "key", value);
        const int after = allocations.made;
        EXPECT_EQ(after, before) << value.dump();
        EXPECT_EQ(actual, result);
        EXPECT_EQ(store.text, stored);
    }

    LastStore store;
    const QVGraphParser parser{};
};

// Loads from files, with a limit on the size of each memory request.
class FileAllocationTest : public testing::Test {
protected:
    void AssertReadsAsEmptyInLittleMemory(const std::string& file) {
        QVGraphParser parser;
        allocations.largest = 0;
        const int result = parser.parseConfigFile(file.c_str());
        const size_t requested = allocations.largest;
        EXPECT_EQ(result, -1);
        EXPECT_STREQ(lastRecord,
                     "\033[31m\033[1mfailed to json11::Json::parse(...), "
                     "err=unexpected end of input\033[0m");
        EXPECT_LT(requested, 1024U) << file;
    }

    const TemporaryFolder folder;
    const std::string path = folder.path("file");
};

}  // namespace

TEST_F(OptionAllocationTest, CounterCountsAllocations) {
    const int before = allocations.made;
    const std::string longText(100, 'x');
    EXPECT_EQ(allocations.made, before + 1) << longText;
}

TEST_F(OptionAllocationTest, NumbersAllocateNothing) {
    AssertAllocatesNothing(42, 0, "int32 42");
    AssertAllocatesNothing(3e9, 0, "int32 2147483647");
}

TEST_F(OptionAllocationTest, TypedStringsAllocateNothing) {
    AssertAllocatesNothing("int32:" + std::string(120, '0') + "7", 0, "int32 7");
    AssertAllocatesNothing("int64:0x10", 0, "int64 16");
    AssertAllocatesNothing("float:0." + std::string(118, '3'), 0, "float 0.333333");
    AssertAllocatesNothing("double:1e39", 0, "float inf");
    AssertAllocatesNothing("double:0." + std::string(118, '6'), 0, "float 0.666667");
}

TEST_F(OptionAllocationTest, PlainStringsAllocateNothing) {
    AssertAllocatesNothing("", 0, "");
    AssertAllocatesNothing(std::string(127, 'x'), 0, std::string(127, 'x'));
    AssertAllocatesNothing(std::string(128, 'x'), -68, "");
}

TEST_F(OptionAllocationTest, SkippedValuesAllocateNothing) {
    AssertAllocatesNothing(Json(), 0, "");
    AssertAllocatesNothing(true, 0, "");
    AssertAllocatesNothing(Json::array{1, 2}, 0, "");
    AssertAllocatesNothing(Json::object{{"a", 1}}, 0, "");
}

TEST_F(FileAllocationTest, DirectoryNeedsNoMemory) {
    AssertReadsAsEmptyInLittleMemory(folder.path());
}

TEST_F(FileAllocationTest, DevicesAndProcFilesNeedNoMemory) {
    AssertReadsAsEmptyInLittleMemory("/dev/null");
    if (std::ifstream("/proc/self/status")) {
        AssertReadsAsEmptyInLittleMemory("/proc/self/status");
    }
}

TEST_F(FileAllocationTest, FifoNeedsNoMemory) {
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int writer = open(path.c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(writer, 0);
    AssertReadsAsEmptyInLittleMemory(path);
    close(writer);
}

TEST_F(FileAllocationTest, FileOfThreeGibibytesNeedsNoMemory) {
    folder.write("file", "{}");
    std::error_code error;
    std::filesystem::resize_file(path, std::uintmax_t{3} << 30, error);
    if (error) {
        GTEST_SKIP() << "a file of that size cannot be created here";
    }
    AssertReadsAsEmptyInLittleMemory(path);
}

TEST_F(FileAllocationTest, NoRequestIsMuchLargerThanTheFile) {
    std::string text = "{";
    for (int pipe = 0; pipe < 20000; ++pipe) {
        text += (pipe == 0 ? "\"pipe_" : ",\"pipe_") + std::to_string(pipe) + "\":{}";
    }
    text += "}";
    folder.write("file", text);

    QVGraphParser parser;
    allocations.largest = 0;
    const int result = parser.parseConfigFile(path.c_str());
    const size_t requested = allocations.largest;
    EXPECT_EQ(result, 0);
    EXPECT_LE(requested, text.size() + 1);
    EXPECT_EQ(parser.getPipeNum(), 20000);
}
