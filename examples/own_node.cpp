// Sets up a configuration with your own node class:
//
//   own_node blend.json
//
// The program registers the class of blender.h, has the parser set up every node
// in the host framework, and prints the wiring. Stubs stand in for the classes
// that the program does not have.
//
// The program exits with 0; with 1 if a node is not ready, and with 2 if the
// configuration cannot be loaded. A stream without a name aborts it, as it
// aborts a device; "qvgraph inspect" reports such a stream without an abort.
#include <deque>
#include <iostream>
#include <stdexcept>
#include <string>

#include "blender.h"
#include "graph/qv_graph_parser.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"

namespace {

// Sets up one node. Returns why it is not ready; empty if it is.
std::string setUp(
    const QVGraphParser& parser, int pipe, int id, QVHostTaskGraph* graph, QVNodeOwner* owner) {
    graph->beginNode(id);
    try {
        if (parser.initTaskNode(graph, pipe, id, owner->info()) != 0) {
            return owner->info()->node == nullptr ? "its class is not registered"
                                                  : "it has no streams";
        }
    } catch (const std::logic_error&) {
        return "a stream has no format";
    }
    // The parser also returns 0 if the task graph refuses a stream.
    return graph->refusal() ? "stream '" + graph->refusal()->name + "' is refused" : "";
}

void printBlender(const Blender& blender) {
    std::cout << "    ratio " << blender.ratio() << ": blends 0 and 100 into "
              << blender.blend(0, 100) << ", format " << blender.output()->mStreamType << '\n';
}

void printStream(const QVHostTaskGraph::Stream& stream) {
    std::cout << "  stream " << stream.id << ", " << stream.name << ':';
    if (stream.producer) {
        std::cout << " from node " << *stream.producer;
    }
    for (const int consumer : stream.consumers) {
        std::cout << " to node " << consumer;
    }
    std::cout << '\n';
}

// Sets up the nodes of a pipe and prints its wiring. Returns whether all of them
// are ready.
bool setPipeUp(const QVGraphParser& parser, int pipe) {
    std::cout << "pipe " << pipe << '\n';
    QVHostTaskGraph graph;
    std::deque<QVNodeOwner> owners;  // an owner deletes its node
    bool ready = true;
    for (int i = 0; i < parser.getNodeNum(pipe); ++i) {
        const int id = parser.getNodeIDByIndex(pipe, i);
        QVNodeOwner& owner = owners.emplace_back();
        const std::string fault = setUp(parser, pipe, id, &graph, &owner);
        std::cout << "  node " << id << ": " << (fault.empty() ? "ready" : fault) << '\n';
        ready = ready && fault.empty();
        const auto* blender = dynamic_cast<const Blender*>(owner.info()->node);
        if (blender != nullptr && fault.empty()) {
            printBlender(*blender);
        }
    }
    for (const QVHostTaskGraph::Stream& stream : graph.streams()) {
        printStream(stream);
    }
    return ready;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: own_node FILE\n";
        return 2;
    }
    QVNodeRegistry& registry = QVNodeRegistry::instance();
    registry.registerClass(blenderClass());
    registry.setStub(true);

    QVGraphParser parser;
    // The parser logs the reason to standard error: see host/qv_host_log.h.
    if (parser.parseConfigFile(argv[1]) != 0) {
        std::cerr << "own_node: " << argv[1] << " contains no configuration\n";
        return 2;
    }
    bool ready = true;
    for (int pipe = 0; pipe < parser.getPipeNum(); ++pipe) {
        ready = setPipeUp(parser, pipe) && ready;
    }
    return ready ? 0 : 1;
}
