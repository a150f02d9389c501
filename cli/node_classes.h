// Provides the node classes with which a verb sets up nodes.
#ifndef QVGRAPH_CLI_NODE_CLASSES_H_
#define QVGRAPH_CLI_NODE_CLASSES_H_

#include <string>
#include <vector>

#include "cli/verb.h"

namespace qvgraph {

struct NodeClassArguments {
    std::vector<std::string> plugins;  // shared libraries, in order
    bool stub = false;                 // explicitly request the default
    bool noStub = false;               // use no stubs for unregistered classes
};

// Adds --plugin, --stub and --no-stub to a verb. `arguments` must outlive the
// parsing.
void addNodeClassOptions(Verb* verb, NodeClassArguments* arguments);

// Loads the libraries, and enables or disables the stub. Throws FileError if a library
// cannot be loaded.
void provideNodeClasses(const NodeClassArguments& arguments);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_NODE_CLASSES_H_
