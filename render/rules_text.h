// The rules of the check as text for a terminal of 80 columns.
#ifndef QVGRAPH_RENDER_RULES_TEXT_H_
#define QVGRAPH_RENDER_RULES_TEXT_H_

#include <ostream>
#include <vector>

#include "render/explained_rule.h"

namespace qvgraph {

// Explains one rule:
//
//   twice (warning): A key occurs twice in one object
//
//   The order in the text decides which of the two values wins. An object of *JSON*
//   has each key <once>.
//
//   On a device: The last value wins; the other one is silently discarded.
//
//   Example:
//
//       1 | {"link_0": {"fps": 25,
//       2 |             "fps": 30}}
//         |             ^~~~~
//
//     warning: 'fps' is already in this object; this value overrides the earlier
//              one, 25
//     hint: remove one of the two
//
//   Fixed:
//
//     {"link_0": {"fps": 30}}
//
//   Remove the one that is not intended.
void renderRuleText(std::ostream& out, const ExplainedRule& explained);

// Lists all of them by family, each with its code, severity and title.
void renderRuleListText(std::ostream& out, const std::vector<const Rule*>& known);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_RULES_TEXT_H_
