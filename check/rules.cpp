#include "check/rules.h"

#include <algorithm>

namespace qvgraph {

const std::vector<const Rule*>& rules() {
#define QVGRAPH_ADDRESS(rule) &(rule),
    static const std::vector<const Rule*> ALL = {QVGRAPH_RULES(QVGRAPH_ADDRESS)};
#undef QVGRAPH_ADDRESS
    return ALL;
}

std::vector<std::string> ruleCodes() {
    std::vector<std::string> codes;
    for (const Rule* rule : rules()) {
        codes.emplace_back(rule->code);
    }
    return codes;
}

const Rule* findRule(std::string_view code) {
    const auto found = std::find_if(
        rules().begin(), rules().end(), [code](const Rule* rule) { return rule->code == code; });
    return found == rules().end() ? nullptr : *found;
}

}  // namespace qvgraph
