#include "survey/node_setup.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

#include "host/qv_host_stream_managers.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

using Ends = std::vector<StreamEnd>;

// What the parser throws where a stream has no format.
const std::string_view NO_FORMAT = "basic_string::_M_construct null not valid";

std::atomic<const NodeInSetUp*> currentNode{nullptr};

// Stands for the time in which the code of a node's class may run.
class SetUpScope {
public:
    explicit SetUpScope(const NodeInSetUp& node) : mNode(node) { currentNode = &mNode; }
    ~SetUpScope() { currentNode = nullptr; }

    // It is known by its address.
    SetUpScope(const SetUpScope&) = delete;
    SetUpScope& operator=(const SetUpScope&) = delete;

private:
    NodeInSetUp mNode;
};

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

// What the node's store holds under the keys of one option object. A store that
// is not the desk's own tells what its finders find.
void readOptions(const json11::Json& object, QvMetaData* store, Options* options) {
    for (const auto& member : object.object_items()) {
        const char* key = member.first.c_str();
        const char* text = nullptr;
        int32_t int32 = 0;
        int64_t int64 = 0;
        float real = 0;
        if (store->findCString(key, &text) != 0 && text != nullptr) {
            (*options)[key] = std::string(text);
        } else if (store->findInt32(key, &int32) != 0) {
            (*options)[key] = int32;
        } else if (store->findInt64(key, &int64) != 0) {
            (*options)[key] = int64;
        } else if (store->findFloat(key, &real) != 0) {
            (*options)[key] = real;
        }
    }
}

