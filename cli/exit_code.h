// The exit codes of the command.
#ifndef QVGRAPH_CLI_EXIT_CODE_H_
#define QVGRAPH_CLI_EXIT_CODE_H_

namespace qvgraph {

enum class ExitCode : int {
    Clean = 0,     // nothing to report
    Findings = 1,  // check: findings at or above --fail-on; inspect: a node that is not ready
    Failed = 2,    // usage or file errors; inspect, draw: a document that does not load
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_EXIT_CODE_H_
