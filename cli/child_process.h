// Runs a program to its end, with text as its input and output.
#ifndef QVGRAPH_CLI_CHILD_PROCESS_H_
#define QVGRAPH_CLI_CHILD_PROCESS_H_

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace qvgraph {

struct ChildRequest {
    std::vector<std::string> command;  // a name to look up in PATH, and its arguments
    std::string input;                 // the content of its standard input
    std::chrono::seconds timeLimit = std::chrono::seconds(60);
    size_t maxOutput = size_t{256} << 20;  // in bytes, for both outputs together

    // Called several times a second with the time since the start. May be empty. Its
    // exceptions end the program and propagate to the caller.
    std::function<void(std::chrono::seconds)> onWait;
};

struct ChildResult {
    enum class End {
        Exited,       // with the exit code `code`
        Signalled,    // terminated by the signal `code`
        NotRun,       // the system could not run it: errno is `code`
        TimedOut,     // killed at the time limit
        OutputLimit,  // killed because it wrote more than maxOutput
    };
    End end = End::NotRun;
    int code = 0;
    std::string out;
    std::string err;
};

// Runs the program without a shell. Does not wait for processes that the program
// itself has started. Throws std::system_error if a system call fails.
ChildResult runChild(const ChildRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_CHILD_PROCESS_H_
