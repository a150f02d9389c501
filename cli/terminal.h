// Messages, progress and colour on a terminal.
#ifndef QVGRAPH_CLI_TERMINAL_H_
#define QVGRAPH_CLI_TERMINAL_H_

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace qvgraph {

// Whether output to the file descriptor is in colour. `when` is "always", "never" or
// "auto": on a terminal that supports colour, unless NO_COLOR is set and not empty.
bool usesColour(std::string_view when, int descriptor);

// Writes "qvgraph: " and the message to standard error, as one line.
void printMessage(const std::string& message);

// Shows the progress of a long operation on standard error, after its first second.
// Shows nothing if standard error is not a terminal.
class Progress {
public:
    explicit Progress(bool enabled);
    ~Progress();

    // Not copyable: its destructor removes the line.
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Shows "pipe 12 of 20000".
    void show(const char* thing, size_t done, size_t total);

private:
    using Clock = std::chrono::steady_clock;

    bool mEnabled;
    bool mShown = false;
    Clock::time_point mNext;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_TERMINAL_H_
