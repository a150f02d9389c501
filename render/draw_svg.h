// The picture that Graphviz makes of a graph (render/draw_dot.h), as an SVG
// that stands alone.
#ifndef QVGRAPH_RENDER_DRAW_SVG_H_
#define QVGRAPH_RENDER_DRAW_SVG_H_

#include <ostream>
#include <string>
#include <string_view>

namespace qvgraph {

// Writes the SVG that the program "dot" has made, with colours for whoever
// prefers a dark ground. REQUIRES: it holds an element <svg>.
void renderDrawSvg(std::ostream& out, const std::string& svg);

// That element alone, as it stands in a page.
std::string_view svgElementIn(const std::string& svg);

// Style rules that put the dark colours (render/palette.h) in place of the
// light ones, below what the selector selects.
std::string darkStyle(const std::string& selector);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_SVG_H_
