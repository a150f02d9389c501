// The labels of a graph for Graphviz; part of render.
//
// Each is an HTML-like label, without the angle brackets around it.
#ifndef QVGRAPH_RENDER_DOT_LABELS_H_
#define QVGRAPH_RENDER_DOT_LABELS_H_

#include <string>
#include <vector>

#include "render/draw_words.h"
#include "render/drawing.h"
#include "render/palette.h"

namespace qvgraph {

// The colour for the worst of the findings, or `otherwise` if nothing is painted.
const Colour& lineColourOf(const Findings& findings, const Colour& otherwise);

// The name of the file, a summary, and the meaning of the marks that occur.
std::string titleLabel(const Drawing& drawing);

// The heading of a pipe, its executors, links and findings.
std::string pipeLabel(const Drawing& drawing, const DrawnPipe& pipe);

// Name, key, findings and, on request, options.
std::string nodeLabel(const DrawnNode& node, bool options);

// The name, and the format of formatOf() (render/draw_words.h).
std::string streamLabel(const DrawnStream& stream);

// Remarks, one per line.
std::string remarkLabel(const std::vector<Remark>& remarks);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DOT_LABELS_H_
