#include "cli/rule_codes.h"

#include <algorithm>

#include "check/words.h"
#include "cli/verb.h"

namespace qvgraph {

namespace {

std::string nearestCode(const std::string& code) {
    std::vector<std::string> known;
    for (const Rule& rule : rules()) {
        known.emplace_back(rule.code);
    }
    return nearestTo(code, known);
}

}  // namespace

const Rule& ruleOf(const std::string& argument, const std::string& code) {
    const Rule* rule = findRule(code);
    if (rule == nullptr) {
        const std::string nearest = nearestCode(code);
        const std::string advice = nearest.empty() ? "qvgraph explain lists the rules"
                                                   : "is " + quoted(nearest) + " meant?";
        throw UsageError(argument + ": there is no rule " + quoted(code) + "; " + advice);
    }
    return *rule;
}

Codes codesIn(const std::string& argument, const std::vector<std::string>& values) {
    Codes codes;
    for (const std::string& value : values) {
        for (size_t begin = 0; begin <= value.size();) {
            const size_t end = std::min(value.find(',', begin), value.size());
            codes.insert(ruleOf(argument, value.substr(begin, end - begin)).code);
            begin = end + 1;
        }
    }
    return codes;
}

}  // namespace qvgraph
