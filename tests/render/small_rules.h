// Small rules, for the tests of the code that shows rules.
#ifndef QVGRAPH_TESTS_RENDER_SMALL_RULES_H_
#define QVGRAPH_TESTS_RENDER_SMALL_RULES_H_

#include <vector>

#include "render/explained_rule.h"
#include "tests/render/small_check.h"

// Two rules of one family and one of another.
inline const std::vector<const qvgraph::Rule*>& smallRules() {
    static const qvgraph::Rule TWICE = {
        .code = "twice",
        .severity = qvgraph::Severity::Warning,
        .family = "text",
        .title = "A key occurs twice in one object",
        .explanation =
            "The order in the text decides which of the two values wins. An object of "
            "*JSON* has each key <once>.",
        .device = "The last value wins; the other one is silently discarded.",
        .fix = "Remove the one that is not intended.",
        .example = {.wrong = "{\"link_0\": {\"fps\": 25,\n"
                             "            \"fps\": 30}}",
                    .fixed = "{\"link_0\": {\"fps\": 30}}"}};
    static const qvgraph::Rule NO_NUMBER = {
        .code = "no-number",
        .severity = qvgraph::Severity::Error,
        .family = "text",
        .title =
            "The key 'link_<l>' of a link does not end in the number that the framework looks "
            "up",
        .explanation = "A link is looked up by its number.",
        .device = "No lookup finds the link.",
        .fix = "Give it a number.",
        .example = {.wrong = "{\"link_x\": {}}",
                    .fixed = "{\"link_0\": {}}",
                    .classes = {{"Join", 2, 1}, {"Camera", 0, 1}},
                    .stub = false}};
    static const qvgraph::Rule IDLE = {
        .code = "idle",
        .severity = qvgraph::Severity::Note,
        .family = "wiring",
        .title = "A node has nothing to do",
        .explanation = "It has no streams.",
        .device = "It waits.",
        .fix = "Remove the node.",
        .example = {.wrong = "{}", .fixed = "{}", .classes = {{"Idle", 0, 0}}}};
    static const std::vector<const qvgraph::Rule*> RULES = {&TWICE, &NO_NUMBER, &IDLE};
    return RULES;
}

// A rule with these findings in its example.
inline qvgraph::ExplainedRule explainedWith(const qvgraph::Rule& rule,
                                            std::vector<qvgraph::Finding> findings) {
    return {&rule, fileWith("example.json", std::string(rule.example.wrong), std::move(findings))};
}

// The first rule, with what the check would find in its example.
inline qvgraph::ExplainedRule explainedTwice() {
    const qvgraph::Rule& rule = *smallRules().at(0);
    qvgraph::Finding finding =
        findingAt(spanOf(std::string(rule.example.wrong), "\"fps\"", 2),
                  qvgraph::Severity::Warning,
                  "twice",
                  "'fps' is already in this object; this value overrides the earlier one, 25");
    finding.hint = "remove one of the two";
    return explainedWith(rule, {finding});
}

#endif  // QVGRAPH_TESTS_RENDER_SMALL_RULES_H_
