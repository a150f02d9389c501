// The picture that Graphviz draws of a graph (render/draw_dot.h), as a
// self-contained SVG.
#ifndef QVGRAPH_RENDER_DRAW_SVG_H_
#define QVGRAPH_RENDER_DRAW_SVG_H_

#include <ostream>
#include <string>
#include <string_view>

namespace qvgraph {

// Writes the SVG that the program "dot" wrote, and adds colours for readers who
// prefer a dark background. REQUIRES: it contains an element <svg>.
void renderDrawSvg(std::ostream& out, const std::string& svg);

// Only that element, for a page.
std::string_view svgElementIn(const std::string& svg);

// Style rules that replace the light colours (render/palette.h) with the dark
// ones, within the elements of the selector.
std::string darkStyle(const std::string& selector);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_SVG_H_
