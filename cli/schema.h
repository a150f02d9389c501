// The verb "schema".
#ifndef QVGRAPH_CLI_SCHEMA_H_
#define QVGRAPH_CLI_SCHEMA_H_

#include "cli/exit_code.h"
#include "cli/verb.h"

namespace qvgraph {

// Adds the verb to `app`; as it runs, it puts its result into `code`. Both must
// outlive the parsing.
void addSchema(CLI::App* app, ExitCode* code);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_SCHEMA_H_
