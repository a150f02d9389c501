// The rules about numbers, of the family of the options.
#ifndef QVGRAPH_CHECK_NUMBER_RULES_H_
#define QVGRAPH_CHECK_NUMBER_RULES_H_

#include <vector>

#include "check/rule.h"

namespace qvgraph {

std::vector<Rule> numberRules();

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_NUMBER_RULES_H_
