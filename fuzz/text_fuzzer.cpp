// Runs every operation on a configuration text in the host framework: each query
// with each index, the options of each executor and link, and the set-up of each
// node.
#include <algorithm>
#include <string>

#include "fuzz/harness.h"
#include "graph/qv_graph_parser.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"

using json11::Json;

namespace {

// More members take time without reaching new code.
const int MOST = 12;

// The number of indexes to query: those of all members, up to the limit, and one
// more.
int some(int number) {
    return std::min(number, MOST) + 1;
}

void askFamily(const QVGraphParser& parser, const Json& items, const std::string& tag) {
    const int number = parser.getItemNum(items, tag);
    const int members = static_cast<int>(items.object_items().size());
    require(number >= 0 && number <= members, "the number of members in a family");
    for (int i = -1; i < some(number); ++i) {
        const std::string key = parser.getItemNameByIndex(items, i, tag);
        require(key.compare(0, tag.size(), tag) == 0 || key.empty(), "a key is not of its family");
        require(i >= 0 || key.empty(), "a negative index finds a member");
        parser.getItemIDByIndex(items, i, tag);
    }
}

void askPipe(const QVGraphParser& parser, int pipe) {
    const Json& value = parser.root()["pipe_" + std::to_string(pipe)];
    for (const char* tag : {"node_", "executor_", "link_", ""}) {
        askFamily(parser, value, tag);
    }
    require(parser.getNodeNum(pipe) == parser.getItemNum(value, "node_"), "the number of nodes");
    parser.getThreadNum(pipe);
    require(!parser.getDefaultLinkMode(pipe).empty(), "the link mode is empty");
}

void syncPipe(const QVGraphParser& parser, int pipe) {
    QVHostMetaData store;
    for (int i = 0; i < some(parser.getExecNum(pipe)); ++i) {
        const int id = parser.getExecIDByIndex(pipe, i);
        require(parser.syncExecOptions(&store, pipe, id) == 0, "the result of syncExecOptions");
    }
    for (int i = 0; i < some(parser.getLinkNum(pipe)); ++i) {
        const int id = parser.getLinkIDByIndex(pipe, i);
        require(parser.syncLinkOptions(&store, pipe, id) == 0, "the result of syncLinkOptions");
    }
}

void setUpPipe(const QVGraphParser& parser, int pipe, QVHostTaskGraph* graph) {
    for (int i = 0; i < some(parser.getNodeNum(pipe)); ++i) {
        const int id = parser.getNodeIDByIndex(pipe, i);
        QVNodeOwner node;
        run([&] {
            const int result = parser.initTaskNode(graph, pipe, id, node.info());
            require(result == 0 || result == -1, "the result of initTaskNode");
        });
        require(node.info()->nodeId == id, "the id in the record");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const FuzzLog log;
    QVNodeRegistry::instance().setStub(true);
    const std::string text(data, data + size);

    QVGraphParser parser;
    const int result = parser.parseConfigText(text.c_str());
    std::string error;
    const Json expected = Json::parse(text.c_str(), error, json11::JsonParse::COMMENTS);
    require(result == (expected.is_null() ? -1 : 0), "the result of parseConfigText");
    require(parser.root().dump() == expected.dump(), "the document");

    QVHostTaskGraph graph;
    for (int pipe = 0; pipe < some(parser.getPipeNum()); ++pipe) {
        askPipe(parser, pipe);
        syncPipe(parser, pipe);
        setUpPipe(parser, pipe, &graph);
    }
    return 0;
}
