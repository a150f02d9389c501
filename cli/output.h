// What the command writes.
#ifndef QVGRAPH_CLI_OUTPUT_H_
#define QVGRAPH_CLI_OUTPUT_H_

#include <string>

namespace qvgraph {

// Whether a path stands for standard output: an empty one and "-".
bool isStandardOutput(const std::string& path);

// Whether a report to `path` would replace the file `other`.
bool isSameFile(const std::string& other, const std::string& path);

// Writes a whole report to `path`, or to standard output. A regular file is
// replaced in one step: either the whole report is there afterwards or what was
// there before. Throws FileError (cli/file_error.h).
void writeOutput(const std::string& path, const std::string& report);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_OUTPUT_H_
