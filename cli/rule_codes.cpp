#include "cli/rule_codes.h"

#include <algorithm>

#include "check/rules.h"
#include "check/similar.h"
#include "cli/verb.h"
#include "survey/words.h"

namespace qvgraph {

const Rule& ruleOf(const std::string& argument, const std::string& code) {
    const Rule* rule = findRule(code);
    if (rule == nullptr) {
        const std::string nearest = nearestTo(code, ruleCodes());
        const std::string advice = nearest.empty() ? "run qvgraph explain to list the rules"
                                                   : "did you mean " + quoted(nearest) + "?";
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
