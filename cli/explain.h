// qvgraph explain: explains the rules of the check.
#ifndef QVGRAPH_CLI_EXPLAIN_H_
#define QVGRAPH_CLI_EXPLAIN_H_

#include "cli/exit_code.h"
#include "cli/verb.h"

namespace qvgraph {

// Adds the verb to the command. When it was given, its exit code is in `*code`
// after parsing. `code` must outlive the parsing. The verb throws FileError.
void addExplain(CLI::App* app, ExitCode* code);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_EXPLAIN_H_
