// qvgraph check: finds the mistakes in configurations.
#ifndef QVGRAPH_CLI_CHECK_H_
#define QVGRAPH_CLI_CHECK_H_

#include "cli/exit_code.h"
#include "cli/verb.h"

namespace qvgraph {

// Adds the verb to the command. If the arguments contain the verb, parsing them runs
// it and stores its exit code in `*code`. `code` must outlive the parsing. The verb
// throws UsageError and FileError.
void addCheck(CLI::App* app, ExitCode* code);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_CHECK_H_
