// Findings as text for people, in the format of a compiler.
#ifndef QVGRAPH_RENDER_CHECK_TEXT_H_
#define QVGRAPH_RENDER_CHECK_TEXT_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes each finding with its line, its related locations and its hint. An
// empty line separates two findings:
//
//   door.json:3:14: warning: 'fps' is already in this object [twice]
//       3 |              "fps": 30},
//         |              ^~~~~
//   door.json:2:14: note: overridden here
//       2 |   "link_0": {"fps": 25,
//         |              ^~~~~
//         = hint: remove one of the two
//
//   door.json:4:3: error: 'link_x' has no number [no-number]
//       4 |   "link_x": {}
//         |   ^~~~~~~~
//
// Uses colours if `colour` is set. Writes nothing if there are no findings.
void renderCheckText(std::ostream& out, const std::vector<CheckedFile>& files, bool colour);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_TEXT_H_
