#include "survey/node_setup.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>

#include "host/qv_host_stream_managers.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"
#include "survey/keys.h"
#include "survey/node_in_set_up.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

using Ends = std::vector<SurveyedEnd>;

// What the parser throws if a stream has no format.
const std::string_view NO_FORMAT = "basic_string::_M_construct null not valid";

SurveyedEnd endOf(const std::optional<QVStreamBinding>& binding) {
    SurveyedEnd end;
    if (binding) {
        end.name = binding->name;
        end.id = binding->streamId;
    }
    return end;
}

// The managers come from the host's node proxy, so they have the host's types.
void readWiring(const _QVNodeInfo& info, SurveyedNode* node) {
    for (const auto* manager : info.inputStreams) {
        const auto* input = static_cast<const QVHostInputStreamManager*>(manager);
        SurveyedEnd end = endOf(input->binding());
        end.format = input->format();
        end.remainNewest = input->mRemainNewest != 0;
        node->inputEnds.push_back(std::move(end));
    }
    for (const auto* manager : info.outputStreams) {
        const auto* output = static_cast<const QVHostOutputStreamManager*>(manager);
        SurveyedEnd end = endOf(output->binding());
        if (end.name) {
            end.format = output->mStreamType;
        }
        node->outputEnds.push_back(std::move(end));
    }
}

// Reads what the node's store holds under the keys of one option object. The
// store may be a node class's own, so only its finders are called.
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
    for (const char* object : OPTION_OBJECTS) {
        readOptions(member[object], store, &options);
    }
    return options;
}

bool isBound(const SurveyedEnd& end) {
    return end.name.has_value();
}

size_t boundOf(const Ends& ends) {
    return static_cast<size_t>(std::count_if(ends.begin(), ends.end(), isBound));
}

// "input stream", or "input stream 2 of 3".
std::string nameOfEnd(const char* side, size_t index, size_t count) {
    std::string position = std::string(side) + " stream";
    if (count > 1) {
        position += ' ' + std::to_string(index + 1) + " of " + std::to_string(count);
    }
    return position;
}

// Explains a class whose number of streams differs from the declared one.
std::string explainCount(const std::string& side, size_t ofClass, int declared) {
    if (ofClass == static_cast<size_t>(declared)) {
        return "";
    }
    return ": its class has " + counted(ofClass, side) + ", but \"stream_opts\" declares " +
           std::to_string(declared);
}

// Streams are wired in order, inputs first: the first end that is not bound has
// no name. If all of them are bound, an assertion of the node class failed.
std::string explainAbort(const _QVNodeInfo& info,
                         const AssertionFailed& failed,
                         SurveyedNode* node) {
    const size_t inputs = boundOf(node->inputEnds);
    if (inputs < node->inputEnds.size()) {
        return "no name for its " + nameOfEnd("input", inputs, node->inputEnds.size()) +
               explainCount("input", node->inputEnds.size(), info.inputNum);
    }
    const size_t outputs = boundOf(node->outputEnds);
    if (outputs < node->outputEnds.size()) {
        return "no name for its " + nameOfEnd("output", outputs, node->outputEnds.size()) +
               explainCount("output", node->outputEnds.size(), info.outputNum);
    }
    node->failedByClass = true;
    return failed.text;
}

// If a format is missing, it is that of the last end that is bound.
std::string explainThrow(const std::exception& error, SurveyedNode* node) {
    const bool atOutput = boundOf(node->outputEnds) > 0;
    Ends& ends = atOutput ? node->outputEnds : node->inputEnds;
    const size_t bound = boundOf(ends);
    if (error.what() != NO_FORMAT || bound == 0 || !ends[bound - 1].format.value_or("").empty()) {
        node->failedByClass = true;
        return *error.what() == '\0' ? "an exception without a message" : error.what();
    }
    ends[bound - 1].format.reset();
    return "no format for its " + nameOfEnd(atOutput ? "output" : "input", bound - 1, ends.size()) +
           " '" + *ends[bound - 1].name + "'";
}

std::string explainRefusal(const QVHostTaskGraph::Refusal& refusal, int id) {
    const std::string side = refusal.input ? "input" : "output";
    if (refusal.name.empty()) {
        return "the name of its " + side + " stream is empty";
    }
    const int producer = refusal.producer.value_or(id);
    if (producer == id) {
        return "it produces stream '" + refusal.name + "' twice";
    }
    return "stream '" + refusal.name + "' already has a producer, '" +
           indexedKey("node_", producer) + "'";
}

// Why the node proxy created no node.
std::string explainNoNode(SurveyedNode* node) {
    if (!node->key) {
        return "its id " + std::to_string(node->id) + " maps to '" + indexedKey("node_", node->id) +
               "', which does not exist";
    }
    if (node->name.empty()) {
        return "it has no \"node_name\" that is a string";
    }
    if (node->className.empty()) {
        return "its name '" + node->name + "' has no class before the '#'";
    }
    if (!QVNodeRegistry::instance().find(node->className)) {
        return "its class '" + node->className + "' is not registered";
    }
    node->failedByClass = true;
    return "its class '" + node->className + "' created no node";
}

// Explains the declared streams of one side that exceed those of the class.
std::string explainUnwired(const std::string& side, size_t ofClass, int declared) {
    const int unwired = declared - static_cast<int>(ofClass);
    if (unwired <= 0) {
        return "";
    }
    return counted(static_cast<size_t>(unwired), "declared " + side) +
           (unwired == 1 ? " is" : " are") + " not wired: its class has " + counted(ofClass, side);
}

