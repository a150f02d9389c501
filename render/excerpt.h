// A line of a configuration with a marker under a part of it, as compilers show
// locations.
#ifndef QVGRAPH_RENDER_EXCERPT_H_
#define QVGRAPH_RENDER_EXCERPT_H_

#include <cstddef>
#include <string>

#include "source/source.h"

namespace qvgraph {

// Both are printable (render/text.h). A tab is shown as one blank, a byte-order
// mark as its code point.
//
//   "stream_input": "framse",
//                   ^~~~~~~~
struct Excerpt {
    std::string line;    // at most 92 columns; "..." replaces what is cut off
    std::string marker;  // under the part of the span that is in the line
};

// The line on which a span begins.
Excerpt excerptOf(const Source& source, const Span& span);

// The gutter before the line with this number, "   12 | ", and that of the lines
// below it, "      | ".
std::string gutterOf(size_t lineNumber);
std::string gutterBelow(size_t lineNumber);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_EXCERPT_H_
