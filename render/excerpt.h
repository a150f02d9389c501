// A line of a configuration with a marker under a part of it, as compilers show
// where something is.
#ifndef QVGRAPH_RENDER_EXCERPT_H_
#define QVGRAPH_RENDER_EXCERPT_H_

#include <cstddef>
#include <string>

#include "source/source.h"

namespace qvgraph {

// Both texts are printable (render/text.h); each tab is one blank, and a
// byte-order mark is shown by its number.
//
//   "stream_input": "framse",
//                   ^~~~~~~~
struct Excerpt {
    std::string line;    // at most 92 columns; what is cut off at an end is "..."
    std::string marker;  // under the span, or under as much of it as is in the line
};

// The line on which a span begins.
Excerpt excerptOf(const Source& source, const Span& span);

// What stands before the line with that number, "   12 | ", and before what
// belongs to it, "      | ".
std::string gutterOf(size_t lineNumber);
std::string gutterBelow(size_t lineNumber);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_EXCERPT_H_
