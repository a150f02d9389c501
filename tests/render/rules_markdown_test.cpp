// The rules as a page.
#include "render/rules_markdown.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/render/small_rules.h"

namespace {

using qvgraph::ExplainedRule;

const char* const TWICE = R"(
### twice

**warning**: A key occurs twice in one object

The order in the text decides which of the two values wins. An object of \*JSON\* has each key \<once\>.

On a device: The last value wins; the other one is silently discarded.

Example:

```jsonc
{"link_0": {"fps": 25,
            "fps": 30}}
```

> 2:13: warning: 'fps' is already in this object; this value overrides the earlier one, 25
>
> hint: remove one of the two

Fixed:

```jsonc
{"link_0": {"fps": 30}}
```

Remove the one that is not intended.
)";

const char* const NO_NUMBER = R"(
### no-number

**error**: The key 'link_\<l\>' of a link does not end in the number that the framework looks up

A link is looked up by its number.

On a device: No lookup finds the link.

Example, with class Join (2 inputs, 1 output) and class Camera (no inputs, 1 output), and without stubs for unknown classes:

```jsonc
{"link_x": {}}
```

Fixed:

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

Example, with class Idle (no inputs, no outputs):

```jsonc
{}
```

> 1:1: note: \_a_b c_ d\[\`e\`\]\|

Fixed:

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

    static ExplainedRule NoNumber() { return explainedWith(*smallRules().at(1), {}); }

    static ExplainedRule Idle() {
        return explainedWith(
            *smallRules().at(2),
            {findingAt({0, 2}, qvgraph::Severity::Note, "idle", "_a_b c_ d[`e`]|")});
    }
};

TEST_F(RulesMarkdownTest, ExplainsARule) {
    EXPECT_EQ(Shown(explainedTwice()), TWICE);
}

TEST_F(RulesMarkdownTest, NamesTheClassesThatTheExampleRequires) {
    EXPECT_EQ(Shown(NoNumber()), NO_NUMBER);
}

TEST_F(RulesMarkdownTest, EscapesWhatHasAMeaningInMarkdown) {
    EXPECT_EQ(Shown(Idle()), IDLE);
}

TEST_F(RulesMarkdownTest, ExplainsAllRulesByFamilyAfterATable) {
    std::ostringstream out;
    std::vector<ExplainedRule> explained;
    explained.push_back(explainedTwice());
    explained.push_back(NoNumber());
    explained.push_back(Idle());
    qvgraph::renderRulesMarkdown(out, explained);
    EXPECT_EQ(out.str(),
              R"(# Rules

The rules of `qvgraph check`. `qvgraph explain CODE` explains a rule on a
terminal, and `qvgraph explain --format markdown` writes this page.

- **error**: the device aborts, fails, or silently drops something.
- **warning**: the device continues with a different value.
- **note**: worth knowing.

A comment suppresses the warnings and notes of a rule that start on the same
line or, if the comment is alone on its line, on the next line:

```jsonc
// qvgraph: ignore[no-consumer] a recorder is plugged in here
```

| code | severity | what is wrong |
|---|---|---|
| [twice](#twice) | warning | A key occurs twice in one object |
| [no-number](#no-number) | error | The key 'link_\<l\>' of a link does not end in the number that the framework looks up |
| [idle](#idle) | note | A node has nothing to do |

## Text
)" + std::string(TWICE) +
                  NO_NUMBER + "\n## Wiring\n" + IDLE);
}

}  // namespace
