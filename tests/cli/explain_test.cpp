// The explanations of `qvgraph explain`.
#include <sstream>
#include <string>
#include <vector>

#include "tests/cli/command_test.h"

namespace {

class ExplainTest : public CommandTest {
protected:
    // The codes in the list, with their severities.
    struct Listed {
        std::string code;
        std::string severity;
    };
    std::vector<Listed> List() {
        std::vector<Listed> rules;
        std::istringstream lines(Run({"explain"}).out);
        for (std::string line; std::getline(lines, line);) {
            const bool isRule = line.size() > 2 && line.substr(0, 2) == "  " && line[2] != ' ';
            if (isRule) {
                std::istringstream words(line);
                rules.emplace_back();
                words >> rules.back().code >> rules.back().severity;
            }
        }
        return rules;
    }
};

TEST_F(ExplainTest, ListsTheRulesOfEveryFamily) {
    const std::string list = Run({"explain"}).out;
    std::string headings;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        headings += line.empty() || line[0] == ' ' ? "" : line + '\n';
    }
    EXPECT_EQ(headings, "Text\nPipes\nIds\nKeys\nOptions\nNodes\nStreams\nWiring\nComments\n");
    EXPECT_EQ(list.substr(0, 9), "Text\n  sy");
}

TEST_F(ExplainTest, ExplainsEveryRuleOfTheList) {
    ASSERT_GT(List().size(), 0U);
    for (const Listed& rule : List()) {
        const ProcessResult result = Run({"explain", rule.code});
        const std::string head = rule.code + " (" + rule.severity + "): ";
        EXPECT_EQ(result.out.substr(0, head.size()), head);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitCode, 0);
    }
}

// The finding in the explanation is a result of the check itself.
TEST_F(ExplainTest, ExplainsARule) {
    AssertRuns({"explain", "duplicate-key"},
               0,
               R"(duplicate-key (warning): An object has several members with the same key

If an object has several members with the same key, the last one in the text
wins. The others are discarded, with everything in them.

On a device: The device sees only the last one, and nothing is logged.

Example:

    1 | {"pipe_0": {
    2 |   "default_mode_link": "sync",
    3 |   "default_mode_link": "async"
      |   ^~~~~~~~~~~~~~~~~~~
    4 | }}

  warning: 'default_mode_link' is already in this object: the device discards
           the earlier value and uses this one
  hint: remove or rename one of them

Fixed:

  {"pipe_0": {
    "default_mode_link": "async"
  }}

Remove the other members, or give each member its own key.
)",
               "");
}

TEST_F(ExplainTest, ExplainsARuleAsMarkdown) {
    AssertRuns({"explain", "--format", "markdown", "duplicate-key"},
               0,
               R"(### duplicate-key

**warning**: An object has several members with the same key

If an object has several members with the same key, the last one in the text wins. The others are discarded, with everything in them.

On a device: The device sees only the last one, and nothing is logged.

Example:

```jsonc
{"pipe_0": {
  "default_mode_link": "sync",
  "default_mode_link": "async"
}}
```

> 3:3: warning: 'default_mode_link' is already in this object: the device discards the earlier value and uses this one
>
> hint: remove or rename one of them

Fixed:

```jsonc
{"pipe_0": {
  "default_mode_link": "async"
}}
```

Remove the other members, or give each member its own key.
)",
               "");
}

TEST_F(ExplainTest, RejectsAnUnknownCode) {
    AssertFails({"explain", "duplicate-keys"},
                "CODE: there is no rule 'duplicate-keys'; did you mean 'duplicate-key'?"
                " (see qvgraph explain --help)");
    AssertFails({"explain", "everything"},
                "CODE: there is no rule 'everything'; run qvgraph explain to list the rules"
                " (see qvgraph explain --help)");
    AssertFails({"explain", "\033[2J"},
                "CODE: there is no rule '\\x1b[2J'; run qvgraph explain to list the rules"
                " (see qvgraph explain --help)");
}

TEST_F(ExplainTest, WritesAFile) {
    AssertRuns({"explain", "-o", "rules.txt"}, 0, "", "");
    EXPECT_EQ(folder.read("rules.txt"), Run({"explain"}).out);
}

TEST_F(ExplainTest, HelpBeginsWithExamples) {
    const std::string beginning = R"(Explain the rules of the check.

Examples:
  qvgraph explain                      list all rules, one per line
)";
    EXPECT_EQ(Run({"explain", "--help"}).out.substr(0, beginning.size()), beginning);
}

TEST_F(ExplainTest, TheRulesPageIsUpToDate) {
    AssertRuns(
        {"explain", "--format", "markdown"}, 0, readFile(QVGRAPH_SOURCE_DIR "/docs/rules.md"), "");
}

}  // namespace
