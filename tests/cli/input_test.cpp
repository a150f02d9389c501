// The input of `qvgraph inspect`.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>

#include "tests/cli/command_test.h"

namespace {

namespace fs = std::filesystem;

class InputTest : public CommandTest {};

TEST_F(InputTest, ReadsStandardInput) {
    request.input = READY;
    AssertRuns({"inspect", "-"}, 0, std::string("<stdin>") + READY_TEXT, "");
    request.input = UNREADY;
    AssertRuns({"inspect", "-"},
               1,
               std::string("<stdin>") + UNREADY_TEXT,
               "qvgraph: <stdin>: 2 nodes, 2 of them not ready\n");
    request.input = "{}";
    AssertRuns({"inspect", "--format", "json", "-"},
               0,
               "{\n"
               "  \"format_version\": \"1.0\",\n"
               "  \"file\": \"<stdin>\",\n"
               "  \"pipes\": []\n"
               "}\n",
               "");
}

TEST_F(InputTest, ReadsMoreThanAPipeHolds) {
    request.input = READY + std::string(1000000, ' ');
    AssertRuns({"inspect", "-"}, 0, std::string("<stdin>") + READY_TEXT, "");
}

TEST_F(InputTest, ReadsStandardInputFromAFile) {
    request.in = {ProcessStream::Kind::File, folder.write("door.json", READY)};
    AssertRuns({"inspect", "-"}, 0, std::string("<stdin>") + READY_TEXT, "");
}

TEST_F(InputTest, AClosedStandardInputIsReported) {
    request.in.kind = ProcessStream::Kind::Closed;
    AssertFails({"inspect", "-"}, "cannot read <stdin>: Bad file descriptor");
    folder.write("door.json", READY);
    AssertRuns({"inspect", "door.json"}, 0, std::string("door.json") + READY_TEXT, "");
}

TEST_F(InputTest, ReadsThroughALink) {
    folder.write("door.json", READY);
    fs::create_symlink("door.json", folder.path("link.json"));
    AssertRuns({"inspect", "link.json"}, 0, std::string("link.json") + READY_TEXT, "");
}

// Writes a text to a FIFO as soon as the FIFO has a reader.
class FifoWriter {
public:
    FifoWriter(const std::string& path, const std::string& text)
        : mPath(path), mThread([path, text] {
              const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
              EXPECT_EQ(write(descriptor, text.data(), text.size()),
                        static_cast<ssize_t>(text.size()));
              close(descriptor);
          }) {}

    // Opens the FIFO in case the command has not, so that the writer ends.
    ~FifoWriter() {
        const int descriptor = open(mPath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        mThread.join();
        close(descriptor);
    }
    FifoWriter(const FifoWriter&) = delete;
    FifoWriter& operator=(const FifoWriter&) = delete;

private:
    std::string mPath;
    std::thread mThread;
};

TEST_F(InputTest, ReadsAFifo) {
    ASSERT_EQ(mkfifo(folder.path("fifo").c_str(), 0600), 0);
    const FifoWriter writer(folder.path("fifo"), READY);
    AssertRuns({"inspect", "fifo"}, 0, std::string("fifo") + READY_TEXT, "");
}

TEST_F(InputTest, ReportsWhyAFileCannotBeRead) {
    folder.write("door.json", READY);
    fs::create_symlink("nowhere.json", folder.path("dangling.json"));
    fs::create_symlink("loop.json", folder.path("loop.json"));
    AssertFails({"inspect", "missing.json"}, "cannot read missing.json: No such file or directory");
    AssertFails({"inspect", "missing/door.json"},
                "cannot read missing/door.json: No such file or directory");
    AssertFails({"inspect", "."}, "cannot read .: Is a directory");
    AssertFails({"inspect", "dangling.json"},
                "cannot read dangling.json: No such file or directory");
    AssertFails({"inspect", "loop.json"},
                "cannot read loop.json: Too many levels of symbolic links");
    AssertFails({"inspect", "door.json/door.json"},
                "cannot read door.json/door.json: Not a directory");
    AssertFails({"inspect", std::string(300, 'x')},
                "cannot read " + std::string(300, 'x') + ": File name too long");
}

TEST_F(InputTest, ReportsWhyReadingFails) {
    AssertFails({"inspect", "/proc/self/mem"}, "cannot read /proc/self/mem: Input/output error");
}

TEST_F(InputTest, AFileWithoutReadPermissionIsReported) {
    folder.write("door.json", READY);
    fs::permissions(folder.path("door.json"), fs::perms::none);
    if (geteuid() == 0) {
        // Root can read every file.
        fs::permissions(folder.path(), fs::perms(0755));
        launcher = {"/usr/bin/setpriv", "--reuid=65534", "--clear-groups"};
        if (Run({"--version"}).exitCode != 0) {
            GTEST_SKIP() << "no other user can run the command here";
        }
    }
    AssertFails({"inspect", "door.json"}, "cannot read door.json: Permission denied");
}

TEST_F(InputTest, ReportsWhyADocumentDoesNotLoad) {
    folder.write("broken.json", R"({"pipe_0": {} "pipe_1": {}})");
    AssertFails({"inspect", "broken.json"},
                "broken.json: expected ',' in object, got '\"' (34) (see qvgraph check)");
    folder.write("null.json", "null");
    AssertFails({"inspect", "null.json"}, "null.json: the document is null (see qvgraph check)");
    folder.write("empty.json", "");
    AssertFails({"inspect", "empty.json"},
                "empty.json: unexpected end of input (see qvgraph check)");
    AssertFails({"inspect", "/dev/null"}, "/dev/null: unexpected end of input (see qvgraph check)");
    AssertFails({"inspect", "-"}, "<stdin>: unexpected end of input (see qvgraph check)");
}

TEST_F(InputTest, ReadsUpToTheFirstNul) {
    folder.write("door.json", READY + std::string("\0 and more", 10));
    AssertRuns({"inspect", "door.json"}, 0, std::string("door.json") + READY_TEXT, "");
}

TEST_F(InputTest, AnEndlessFileIsTooLarge) {
    AssertFails({"inspect", "/dev/zero"}, "cannot read /dev/zero: it is larger than 256 MiB");
}

TEST_F(InputTest, ReportsThatItIsOutOfMemory) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer needs more memory than any limit";
#endif
    if (!Emulator().empty()) {
        GTEST_SKIP() << "the limit would apply to the emulator";
    }
    request.maxMemory = 100UL << 20;
    AssertFails({"inspect", "/dev/zero"}, "out of memory");
}

}  // namespace
