// qvgraph schema: prints the JSON Schema of a configuration.
#ifndef QVGRAPH_CLI_SCHEMA_H_
#define QVGRAPH_CLI_SCHEMA_H_

#include "cli/exit_code.h"
#include "cli/verb.h"

namespace qvgraph {

// Adds the verb to the command. If the arguments contain the verb, parsing them runs
// it and stores its exit code in `*code`. `code` must outlive the parsing. The verb
// throws FileError.
void addSchema(CLI::App* app, ExitCode* code);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_SCHEMA_H_
