// A rule with what the check makes of its own example.
#ifndef QVGRAPH_RENDER_EXPLAINED_RULE_H_
#define QVGRAPH_RENDER_EXPLAINED_RULE_H_

#include <string>
#include <string_view>
#include <vector>

#include "check/check.h"
#include "check/rule.h"

namespace qvgraph {

struct ExplainedRule {
    const Rule* rule = nullptr;
    CheckedFile example;  // the one that is wrong, checked as it asks for
};

// Under what conditions an example is wrong, "with a class Join of 2 inputs and
// 1 output"; empty when there are none.
std::string conditionsOf(const RuleExample& example);

// The lines of an example, printable.
std::vector<std::string> exampleLines(std::string_view example);

// A family's name as a heading: "Text".
std::string headingOf(const char* family);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_EXPLAINED_RULE_H_
