// What stands on the things in a graph for Graphviz; part of render.
//
// Each is a label of HTML's kind, without the angle brackets around it.
#ifndef QVGRAPH_RENDER_DOT_LABELS_H_
#define QVGRAPH_RENDER_DOT_LABELS_H_

#include <string>
#include <vector>

#include "render/draw_words.h"
#include "render/drawing.h"
#include "render/palette.h"

namespace qvgraph {

// The colour of what has such findings, or the other one.
const Colour& lineColourOf(const Findings& findings, const Colour& otherwise);

// The name of the file, what is in it, and what the marks mean that occur.
std::string titleLabel(const Drawing& drawing);

// The head of a pipe, its executors, links and findings.
std::string pipeLabel(const Drawing& drawing, const DrawnPipe& pipe);

// Name, key, findings and, on request, options.
std::string nodeLabel(const DrawnNode& node, bool options);

// The name and the format that it is given with, or else taken with.
std::string streamLabel(const DrawnStream& stream);

// Remarks under each other.
std::string remarkLabel(const std::vector<Remark>& remarks);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DOT_LABELS_H_
