// Findings as commands with which a GitHub workflow annotates files.
#ifndef QVGRAPH_RENDER_CHECK_GITHUB_H_
#define QVGRAPH_RENDER_CHECK_GITHUB_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes for each finding one line (here two):
//
//   ::warning file=door.json,line=3,col=14,endLine=3,endColumn=19,
//       title=duplicate-key::'fps' stands here again: ...
//
// A finding that ends on another line than it begins on has no columns: they
// would count in one line. Related places and the hint stand behind the message
// as further lines of the annotation ("%0A").
void renderCheckGithub(std::ostream& out, const std::vector<CheckedFile>& files);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_GITHUB_H_
