#include "check/rule.h"

#include <utility>

namespace qvgraph {

const char* toText(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "error";
        case Severity::Warning:
            return "warning";
        case Severity::Note:
            return "note";
    }
    return "";
}

Finding& Reporter::atValue(const Value& value, std::string message) {
    return at(value.span, pointerTo(value), std::move(message));
}

Finding& Reporter::atWrongType(const Value& value,
                               const std::string& name,
                               const char* expected,
                               const std::string& outcome) {
    return atValue(value,
                   name + " is " + toText(value.kind) + ", not " + expected + ": " + outcome);
}

Finding& Reporter::atKey(const Value& member, std::string message) {
    return at(member.keySpan, pointerTo(member), std::move(message));
}

Finding& Reporter::at(Span span, std::string pointer, std::string message) {
    Finding finding;
    finding.code = mRule.code;
    finding.severity = mRule.severity;
    finding.message = std::move(message);
    finding.pointer = std::move(pointer);
    finding.span = span;
    mFindings->push_back(std::move(finding));
    return mFindings->back();
}

}  // namespace qvgraph
