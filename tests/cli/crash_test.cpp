// The message of the command if the code of a node class crashes.
#include <csignal>
#include <string>

#include "tests/cli/command_test.h"

namespace {

class CrashTest : public CommandTest {
protected:
    void SetUp() override {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "the sanitizer reports these signals itself";
#endif
        if (!Emulator().empty()) {
            GTEST_SKIP() << "the emulator reports these signals too";
        }
    }

    // Writes pipes.json with one node of this class.
    void Write(const std::string& name, const std::string& options) {
        folder.write("pipes.json",
                     R"({"pipe_0": {"node_2": {"node_opts": {"node_name": ")" + name + '"' +
                         options +
                         R"(}, "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}}}})");
    }

    // Expects the signal to end the verb, after one line.
    void AssertCrashes(const std::string& verb, int signal, const std::string& message) {
        const ProcessResult result = Run(
            {verb, "--plugin", std::string(QVGRAPH_TEST_PLUGINS) + "/crashes.so", "pipes.json"});
        EXPECT_EQ(result.err, "qvgraph: pipes.json: " + message + '\n');
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.signal, signal);
    }
};

TEST_F(CrashTest, EveryCrashSignalIsReportedAndEndsTheCommand) {
    const struct {
        int signal;
        const char* name;
    } crashes[] = {{SIGSEGV, "segmentation fault"},
                   {SIGBUS, "bus error"},
                   {SIGFPE, "arithmetic error"},
                   {SIGILL, "illegal instruction"},
                   {SIGABRT, "aborted"}};
    for (const auto& crash : crashes) {
        Write("Crash#low", R"(, "signal": )" + std::to_string(crash.signal));
        AssertCrashes("inspect",
                      crash.signal,
                      "class 'Crash' of pipe_0/node_2 crashed (" + std::string(crash.name) + ')');
    }
}

TEST_F(CrashTest, AWriteToAnInvalidAddressIsReported) {
    Write("Crash", R"(, "address": "int64:16")");
    AssertCrashes(
        "inspect", SIGSEGV, "class 'Crash' of pipe_0/node_2 crashed (segmentation fault)");
}

TEST_F(CrashTest, AStackOverflowIsReported) {
    Write("Crash", R"(, "deep": 1)");
    AssertCrashes(
        "inspect", SIGSEGV, "class 'Crash' of pipe_0/node_2 crashed (segmentation fault)");
}

TEST_F(CrashTest, EveryVerbThatSetsUpNodesReportsACrash) {
    Write("Crash", R"(, "signal": 8)");
    for (const char* verb : {"inspect", "check", "draw"}) {
        AssertCrashes(verb, SIGFPE, "class 'Crash' of pipe_0/node_2 crashed (arithmetic error)");
    }
}

TEST_F(CrashTest, ACrashBeforeTheNodeIsCreatedIsReported) {
    Write("CrashAtOnce", "");
    AssertCrashes(
        "inspect", SIGFPE, "class 'CrashAtOnce' of pipe_0/node_2 crashed (arithmetic error)");
}

TEST_F(CrashTest, TheMessageIsPrintableAscii) {
    Write("\u00c9t\u00e9\\n", "");
    AssertCrashes("inspect",
                  SIGFPE,
                  R"(class '\xc3\x89t\xc3\xa9\x0a' of pipe_0/node_2 crashed (arithmetic error))");
}

}  // namespace
