// What the command reads.
#ifndef QVGRAPH_CLI_INPUT_H_
#define QVGRAPH_CLI_INPUT_H_

#include <string>

namespace qvgraph {

// A text, and the name under which reports and messages speak of it.
struct Input {
    std::string name;  // "<stdin>" for standard input
    std::string text;
};

// Reads `path`, or standard input for "-", to its end: as a stream, so that
// pipes and devices are read too. Throws FileError (cli/file_error.h), also
// beyond 256 MiB.
Input readInput(const std::string& path);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_INPUT_H_
