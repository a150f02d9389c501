// A program that is run to the end, with a text in and a text out.
#ifndef QVGRAPH_CLI_CHILD_PROCESS_H_
#define QVGRAPH_CLI_CHILD_PROCESS_H_

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace qvgraph {

struct ChildRequest {
    std::vector<std::string> command;  // a name that PATH leads to, and its arguments
    std::string input;                 // what its standard input holds
    std::chrono::seconds timeLimit = std::chrono::seconds(60);
    size_t mostOutput = size_t{256} << 20;  // in bytes, of both of its outputs

    // Told several times a second how long it has been running; may be empty.
    std::function<void(std::chrono::seconds)> waiting;
};

struct ChildResult {
    enum class End {
        Exited,     // with `code`
        Signalled,  // by the signal `code`
        NotRun,     // the error `code` of the system
        TooLate,    // it was ended at its time limit
        TooMuch,    // it was ended because it wrote more than it may
    };
    End end = End::NotRun;
    int code = 0;
    std::string out;
    std::string err;
};

// Runs it, without a shell. Throws std::system_error where the system does not
// give what that takes. A child of its own is not waited for.
ChildResult runChild(const ChildRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_CHILD_PROCESS_H_
