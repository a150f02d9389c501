// Cycles and connected groups of directed graphs.
#ifndef QVGRAPH_CHECK_DIRECTED_GRAPH_H_
#define QVGRAPH_CHECK_DIRECTED_GRAPH_H_

#include <cstddef>
#include <vector>

namespace qvgraph {

// For each node, the nodes to which it has an edge.
using Edges = std::vector<std::vector<size_t>>;

// The cycles of a graph: for each group of nodes that can reach each other, one
// shortest cycle through its first node, in the order of these nodes. A cycle
// begins and ends with that node. An edge from a node to itself is not a cycle.
// Takes linear time in the numbers of nodes and edges, and does not recurse.
std::vector<std::vector<size_t>> cyclesIn(const Edges& edges);

// The groups of nodes that edges connect in either direction, in the order of
// their first nodes.
std::vector<std::vector<size_t>> groupsIn(const Edges& edges);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_DIRECTED_GRAPH_H_
