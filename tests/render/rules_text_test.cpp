// The rules, for people at a terminal.
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

std::string listOf(const std::vector<Rule>& rules) {
    std::ostringstream out;
    qvgraph::renderRuleListText(out, rules);
    return '\n' + out.str();
}

TEST(RuleTextTest, ExplainsARule) {
    const Rule rule = smallRules().at(0);
    EXPECT_EQ(explanationOf(explainedTwice(rule)), R"(
twice (warning): A key stands twice in one object

Which of the two counts is a matter of the order in the text. An object of
*JSON* has each key <once>.

On a device: The last one counts; the others are gone without a word.

Example:

    1 | {"link_0": {"fps": 25,
    2 |             "fps": 30}}
      |             ^~~~~

  warning: 'fps' stands here again: the one before it, which is 25, is lost
  hint: remove one of the two

Put right:

  {"link_0": {"fps": 30}}

Remove the one that is not meant.
)");
}

TEST(RuleTextTest, NamesTheClassesThatTheExampleNeeds) {
    const Rule rule = smallRules().at(1);
    EXPECT_EQ(explanationOf({&rule, fileWith("example.json", std::string(rule.example.wrong), {})}),
              R"(
no-number (error): The key 'link_<l>' of a link does not end in the number that
the framework would look for

A link is found by its number.

On a device: Nothing finds the link.

Example, with a class Join of 2 inputs and 1 output and a class Camera of no
inputs and 1 output, and without stubs for unknown classes:

    1 | {"link_x": {}}

Put right:

  {"link_0": {}}

Give it a number.
)");
}

TEST(RuleTextTest, WrapsWhatTheCheckSays) {
    const Rule rule = smallRules().at(2);
    qvgraph::Finding finding = findingAt({0, 2},
                                         qvgraph::Severity::Note,
                                         "idle",
                                         "the node 'node_0' of the class 'Idle' has neither inputs "
                                         "nor outputs");
    finding.hint = "remove it, or name another class in its \"node_name\", one that has streams";
    EXPECT_EQ(explanationOf({&rule, fileWith("example.json", "{}", {finding})}), R"(
idle (note): A node has nothing to do

It has no streams.

On a device: It waits.

Example, with a class Idle of no inputs and no outputs:

    1 | {}
      | ^~

  note: the node 'node_0' of the class 'Idle' has neither inputs nor outputs
  hint: remove it, or name another class in its "node_name", one that has
        streams

Put right:

  {}

Remove the node.
)");
}

TEST(RuleTextTest, AnExampleNeverReachesTheTerminalRaw) {
    Rule rule = smallRules().at(2);
    rule.example.wrong = "{}\033\xff";
    rule.example.right = "{}\u009b";
    const std::string shown =
        explanationOf({&rule, fileWith("example.json", std::string(rule.example.wrong), {})});
    EXPECT_EQ(shown.substr(shown.find("Example")),
              "Example, with a class Idle of no inputs and no outputs:\n\n"
              "    1 | {}\\x1b\ufffd\n\n"
              "Put right:\n\n"
              "  {}\\x9b\n\n"
              "Remove the node.\n");
}

TEST(RuleListTest, ListsRulesByFamily) {
    EXPECT_EQ(listOf(smallRules()), R"(
Text
  twice      warning  A key stands twice in one object
  no-number  error    The key 'link_<l>' of a link does not end in the number
                      that the framework would look for

Wiring
  idle       note     A node has nothing to do
)");
}

TEST(ConditionsTest, MayBeThatThereAreNoStubs) {
    EXPECT_EQ(qvgraph::conditionsOf({"", "", {}, false}), "without stubs for unknown classes");
    EXPECT_EQ(qvgraph::conditionsOf({"", "", {}, true}), "");
}

}  // namespace
