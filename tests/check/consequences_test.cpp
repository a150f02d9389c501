// One mistake has one finding: consequences of another finding are dropped. Also the
// order of findings, and the rest of a check's result.
#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/rules.h"
#include "tests/check/check_test.h"

namespace {

using qvgraph::CheckedFile;
using qvgraph::CheckRequest;
using qvgraph::Finding;
using qvgraph::Rule;
using qvgraph::Severity;

std::string codesOf(const std::vector<Finding>& findings) {
    std::string codes;
    for (const Finding& finding : findings) {
        codes += (codes.empty() ? "" : " ") + std::string(finding.code);
    }
    return codes;
}

class ConsequencesTest : public CheckTest {
protected:
    static std::string CodesWithout(std::string_view code, const std::string& text) {
        CheckRequest request;
        request.selects = [code](std::string_view other) { return other != code; };
        return codesOf(qvgraph::checkConfiguration("test.json", text, request).findings);
    }

    static void AssertCodes(const std::string& text, const std::string& codes) {
        EXPECT_EQ(CodesIn(text), codes) << FindingsIn(text);
    }
};

using OrderTest = ConsequencesTest;
using CheckedFileTest = ConsequencesTest;

// The rules whose findings a rule's findings drop.
std::vector<const Rule*> consequencesOf(const Rule& rule) {
    std::vector<const Rule*> rules(rule.consequences);
    rules.insert(rules.end(), rule.relatedConsequences.begin(), rule.relatedConsequences.end());
    return rules;
}

// ---- Which findings remain --------------------------------------------------

TEST_F(ConsequencesTest, ConsequencesAreDroppedAtTheLocationOfTheirCause) {
    AssertCodes(R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": null, "fps": null},
        "stream_opts": {"stream_input_0": "a"}}}})",
                "node-name option-not-stored single-stream-key no-producer");
}

TEST_F(ConsequencesTest, ConsequencesAreDroppedAboveTheirCauseButNotNextToIt) {
    AssertCodes(R"({"pipe_0": {"executor_0": {"exec_opts": {}}, "executor_1": {}}})",
                "unknown-key executor-without-options");
}

TEST_F(ConsequencesTest, RelatedConsequencesAreDroppedOnlyAtRelatedLocations) {
    AssertCodes(R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": "Camera"},
        "stream_opt": {"stream_output": "a"},
        "colour": "red"}}})",
                "no-streams unknown-key");
}

TEST_F(ConsequencesTest, ACauseThatIsNotSelectedStillDropsItsConsequences) {
    const std::string text = R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": "Camera"},
        "stream_opts": {"stream_output": null, "stream_fmt_out": "f"}}}})";
    EXPECT_EQ(CodesWithout("option-not-stored", text), "stream-not-text");
    EXPECT_EQ(CodesWithout("stream-not-text", text), "");
}

TEST_F(ConsequencesTest, ASuppressedCauseStillDropsItsConsequences) {
    const std::string before = R"({"pipe_0": {
        "node_0": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
        "node_1": {"node_opts": {"node_name": "Display"},
                   "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                                   "stream_mode_in": true}})";
    AssertCodes(before + "}}", "stream-mode");
    AssertCodes(before + "  // qvgraph: ignore[stream-mode]\n}}", "");
}

TEST_F(ConsequencesTest, OnlyOneRuleReportsANamelessStream) {
    Register({"Join", 2, 0});
    Register({"Sink", 1, 0});
    const auto codesOfInputs = [](const std::string& name, const std::string& inputs) {
        return CodesIn(R"({"pipe_0": {"node_0": {
            "node_opts": {"node_name": "Camera"},
            "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
            "node_1": {"node_opts": {"node_name": ")" +
                       name + R"("}, "stream_opts": {)" + inputs + "}}}}");
    };
    const std::string one = R"("stream_input_0": "a", "stream_fmt_in_0": "f")";
    const std::string two = one + R"(, "stream_input_1": "a", "stream_fmt_in_1": "f")";
    const std::string mixed = one + R"(, "stream_input": "a", "stream_fmt_in": "f")";
    EXPECT_EQ(codesOfInputs("Display", one), "single-stream-key");
    EXPECT_EQ(codesOfInputs("Sink", one), "single-stream-key");
    EXPECT_EQ(codesOfInputs("Join", one), "stream-name-missing");
    EXPECT_EQ(codesOfInputs("Sink", two), "stream-count");
    EXPECT_EQ(codesOfInputs("Join", two), "");
    EXPECT_EQ(codesOfInputs("Display", mixed), "stream-keys-mixed");
    EXPECT_EQ(codesOfInputs("Join", mixed), "stream-keys-mixed");
    EXPECT_EQ(codesOfInputs("Sink", mixed), "stream-count");
}

