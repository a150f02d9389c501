// The node classes that a verb sets nodes up with.
#ifndef QVGRAPH_CLI_NODE_CLASSES_H_
#define QVGRAPH_CLI_NODE_CLASSES_H_

#include <string>
#include <vector>

#include "cli/verb.h"

namespace qvgraph {

struct NodeClassArguments {
    std::vector<std::string> plugins;  // shared libraries, in order
    bool stub = false;                 // the default, said outright
    bool noStub = false;               // nothing stands in for unknown classes
};

// Adds --plugin, --stub and --no-stub to a verb. `arguments` must outlive the
// parsing.
void addNodeClassOptions(Verb* verb, NodeClassArguments* arguments);

// Loads the libraries and provides the stub. Throws FileError for a library
// that cannot be loaded.
void provideNodeClasses(const NodeClassArguments& arguments);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_NODE_CLASSES_H_
