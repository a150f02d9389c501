// A last word where the code of a node class crashes the command.
#ifndef QVGRAPH_CLI_CRASH_REPORT_H_
#define QVGRAPH_CLI_CRASH_REPORT_H_

#include <string>

namespace qvgraph {

// From now on, where a signal of a crash ends the process while the code of a
// node class runs, it first tells on standard error which class, node and file
// it was:
//
//   qvgraph: pipes.json: the class 'Mixer' of pipe_0/node_2 crashed (segmentation fault)
//
// A signal that something else handles, as a sanitizer does, is left to that.
void reportCrashesIn(const std::string& file);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_CRASH_REPORT_H_
