/// @file
/// The task graph of the host framework: the streams, their producers and their
/// consumers.
#ifndef QVGRAPH_HOST_QV_HOST_TASK_GRAPH_H_
#define QVGRAPH_HOST_QV_HOST_TASK_GRAPH_H_

#include <memory_resource>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "framework/qv_task_graph.h"

/// Assigns one id to every stream name, numbered from 0 in each graph. Refuses
/// a stream without a name, and a second producer of a stream. A consumer may
/// be registered before the producer.
/// @code
/// QVHostTaskGraph graph;
/// graph.beginNode(id);
/// parser.initTaskNode(&graph, pipe, id, owner.info());
/// @endcode
///
/// Thread safety: as a standard container. It must not be changed while another
/// thread uses it.
class QVHostTaskGraph : public QVTaskGraphConfig {
public:
    /// A stream, with the nodes at its ends.
    struct Stream {
        int id = 0;                       ///< its index in streams()
        std::string name;                 ///< not empty
        std::optional<int> producer;      ///< the node that produces the stream, if any
        std::pmr::vector<int> consumers;  ///< the nodes that consume it, each once
    };

    /// A refused stream.
    struct Refusal {
        std::string name;             ///< if empty, the reason for the refusal
        bool input = false;           ///< whether addInputStream refused it
        std::optional<int> producer;  ///< the existing producer, if that is the reason
    };

    QVHostTaskGraph() { mStreams.reserve(12); }

    /// Attributes the streams that are registered from now on to `node`, a
    /// number that the caller chooses to identify it; 0 before the first call.
    /// Clears refusal().
    void beginNode(int node);

    int addInputStream(std::string name) override;
    int addOutputStream(std::string name) override;

    /// Returns all streams, each at the index that equals its id. The reference
    /// is valid as long as the graph; references to streams are valid until a
    /// stream is added.
    const std::vector<Stream>& streams() const { return mStreams; }

    /// Returns the last stream refused since beginNode, if any.
    const std::optional<Refusal>& refusal() const { return mRefusal; }

private:
    Stream* streamNamed(const std::string& name);

    int mNode = 0;
    // Streams are added but never removed, so their memory is freed at once.
    std::pmr::monotonic_buffer_resource mMemory{900};
    std::vector<Stream> mStreams;
    std::pmr::unordered_map<std::string, int> mIds{&mMemory};
    std::optional<Refusal> mRefusal;
};

#endif  // QVGRAPH_HOST_QV_HOST_TASK_GRAPH_H_
