// The desk's task graph: which streams there are, who gives and who takes them.
#ifndef QVGRAPH_HOST_QV_HOST_TASK_GRAPH_H_
#define QVGRAPH_HOST_QV_HOST_TASK_GRAPH_H_

#include <memory_resource>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "framework/qv_task_graph.h"

// Gives every stream name one id, counted from 0 in each graph. Refuses a
// stream without a name, and a second producer of a stream. A stream may be
// taken before it is given.
//
//   QVHostTaskGraph graph;
//   graph.beginNode(id);
//   parser.initTaskNode(&graph, pipe, id, owner.info());
//
// Thread safety: as a standard container; it must not be changed while another
// thread uses it.
class QVHostTaskGraph : public QVTaskGraphConfig {
public:
    // A stream, with the nodes at its ends.
    struct Stream {
        int id = 0;                       // its place among the streams, from 0
        std::string name;                 // not empty
        std::optional<int> producer;      // the node that gives the stream
        std::pmr::vector<int> consumers;  // the nodes that take it, each once
    };

    // A stream that was refused.
    struct Refusal {
        std::string name;             // empty: that is why
        bool input = false;           // taken by addInputStream
        std::optional<int> producer;  // who gives the stream already
    };

    QVHostTaskGraph() { mStreams.reserve(12); }

    // The streams registered from now on are those of `node`: any number by
    // which the caller tells nodes apart. Before the first call it is 0.
    void beginNode(int node);

    int addInputStream(std::string name) override;
    int addOutputStream(std::string name) override;

    // All streams; a stream stands at its id. Valid until a stream is added.
    const std::vector<Stream>& streams() const { return mStreams; }

    // The last stream refused since beginNode, if any.
    const std::optional<Refusal>& refusal() const { return mRefusal; }

private:
    Stream* streamNamed(const std::string& name);

    int mNode = 0;
    // Streams come and never go: what belongs to them is freed as a whole.
    std::pmr::monotonic_buffer_resource mMemory{900};
    std::vector<Stream> mStreams;
    std::pmr::unordered_map<std::string, int> mIds{&mMemory};
    std::optional<Refusal> mRefusal;
};

#endif  // QVGRAPH_HOST_QV_HOST_TASK_GRAPH_H_
