// A message on standard error if the code of a node class crashes the command.
#ifndef QVGRAPH_CLI_CRASH_REPORT_H_
#define QVGRAPH_CLI_CRASH_REPORT_H_

#include <string>

namespace qvgraph {

// From this call on, if a crash signal arrives while the code of a node class runs,
// the process writes the file, the class and the node to standard error before the
// signal ends it:
//
//   qvgraph: pipes.json: class 'Mixer' of pipe_0/node_2 crashed (segmentation fault)
//
// Does not replace existing handlers, such as those of a sanitizer.
void reportCrashesIn(const std::string& file);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_CRASH_REPORT_H_
