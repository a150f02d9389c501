// The picture of a configuration as one page, to look around in.
#ifndef QVGRAPH_RENDER_DRAW_HTML_H_
#define QVGRAPH_RENDER_DRAW_HTML_H_

#include <ostream>
#include <string>

#include "render/drawing.h"

namespace qvgraph {

// Writes a page that needs nothing else: `svg` is what the program "dot" has
// made of the drawing's graph (render/draw_dot.h). One can move and zoom, search
// for nodes and streams, and have each told with its options, its streams and
// its findings.
//
// The page runs its own script and no other: whatever a configuration holds is
// text in it, and its policy (CSP) lets nothing else run or be fetched.
void renderDrawHtml(std::ostream& out, const Drawing& drawing, const std::string& svg);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_HTML_H_
