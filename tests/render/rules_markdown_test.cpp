// The rules as a page.
#include "render/rules_markdown.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/render/small_rules.h"

namespace {

using qvgraph::ExplainedRule;
using qvgraph::Rule;

const char* const TWICE = R"(
### twice

**warning**: A key stands twice in one object

Which of the two counts is a matter of the order in the text. An object of \*JSON\* has each key \<once\>.

On a device: The last one counts; the others are gone without a word.

Example:

```jsonc
{"link_0": {"fps": 25,
            "fps": 30}}
```

> 2:13: warning: 'fps' stands here again: the one before it, which is 25, is lost
>
> hint: remove one of the two

Put right:

```jsonc
{"link_0": {"fps": 30}}
```

Remove the one that is not meant.
)";

const char* const NO_NUMBER = R"(
### no-number

**error**: The key 'link_\<l\>' of a link does not end in the number that the framework would look for

A link is found by its number.

On a device: Nothing finds the link.

Example, with a class Join of 2 inputs and 1 output and a class Camera of no inputs and 1 output, and without stubs for unknown classes:

```jsonc
{"link_x": {}}
```

Put right:

```jsonc
{"link_0": {}}
```

Give it a number.
)";

const char* const IDLE = R"(
### idle

**note**: A node has nothing to do

It has no streams.

On a device: It waits.

Example, with a class Idle of no inputs and no outputs:

```jsonc
{}
```

> 1:1: note: \_a_b c_ d\[\`e\`\]\|

Put right:

```jsonc
{}
```

Remove the node.
)";

class RulesMarkdownTest : public testing::Test {
protected:
    // With a newline before it: the shape of a raw literal.
    static std::string Shown(const ExplainedRule& explained) {
        std::ostringstream out;
        qvgraph::renderRuleMarkdown(out, explained);
        return '\n' + out.str();
    }

    const std::vector<Rule> RULES = smallRules();
    const ExplainedRule FIRST = explainedTwice(RULES.at(0));
    const ExplainedRule SECOND = {
        &RULES.at(1), fileWith("example.json", std::string(RULES.at(1).example.wrong), {})};
    const ExplainedRule THIRD = {
        &RULES.at(2),
        fileWith("example.json",
                 "{}",
                 {findingAt({0, 2}, qvgraph::Severity::Note, "idle", "_a_b c_ d[`e`]|")})};
};

TEST_F(RulesMarkdownTest, ExplainsARule) {
    EXPECT_EQ(Shown(FIRST), TWICE);
}

TEST_F(RulesMarkdownTest, NamesTheClassesThatTheExampleNeeds) {
    EXPECT_EQ(Shown(SECOND), NO_NUMBER);
}

TEST_F(RulesMarkdownTest, EscapesWhatMarkdownGivesAMeaning) {
    EXPECT_EQ(Shown(THIRD), IDLE);
}

TEST_F(RulesMarkdownTest, ExplainsAllByFamilyBehindATable) {
    std::ostringstream out;
    qvgraph::renderRulesMarkdown(out, {FIRST, SECOND, THIRD});
    EXPECT_EQ(out.str(),
              R"(# Rules

What `qvgraph check` finds in a configuration. `qvgraph explain CODE` tells the
same on a terminal, and `qvgraph explain --format markdown` writes this page.

- **error**: a device would abort, fail, or leave something out that is meant.
- **warning**: it would go on with something else than is written.
- **note**: worth knowing.

A comment silences the warnings and notes of a rule that start on its line, or,
where it has a line of its own, on the next:

```jsonc
// qvgraph: ignore[no-consumer] a recorder is plugged in here
```

| code | severity | what is wrong |
|---|---|---|
| [twice](#twice) | warning | A key stands twice in one object |
| [no-number](#no-number) | error | The key 'link_\<l\>' of a link does not end in the number that the framework would look for |
| [idle](#idle) | note | A node has nothing to do |

## Text
)" + std::string(TWICE) +
                  NO_NUMBER + "\n## Wiring\n" + IDLE);
}

}  // namespace
