// Findings as the commands of a GitHub workflow that annotate files.
#ifndef QVGRAPH_RENDER_CHECK_GITHUB_H_
#define QVGRAPH_RENDER_CHECK_GITHUB_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes one line for each finding; here, the first one is wrapped:
//
//   ::warning file=door.json,line=3,col=14,endLine=3,endColumn=19,title=twice
//       ::'fps' is already in this object%0A2:14: overridden here
//       %0Ahint: remove one of the two
//   ::error file=door.json,line=4,col=3,endLine=4,endColumn=11,title=no-number
//       ::'link_x' has no number
//
// A finding that ends on a different line from the one where it begins has no
// columns, since GitHub reads both as columns of one line. Related locations and
// the hint follow the message as further lines of the annotation ("%0A").
void renderCheckGithub(std::ostream& out, const std::vector<CheckedFile>& files);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_GITHUB_H_
