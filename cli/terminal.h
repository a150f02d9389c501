// What the command shows on a terminal, and in which colour.
#ifndef QVGRAPH_CLI_TERMINAL_H_
#define QVGRAPH_CLI_TERMINAL_H_

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace qvgraph {

// Whether what goes to the file descriptor is to be in colour. `when` is
// "always", "never" or "auto": on a terminal that knows colours, unless
// NO_COLOR is set and not empty.
bool usesColour(std::string_view when, int descriptor);

// Writes "qvgraph: " and the message to standard error, as one line.
void complain(const std::string& message);

// Tells on standard error how far something long has come, after its first
// second; only where that is a terminal.
class Progress {
public:
    explicit Progress(bool enabled);
    ~Progress();

    // Stands for its scope, at whose end its line is gone.
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // "pipe 12 of 20000"
    void show(const char* thing, size_t done, size_t total);

private:
    using Clock = std::chrono::steady_clock;

    bool mEnabled;
    bool mShown = false;
    Clock::time_point mNext;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_TERMINAL_H_
