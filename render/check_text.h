// Findings as text for people, in the shape that compilers give theirs.
#ifndef QVGRAPH_RENDER_CHECK_TEXT_H_
#define QVGRAPH_RENDER_CHECK_TEXT_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes each finding with the line that it is about, the places that have to
// do with it, and what to change, an empty line between two findings:
//
//   door.json:3:14: warning: 'fps' stands here again: ... [duplicate-key]
//       3 |              "fps": 30}
//         |              ^~~~~
//   door.json:2:14: note: this one is lost
//       2 |   "link_0": {"fps": 25,
//         |              ^~~~~
//         = hint: remove one of the two
//
// In colour when `colour` is set. Writes nothing where nothing was found.
void renderCheckText(std::ostream& out, const std::vector<CheckedFile>& files, bool colour);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_TEXT_H_
