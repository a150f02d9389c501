// Reads the input files of the command.
#ifndef QVGRAPH_CLI_INPUT_H_
#define QVGRAPH_CLI_INPUT_H_

#include <string>

namespace qvgraph {

// A text, and its name in reports and messages.
struct Input {
    std::string name;  // "<stdin>" for standard input
    std::string text;
};

// Reads `path`, or standard input for "-", to its end. Reads it as a stream, so that
// it can be a pipe or a device. Throws FileError (cli/file_error.h) if it cannot be
// read or is larger than 256 MiB.
Input readInput(const std::string& path);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_INPUT_H_
