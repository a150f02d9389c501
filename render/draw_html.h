// The picture of a configuration as an interactive page.
#ifndef QVGRAPH_RENDER_DRAW_HTML_H_
#define QVGRAPH_RENDER_DRAW_HTML_H_

#include <ostream>
#include <string>

#include "render/drawing.h"

namespace qvgraph {

// Writes a self-contained page. `svg` is the picture that the program "dot" drew of
// the drawing's graph (render/draw_dot.h). The reader can pan and zoom, search for
// nodes and streams, and select one to see its options, streams and findings.
//
// The page runs only its own script. Nothing in a configuration can become
// anything but text in the page, and the page's policy (CSP) prevents everything
// else from being run or fetched.
void renderDrawHtml(std::ostream& out, const Drawing& drawing, const std::string& svg);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_HTML_H_
