// Comments that silence findings; part of the check.
#ifndef QVGRAPH_CHECK_IGNORES_H_
#define QVGRAPH_CHECK_IGNORES_H_

#include <functional>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "source/source.h"

namespace qvgraph {

// Removes the warnings and notes that a comment "qvgraph: ignore[code] reason"
// silences: those of that code that start, or have a related place that starts,
// on the comment's line or, where the comment has its line for itself, on the
// next line that has more than such comments. Several codes are separated by
// commas.
//
// Adds "unused-ignore" for each code of a comment that silences nothing, unless
// `selects` leaves that code out, or another finding tells that what stands
// there is not read.
void applyIgnores(const Source& source,
                  const std::function<bool(std::string_view code)>& selects,
                  std::vector<Finding>* findings);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_IGNORES_H_
