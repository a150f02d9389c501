// What a check finds: a mistake, its location and what to do about it.
#ifndef QVGRAPH_CHECK_FINDING_H_
#define QVGRAPH_CHECK_FINDING_H_

#include <string>
#include <string_view>
#include <vector>

#include "source/source.h"

namespace qvgraph {

enum class Severity {
    Error,    // the device aborts, fails, or silently drops something
    Warning,  // the device continues with a different value
    Note,     // worth knowing
};

// "error", "warning" or "note".
const char* toText(Severity severity);

// Another location that is part of a finding.
struct Related {
    std::string message;
    Span span;
};

// The strings contain bytes of the configuration as they are; code that
// displays them replaces invalid UTF-8.
struct Finding {
    std::string_view code;  // of the rule: "duplicate-key"
    Severity severity = Severity::Error;
    std::string message;  // one sentence, without a full stop
    std::string pointer;  // JSON pointer to the value, or to the object in which one is missing
    Span span;            // in the source
    std::vector<Related> related;
    std::string hint;  // what to change; may be empty
};

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_FINDING_H_
