// qvgraph check: finds the mistakes in configurations.
#ifndef QVGRAPH_CLI_CHECK_H_
#define QVGRAPH_CLI_CHECK_H_

#include "cli/exit_code.h"
#include "cli/verb.h"

namespace qvgraph {

// Adds the verb to the command. When it was given, its exit code is in `*code`
// after parsing. `code` must outlive the parsing. The verb throws FileError.
void addCheck(CLI::App* app, ExitCode* code);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_CHECK_H_