std::string explainUnwired(const _QVNodeInfo& info, const SurveyedNode& node) {
    const std::string inputs = explainUnwired("input", node.inputEnds.size(), info.inputNum);
    const std::string outputs = explainUnwired("output", node.outputEnds.size(), info.outputNum);
    return inputs + (inputs.empty() || outputs.empty() ? "" : "; ") + outputs;
}

void recordResult(const _QVNodeInfo& info, const QVHostTaskGraph& graph, SurveyedNode* node) {
    if (info.node == nullptr) {
        node->outcome = Outcome::NotCreated;
        node->message = explainNoNode(node);
    } else if (node->inputEnds.empty() && node->outputEnds.empty()) {
        node->outcome = Outcome::NoStreams;
        node->message = "it has neither inputs nor outputs";
    } else if (graph.refusal()) {
        node->outcome = Outcome::StreamRefused;
        node->message = explainRefusal(*graph.refusal(), node->id);
    } else {
        node->message = explainUnwired(info, *node);
    }
}

StreamLookup streamLookup(const QVLookupScope::Lookup& lookup) {
    return {lookup.key, lookup.result == QVLookupScope::Result::Found};
}

// Reads the last two of the first `count` lookups.
void readLookups(const std::vector<QVLookupScope::Lookup>& lookups,
                 const QvMetaData* store,
                 size_t count,
                 SurveyedEnd* end) {
    if (count >= 2 && lookups[count - 1].store == store) {
        end->nameLookup = streamLookup(lookups[count - 2]);
        end->formatLookup = streamLookup(lookups[count - 1]);
    }
}

// The end without a name that made the assertion fail; its key was looked up
// last.
SurveyedEnd* namelessEnd(const WatchedTaskGraph& graph, SurveyedNode* node) {
    if (node->outcome != Outcome::WouldAbort || node->failedByClass) {
        return nullptr;
    }
    const size_t inputs = graph.inputs().size();
    return inputs < node->inputEnds.size() ? &node->inputEnds[inputs]
                                           : &node->outputEnds[graph.outputs().size()];
}

// Reads which keys set-up looked up in the node's store, and for which streams.
void readLookups(const QVLookupScope& scope,
                 const WatchedTaskGraph& graph,
                 const QvMetaData* store,
                 SurveyedNode* node) {
    const std::vector<QVLookupScope::Lookup> lookups = scope.lookups();
    for (size_t i = 0; i < graph.inputs().size(); ++i) {
        readLookups(lookups, store, graph.inputs()[i], &node->inputEnds[i]);
    }
    for (size_t i = 0; i < graph.outputs().size(); ++i) {
        readLookups(lookups, store, graph.outputs()[i], &node->outputEnds[i]);
    }
    SurveyedEnd* const nameless = namelessEnd(graph, node);
    if (nameless != nullptr && !lookups.empty() && lookups.back().store == store) {
        nameless->nameLookup = streamLookup(lookups.back());
    }
    const auto isOfNode = [store](const QVLookupScope::Lookup& lookup) {
        return lookup.store == store;
    };
    node->lookups.reserve(static_cast<size_t>(std::ranges::count_if(lookups, isOfNode)));
    std::ranges::copy_if(lookups, std::back_inserter(node->lookups), isOfNode);
    node->misses = scope.missesOf(store);
    // Set-up looks up the name of every stream.
    node->watched = !node->lookups.empty() || (node->inputEnds.empty() && node->outputEnds.empty());
}

// Makes the parser set the node up, and records the outcome.
void initialise(const QVGraphParser& parser,
                int pipe,
                WatchedTaskGraph* graph,
                _QVNodeInfo* info,
                SurveyedNode* node) {
    const QVLookupScope scope;
    graph->watch(&scope);
    graph->beginNode(node->id);
    try {
        node->result = parser.initTaskNode(graph, pipe, node->id, info);
        readWiring(*info, node);
        recordResult(*info, *graph, node);
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
        node->message = "an exception that is not a std::exception";
        node->failedByClass = true;
    }
    if (info->node != nullptr) {
        readLookups(scope, *graph, info->node->mOptions, node);
    }
}

}  // namespace

void WatchedTaskGraph::watch(const QVLookupScope* lookups) {
    mLookups = lookups;
    mInputs.clear();
    mOutputs.clear();
}

int WatchedTaskGraph::addInputStream(std::string name) {
    mInputs.push_back(mLookups->count());
    return QVHostTaskGraph::addInputStream(std::move(name));
}

int WatchedTaskGraph::addOutputStream(std::string name) {
    mOutputs.push_back(mLookups->count());
    return QVHostTaskGraph::addOutputStream(std::move(name));
}

SurveyedNode setUpNode(
    const QVGraphParser& parser, int pipe, int id, WatchedTaskGraph* graph, bool readsOptions) {
    const json11::Json& nodes = parser.root()[indexedKey("pipe_", pipe)];
    const json11::Json& member = nodes[indexedKey("node_", id)];
    SurveyedNode node;
    node.id = id;
    node.key = keyIn(nodes, "node_", id);
    node.name = member["node_opts"]["node_name"].string_value();
    // The proxy reads a name up to its first NUL.
    node.className = qv_node_class_name(node.name.c_str());

    const SetUpScope scope({node.className.c_str(), pipe, id});
    QVNodeOwner owner;
    initialise(parser, pipe, graph, owner.info(), &node);
    node.created = owner.info()->node != nullptr;
    if (node.created && (readsOptions || !node.watched)) {
        node.options = readOptions(member, owner.info()->node->mOptions);
    }
    node.registered = node.created && QVNodeRegistry::instance().isRegistered(node.className);
    return node;
}

}  // namespace qvgraph
