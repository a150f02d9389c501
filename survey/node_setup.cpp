#include "survey/node_setup.h"

#include <algorithm>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

#include "host/qv_host_stream_managers.h"
#include "host/qv_host_task_node.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"

namespace qvgraph {

namespace {

using Ends = std::vector<StreamEnd>;

// What the parser throws where a stream has no format.
const std::string_view NO_FORMAT = "basic_string::_M_construct null not valid";

StreamEnd endOf(const std::optional<QVStreamBinding>& binding) {
    StreamEnd end;
    if (binding) {
        end.name = binding->name;
        end.id = binding->streamId;
    }
    return end;
}

// The managers are the proxy's own, and so of the desk's types.
void readWiring(const _QVNodeInfo& info, Node* node) {
    for (const auto* manager : info.inputStreams) {
        const auto* input = static_cast<const QVHostInputStreamManager*>(manager);
        StreamEnd end = endOf(input->binding());
        end.format = input->format();
        end.remainNewest = input->mRemainNewest != 0;
        node->inputs.push_back(std::move(end));
    }
    for (const auto* manager : info.outputStreams) {
        const auto* output = static_cast<const QVHostOutputStreamManager*>(manager);
        StreamEnd end = endOf(output->binding());
        if (end.name) {
            end.format = output->mStreamType;
        }
        node->outputs.push_back(std::move(end));
    }
}

// The options that the node's store holds, where it is one of the desk's.
Options readOptions(const _QVNodeInfo& info) {
    const auto* store =
        info.node != nullptr ? dynamic_cast<const QVHostMetaData*>(info.node->mOptions) : nullptr;
    return store != nullptr ? store->entries() : Options();
}

bool isBound(const StreamEnd& end) {
    return end.name.has_value();
}

size_t boundOf(const Ends& ends) {
    return static_cast<size_t>(std::count_if(ends.begin(), ends.end(), isBound));
}

// "input stream", or "input stream 2 of 3".
std::string placeOf(const char* side, size_t index, size_t count) {
    std::string place = std::string(side) + " stream";
    if (count > 1) {
        place += ' ' + std::to_string(index + 1) + " of " + std::to_string(count);
    }
    return place;
}

// Streams are wired in order, inputs first: the first end that is not bound is
// the one without a name. Where all are, a node class asserted something.
std::string explainAbort(const Node& node, const AssertionFailed& failed) {
    const size_t inputs = boundOf(node.inputs);
    if (inputs < node.inputs.size()) {
        return "no name for its " + placeOf("input", inputs, node.inputs.size());
    }
    const size_t outputs = boundOf(node.outputs);
    if (outputs < node.outputs.size()) {
        return "no name for its " + placeOf("output", outputs, node.outputs.size());
    }
    return failed.text;
}

// The last end that is bound is the one without a format, if one is.
std::string explainThrow(const std::exception& error, Node* node) {
    const bool atOutput = boundOf(node->outputs) > 0;
    Ends& ends = atOutput ? node->outputs : node->inputs;
    const size_t bound = boundOf(ends);
    if (error.what() != NO_FORMAT || bound == 0 || !ends[bound - 1].format.value_or("").empty()) {
        return error.what();
    }
    ends[bound - 1].format.reset();
    return "no format for its " + placeOf(atOutput ? "output" : "input", bound - 1, ends.size()) +
           " '" + *ends[bound - 1].name + "'";
}

std::string explainRefusal(const QVHostTaskGraph::Refusal& refusal) {
    const std::string side = refusal.input ? "input" : "output";
    if (refusal.name.empty()) {
        return "the name of its " + side + " stream is empty";
    }
    return "its " + side + " stream '" + refusal.name + "' is produced by node_" +
           std::to_string(refusal.producer.value_or(0)) + " already";
}

// Why the node proxy made no node.
std::string explainNoNode(const Node& node) {
    if (node.name.empty()) {
        return "it has no \"node_name\" that is a text";
    }
    if (node.className.empty()) {
        return "its name '" + node.name + "' has no class before the '#'";
    }
    if (!QVNodeRegistry::instance().find(node.className)) {
        return "its class '" + node.className + "' is not registered";
    }
    return "its class '" + node.className + "' made no node";
}

void tellResult(const _QVNodeInfo& info, const QVHostTaskGraph& graph, Node* node) {
    if (info.node == nullptr) {
        node->outcome = Outcome::NotCreated;
        node->message = explainNoNode(*node);
    } else if (node->inputs.empty() && node->outputs.empty()) {
        node->outcome = Outcome::NoStreams;
        node->message = "it has neither inputs nor outputs";
    } else if (graph.refusal()) {
        node->outcome = Outcome::StreamRefused;
        node->message = explainRefusal(*graph.refusal());
    }
}

}  // namespace

Node setUpNode(const QVGraphParser& parser, int pipe, int id, QVHostTaskGraph* graph) {
    const json11::Json& member =
        parser.root()["pipe_" + std::to_string(pipe)]["node_" + std::to_string(id)];
    Node node;
    node.id = id;
    node.name = member["node_opts"]["node_name"].string_value();
    // The proxy reads a name up to its first NUL.
    node.className = qv_node_class_name(node.name.c_str());

    QVNodeOwner owner;
    graph->beginNode(id);
    try {
        node.result = parser.initTaskNode(graph, pipe, id, owner.info());
        readWiring(*owner.info(), &node);
        tellResult(*owner.info(), *graph, &node);
    } catch (const AssertionFailed& failed) {
        readWiring(*owner.info(), &node);
        node.outcome = Outcome::WouldAbort;
        node.message = explainAbort(node, failed);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        readWiring(*owner.info(), &node);
        node.outcome = Outcome::WouldThrow;
        node.message = explainThrow(error, &node);
    } catch (...) {
        readWiring(*owner.info(), &node);
        node.outcome = Outcome::WouldThrow;
        node.message = "something that is no std::exception";
    }
    node.options = readOptions(*owner.info());
    const QVTaskNodeBase* made = owner.info()->node;
    node.registered = made != nullptr && dynamic_cast<const QVStubTaskNode*>(made) == nullptr;
    return node;
}

}  // namespace qvgraph
