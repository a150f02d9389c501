// Files that change after their size is determined and before they are read.
// The linker's --wrap redirects fread to a function of the test, which changes
// the file first.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "tests/graph/parser_test.h"
#include "tests/support/temporary_folder.h"

namespace {

// Runs once, before the next read.
std::function<void()> beforeRead;

}  // namespace

size_t realRead(void* buffer, size_t size, size_t count, FILE* file) __asm__("__real_fread");
size_t wrappedRead(void* buffer, size_t size, size_t count, FILE* file) __asm__("__wrap_fread");

size_t wrappedRead(void* buffer, size_t size, size_t count, FILE* file) {
    if (beforeRead) {
        beforeRead();
        beforeRead = nullptr;
    }
    return realRead(buffer, size, count, file);
}

namespace {

const char* const ONE_PIPE = R"({"pipe_0": {}})";

// More than the C library reads ahead when it determines the size.
const std::string BLANKS = std::string(100000, ' ');

class ChangingFilesTest : public ParserTest {
protected:
    void SetUp() override { ASSERT_EQ(parser.parseConfigText(R"({"old": 1})"), 0); }

    // Loads a file that contains `before` when its size is determined, and
    // changes it after that.
    int Load(const std::string& before, const std::function<void()>& change) {
        folder.write("graph.json", before);
        beforeRead = change;
        const int result = parser.parseConfigFile(path.c_str());
        EXPECT_FALSE(beforeRead) << "the file was not read";
        beforeRead = nullptr;
        return result;
    }

    void AssertEmpty() {
        EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 parseConfigText "\033[31m\033[1mfailed to json11::Json::parse(...), err=unexpected end of input\033[0m"
)");
        EXPECT_TRUE(reader.root().is_null());
    }

    const TemporaryFolder folder;
    const std::string path = folder.path("graph.json");
};

}  // namespace

TEST_F(ChangingFilesTest, FileThatShrinksIsReadToItsNewEnd) {
    const std::string text = ONE_PIPE + BLANKS + "not read";
    EXPECT_EQ(Load(text, [&] { std::filesystem::resize_file(path, 50000); }), 0);
    EXPECT_EQ(reader.getPipeNum(), 1);
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(ChangingFilesTest, FileThatShrinksToNothingReadsAsEmpty) {
    EXPECT_EQ(Load(BLANKS + ONE_PIPE, [&] { std::filesystem::resize_file(path, 0); }), -1);
    AssertEmpty();
}

TEST_F(ChangingFilesTest, FileThatShrinksWithinItsTextIsMalformed) {
    EXPECT_EQ(
        Load(BLANKS + ONE_PIPE, [&] { std::filesystem::resize_file(path, BLANKS.size() + 10); }),
        -1);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 parseConfigText "\033[31m\033[1mfailed to json11::Json::parse(...), err=unexpected end of input\033[0m"
)");
    EXPECT_TRUE(reader.root().is_null());
}

TEST_F(ChangingFilesTest, FileThatGrowsIsReadToItsOldEnd) {
    const auto grow = [&] { std::ofstream(path, std::ios::app) << std::string(1000000, 'x'); };
    EXPECT_EQ(Load(ONE_PIPE, grow), 0);
    EXPECT_EQ(reader.getPipeNum(), 1);
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(ChangingFilesTest, ReplacedFileIsReadWithItsOldContent) {
    const auto replace = [&] {
        folder.write("new.json", R"({"pipe_0": {}, "pipe_1": {}})");
        std::filesystem::rename(folder.path("new.json"), path);
    };
    EXPECT_EQ(Load(ONE_PIPE, replace), 0);
    EXPECT_EQ(reader.getPipeNum(), 1);
}

TEST_F(ChangingFilesTest, RemovedFileIsReadWithItsOldContent) {
    EXPECT_EQ(Load(ONE_PIPE, [&] { std::filesystem::remove(path); }), 0);
    EXPECT_EQ(reader.getPipeNum(), 1);
}

TEST_F(ChangingFilesTest, EmptyFileThatGrowsReadsAsEmpty) {
    // The parser may skip the read.
    folder.write("graph.json", "");
    beforeRead = [&] { folder.write("graph.json", ONE_PIPE); };
    EXPECT_EQ(parser.parseConfigFile(path.c_str()), -1);
    beforeRead = nullptr;
    AssertEmpty();
}
