// Looks up rules by the codes in arguments.
#ifndef QVGRAPH_CLI_RULE_CODES_H_
#define QVGRAPH_CLI_RULE_CODES_H_

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "check/rule.h"

namespace qvgraph {

// The rule with this code. If there is none, throws UsageError, which names `argument`
// and the nearest code.
const Rule& ruleOf(const std::string& argument, const std::string& code);

using Codes = std::set<std::string, std::less<>>;

// The codes in values such as "no-producer,cycle". Throws like ruleOf().
Codes codesIn(const std::string& argument, const std::vector<std::string>& values);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_RULE_CODES_H_
