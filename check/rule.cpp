#include "check/rule.h"

#include <algorithm>

namespace qvgraph {

namespace {

std::vector<Rule> everyRule() {
    std::vector<Rule> all;
    for (const auto& family : {textRules(),
                               pipeRules(),
                               idRules(),
                               keyRules(),
                               optionRules(),
                               nodeRules(),
                               streamRules(),
                               wiringRules(),
                               commentRules()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

}  // namespace

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

const std::vector<Rule>& rules() {
    static const std::vector<Rule> ALL = everyRule();
    return ALL;
}

const Rule* findRule(std::string_view code) {
    const auto found = std::find_if(
        rules().begin(), rules().end(), [code](const Rule& rule) { return rule.code == code; });
    return found == rules().end() ? nullptr : &*found;
}

}  // namespace qvgraph
