// Loading from files: every kind of path gives the documented code.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "tests/graph/parser_test.h"
#include "tests/support/temporary_folder.h"

namespace fs = std::filesystem;

namespace {

class FilesTest : public ParserTest {
protected:
    void AssertLoads(const std::string& path, int pipes) {
        EXPECT_EQ(parser.parseConfigFile(path.c_str()), 0) << path;
        EXPECT_EQ(framework.takeTrace(), "\n");
        EXPECT_EQ(reader.getPipeNum(), pipes);
    }

    // The file does not open, and the current document stays.
    void AssertNotOpened(const std::string& path) {
        SCOPED_TRACE(path);
        Load(R"({"pipe_0": {}, "pipe_1": {}})");
        EXPECT_EQ(parser.parseConfigFile(path.c_str()), -5);
        EXPECT_EQ(framework.takeTrace(),
                  "\nqv_err 2 parseConfigFile \"\\033[31m\\033[1mfailed to fopen(" + path +
                      ")\\033[0m\"\n");
        EXPECT_EQ(reader.getPipeNum(), 2);
    }

    // The file opens and reads as the empty text, and the current document is
    // discarded.
    void AssertReadsAsEmpty(const std::string& path) {
        SCOPED_TRACE(path);
        Load(R"({"pipe_0": {}})");
        EXPECT_EQ(parser.parseConfigFile(path.c_str()), -1);
        EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 parseConfigText "\033[31m\033[1mfailed to json11::Json::parse(...), err=unexpected end of input\033[0m"
)");
        EXPECT_TRUE(reader.root().is_null());
    }

    const TemporaryFolder folder;
};

// The descriptor that the next opened file would get.
int nextDescriptor() {
    const int descriptor = open("/dev/null", O_RDONLY);
    close(descriptor);
    return descriptor;
}

// Drops root's permission to read every file during its lifetime.
class Unprivileged {
public:
    Unprivileged() : wasRoot(geteuid() == 0), dropped(!wasRoot || seteuid(65534) == 0) {}
    ~Unprivileged() {
        if (wasRoot && dropped && seteuid(0) != 0) {
            abort();
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

    const bool wasRoot;
    const bool dropped;
};

}  // namespace

TEST_F(FilesTest, FileLoadsLikeItsText) {
    AssertLoads(folder.write("graph.json", R"({"pipe_0": {}, /* two */ "pipe_1": {}})"), 2);
}

TEST_F(FilesTest, FileIsReadInBinaryMode) {
    AssertLoads(folder.write("graph.json", "{\"pipe_0\":\r\n{\"a\": \"\xff\"}}\r\n"), 1);
    EXPECT_EQ(reader.root()["pipe_0"]["a"].string_value(), "\xff");
}

TEST_F(FilesTest, FileReplacesTheDocument) {
    AssertLoads(folder.write("one.json", R"({"pipe_0": {}})"), 1);
    AssertLoads(folder.write("two.json", R"({"pipe_0": {}, "pipe_1": {}})"), 2);
}

TEST_F(FilesTest, SymbolicLinkIsFollowed) {
    folder.write("graph.json", R"({"pipe_0": {}})");
    fs::create_symlink("graph.json", folder.path("link.json"));
    AssertLoads(folder.path("link.json"), 1);
}

TEST_F(FilesTest, MissingFileCannotBeOpened) {
    AssertNotOpened(folder.path("missing.json"));
    AssertNotOpened("");
}

TEST_F(FilesTest, NullPathCannotBeOpened) {
    Load(R"({"pipe_0": {}})");
    EXPECT_EQ(parser.parseConfigFile(nullptr), -5);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 parseConfigFile "\033[31m\033[1mfailed to fopen((null))\033[0m"
)");
    EXPECT_EQ(reader.getPipeNum(), 1);
}

TEST_F(FilesTest, PathBelowAFileCannotBeOpened) {
    AssertNotOpened(folder.write("graph.json", "{}") + "/graph.json");
}

TEST_F(FilesTest, DanglingLinkCannotBeOpened) {
    fs::create_symlink("missing.json", folder.path("link.json"));
    AssertNotOpened(folder.path("link.json"));
}

TEST_F(FilesTest, LoopOfLinksCannotBeOpened) {
    fs::create_symlink("b.json", folder.path("a.json"));
    fs::create_symlink("a.json", folder.path("b.json"));
    AssertNotOpened(folder.path("a.json"));
}

TEST_F(FilesTest, NameThatIsTooLongCannotBeOpened) {
    AssertNotOpened(folder.path(std::string(300, 'n')));
}

