// The rules of the check as Markdown, for the page docs/rules.md.
#ifndef QVGRAPH_RENDER_RULES_MARKDOWN_H_
#define QVGRAPH_RENDER_RULES_MARKDOWN_H_

#include <ostream>
#include <vector>

#include "render/explained_rule.h"

namespace qvgraph {

// Explains one rule, under a heading with its code.
void renderRuleMarkdown(std::ostream& out, const ExplainedRule& explained);

// Explains all of them by family, after a table with a link to each.
void renderRulesMarkdown(std::ostream& out, const std::vector<ExplainedRule>& explained);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_RULES_MARKDOWN_H_
