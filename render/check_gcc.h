// Findings one a line, as editors and build tools read them from a compiler.
#ifndef QVGRAPH_RENDER_CHECK_GCC_H_
#define QVGRAPH_RENDER_CHECK_GCC_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes for each finding, and nothing else; the hint only where there is one:
//
//   door.json:3:14: warning: 'fps' stands here again: ...; hint: remove ... [duplicate-key]
void renderCheckGcc(std::ostream& out, const std::vector<CheckedFile>& files);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_GCC_H_
