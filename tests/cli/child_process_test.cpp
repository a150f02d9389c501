// Runs child processes.
#include "cli/child_process.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

using qvgraph::ChildRequest;
using qvgraph::ChildResult;
using qvgraph::runChild;
using End = ChildResult::End;

ChildResult RunScript(const std::string& script, const std::string& input = "") {
    ChildRequest request;
    request.command = {"sh", "-c", script};
    request.input = input;
    return runChild(request);
}

// Expects no running child, and no zombie.
void AssertNoChildIsLeft() {
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(ChildProcessTest, ReturnsTheExitCodeAndTheOutput) {
    const ChildResult result = RunScript("echo out; echo err >&2; exit 7");
    EXPECT_EQ(result.end, End::Exited);
    EXPECT_EQ(result.code, 7);
    EXPECT_EQ(result.out, "out\n");
    EXPECT_EQ(result.err, "err\n");
    AssertNoChildIsLeft();
}

TEST(ChildProcessTest, PassesArgumentsUnchanged) {
    ChildRequest request;
    request.command = {"printf", "%s.", "a b", "", "$HOME;*"};
    EXPECT_EQ(runChild(request).out, "a b..$HOME;*.");
}

TEST(ChildProcessTest, ReturnsWhyAProgramCannotBeRun) {
    ChildRequest request;
    request.command = {"there-is-no-such-program"};
    ChildResult result = runChild(request);
    EXPECT_EQ(result.end, End::NotRun);
    EXPECT_EQ(result.code, ENOENT);
    const TemporaryFolder folder;
    request.command = {folder.write("plain.txt", "x")};
    result = runChild(request);
    EXPECT_EQ(result.end, End::NotRun);
    EXPECT_EQ(result.code, EACCES);
    AssertNoChildIsLeft();
}

TEST(ChildProcessTest, ReturnsTheSignalThatEndsTheProgram) {
    const ChildResult result = RunScript("echo out; kill -TERM $$");
    EXPECT_EQ(result.end, End::Signalled);
    EXPECT_EQ(result.code, SIGTERM);
    EXPECT_EQ(result.out, "out\n");
    AssertNoChildIsLeft();
}

// ---- Streams ----------------------------------------------------------------

TEST(ChildProcessTest, PassesLargeInputAndOutput) {
    const std::string much(3 << 20, 'x');
    const ChildResult result = RunScript("tee /dev/stderr", much);
    EXPECT_EQ(result.out, much);
    EXPECT_EQ(result.err, much);
}

TEST(ChildProcessTest, TheProgramNeedNotReadItsInput) {
    const ChildResult result = RunScript("echo done", std::string(3 << 20, 'x'));
    EXPECT_EQ(result.end, End::Exited);
    EXPECT_EQ(result.out, "done\n");
}

TEST(ChildProcessTest, TheInputHasAnEnd) {
    EXPECT_EQ(RunScript("cat; echo end").out, "end\n");
}

TEST(ChildProcessTest, TheProgramMayContinueWithItsStreamsClosed) {
    const ChildResult result = RunScript("exec >&- 2>&-; sleep 0.1; exit 3");
    EXPECT_EQ(result.end, End::Exited);
    EXPECT_EQ(result.code, 3);
}

// The grandchild keeps the streams open until the FIFO is opened.
TEST(ChildProcessTest, DoesNotWaitForGrandchildren) {
    const TemporaryFolder folder;
    const std::string fifo = folder.path("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const ChildResult result = RunScript("cat '" + fifo + "' & echo out");
    std::ofstream(fifo).flush();
    EXPECT_EQ(result.end, End::Exited);
    EXPECT_EQ(result.out, "out\n");
}

TEST(ChildProcessTest, ABrokenPipeEndsTheProgram) {
    struct sigaction before = {};
    struct sigaction ignore = {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &ignore, &before);
    const ChildResult result = RunScript("yes | head -n 1");
    sigaction(SIGPIPE, &before, nullptr);
    EXPECT_EQ(result.out, "y\n");
    EXPECT_EQ(result.err, "");
}

// ---- Limits -----------------------------------------------------------------

TEST(ChildProcessTest, KillsTheProgramAtTheTimeLimit) {
    ChildRequest request;
    request.command = {"sh", "-c", "echo out; exec sleep 1000"};
    request.timeLimit = std::chrono::seconds(1);
    const ChildResult result = runChild(request);
    EXPECT_EQ(result.end, End::TimedOut);
    EXPECT_EQ(result.out, "out\n");
    AssertNoChildIsLeft();
}

TEST(ChildProcessTest, KillsTheProgramAtTheTimeLimitWithItsStreamsClosed) {
    ChildRequest request;
    request.command = {"sh", "-c", "exec >&- 2>&-; exec sleep 1000"};
    request.timeLimit = std::chrono::seconds(1);
    EXPECT_EQ(runChild(request).end, End::TimedOut);
    AssertNoChildIsLeft();
}

TEST(ChildProcessTest, KillsTheProgramAtTheOutputLimit) {
    ChildRequest request;
    request.command = {"yes"};
    request.maxOutput = 1 << 20;
    EXPECT_EQ(runChild(request).end, End::OutputLimit);
    AssertNoChildIsLeft();
}

TEST(ChildProcessTest, ReportsTheTimeSinceTheStart) {
    std::vector<std::chrono::seconds> times;
    ChildRequest request;
    request.command = {"sleep", "1000"};
    request.timeLimit = std::chrono::seconds(1);
    request.onWait = [&](std::chrono::seconds elapsed) { times.push_back(elapsed); };
    runChild(request);
    ASSERT_FALSE(times.empty());
    EXPECT_EQ(times.front().count(), 0);
    EXPECT_EQ(times.back().count(), 0);
}

TEST(ChildProcessTest, AnExceptionOfTheCallbackKillsTheProgram) {
    ChildRequest request;
    request.command = {"sleep", "1000"};
    request.onWait = [](std::chrono::seconds /*elapsed*/) { throw std::runtime_error("stop"); };
    EXPECT_THROW(runChild(request), std::runtime_error);
    AssertNoChildIsLeft();
}

}  // namespace
