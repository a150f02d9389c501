// Runs a program as a user runs it, and returns its results.
#ifndef QVGRAPH_TESTS_SUPPORT_PROCESS_H_
#define QVGRAPH_TESTS_SUPPORT_PROCESS_H_

#include <string>
#include <vector>

// One of the three standard streams of a program.
struct ProcessStream {
    enum class Kind {
        Pipe,      // the test receives what the program writes
        Terminal,  // a pseudo-terminal; the test receives what the program writes
        File,      // the file or device at `path`
        Closed,    // not open
    };
    Kind kind = Kind::Pipe;
    std::string path = {};
};

struct ProcessRequest {
    std::vector<std::string> command;  // the program's path and its arguments

    std::string folder;                           // working directory; empty: that of the test
    std::vector<std::string> environment;         // "NAME=value", added to that of the test
    std::vector<std::string> withoutEnvironment;  // "NAME", removed from that of the test

    std::string input;  // of standard input, if that is a pipe
    ProcessStream in;   // a pipe, a file or closed
    ProcessStream out;
    ProcessStream err;

    // Maximum size of a file, in bytes: a write beyond it fails. 0: no limit.
    unsigned long maxFileSize = 0;

    // Maximum address space, in bytes. 0: no limit.
    unsigned long maxMemory = 0;
};

struct ProcessResult {
    // The program's exit code; -1 if a signal ended it, 127 if it could not be
    // run.
    int exitCode = -1;
    int signal = 0;  // the signal that ended it; 0: none
    std::string out;
    std::string err;
};

// Waits for the program's end. A signal ends a program that runs for longer than a
// minute. Throws std::system_error if a system call fails.
ProcessResult runProcess(const ProcessRequest& request);

#endif  // QVGRAPH_TESTS_SUPPORT_PROCESS_H_
