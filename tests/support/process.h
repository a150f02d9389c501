// Runs a program as a user runs it, and tells what it did.
#ifndef QVGRAPH_TESTS_SUPPORT_PROCESS_H_
#define QVGRAPH_TESTS_SUPPORT_PROCESS_H_

#include <string>
#include <vector>

// What one of the three standard streams of a program is.
struct ProcessStream {
    enum class Kind {
        Pipe,      // what is written there is kept
        Terminal,  // a pseudo-terminal; what is written there is kept
        File,      // the file or device at `path`
        Closed,    // not open at all
    };
    Kind kind = Kind::Pipe;
    std::string path = {};
};

struct ProcessRequest {
    std::vector<std::string> command;  // the program's path and its arguments

    std::string folder;                           // works there; empty: where the test works
    std::vector<std::string> environment;         // "NAME=value", beside what the test has
    std::vector<std::string> withoutEnvironment;  // "NAME"

    std::string input;  // read from standard input where that is a pipe
    ProcessStream in;   // a pipe, a file or closed
    ProcessStream out;
    ProcessStream err;

    // No file grows beyond so many bytes: a write there fails. 0: no limit.
    unsigned long maxFileSize = 0;

    // So much memory at most, in bytes. 0: no limit.
    unsigned long maxMemory = 0;
};

struct ProcessResult {
    // What the program returned; -1 when a signal ended it, 127 when it could
    // not be run.
    int exitCode = -1;
    int signal = 0;  // that ended it, if one did
    std::string out;
    std::string err;
};

// Waits for the program's end. One that runs for longer than a minute is ended
// by a signal. Throws std::system_error when the system gives out of what it
// takes.
ProcessResult runProcess(const ProcessRequest& request);

#endif  // QVGRAPH_TESTS_SUPPORT_PROCESS_H_
