// What a check finds: one mistake, with its place and what to do about it.
#ifndef QVGRAPH_CHECK_FINDING_H_
#define QVGRAPH_CHECK_FINDING_H_

#include <string>
#include <string_view>
#include <vector>

#include "source/source.h"

namespace qvgraph {

enum class Severity {
    Error,    // a device would abort, fail, or leave something out that is meant
    Warning,  // it would go on with something else than is written
    Note,     // worth knowing
};

// "error", "warning" or "note".
const char* toText(Severity severity);

// Another place that has to do with a finding.
struct Related {
    std::string message;
    Span span;
};

// Texts may hold whatever bytes the configuration holds; whoever shows them
// makes them fit.
struct Finding {
    std::string_view code;  // of its rule, "duplicate-key"
    Severity severity = Severity::Error;
    std::string message;  // one sentence, without a full stop
    std::string pointer;  // to the value concerned, or to where one is missing
    Span span;            // in the source
    std::vector<Related> related;
    std::string hint;  // what to change; empty when there is nothing to add
};

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_FINDING_H_
