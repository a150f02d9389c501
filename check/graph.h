// Directed graphs, as far as the rules about wiring need them.
#ifndef QVGRAPH_CHECK_GRAPH_H_
#define QVGRAPH_CHECK_GRAPH_H_

#include <cstddef>
#include <vector>

namespace qvgraph {

// For each node, the nodes that its edges lead to.
using Edges = std::vector<std::vector<size_t>>;

// One shortest cycle through the first node of each group of nodes that lead to
// each other, in the order of those nodes. A cycle begins and ends with that
// node; edges from a node to itself are none. Takes time linear in the nodes
// and edges, and no stack.
std::vector<std::vector<size_t>> cyclesIn(const Edges& edges);

// The groups of nodes that edges connect, whichever way these lead, in the
// order of their first nodes.
std::vector<std::vector<size_t>> groupsIn(const Edges& edges);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_GRAPH_H_
