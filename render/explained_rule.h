// A rule with the findings in its example.
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
    CheckedFile example;  // the wrong one, checked under its conditions
};

// The conditions under which an example is wrong: "with class Join (2 inputs,
// 1 output)". Empty if there are none.
std::string conditionsOf(const RuleExample& example);

// The lines of an example, printable.
std::vector<std::string> exampleLines(std::string_view example);

// The name of a family as a heading: "Text".
std::string headingOf(const char* family);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_EXPLAINED_RULE_H_