// Otherwise a finding that a comment can suppress could drop an error.
TEST_F(ConsequencesTest, ACauseIsAtLeastAsSevereAsItsConsequences) {
    for (const Rule* rule : qvgraph::rules()) {
        for (const Rule* consequence : consequencesOf(*rule)) {
            EXPECT_LE(rule->severity, consequence->severity)
                << rule->code << ' ' << consequence->code;
        }
    }
}

// Otherwise two findings could drop each other, so that none remains.
TEST_F(ConsequencesTest, NoRuleIsItsOwnConsequence) {
    for (const Rule* rule : qvgraph::rules()) {
        std::set<const Rule*> reached;
        std::vector<const Rule*> waiting = consequencesOf(*rule);
        while (!waiting.empty()) {
            const Rule* consequence = waiting.back();
            waiting.pop_back();
            if (reached.insert(consequence).second) {
                const std::vector<const Rule*> further = consequencesOf(*consequence);
                waiting.insert(waiting.end(), further.begin(), further.end());
            }
        }
        EXPECT_EQ(reached.count(rule), 0U) << rule->code;
    }
}

// ---- Order --------------------------------------------------------------------

TEST_F(OrderTest, FindingsAreInTheOrderOfTheText) {
    AssertCodes(R"({"pipe_0": {
        "link_1": 5,
        "link_0": {"b": null, "a": "int32:x"},
        "default_mode_link": 5
    }})",
                "section-ignored option-not-stored typed-value link-mode-not-text");
}

TEST_F(OrderTest, FindingsAtOneLocationAreInTheOrderOfTheRules) {
    AssertCodes(R"({"pipe_0": {
        "node_0": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
        "node_1": {"node_opts": {"node_name": "Display"},
                   "stream_opts": {"stream_input": "a", "stream_fmt_in": "Int32:5"}}
    }})",
                "type-word format-mismatch");
}

// ---- The rest of a result -------------------------------------------------------

TEST_F(CheckedFileTest, FindingsAreCountedBySeverity) {
    const CheckedFile file = qvgraph::checkConfiguration(
        "test.json", R"({"pipe_0": {"node_0": 5, "link_0": {"a": null, "b": null}}})", {});
    EXPECT_EQ(countOf(file.findings, Severity::Error), 1U);
    EXPECT_EQ(countOf(file.findings, Severity::Warning), 2U);
    EXPECT_EQ(countOf(file.findings, Severity::Note), 0U);
}

TEST_F(CheckedFileTest, StrictnessTurnsOnlyWarningsIntoErrors) {
    CheckedFile file = qvgraph::checkConfiguration(
        "test.json", R"({"pipe_0": {"executor_0": {}, "link_0": {"a": null}}})", {});
    makeStrict(&file.findings);
    EXPECT_EQ(countOf(file.findings, Severity::Error), 1U);
    EXPECT_EQ(countOf(file.findings, Severity::Warning), 0U);
    EXPECT_EQ(countOf(file.findings, Severity::Note), 1U);
}

TEST_F(CheckedFileTest, AFileRecordsWhetherADeviceLoadsIt) {
    const auto loads = [](const std::string& text) {
        return qvgraph::checkConfiguration("test.json", text, {}).model.loads();
    };
    EXPECT_TRUE(loads("{}"));
    EXPECT_TRUE(loads(R"({"pipe_0": 5})"));
    EXPECT_FALSE(loads("{"));
    EXPECT_FALSE(loads("null"));
    EXPECT_FALSE(loads("\xef\xbb\xbf{}"));
}

TEST_F(CheckedFileTest, ProgressIsReportedPipeByPipe) {
    std::string reported;
    CheckRequest request;
    request.progress = [&reported](size_t done, size_t total) {
        reported += std::to_string(done) + " of " + std::to_string(total) + '\n';
    };
    qvgraph::checkConfiguration("test.json", R"({"pipe_0": {}, "pipe_1": {}})", request);
    EXPECT_EQ(reported, "1 of 2\n2 of 2\n");
}

}  // namespace
