// Comments that suppress findings; part of the check.
#ifndef QVGRAPH_CHECK_SUPPRESSIONS_H_
#define QVGRAPH_CHECK_SUPPRESSIONS_H_

#include <functional>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "source/source.h"

namespace qvgraph {

// Removes the warnings and notes that a comment "qvgraph: ignore[code] reason"
// suppresses: those with that code that start, or have a related location that
// starts, on the comment's line. If that line has nothing except such comments, the
// next line that has more is used instead. Several codes are separated by commas.
//
// Adds "unused-ignore" for each code of a comment that suppresses nothing, unless
// `selects` rejects that code, or another finding reports that the device does not
// read the line.
void applySuppressions(const Source& source,
                       const std::function<bool(std::string_view code)>& selects,
                       std::vector<Finding>* findings);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_SUPPRESSIONS_H_
