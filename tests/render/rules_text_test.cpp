// The rules as text for a terminal.
#include "render/rules_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/render/small_rules.h"

namespace {

using qvgraph::Rule;

// Both with a newline before them: the shape of a raw literal.
std::string explanationOf(const qvgraph::ExplainedRule& explained) {
    std::ostringstream out;
    qvgraph::renderRuleText(out, explained);
    return '\n' + out.str();
}

std::string listOf(const std::vector<const Rule*>& rules) {
    std::ostringstream out;
    qvgraph::renderRuleListText(out, rules);
    return '\n' + out.str();
}

TEST(RuleTextTest, ExplainsARule) {
    EXPECT_EQ(explanationOf(explainedTwice()), R"(
twice (warning): A key occurs twice in one object

The order in the text decides which of the two values wins. An object of *JSON*
has each key <once>.

On a device: The last value wins; the other one is silently discarded.

Example:

    1 | {"link_0": {"fps": 25,
    2 |             "fps": 30}}
      |             ^~~~~

  warning: 'fps' is already in this object; this value overrides the earlier
           one, 25
  hint: remove one of the two

Fixed:

  {"link_0": {"fps": 30}}

Remove the one that is not intended.
)");
}

TEST(RuleTextTest, NamesTheClassesThatTheExampleRequires) {
    EXPECT_EQ(explanationOf(explainedWith(*smallRules().at(1), {})),
              R"(
no-number (error): The key 'link_<l>' of a link does not end in the number that
the framework looks up

A link is looked up by its number.

On a device: No lookup finds the link.

Example, with class Join (2 inputs, 1 output) and class Camera (no inputs, 1
output), and without stubs for unknown classes:

    1 | {"link_x": {}}

Fixed:

  {"link_0": {}}

Give it a number.
)");
}

TEST(RuleTextTest, WrapsTheMessagesAndHintsOfFindings) {
    qvgraph::Finding finding = findingAt({0, 2},
                                         qvgraph::Severity::Note,
                                         "idle",
                                         "node 'node_0' of class 'Idle' has neither inputs "
                                         "nor outputs");
    finding.hint =
        "remove it, or write a different class in its \"node_name\", one that has streams";
    EXPECT_EQ(explanationOf(explainedWith(*smallRules().at(2), {finding})), R"(
idle (note): A node has nothing to do

It has no streams.

On a device: It waits.

Example, with class Idle (no inputs, no outputs):

    1 | {}
      | ^~

  note: node 'node_0' of class 'Idle' has neither inputs nor outputs
  hint: remove it, or write a different class in its "node_name", one that has
        streams

Fixed:

  {}

Remove the node.
)");
}

TEST(RuleTextTest, AnExampleIsPrintable) {
    Rule rule = *smallRules().at(2);
    rule.example.wrong = "{}\033\xff";
    rule.example.fixed = "{}\u009b";
    const std::string shown = explanationOf(explainedWith(rule, {}));
    EXPECT_EQ(shown.substr(shown.find("Example")),
              "Example, with class Idle (no inputs, no outputs):\n\n"
              "    1 | {}\\x1b\ufffd\n\n"
              "Fixed:\n\n"
              "  {}\\x9b\n\n"
              "Remove the node.\n");
}

TEST(RuleListTest, ListsRulesByFamily) {
    EXPECT_EQ(listOf(smallRules()), R"(
Text
  twice      warning  A key occurs twice in one object
  no-number  error    The key 'link_<l>' of a link does not end in the number
                      that the framework looks up

Wiring
  idle       note     A node has nothing to do
)");
}

TEST(ConditionsTest, DescribeClassesThatFailOrLookUpOptions) {
    const qvgraph::RuleExample example = {
        .wrong = "",
        .fixed = "",
        .classes = {{.name = "Broken", .inputs = 0, .outputs = 1, .createsNode = false},
                    {.name = "Mixer", .inputs = 2, .outputs = 0, .looksUpGain = true}}};
    EXPECT_EQ(qvgraph::conditionsOf(example),
              "with class Broken (creates no node) and class Mixer (2 inputs, no outputs, looks up "
              "'gain' as a float)");
}

TEST(ConditionsTest, MayExcludeStubs) {
    EXPECT_EQ(qvgraph::conditionsOf({.wrong = "", .fixed = "", .stub = false}),
              "without stubs for unknown classes");
    EXPECT_EQ(qvgraph::conditionsOf({.wrong = "", .fixed = ""}), "");
}

}  // namespace
