// The installed parser with the installed framework for the desk.
#include <cstdio>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"

int main() {
    QVGraphParser parser;
    if (parser.parseConfigText(R"({"pipe_0": {"node_3": {
            "node_opts": {"node_name": "Display"},
            "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12"}
        }}})") != 0) {
        return 1;
    }
    QVNodeRegistry::instance().setStub(true);
    QVHostTaskGraph graph;
    QVNodeOwner owner;
    graph.beginNode(3);
    const int result = parser.initTaskNode(&graph, 0, 3, owner.info());
    for (const QVHostTaskGraph::Stream& stream : graph.streams()) {
        printf("stream %d, %s: taken by node %d\n",
               stream.id,
               stream.name.c_str(),
               stream.consumers.at(0));
    }
    printf("result %d\n", result);
    return result;
}
