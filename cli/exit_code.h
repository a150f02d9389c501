// How the command ends.
#ifndef QVGRAPH_CLI_EXIT_CODE_H_
#define QVGRAPH_CLI_EXIT_CODE_H_

namespace qvgraph {

enum class ExitCode : int {
    Clean = 0,     // nothing to complain of
    Findings = 1,  // the configuration has faults: a node that is not ready
    Failed = 2,    // usage and file errors; a document that does not load
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_EXIT_CODE_H_
