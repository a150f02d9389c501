#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

// The helpers below are parts of initTaskNode and report under its name.
#define QV_LOG_FUNCTION "initTaskNode"

#include "graph/qv_graph_internal.h"
#include "graph/qv_graph_parser.h"

using json11::Json;

#define OPT_STREAM_INPUT_NAME "stream_input"
#define OPT_STREAM_OUTPUT_NAME "stream_output"

namespace {

// The keys of the names and formats of a node's inputs or outputs, and the
// conditions that an assertion reports if a name is missing.
struct Side {
    const char* nameKey;  // if there is exactly one stream
    const char* formatKey;
    const char* nameFamily;  // if there are several
    const char* formatFamily;
    const char* nameCondition;
    const char* nameTagCondition;
};

const Side INPUTS = {
    OPT_STREAM_INPUT_NAME,
    "stream_fmt_in",
    "stream_input_",
    "stream_fmt_in_",
    "options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName)",
    "options->findCString(inputNameTag.c_str(), &inputStreamName)",
};

const Side OUTPUTS = {
    OPT_STREAM_OUTPUT_NAME,
    "stream_fmt_out",
    "stream_output_",
    "stream_fmt_out_",
    "options->findCString(OPT_STREAM_OUTPUT_NAME, &outputStreamName)",
    "options->findCString(outputNameTag.c_str(), &outputStreamName)",
};

// A node during its set-up.
struct NodeSetup {
    const QVGraphParser& parser;
    const Json& streamOpts;
    QvMetaData* options;
    QVTaskGraphConfig* config;
    int nodeId;
};

// A stream as described in the node's store, which owns the strings.
struct Stream {
    const char* name;    // never null
    const char* format;  // null if there is none
};

// Looks up stream `index` of `count` on one side of the node. Aborts if it has
// no name.
Stream findStream(const NodeSetup& node, const Side& side, size_t index, size_t count) {
    Stream stream = {nullptr, nullptr};
    if (count == 1) {
        QV_ASSERT(node.options->findCString(side.nameKey, &stream.name), side.nameCondition);
        node.options->findCString(side.formatKey, &stream.format);
        return stream;
    }
    const int k = static_cast<int>(index);
    const std::string nameTag = node.parser.getItemNameByIndex(node.streamOpts, k, side.nameFamily);
    const std::string formatTag =
        node.parser.getItemNameByIndex(node.streamOpts, k, side.formatFamily);
    QV_ASSERT(node.options->findCString(nameTag.c_str(), &stream.name), side.nameTagCondition);
    node.options->findCString(formatTag.c_str(), &stream.format);
    return stream;
}

// Returns the format as a string. std::string's own message for a null pointer
// differs between library versions; the contract promises this one.
std::string formatOf(const Stream& stream) {
    if (stream.format == nullptr) {
        throw std::logic_error("basic_string::_M_construct null not valid");
    }
    return stream.format;
}

bool keepsNewest(QvMetaData* options) {
    const char* mode = nullptr;
    options->findCString("stream_mode_in", &mode);
    return mode != nullptr && strcmp(mode, "remain_newest") == 0;
}

// Registers and binds every input. Returns false if the graph refuses one.
bool wireInputs(const NodeSetup& node, const std::vector<QVInputStreamManager*>& managers) {
    const bool result = false;
    for (size_t i = 0; i < managers.size(); ++i) {
        const Stream stream = findStream(node, INPUTS, i, managers.size());
        const std::string name = stream.name;
        const int id = node.config->addInputStream(name);
        CHECK_UE(id, -1);
        managers[i]->initialize(name, id, node.nodeId);
        managers[i]->setStreamType(formatOf(stream));
        if (keepsNewest(node.options)) {
            managers[i]->mRemainNewest = 1;
        }
    }
    return true;
}

// Registers and binds every output. Returns false if the graph refuses one.
bool wireOutputs(const NodeSetup& node, const std::vector<QVOutputStreamManager*>& managers) {
    const bool result = false;
    for (size_t j = 0; j < managers.size(); ++j) {
        const Stream stream = findStream(node, OUTPUTS, j, managers.size());
        const std::string name = stream.name;
        const int id = node.config->addOutputStream(name);
        CHECK_UE(id, -1);
        managers[j]->initialize(name, id, node.nodeId);
        managers[j]->mStreamType = formatOf(stream);
    }
    return true;
}

// Has the node proxy create the node and its stream managers.
inline void createNode(const QVGraphParser& parser,
                       const Json& streamOpts,
                       int nodeId,
                       const std::string& name,
                       _QVNodeInfo* info) {
    node_proxy_parse_stub_uid(info, name.c_str());
    info->nodeId = nodeId;
    info->inputNum = parser.getItemNum(streamOpts, "stream_input");
    info->outputNum = parser.getItemNum(streamOpts, "stream_output");

    qv_log(QV_INFO("node proxy: create task node(name=%s)"), name.c_str());
    node_proxy_node_create(info);
}

// Completes a node whose streams are wired.
inline void initialise(int nodeId, const std::string& name, _QVNodeInfo* info) {
    _QVTaskNodeInfo taskNodeInfo;
    taskNodeInfo.nodeId = nodeId;
    taskNodeInfo.nodeName = name;
    info->node->initialize(nodeId, &taskNodeInfo, info->inputStreams, info->outputStreams);
}

}  // namespace

int QVGraphParser::initTaskNode(QVTaskGraphConfig* config,
                                int pipe,
                                int nodeId,
                                _QVNodeInfo* info) const {
    const std::string pipeKey = indexedKey("pipe_", pipe);
    const std::string nodeKey = indexedKey("node_", nodeId);
    if (info == nullptr || config == nullptr) {
        qv_err(QV_ERROR("invailed input params config %p, info %p"),
               static_cast<void*>(config),
               static_cast<void*>(info));
        return -2;
    }

    const Json& node = mRoot[pipeKey][nodeKey];
    const Json& nodeOpts = node["node_opts"];
    const Json& streamOpts = node["stream_opts"];
    const std::string& name = nodeOpts["node_name"].string_value();

    createNode(*this, streamOpts, nodeId, name, info);
    if (info->node == nullptr) {
        qv_log(QV_NOTICE("failed to node_proxy_node_create(...) for node:%s"), name.c_str());
        return -1;
    }

    QvMetaData* options = info->node->mOptions;
    syncOptions(options, nodeOpts);
    syncOptions(options, streamOpts);
    syncOptions(options, node["node_opts_extra"]);
    syncOptions(options, memberUnder(node, "stream_opts_extra"));
    const NodeSetup setup = {*this, streamOpts, options, config, nodeId};
    if (!wireInputs(setup, info->inputStreams) || !wireOutputs(setup, info->outputStreams)) {
        return 0;  // a refused stream is logged but is not an error of this call
    }
    if (info->inputStreams.empty() && info->outputStreams.empty()) {
        qv_log(
            QV_NOTICE("failed to initialize task node(%s) with none input/output stream manager"),
            name.c_str());
        return -1;
    }

    initialise(nodeId, name, info);
    return 0;
}
