// The fixture of the tests of the command. It runs the command in a temporary folder.
#ifndef QVGRAPH_TESTS_CLI_COMMAND_TEST_H_
#define QVGRAPH_TESTS_CLI_COMMAND_TEST_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/process.h"
#include "tests/support/temporary_folder.h"

// One pipe with one node that is ready, and the report without the file name at its
// start.
inline const char* const READY = R"({"pipe_0": {"node_0": {
    "node_opts": {"node_name": "Camera", "fps": 25},
    "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}}}}
)";

inline const char* const READY_TEXT = R"(: 1 pipe, 1 node, ready

pipe_0: index 0, 0 executor threads, default link mode none

  nodes
    0  node_0  id 0  Camera
         ready
         out  0  raw  nv12
         fps             int32   25
         node_name       string  "Camera"
         stream_fmt_out  string  "nv12"
         stream_output   string  "raw"

  streams
    id  name  producer  consumers
    0   raw   node_0    (none)
)";

// One pipe with a node that is not created and one that would abort.
inline const char* const UNREADY = R"({"pipe_0": {
    "node_0": {},
    "node_1": {"node_opts": {"node_name": "View"}, "stream_opts": {"stream_input": 5}}}}
)";

inline const char* const UNREADY_TEXT = R"(: 1 pipe, 2 nodes, 2 of them not ready

pipe_0: index 0, 0 executor threads, default link mode none

  nodes
    0  node_0  id 0  (no name)
         not created: it has no "node_name" that is a string

    1  node_1  id 1  View
         would abort: no name for its input stream
         in  -  (not wired)
         node_name     string  "View"
         stream_input  int32   5
)";

class CommandTest : public testing::Test {
protected:
    CommandTest() {
        request.folder = folder.path();
        request.environment = {"TERM=xterm"};
        request.withoutEnvironment = {"NO_COLOR"};
    }

    // Runs "qvgraph" with these arguments.
    ProcessResult Run(const std::vector<std::string>& arguments) {
        const std::vector<std::string> emulator = Emulator();
        request.command = launcher;
        request.command.insert(request.command.end(), emulator.begin(), emulator.end());
        request.command.emplace_back(QVGRAPH_COMMAND);
        request.command.insert(request.command.end(), arguments.begin(), arguments.end());
        return runProcess(request);
    }

    // The emulator for programs of another machine, with its arguments; empty for native
    // programs.
    static std::vector<std::string> Emulator() {
        std::vector<std::string> words;
        std::istringstream list(QVGRAPH_EMULATOR);
        for (std::string word; std::getline(list, word, '|');) {
            words.push_back(word);
        }
        return words;
    }

    // Checks the exit code, standard output and standard error.
    void AssertRuns(const std::vector<std::string>& arguments,
                    int exitCode,
                    const std::string& out,
                    const std::string& err) {
        const ProcessResult result = Run(arguments);
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, err);
        EXPECT_EQ(result.exitCode, exitCode);
    }

    // Expects exit code 2, and only this message.
    void AssertFails(const std::vector<std::string>& arguments, const std::string& message) {
        AssertRuns(arguments, 2, "", "qvgraph: " + message + '\n');
    }

    // `text` with "<line>" in place of the line numbers of the parser's sources, such as
    // the digits of "initTaskNode:113".
    static std::string WithoutLines(const std::string& text) {
        const std::string digits = "0123456789";
        std::string result;
        for (size_t at = 0; at < text.size(); ++at) {
            result += text[at];
            const size_t end = std::min(text.find_first_not_of(digits, at + 1), text.size());
            if (text[at] == ':' && at > 0 && isalpha(text[at - 1]) != 0 && end > at + 1) {
                result += "<line>";
                at = end - 1;
            }
        }
        return result;
    }

    TemporaryFolder folder;
    ProcessRequest request;

    // A program that runs the command, with its arguments; none by default.
    std::vector<std::string> launcher;
};

#endif  // QVGRAPH_TESTS_CLI_COMMAND_TEST_H_
