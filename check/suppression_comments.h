// The comments that suppress findings: "qvgraph: ignore[code] reason".
#ifndef QVGRAPH_CHECK_SUPPRESSION_COMMENTS_H_
#define QVGRAPH_CHECK_SUPPRESSION_COMMENTS_H_

#include <vector>

#include "source/source.h"

namespace qvgraph {

// A comment that is intended to suppress findings.
struct SuppressionComment {
    Span span;
    std::vector<Span> codes;  // empty if the comment is malformed
};

// The comments of a source that are intended to suppress findings, in the order of
// the text.
std::vector<SuppressionComment> suppressionComments(const Source& source);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_SUPPRESSION_COMMENTS_H_
