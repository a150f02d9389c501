// The set-up of a node in a framework whose behaviour the input selects:
//
//   byte 0    number of input managers, modulo 4
//   byte 1    number of output managers, modulo 4
//   byte 2    behaviour of the framework, as bits: see Behaviour
//   byte 3    the stream that the graph refuses, from 1, modulo 8; 0: none
//   the rest  the node, as JSON
#include <deque>
#include <string>
#include <vector>

#include "fuzz/harness.h"
#include "graph/qv_graph_parser.h"
#include "host/qv_host_meta_data.h"

namespace {

enum Behaviour : unsigned {
    CREATES_NO_NODE = 1,    // the proxy
    KEEPS_THE_FIRST = 2,    // the store keeps the first of two values for one key
    FINDS_NUMBERS_TOO = 4,  // a failed lookup in the store leaves a valid string
    RETURNS_ERRORS = 8,     // all operations whose results are ignored
};

class Store : public QVHostMetaData {
public:
    explicit Store(unsigned behaviour) : mBehaviour(behaviour) {}

    int setCString(const char* key, const char* value) override {
        return keeps(key) ? -1 : QVHostMetaData::setCString(key, value);
    }
    int setInt32(const char* key, int32_t value) override {
        return keeps(key) ? -1 : QVHostMetaData::setInt32(key, value);
    }
    int setInt64(const char* key, int64_t value) override {
        return keeps(key) ? -1 : QVHostMetaData::setInt64(key, value);
    }
    int setFloat(const char* key, float value) override {
        return keeps(key) ? -1 : QVHostMetaData::setFloat(key, value);
    }
    int findCString(const char* key, const char** value) override {
        require(*value == nullptr, "a lookup starts from a pointer that is not null");
        const int found = QVHostMetaData::findCString(key, value);
        if (found == 0 && (mBehaviour & FINDS_NUMBERS_TOO) != 0) {
            *value = "remain_newest";
        }
        return found;
    }

private:
    bool keeps(const char* key) const {
        return (mBehaviour & KEEPS_THE_FIRST) != 0 && entries().count(key) != 0;
    }

    const unsigned mBehaviour;
};

// Records the steps of one set-up.
struct Trace {
    int result = 0;  // of the operations whose results are ignored
    std::vector<int> bound;
    bool initialized = false;
};

class Input : public QVInputStreamManager {
public:
    explicit Input(Trace* kept) : trace(kept) {}
    int initialize(const std::string& name, int streamId, int /*nodeId*/) override {
        requireSame(name);
        trace->bound.push_back(streamId);
        return trace->result;
    }
    int setStreamType(const std::string& format) override {
        requireSame(format);
        return trace->result;
    }

private:
    // Strings come from a store and therefore contain no NUL.
    static void requireSame(const std::string& text) {
        require(text.find('\0') == std::string::npos, "a string contains a NUL");
    }

    Trace* trace;
};

class Output : public QVOutputStreamManager {
public:
    explicit Output(Trace* kept) : trace(kept) {}
    int initialize(const std::string& /*name*/, int streamId, int /*nodeId*/) override {
        require(mStreamType.empty(), "the format is set before initialize");
        trace->bound.push_back(streamId);
        return trace->result;
    }

private:
    Trace* trace;
};

class Node : public QVTaskNodeBase {
public:
    Node(Trace* kept, QvMetaData* store) : trace(kept) { mOptions = store; }
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        require(info->nodeId == nodeId, "initialize receives another id");
        require(inputs.size() + outputs.size() == trace->bound.size(),
                "a manager of the node is not bound");
        require(!trace->initialized, "the node is initialised twice");
        trace->initialized = true;
        return trace->result;
    }

private:
    Trace* trace;
};

class Graph : public QVTaskGraphConfig {
public:
    explicit Graph(int refusedStream) : refused(refusedStream) {}
    int addInputStream(std::string /*name*/) override { return next(); }
    int addOutputStream(std::string /*name*/) override { return next(); }

    bool hasRefused() const { return refused != 0 && streams >= refused; }

private:
    int next() {
        require(!hasRefused(), "a stream is registered after a refused one");
        return ++streams == refused ? -1 : -1 - streams;
    }

    const int refused;
    int streams = 0;
};

// The framework that one input describes.
struct Framework {
    explicit Framework(const uint8_t* header)
        : inputNum(header[0] % 4U),
          outputNum(header[1] % 4U),
          behaviour(header[2] % 16U),
          graph(header[3] % 8),
          store(behaviour),
          node(&trace, &store) {
        trace.result = (behaviour & RETURNS_ERRORS) != 0 ? -1 : 0;
    }

    const size_t inputNum;
    const size_t outputNum;
    const unsigned behaviour;
    Graph graph;
    Store store;
    Trace trace;
    Node node;
    std::deque<Input> inputs;
    std::deque<Output> outputs;
};

Framework* current = nullptr;

}  // namespace

void node_proxy_parse_stub_uid(_QVNodeInfo* info, const char* name) {
    require(name != nullptr, "the node name is null");
    info->stubUid = 7;
}

void node_proxy_node_create(_QVNodeInfo* info) {
    require(info->stubUid == 7, "the node is created before its name is resolved");
    if ((current->behaviour & CREATES_NO_NODE) != 0) {
        return;
    }
    info->node = &current->node;
    for (size_t i = 0; i < current->inputNum; ++i) {
        info->inputStreams.push_back(&current->inputs.emplace_back(&current->trace));
    }
    for (size_t j = 0; j < current->outputNum; ++j) {
        info->outputStreams.push_back(&current->outputs.emplace_back(&current->trace));
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 4) {
        return 0;
    }
    const FuzzLog log;
    const std::string node(data + 4, data + size);
    QVGraphParser parser;
    parser.parseConfigText(("{\"pipe_0\": {\"node_3\": " + node + "}}").c_str());

    Framework framework(data);
    current = &framework;
    _QVNodeInfo info;
    run([&] {
        const int result = parser.initTaskNode(&framework.graph, 0, 3, &info);
        const size_t managers = info.inputStreams.size() + info.outputStreams.size();
        const bool noNode = info.node == nullptr || managers == 0;
        require(result == (noNode ? -1 : 0), "the result of initTaskNode");
        require(framework.trace.initialized == (!noNode && !framework.graph.hasRefused()),
                "initialize is called if and only if the set-up succeeds");
    });
    current = nullptr;
    require(info.nodeId == 3 && info.stubUid == 7, "the record's ids");
    require(parser.initTaskNode(nullptr, 0, 3, &info) == -2, "a null graph does not return -2");
    require(parser.initTaskNode(&framework.graph, 0, 3, nullptr) == -2,
            "a null record does not return -2");
    return 0;
}