TEST_F(FilesTest, UnreadableFileCannotBeOpened) {
    const std::string path = folder.write("graph.json", "{}");
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(path.c_str(), 0000), 0);
    const Unprivileged rights;
    if (!rights.dropped) {
        GTEST_SKIP() << "root cannot become another user here";
    }
    AssertNotOpened(path);
}

TEST_F(FilesTest, EmptyFileReadsAsEmpty) {
    AssertReadsAsEmpty(folder.write("empty.json", ""));
}

TEST_F(FilesTest, DirectoryReadsAsEmpty) {
    AssertReadsAsEmpty(folder.path());
}

TEST_F(FilesTest, DevNullReadsAsEmpty) {
    AssertReadsAsEmpty("/dev/null");
}

TEST_F(FilesTest, ProcFileReadsAsEmpty) {
    const std::string path = "/proc/self/status";
    if (!std::ifstream(path)) {
        GTEST_SKIP() << "no " << path << " here";
    }
    AssertReadsAsEmpty(path);
}

TEST_F(FilesTest, FifoThatContainsTextReadsAsEmpty) {
    const std::string path = folder.path("fifo");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    // Without a writer, opening the reading end would block.
    const int writer = open(path.c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(writer, 0);
    ASSERT_EQ(write(writer, "{}", 2), 2);
    AssertReadsAsEmpty(path);
    close(writer);
}

TEST_F(FilesTest, FileOfThreeGibibytesReadsAsEmpty) {
    const std::string path = folder.write("large.json", "{}");
    std::error_code error;
    fs::resize_file(path, std::uintmax_t{3} << 30, error);
    if (error) {
        GTEST_SKIP() << "a file of that size cannot be created here";
    }
    AssertReadsAsEmpty(path);
}

TEST_F(FilesTest, TextEndsAtItsFirstNul) {
    AssertLoads(folder.write("graph.json", std::string("{\"pipe_0\": {}}\0 not read", 24)), 1);
    AssertReadsAsEmpty(folder.write("nul.json", std::string("\0{}", 3)));
}

// A file in sysfs reports the size of a page, but contains only one line.
TEST_F(FilesTest, TextEndsWhereTheReadEnds) {
    const std::string path = "/sys/devices/system/cpu/kernel_max";
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (error || size <= readFile(path).size()) {
        GTEST_SKIP() << "no such file here";
    }
    AssertLoads(path, 0);
    EXPECT_TRUE(reader.root().is_number());
}

TEST_F(FilesTest, MalformedFileDiscardsTheCurrentDocument) {
    Load(R"({"pipe_0": {}})");
    EXPECT_EQ(parser.parseConfigFile(folder.write("bad.json", "{\"pipe_0\": }").c_str()), -1);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 parseConfigText "\033[31m\033[1mfailed to json11::Json::parse(...), err=expected value, got '}' (125)\033[0m"
)");
    EXPECT_TRUE(reader.root().is_null());
}

TEST_F(FilesTest, FileWithTwentyThousandPipesLoads) {
    const int count = 20000;
    std::string text = "{";
    for (int pipe = 0; pipe < count; ++pipe) {
        text += (pipe == 0 ? "" : ",") + ("\"pipe_" + std::to_string(pipe)) +
                "\":{\"node_3\":{},\"default_mode_link\":\"m" + std::to_string(pipe) + "\"}";
    }
    AssertLoads(folder.write("large.json", text + "}"), count);
    EXPECT_EQ(reader.getDefaultLinkMode(count - 1), "m19999");
    EXPECT_EQ(reader.getDefaultLinkMode(count), "none");
    EXPECT_EQ(reader.getNodeIDByIndex(count - 1, 0), 3);
}

TEST_F(FilesTest, FileIsClosedWhateverItContains) {
    const int before = nextDescriptor();
    for (const char* text : {"{}", "{", "", "null"}) {
        parser.parseConfigFile(folder.write("graph.json", text).c_str());
        EXPECT_EQ(nextDescriptor(), before) << text;
    }
}

TEST_F(FilesTest, FileIsClosedWhenTheLoggerThrows) {
    const int before = nextDescriptor();
    framework.onCall = [](const std::string& call) { throw std::runtime_error(call); };
    EXPECT_THROW(parser.parseConfigFile(folder.write("bad.json", "{").c_str()), std::runtime_error);
    EXPECT_THROW(parser.parseConfigFile(folder.path("missing").c_str()), std::runtime_error);
    EXPECT_EQ(nextDescriptor(), before);
}
