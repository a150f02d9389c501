// Findings in the format of a compiler, one per line, for editors and build
// tools.
#ifndef QVGRAPH_RENDER_CHECK_GCC_H_
#define QVGRAPH_RENDER_CHECK_GCC_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes one line for each finding, with the hint if there is one:
//
//   door.json:3:14: warning: 'fps' is already in this object; hint: remove one of the two [twice]
//   door.json:4:3: error: 'link_x' has no number [no-number]
void renderCheckGcc(std::ostream& out, const std::vector<CheckedFile>& files);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_GCC_H_