Options readOptions(const json11::Json& member, QvMetaData* store) {
    Options options;
    for (const char* object :
         {"node_opts", "stream_opts", "node_opts_extra", "stream_opts_extra"}) {
        readOptions(member[object], store, &options);
    }
    return options;
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

// "1 input", "2 inputs".
std::string counted(int number, const std::string& thing) {
    return std::to_string(number) + ' ' + thing + (number == 1 ? "" : "s");
}

// What there is to say where a class has other numbers of streams than are
// declared.
std::string explainCount(const std::string& side, size_t ofClass, int declared) {
    if (ofClass == static_cast<size_t>(declared)) {
        return "";
    }
    return ": its class has " + counted(static_cast<int>(ofClass), side) +
           ", \"stream_opts\" declares " + std::to_string(declared);
}

// Streams are wired in order, inputs first: the first end that is not bound is
// the one without a name. Where all are, a node class asserted something.
std::string explainAbort(const _QVNodeInfo& info, const AssertionFailed& failed, Node* node) {
    const size_t inputs = boundOf(node->inputs);
    if (inputs < node->inputs.size()) {
        return "no name for its " + placeOf("input", inputs, node->inputs.size()) +
               explainCount("input", node->inputs.size(), info.inputNum);
    }
    const size_t outputs = boundOf(node->outputs);
    if (outputs < node->outputs.size()) {
        return "no name for its " + placeOf("output", outputs, node->outputs.size()) +
               explainCount("output", node->outputs.size(), info.outputNum);
    }
    node->failedByClass = true;
    return failed.text;
}

// The last end that is bound is the one without a format, if one is.
std::string explainThrow(const std::exception& error, Node* node) {
    const bool atOutput = boundOf(node->outputs) > 0;
    Ends& ends = atOutput ? node->outputs : node->inputs;
    const size_t bound = boundOf(ends);
    if (error.what() != NO_FORMAT || bound == 0 || !ends[bound - 1].format.value_or("").empty()) {
        node->failedByClass = true;
        return *error.what() == '\0' ? "an exception that does not say why" : error.what();
    }
    ends[bound - 1].format.reset();
    return "no format for its " + placeOf(atOutput ? "output" : "input", bound - 1, ends.size()) +
           " '" + *ends[bound - 1].name + "'";
}

std::string explainRefusal(const QVHostTaskGraph::Refusal& refusal, int id) {
    const std::string side = refusal.input ? "input" : "output";
    if (refusal.name.empty()) {
        return "the name of its " + side + " stream is empty";
    }
    const int producer = refusal.producer.value_or(id);
    return "its " + side + " stream '" + refusal.name + "' is produced by " +
           (producer == id ? "the node itself" : indexedKey("node_", producer)) + " already";
}

// Why the node proxy made no node.
std::string explainNoNode(Node* node) {
    if (!node->key) {
        return "its id " + std::to_string(node->id) + " leads to '" +
               indexedKey("node_", node->id) + "', which is not there";
    }
    if (node->name.empty()) {
        return "it has no \"node_name\" that is a text";
    }
    if (node->className.empty()) {
        return "its name '" + node->name + "' has no class before the '#'";
    }
    if (!QVNodeRegistry::instance().find(node->className)) {
        return "its class '" + node->className + "' is not registered";
    }
    node->failedByClass = true;
    return "its class '" + node->className + "' made no node";
}

// The streams of one side that are declared beyond those that the class has.
std::string explainUnwired(const std::string& side, size_t ofClass, int declared) {
    const int unwired = declared - static_cast<int>(ofClass);
    if (unwired <= 0) {
        return "";
    }
    return counted(unwired, "declared " + side) + (unwired == 1 ? " is" : " are") +
           " not wired: its class has " + counted(static_cast<int>(ofClass), side);
}

std::string explainUnwired(const _QVNodeInfo& info, const Node& node) {
    const std::string inputs = explainUnwired("input", node.inputs.size(), info.inputNum);
    const std::string outputs = explainUnwired("output", node.outputs.size(), info.outputNum);
    return inputs + (inputs.empty() || outputs.empty() ? "" : "; ") + outputs;
}

void tellResult(const _QVNodeInfo& info, const QVHostTaskGraph& graph, Node* node) {
    if (info.node == nullptr) {
        node->outcome = Outcome::NotCreated;
        node->message = explainNoNode(node);
    } else if (node->inputs.empty() && node->outputs.empty()) {
        node->outcome = Outcome::NoStreams;
        node->message = "it has neither inputs nor outputs";
    } else if (graph.refusal()) {
        node->outcome = Outcome::StreamRefused;
        node->message = explainRefusal(*graph.refusal(), node->id);
    } else {
        node->message = explainUnwired(info, *node);
    }
}

// Has the parser set the node up, and tells how that ended.
void initialise(
    const QVGraphParser& parser, int pipe, QVHostTaskGraph* graph, _QVNodeInfo* info, Node* node) {
    const QVLookupScope lookups;
    graph->beginNode(node->id);
    try {
        node->result = parser.initTaskNode(graph, pipe, node->id, info);
        readWiring(*info, node);
        tellResult(*info, *graph, node);
    } catch (const AssertionFailed& failed) {
        readWiring(*info, node);
        node->outcome = Outcome::WouldAbort;
        node->message = explainAbort(*info, failed, node);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        readWiring(*info, node);
        node->outcome = Outcome::WouldThrow;
        node->message = explainThrow(error, node);
    } catch (...) {
        readWiring(*info, node);
        node->outcome = Outcome::WouldThrow;
        node->message = "something that is no std::exception";
        node->failedByClass = true;
    }
    if (info->node != nullptr) {
        node->misses = lookups.missesOf(info->node->mOptions);
    }
}

}  // namespace

const NodeInSetUp* nodeInSetUp() {
    return currentNode;
}

Node setUpNode(const QVGraphParser& parser, int pipe, int id, QVHostTaskGraph* graph) {
    const json11::Json& nodes = parser.root()[indexedKey("pipe_", pipe)];
    const json11::Json& member = nodes[indexedKey("node_", id)];
    Node node;
    node.id = id;
    node.key = keyIn(nodes, "node_", id);
    node.name = member["node_opts"]["node_name"].string_value();
    // The proxy reads a name up to its first NUL.
    node.className = qv_node_class_name(node.name.c_str());

    const SetUpScope scope({node.className.c_str(), pipe, id});
    QVNodeOwner owner;
    initialise(parser, pipe, graph, owner.info(), &node);
    node.created = owner.info()->node != nullptr;
    if (node.created) {
        node.options = readOptions(member, owner.info()->node->mOptions);
    }
    node.registered = node.created && QVNodeRegistry::instance().isRegistered(node.className);
    return node;
}

}  // namespace qvgraph
