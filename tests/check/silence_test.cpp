// One mistake gives one finding: which findings only follow from others, and
// in which order the rest come.
#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/rule.h"
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

class SilenceTest : public CheckTest {
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

using OrderTest = SilenceTest;

// The codes that a rule's findings silence.
std::vector<std::string_view> silencedBy(const Rule& rule) {
    std::vector<std::string_view> codes(rule.silences.begin(), rule.silences.end());
    codes.insert(codes.end(), rule.silencesRelated.begin(), rule.silencesRelated.end());
    return codes;
}

// ---- which findings stay ----------------------------------------------------

TEST_F(SilenceTest, ACauseSilencesAtItsPlace) {
    AssertCodes(R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": null, "fps": null},
        "stream_opts": {"stream_input_0": "a"}}}})",
                "node-name option-not-stored single-stream-key no-producer");
}

TEST_F(SilenceTest, ACauseSilencesAboveItsPlaceButNotBesideIt) {
    AssertCodes(R"({"pipe_0": {"executor_0": {"exec_opts": {}}, "executor_1": {}}})",
                "unknown-key executor-without-options");
}

TEST_F(SilenceTest, ACauseSilencesAtItsRelatedPlacesAlone) {
    AssertCodes(R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": "Camera"},
        "stream_opt": {"stream_output": "a"},
        "colour": "red"}}})",
                "no-streams unknown-key");
}

TEST_F(SilenceTest, ACauseThatIsNotSelectedSilencesAllTheSame) {
    const std::string text = R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": "Camera"},
        "stream_opts": {"stream_output": null, "stream_fmt_out": "f"}}}})";
    EXPECT_EQ(CodesWithout("option-not-stored", text), "stream-not-text");
    EXPECT_EQ(CodesWithout("stream-not-text", text), "");
}

TEST_F(SilenceTest, ACauseThatACommentSilencesSilencesAllTheSame) {
    const std::string before = R"({"pipe_0": {
        "node_0": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
        "node_1": {"node_opts": {"node_name": "Display"},
                   "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                                   "stream_mode_in": true}})";
    AssertCodes(before + "}}", "stream-mode");
    AssertCodes(before + "  // qvgraph: ignore[stream-mode]\n}}", "");
}

TEST_F(SilenceTest, NoMoreThanOneRuleSpeaksOfANamelessStream) {
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

// Otherwise an error could be hidden by something that a comment may hide.
TEST_F(SilenceTest, NothingLessSevereSilencesAnError) {
    for (const Rule& rule : qvgraph::rules()) {
        for (const std::string_view code : silencedBy(rule)) {
            const Rule* silenced = qvgraph::findRule(code);
            ASSERT_NE(silenced, nullptr) << rule.code << ' ' << code;
            EXPECT_LE(rule.severity, silenced->severity) << rule.code << ' ' << code;
        }
    }
}

// Otherwise two findings could silence each other, and none be left.
TEST_F(SilenceTest, NoRuleSilencesItselfBeItThroughOthers) {
    for (const Rule& rule : qvgraph::rules()) {
        std::set<std::string_view> reached;
        std::vector<std::string_view> waiting = silencedBy(rule);
        while (!waiting.empty()) {
            const std::string_view code = waiting.back();
            waiting.pop_back();
            if (reached.insert(code).second) {
                const std::vector<std::string_view> further = silencedBy(*qvgraph::findRule(code));
                waiting.insert(waiting.end(), further.begin(), further.end());
            }
        }
        EXPECT_EQ(reached.count(rule.code), 0U) << rule.code;
    }
}

// ---- in which order -----------------------------------------------------------

TEST_F(OrderTest, FindingsComeInTheOrderOfTheText) {
    AssertCodes(R"({"pipe_0": {
        "link_1": 5,
        "link_0": {"b": null, "a": "int32:x"},
        "default_mode_link": 5
    }})",
                "section-ignored option-not-stored typed-value link-mode-not-text");
}

TEST_F(OrderTest, AtOnePlaceTheyComeInTheOrderOfTheRules) {
    AssertCodes(R"({"pipe_0": {
        "node_0": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
        "node_1": {"node_opts": {"node_name": "Display"},
                   "stream_opts": {"stream_input": "a", "stream_fmt_in": "Int32:5"}}
    }})",
                "type-word format-mismatch");
}

// ---- what a check tells besides -------------------------------------------------

TEST_F(SilenceTest, FindingsAreCountedBySeverity) {
    const CheckedFile file = qvgraph::checkConfiguration(
        "test.json", R"({"pipe_0": {"node_0": 5, "link_0": {"a": null, "b": null}}})", {});
    EXPECT_EQ(countOf(file.findings, Severity::Error), 1U);
    EXPECT_EQ(countOf(file.findings, Severity::Warning), 2U);
    EXPECT_EQ(countOf(file.findings, Severity::Note), 0U);
}

TEST_F(SilenceTest, StrictnessTurnsWarningsIntoErrorsAndNotesIntoNothingElse) {
    CheckedFile file = qvgraph::checkConfiguration(
        "test.json", R"({"pipe_0": {"executor_0": {}, "link_0": {"a": null}}})", {});
    makeStrict(&file.findings);
    EXPECT_EQ(countOf(file.findings, Severity::Error), 1U);
    EXPECT_EQ(countOf(file.findings, Severity::Warning), 0U);
    EXPECT_EQ(countOf(file.findings, Severity::Note), 1U);
}

TEST_F(SilenceTest, AFileTellsWhetherADeviceWouldLoadIt) {
    const auto loads = [](const std::string& text) {
        return qvgraph::checkConfiguration("test.json", text, {}).loads;
    };
    EXPECT_TRUE(loads("{}"));
    EXPECT_TRUE(loads(R"({"pipe_0": 5})"));
    EXPECT_FALSE(loads("{"));
    EXPECT_FALSE(loads("null"));
    EXPECT_FALSE(loads("\xef\xbb\xbf{}"));
}

TEST_F(SilenceTest, ProgressIsToldPipeByPipe) {
    std::string told;
    CheckRequest request;
    request.progress = [&told](size_t done, size_t total) {
        told += std::to_string(done) + " of " + std::to_string(total) + '\n';
    };
    qvgraph::checkConfiguration("test.json", R"({"pipe_0": {}, "pipe_1": {}})", request);
    EXPECT_EQ(told, "1 of 2\n2 of 2\n");
}

}  // namespace
