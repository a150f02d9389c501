// A minimal framework: everything that a program must define to use the parser
// without the host framework. For a device, start from here.
//
//   own_framework first.json
//
// The program sets up every node and prints the wiring. It exits with 0; with 1
// if a node is not ready, and with 2 if the configuration cannot be loaded.
#include <cstdio>
#include <list>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/qv_node_proxy.h"
#include "graph/qv_graph_parser.h"

namespace {

// The last value set under a key wins. The parser reads only strings back.
struct OptionStore : public QvMetaData {
    int setCString(const char* key, const char* value) override { return set(&texts, key, value); }
    int setInt32(const char* key, int32_t value) override { return set(&integers, key, value); }
    int setInt64(const char* key, int64_t value) override { return set(&integers, key, value); }
    int setFloat(const char* key, float value) override { return set(&reals, key, value); }
    int findCString(const char* key, const char** value) override {
        const auto found = texts.find(key);
        *value = found != texts.end() ? found->second.c_str() : nullptr;
        return *value != nullptr;
    }
    template <typename Map, typename Value>
    int set(Map* map, const char* key, Value value) {
        texts.erase(key);
        integers.erase(key);
        reals.erase(key);
        (*map)[key] = value;
        return 0;
    }
    std::map<std::string, std::string> texts;
    std::map<std::string, int64_t> integers;
    std::map<std::string, float> reals;
};

// Assigns one id to each stream name; refuses an empty one, and a second producer.
struct TaskGraph : public QVTaskGraphConfig {
    int addInputStream(std::string name) override { return name.empty() ? -1 : idOf(name); }
    int addOutputStream(std::string name) override {
        return name.empty() || !produced.insert(name).second ? -1 : idOf(name);
    }
    int idOf(const std::string& name) {
        return ids.emplace(name, static_cast<int>(ids.size())).first->second;
    }
    std::map<std::string, int> ids;
    std::set<std::string> produced;
};

// The ends of a stream store what they are bound to.
template <typename Manager>
struct StreamEnd : public Manager {
    int initialize(const std::string& streamName, int streamId, int /*nodeId*/) override {
        name = streamName;
        id = streamId;
        return 0;
    }
    std::string name;
    int id = -1;
};
using OutputStream = StreamEnd<QVOutputStreamManager>;

struct InputStream : public StreamEnd<QVInputStreamManager> {
    int setStreamType(const std::string& streamFormat) override {
        format = streamFormat;
        return 0;
    }
    std::string format;
};

// The only node class. A node owns its options and its stream managers.
struct Node : public QVTaskNodeBase {
    explicit Node(const _QVNodeInfo& info)
        : inputs(static_cast<size_t>(info.inputNum)), outputs(static_cast<size_t>(info.outputNum)) {
        mOptions = &options;
    }
    // Called after the options are stored and all streams are bound.
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        printf("  node %d, %s\n", nodeId, info->nodeName.c_str());
        for (const InputStream& in : inputs) {
            const char* const mode = in.mRemainNewest != 0 ? ", latest only" : "";
            printf("    in  %d %s, %s%s\n", in.id, in.name.c_str(), in.format.c_str(), mode);
        }
        for (const OutputStream& out : outputs) {
            printf("    out %d %s, %s\n", out.id, out.name.c_str(), out.mStreamType.c_str());
        }
        ready = true;
        return 0;
    }
    OptionStore options;
    std::vector<InputStream> inputs;
    std::vector<OutputStream> outputs;
    bool ready = false;
};

std::list<Node> all_nodes;  // kept until the process ends

// Returns whether the node is ready. If the task graph refuses a stream, the parser
// returns 0 but does not initialise the node. A stream without a format throws.
bool setUp(const QVGraphParser& parser, TaskGraph* graph, int pipe, int id) {
    _QVNodeInfo info;
    try {
        return parser.initTaskNode(graph, pipe, id, &info) == 0 && all_nodes.back().ready;
    } catch (const std::logic_error&) {
        return false;
    }
}

}  // namespace

// With several classes, store in info->stubUid which one the name selects.
void node_proxy_parse_stub_uid(_QVNodeInfo* /*info*/, const char* /*name*/) {}

void node_proxy_node_create(_QVNodeInfo* info) {
    all_nodes.emplace_back(*info);
    info->node = &all_nodes.back();
    for (InputStream& input : all_nodes.back().inputs) {
        info->inputStreams.push_back(&input);
    }
    for (OutputStream& output : all_nodes.back().outputs) {
        info->outputStreams.push_back(&output);
    }
}

int main(int argc, char** argv) {
    QVGraphParser parser;
    if (argc != 2 || parser.parseConfigFile(argv[1]) != 0) {
        fprintf(stderr, "Usage: own_framework FILE (a configuration)\n");
        return 2;
    }
    int result = 0;
    for (int pipe = 0; pipe < parser.getPipeNum(); ++pipe) {
        printf("pipe %d, executor threads: %d\n", pipe, parser.getThreadNum(pipe));
        TaskGraph graph;
        for (int i = 0; i < parser.getNodeNum(pipe); ++i) {
            const int id = parser.getNodeIDByIndex(pipe, i);
            if (!setUp(parser, &graph, pipe, id)) {
                printf("  node %d is not ready\n", id);
                result = 1;
            }
        }
    }
    return result;
}
