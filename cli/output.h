// Writes the reports of the command.
#ifndef QVGRAPH_CLI_OUTPUT_H_
#define QVGRAPH_CLI_OUTPUT_H_

#include <string>

namespace qvgraph {

// Whether a path means standard output: it is empty or "-".
bool isStandardOutput(const std::string& path);

// Whether a report to `path` would replace the file `other`.
bool isSameFile(const std::string& other, const std::string& path);

// Writes a report to `path`, or to standard output. Replaces a regular file atomically:
// on failure, its old content remains. Throws FileError (cli/file_error.h).
void writeOutput(const std::string& path, const std::string& report);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_OUTPUT_H_
