// The picture of a configuration as a graph for Graphviz, laid out from left to
// right.
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
//   - a pipe is a cluster, whose label shows its threads, its default link mode,
//     its executors and links with their options, and its findings;
//   - a node is a box with its name, its key and its findings;
//   - a stream is a line from its producer to all its consumers, with its name
//     and format on it. For Graphviz, that text is a separate node: it appears
//     once for any number of consumers, and no line crosses it;
//   - a stream without a producer or without a consumer ends at a dashed box.
//
// Nodes and edges have the ids below; in an SVG, these are the ids of elements.
// Nothing in a configuration can become anything but text in the graph.
void renderDrawDot(std::ostream& out, const Drawing& drawing, const DotRequest& request);

// "p0", "p0n3" and "p0s7": the ids of the pipe with the index 0, of its node 3 and
// of its stream 7, by position. A line of a stream has the stream's id followed by
// "e" and a number.
std::string elementIdOf(const DrawnPipe& pipe);
std::string nodeElementId(const DrawnPipe& pipe, size_t node);
std::string streamElementId(const DrawnPipe& pipe, size_t stream);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_DOT_H_
