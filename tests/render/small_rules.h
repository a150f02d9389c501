// Rules written out, for the tests of what shows them.
#ifndef QVGRAPH_TESTS_RENDER_SMALL_RULES_H_
#define QVGRAPH_TESTS_RENDER_SMALL_RULES_H_

#include <iterator>
#include <vector>

#include "render/explained_rule.h"
#include "tests/render/small_check.h"

// Two of one family and one of another.
inline std::vector<qvgraph::Rule> smallRules() {
    static const qvgraph::Rule RULES[] = {
        {"twice",
         qvgraph::Severity::Warning,
         "text",
         "A key stands twice in one object",
         "Which of the two counts is a matter of the order in the text. An object of *JSON* "
         "has each key <once>.",
         "The last one counts; the others are gone without a word.",
         "Remove the one that is not meant.",
         {"{\"link_0\": {\"fps\": 25,\n"
          "            \"fps\": 30}}",
          "{\"link_0\": {\"fps\": 30}}",
          {}},
         {},
         nullptr},
        {"no-number",
         qvgraph::Severity::Error,
         "text",
         "The key 'link_<l>' of a link does not end in the number that the framework would look "
         "for",
         "A link is found by its number.",
         "Nothing finds the link.",
         "Give it a number.",
         {"{\"link_x\": {}}", "{\"link_0\": {}}", {{"Join", 2, 1}, {"Camera", 0, 1}}, false},
         {},
         nullptr},
        {"idle",
         qvgraph::Severity::Note,
         "wiring",
         "A node has nothing to do",
         "It has no streams.",
         "It waits.",
         "Remove the node.",
         {"{}", "{}", {{"Idle", 0, 0}}},
         {},
         nullptr},
    };
    return {std::begin(RULES), std::end(RULES)};
}

// The first of them, with what the check would find in its example.
inline qvgraph::ExplainedRule explainedTwice(const qvgraph::Rule& rule) {
    const std::string text(rule.example.wrong);
    qvgraph::Finding finding = findingAt(spanOf(text, "\"fps\"", 2),
                                         qvgraph::Severity::Warning,
                                         "twice",
                                         "'fps' stands here again: the one before it, which is 25, "
                                         "is lost");
    finding.hint = "remove one of the two";
    return {&rule, fileWith("example.json", text, {finding})};
}

#endif  // QVGRAPH_TESTS_RENDER_SMALL_RULES_H_
