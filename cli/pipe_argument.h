// The pipe that a verb is to confine itself to.
#ifndef QVGRAPH_CLI_PIPE_ARGUMENT_H_
#define QVGRAPH_CLI_PIPE_ARGUMENT_H_

#include <optional>

#include "cli/verb.h"

namespace qvgraph {

// Adds --pipe to a verb. `pipe` must outlive the parsing.
void addPipeOption(Verb* verb, std::optional<int>* pipe);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_PIPE_ARGUMENT_H_
