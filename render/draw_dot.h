// The picture of a configuration as a graph for Graphviz, which lays it out
// from left to right.
#ifndef QVGRAPH_RENDER_DRAW_DOT_H_
#define QVGRAPH_RENDER_DRAW_DOT_H_

#include <cstddef>
#include <ostream>
#include <string>

#include "render/drawing.h"

namespace qvgraph {

struct DotRequest {
    bool options = false;  // nodes show their options
};

// Writes the graph:
//
//   - a pipe is a cluster, whose label tells its threads, its default link mode,
//     its executors and links with their options, and its findings;
//   - a node is a box with its name, its key and what was found there;
//   - a stream is a line from whoever gives it to all who take it, with its name
//     and format upon it. For Graphviz that text is a node of its own, so that
//     it stands once for any number of consumers, and nothing runs over it;
//   - a stream that nobody gives or nobody takes ends at a dashed box.
//
// Nodes and edges have the ids below; in an SVG these are the ids of elements.
// Whatever a configuration holds is text in the graph, and nothing else.
void renderDrawDot(std::ostream& out, const Drawing& drawing, const DotRequest& request);

// "p0", "p0n3" and "p0s7": of the pipe with the index 0, of its node and its
// stream at these positions. The lines of a stream have its id with "e" and a
// number behind it.
std::string elementIdOf(const DrawnPipe& pipe);
std::string nodeElementId(const DrawnPipe& pipe, size_t node);
std::string streamElementId(const DrawnPipe& pipe, size_t stream);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_DOT_H_
