// The picture of a configuration as a flowchart for Mermaid, which many sites
// draw where it stands in a page.
#ifndef QVGRAPH_RENDER_DRAW_MERMAID_H_
#define QVGRAPH_RENDER_DRAW_MERMAID_H_

#include <ostream>

#include "render/drawing.h"

namespace qvgraph {

struct MermaidRequest {
    bool options = false;  // nodes show their options
};

// Writes the flowchart: the same things as for Graphviz (render/draw_dot.h). A
// stream from one node to another is an edge; any other is a node of its own,
// with edges to and from it.
void renderDrawMermaid(std::ostream& out, const Drawing& drawing, const MermaidRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_MERMAID_H_
