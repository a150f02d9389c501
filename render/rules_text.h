// The rules of the check as text for a terminal of 80 columns.
#ifndef QVGRAPH_RENDER_RULES_TEXT_H_
#define QVGRAPH_RENDER_RULES_TEXT_H_

#include <ostream>
#include <vector>

#include "render/explained_rule.h"

namespace qvgraph {

// Explains one rule:
//
//   duplicate-key (warning): a key stands twice in one object
//
//   Which of the two counts ...
//
//   On a device: the last one wins ...
//
//   Example:
//
//       1 | {"pipe_0": {
//       2 |   "link_0": {"fps": 25,
//       3 |              "fps": 30}
//         |              ^~~~~
//       4 | }}
//
//     warning: 'fps' stands here again: ...
//     hint: remove one of the two
//
//   Put right:
//
//     {"pipe_0": {
//       "link_0": {"fps": 30}
//     }}
//
//   Remove the one that is not meant.
void renderRuleText(std::ostream& out, const ExplainedRule& explained);

// Lists all of them, each with its code, severity and title, by family.
void renderRuleListText(std::ostream& out, const std::vector<Rule>& known);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_RULES_TEXT_H_
