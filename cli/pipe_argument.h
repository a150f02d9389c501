// The option --pipe, which limits a verb to one pipe.
#ifndef QVGRAPH_CLI_PIPE_ARGUMENT_H_
#define QVGRAPH_CLI_PIPE_ARGUMENT_H_

#include <optional>
#include <string>

#include "cli/verb.h"

namespace qvgraph {

// Adds --pipe to a verb. `pipe` must outlive the parsing.
void addPipeOption(Verb* verb, std::optional<int>* pipe, const std::string& description);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_PIPE_ARGUMENT_H_
