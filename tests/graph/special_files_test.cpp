// Loading from special files, and from files with unusual names. Each gives the
// documented code immediately; the suite's time limit is the watchdog.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <string>
#include <thread>

#include "tests/graph/parser_test.h"
#include "tests/support/temporary_folder.h"

namespace {

class SpecialFilesTest : public ParserTest {
protected:
    void AssertReadsAsEmpty(const std::string& path) {
        SCOPED_TRACE(path);
        Load(R"({"pipe_0": {}})");
        EXPECT_EQ(parser.parseConfigFile(path.c_str()), -1);
        EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 parseConfigText "\033[31m\033[1mfailed to json11::Json::parse(...), err=unexpected end of input\033[0m"
)");
        EXPECT_TRUE(reader.root().is_null());
    }

    void AssertNotOpened(const std::string& path) {
        Load(R"({"pipe_0": {}})");
        EXPECT_EQ(parser.parseConfigFile(path.c_str()), -5);
        ASSERT_EQ(framework.calls.size(), 1U);
        EXPECT_EQ(framework.records.back().text,
                  "\033[31m\033[1mfailed to fopen(" + path + ")\033[0m");
        EXPECT_EQ(reader.getPipeNum(), 1);
        framework.takeTrace();
    }

    const TemporaryFolder folder;
};

}  // namespace

TEST_F(SpecialFilesTest, EndlessDevicesReadAsEmpty) {
    AssertReadsAsEmpty("/dev/zero");
    AssertReadsAsEmpty("/dev/full");
}

// The writer closes its end without writing as soon as there is a reader.
TEST_F(SpecialFilesTest, FifoReadsAsEmptyWhenItHasAWriter) {
    const std::string path = folder.path("fifo");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::thread writer([&path] { close(open(path.c_str(), O_WRONLY | O_CLOEXEC)); });
    AssertReadsAsEmpty(path);
    writer.join();
}

TEST_F(SpecialFilesTest, PathLongerThanTheMaximumCannotBeOpened) {
    const std::string path = folder.path() + std::string(PATH_MAX - 1 - folder.path().size(), '/');
    AssertReadsAsEmpty(path);
    AssertNotOpened(path + "/");
}

TEST_F(SpecialFilesTest, NameOfFourThousandBytesCannotBeOpened) {
    AssertNotOpened(std::string(4096, 'n'));
}

TEST_F(SpecialFilesTest, NameMayBeInvalidUtf8) {
    const std::string path = folder.path("\xff\xfe\x80.json");
    const int descriptor = open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    if (descriptor < 0) {
        GTEST_SKIP() << "such names are not supported here";
    }
    ASSERT_EQ(write(descriptor, "[]", 2), 2);
    close(descriptor);
    EXPECT_EQ(parser.parseConfigFile(path.c_str()), 0);
    EXPECT_EQ(framework.takeTrace(), "\n");
    AssertNotOpened(folder.path("\xff missing \x1b[2J%n%s"));
}
