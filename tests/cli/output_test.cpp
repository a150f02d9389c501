// The output file of `qvgraph inspect`.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>

#include "tests/cli/command_test.h"

namespace {

namespace fs = std::filesystem;
using Kind = ProcessStream::Kind;
using Names = std::set<std::string>;

class OutputTest : public CommandTest {
protected:
    OutputTest() {
        folder.write("door.json", READY);
        folder.write("bad.json", UNREADY);
    }

    // Expects the report in the file, and nothing on standard output.
    void AssertWrites(const std::string& output, const std::string& name) {
        AssertRuns({"inspect", "-o", output, "door.json"}, 0, "", "");
        EXPECT_EQ(folder.read(name), REPORT);
    }

    unsigned ModeOf(const std::string& name) const {
        struct stat status = {};
        EXPECT_EQ(stat(folder.path(name).c_str(), &status), 0);
        return status.st_mode & 07777U;
    }

    const std::string REPORT = std::string("door.json") + READY_TEXT;
};

TEST_F(OutputTest, WritesAFile) {
    AssertWrites("report.txt", "report.txt");
    EXPECT_EQ(folder.names(), (Names{"bad.json", "door.json", "report.txt"}));
    AssertRuns({"inspect", "--output=long.txt", "door.json"}, 0, "", "");
    EXPECT_EQ(folder.read("long.txt"), REPORT);
    AssertWrites(folder.path("absolute.txt"), "absolute.txt");
    fs::create_directory(folder.path("reports"));
    AssertWrites("reports/door.txt", "reports/door.txt");
}

TEST_F(OutputTest, WritesJsonToAFile) {
    folder.write("empty.json", "{}");
    AssertRuns({"inspect", "--format", "json", "-o", "report.json", "empty.json"}, 0, "", "");
    EXPECT_EQ(folder.read("report.json"),
              "{\n"
              "  \"format_version\": \"1.0\",\n"
              "  \"file\": \"empty.json\",\n"
              "  \"pipes\": []\n"
              "}\n");
}

TEST_F(OutputTest, TheReportIsWrittenEvenIfANodeIsNotReady) {
    AssertRuns({"inspect", "-o", "report.txt", "bad.json"},
               1,
               "",
               "qvgraph: bad.json: 2 nodes, 2 of them not ready\n");
    EXPECT_EQ(folder.read("report.txt"), std::string("bad.json") + UNREADY_TEXT);
}

TEST_F(OutputTest, ADashMeansStandardOutput) {
    AssertRuns({"inspect", "-o", "-", "door.json"}, 0, REPORT, "");
    EXPECT_EQ(folder.names(), (Names{"bad.json", "door.json"}));
}

// ---- Existing files ---------------------------------------------------------

TEST_F(OutputTest, ReplacesAFileAndKeepsItsPermissions) {
    folder.write("report.txt", "longer than the report that replaces it" + REPORT);
    for (const mode_t mode : {0600U, 0644U, 0751U, 0400U}) {
        ASSERT_EQ(chmod(folder.path("report.txt").c_str(), mode), 0);
        AssertWrites("report.txt", "report.txt");
        EXPECT_EQ(ModeOf("report.txt"), mode);
    }
    EXPECT_EQ(folder.names(), (Names{"bad.json", "door.json", "report.txt"}));
}

TEST_F(OutputTest, ANewFileHasDefaultPermissions) {
    const mode_t mask = umask(027);
    AssertWrites("report.txt", "report.txt");
    umask(mask);
    EXPECT_EQ(ModeOf("report.txt"), 0640U);
}

TEST_F(OutputTest, DoesNotReplaceItsInput) {
    fs::create_symlink("door.json", folder.path("link.json"));
    AssertFails({"inspect", "-o", "door.json", "door.json"},
                "cannot write door.json: it is the configuration");
    AssertFails({"inspect", "-o", "link.json", "door.json"},
                "cannot write link.json: it is the configuration");
    EXPECT_EQ(folder.read("door.json"), READY);
}

TEST_F(OutputTest, ALinkIsKeptAndItsTargetIsReplaced) {
    fs::create_directory(folder.path("reports"));
    folder.write("reports/door.txt", "old");
    fs::create_symlink("reports/door.txt", folder.path("report.txt"));
    AssertWrites("report.txt", "reports/door.txt");
    EXPECT_EQ(fs::read_symlink(folder.path("report.txt")), "reports/door.txt");
    EXPECT_EQ(folder.names(), (Names{"bad.json", "door.json", "report.txt", "reports"}));
}

TEST_F(OutputTest, TheTargetOfALinkNeedNotExist) {
    fs::create_symlink("later.txt", folder.path("link.txt"));
    fs::create_symlink("link.txt", folder.path("report.txt"));
    AssertWrites("report.txt", "later.txt");
    EXPECT_EQ(fs::read_symlink(folder.path("report.txt")), "link.txt");
    EXPECT_EQ(fs::read_symlink(folder.path("link.txt")), "later.txt");
}

TEST_F(OutputTest, ACycleOfLinksIsNotReplaced) {
    fs::create_symlink("b.txt", folder.path("a.txt"));
    fs::create_symlink("a.txt", folder.path("b.txt"));
    AssertFails({"inspect", "-o", "a.txt", "door.json"},
                "cannot write a.txt: Too many levels of symbolic links");
    EXPECT_EQ(fs::read_symlink(folder.path("a.txt")), "b.txt");
}

TEST_F(OutputTest, AFileNameMayHaveTheMaximumLength) {
    const std::string name(255, 'r');
    AssertWrites(name, name);
}

// ---- Devices and pipes ------------------------------------------------------

TEST_F(OutputTest, WritesToADevice) {
    AssertRuns({"inspect", "-o", "/dev/null", "door.json"}, 0, "", "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(OutputTest, WritesToAFifo) {
    ASSERT_EQ(mkfifo(folder.path("fifo").c_str(), 0600), 0);
    const int reader = open(folder.path("fifo").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    AssertRuns({"inspect", "-o", "fifo", "door.json"}, 0, "", "");
    char report[4096];
    const ssize_t size = read(reader, report, sizeof(report));
    close(reader);
    ASSERT_GE(size, 0);
    EXPECT_EQ(std::string(report, static_cast<size_t>(size)), REPORT);
    EXPECT_TRUE(fs::is_fifo(folder.path("fifo")));
}

// ---- Failures ---------------------------------------------------------------

TEST_F(OutputTest, AFullStandardOutputIsReported) {
    request.out = {Kind::File, "/dev/full"};
    AssertFails({"inspect", "door.json"}, "cannot write standard output: No space left on device");
    AssertFails({"inspect", "-o", "-", "bad.json"},
                "cannot write standard output: No space left on device");
}

TEST_F(OutputTest, AClosedStandardOutputIsReported) {
    request.out.kind = Kind::Closed;
    AssertFails({"inspect", "door.json"}, "cannot write standard output: Bad file descriptor");
}

TEST_F(OutputTest, ReportsWhyAFileCannotBeWritten) {
    AssertFails({"inspect", "-o", "/dev/full", "door.json"},
                "cannot write /dev/full: No space left on device");
    AssertFails({"inspect", "-o", folder.path(), "door.json"},
                "cannot write " + folder.path() + ": Is a directory");
    AssertFails(
        {"inspect", "-o", folder.path("missing/report.txt"), "door.json"},
        "cannot write " + folder.path("missing/report.txt") + ": No such file or directory");
    AssertFails({"inspect", "-o", folder.path("door.json/report.txt"), "door.json"},
                "cannot write " + folder.path("door.json/report.txt") + ": Not a directory");
}

TEST_F(OutputTest, AFailedWriteKeepsTheOldContent) {
    folder.write("report.txt", "old");
    request.maxFileSize = 16;
    AssertFails({"inspect", "-o", folder.path("report.txt"), "door.json"},
                "cannot write " + folder.path("report.txt") + ": File too large");
    EXPECT_EQ(folder.read("report.txt"), "old");
    EXPECT_EQ(folder.names(), (Names{"bad.json", "door.json", "report.txt"}));
}

TEST_F(OutputTest, AFailedWriteCreatesNoFile) {
    request.maxFileSize = 16;
    AssertFails({"inspect", "-o", folder.path("report.txt"), "door.json"},
                "cannot write " + folder.path("report.txt") + ": File too large");
    EXPECT_EQ(folder.names(), (Names{"bad.json", "door.json"}));
}

TEST_F(OutputTest, NothingIsWrittenIfThereIsNothingToReport) {
    folder.write("report.txt", "old");
    folder.write("broken.json", "{");
    AssertFails({"inspect", "-o", "report.txt", "broken.json"},
                "broken.json: unexpected end of input (see qvgraph check)");
    AssertFails({"inspect", "-o", "report.txt", "--pipe", "1", "door.json"},
                "door.json: there is no pipe 1: the configuration has 1 pipe, with the index 0");
    EXPECT_EQ(folder.read("report.txt"), "old");
}

TEST_F(OutputTest, AFileNameIsEscapedOnTheTerminal) {
    AssertFails({"inspect", "-o", folder.path("\033[2J/\xff"), "door.json"},
                "cannot write " + folder.path("\\x1b[2J/\ufffd") + ": No such file or directory");
}

}  // namespace
