// Sets up a pipe and prints its streams: a program of another project, which needs
// the parser, the contracts and the host framework.
#include <cstdio>
#include <deque>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"

namespace {

// The program's own node class: the contract that it derives from must be the same
// class in the libraries.
class Camera : public QVTaskNodeBase {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        int32_t fps = 0;
        mOptions->findInt32("fps", &fps);
        std::printf("%s gives %s at %d\n",
                    info->nodeName.c_str(),
                    outputs[0]->mStreamType.c_str(),
                    static_cast<int>(fps));
        return 0;
    }
};

const char* const CONFIGURATION = R"({"pipe_0": {"node_0": {
    "node_opts": {"node_name": "Camera", "fps": 25},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "nv12"}}}})";

}  // namespace

int main() {
    QVNodeClass camera;
    camera.name = "Camera";
    camera.create = [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new Camera; };
    QVNodeRegistry::instance().registerClass(camera);
    QVGraphParser parser;
    if (parser.parseConfigText(CONFIGURATION) != 0) {
        return 1;
    }
    QVHostTaskGraph graph;
    std::deque<QVNodeOwner> nodes;
    for (int i = 0; i < parser.getNodeNum(0); ++i) {
        _QVNodeInfo* const info = nodes.emplace_back().info();
        parser.initTaskNode(&graph, 0, parser.getNodeIDByIndex(0, i), info);
        std::printf("a Camera: %s\n", dynamic_cast<Camera*>(info->node) != nullptr ? "yes" : "no");
    }
    for (const QVHostTaskGraph::Stream& stream : graph.streams()) {
        std::printf("stream %d: %s\n", stream.id, stream.name.c_str());
    }
    return 0;
}
