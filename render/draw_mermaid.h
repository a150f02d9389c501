// The picture of a configuration as a flowchart for Mermaid, which many sites
// draw within a page.
#ifndef QVGRAPH_RENDER_DRAW_MERMAID_H_
#define QVGRAPH_RENDER_DRAW_MERMAID_H_

#include <ostream>

#include "render/drawing.h"

namespace qvgraph {

struct MermaidRequest {
    bool options = false;  // nodes show their options
};

// Writes the flowchart, which shows the same as the graph for Graphviz
// (render/draw_dot.h). A stream from one node to another is an edge; any other is
// a separate node, with edges to and from it.
void renderDrawMermaid(std::ostream& out, const Drawing& drawing, const MermaidRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_MERMAID_H_
