// The pipe that a verb is to confine itself to.
#ifndef QVGRAPH_CLI_PIPE_ARGUMENT_H_
#define QVGRAPH_CLI_PIPE_ARGUMENT_H_

#include <CLI/App.hpp>
#include <optional>

namespace qvgraph {

// Adds --pipe to a verb. `pipe` must outlive the parsing.
void addPipeOption(CLI::App* verb, std::optional<int>* pipe);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_PIPE_ARGUMENT_H_
