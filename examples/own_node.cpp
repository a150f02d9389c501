// Sets a configuration up with a node class of one's own:
//
//   own_node blend.json
//
// It registers the class of blender.h, has the parser set every node up on the
// framework for the desk, and prints what was wired. Stubs stand in for the
// classes that the program does not have.
//
// The program ends with 0; with 1 when a node is not ready, and with 2 when
// there is no configuration. A stream without a name aborts it, as it aborts a
// device; "qvgraph inspect" tells of such a stream without an abort.
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

// Sets one node up. Returns why it is not ready; nothing when it is.
std::string setUp(
    const QVGraphParser& parser, int pipe, int id, QVHostTaskGraph* graph, QVNodeOwner* owner) {
    graph->beginNode(id);
    try {
        if (parser.initTaskNode(graph, pipe, id, owner->info()) != 0) {
            return owner->info()->node == nullptr ? "no such class" : "no streams";
        }
    } catch (const std::logic_error&) {
        return "a stream without a format";
    }
    // A stream that the graph refuses is no failure to the parser.
    return graph->refusal() ? "the stream '" + graph->refusal()->name + "' is refused" : "";
}

void printBlender(const Blender& blender) {
    std::cout << "    ratio " << blender.ratio() << ": of 0 and 100 it makes "
              << blender.blend(0, 100) << ", as " << blender.output()->mStreamType << '\n';
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

// Sets the nodes of a pipe up and prints its wiring. Returns whether all of
// them are ready.
bool setPipeUp(const QVGraphParser& parser, int pipe) {
    std::cout << "pipe " << pipe << '\n';
    QVHostTaskGraph graph;
    std::deque<QVNodeOwner> owners;  // a node lives as long as its owner
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
    // The parser has said why, on standard error: see host/qv_host_log.h.
    if (parser.parseConfigFile(argv[1]) != 0) {
        std::cerr << "own_node: " << argv[1] << " has no configuration to set up\n";
        return 2;
    }
    bool ready = true;
    for (int pipe = 0; pipe < parser.getPipeNum(); ++pipe) {
        ready = setPipeUp(parser, pipe) && ready;
    }
    return ready ? 0 : 1;
}
