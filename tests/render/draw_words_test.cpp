// What pictures say beside names.
#include "render/draw_words.h"

#include <cstdint>
#include <string>
#include <vector>

#include "tests/render/draw_test.h"

namespace {

using qvgraph::DrawnStream;
using qvgraph::Finding;
using qvgraph::Findings;
using qvgraph::LegendLine;
using qvgraph::Node;
using qvgraph::OptionLine;
using qvgraph::Remark;
using qvgraph::Severity;

using Texts = std::vector<std::string>;

class DrawWordsTest : public DrawTest {
protected:
    // Findings with these codes: "e-" errors, "w-" warnings, "n-" notes.
    const Findings& FindingsOf(const std::vector<const char*>& codes) {
        mFindings.clear();
        mPointers.clear();
        mFindings.reserve(codes.size());
        for (const char* code : codes) {
            const Severity severity = *code == 'e'   ? Severity::Error
                                      : *code == 'w' ? Severity::Warning
                                                     : Severity::Note;
            mFindings.push_back(At("", code, severity));
            mPointers.push_back(&mFindings.back());
        }
        return mPointers;
    }

    static Texts TextsOf(const std::vector<Remark>& remarks) {
        Texts texts;
        for (const Remark& remark : remarks) {
            texts.push_back(remark.text);
        }
        return texts;
    }

    static Texts TextsOf(const std::vector<LegendLine>& legend) {
        Texts texts;
        for (const LegendLine& line : legend) {
            texts.push_back(line.head + '|' + line.text);
        }
        return texts;
    }

    // "node_0" with this name.
    static Node NodeNamed(const std::string& name) {
        Node node;
        node.key = "node_0";
        node.member = "node_0";
        node.name = name;
        node.className = name.substr(0, name.find('#'));
        return node;
    }

private:
    std::vector<Finding> mFindings;
    Findings mPointers;
};

// ---- Findings ---------------------------------------------------------------

TEST_F(DrawWordsTest, TheWorstFindingCounts) {
    EXPECT_EQ(worstOf(FindingsOf({"n-a", "w-a", "e-a"})), Severity::Error);
    EXPECT_EQ(worstOf(FindingsOf({"n-a", "w-a"})), Severity::Warning);
    EXPECT_EQ(worstOf(FindingsOf({"n-a"})), std::nullopt);
    EXPECT_EQ(worstOf(FindingsOf({})), std::nullopt);
}

TEST_F(DrawWordsTest, ErrorsComeFirstAndNotesAreNotPainted) {
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"w-b", "n-a", "e-b", "w-a", "e-a"}))),
              (Texts{"error: e-b", "error: e-a", "warning: w-b", "warning: w-a"}));
}

TEST_F(DrawWordsTest, ACodeIsToldOnce) {
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"e-a", "e-a", "w-a"}))),
              (Texts{"error: e-a", "warning: w-a"}));
}

TEST_F(DrawWordsTest, AFewCodesAreTold) {
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"e-a", "e-b", "e-c", "w-d"}))),
              (Texts{"error: e-a", "error: e-b", "error: e-c", "warning: w-d"}));
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"e-a", "e-b", "e-c", "w-d", "w-e", "w-f"}))),
              (Texts{"error: e-a", "error: e-b", "error: e-c", "warning: w-d", "and 2 more"}));
}

TEST_F(DrawWordsTest, AnEndTellsAFormatOfItsOwn) {
    DrawnStream stream;
    stream.producers = {{0, "nv12", false, {}}};
    EXPECT_EQ(TextsOf(remarksOn(stream, {1, "nv12", false, {}}, "takes")), Texts());
    EXPECT_EQ(TextsOf(remarksOn(stream, {1, "rgb", false, FindingsOf({"w-a"})}, "takes")),
              (Texts{"takes rgb", "warning: w-a"}));
    EXPECT_EQ(TextsOf(remarksOn(stream, {1, std::nullopt, false, {}}, "takes")),
              (Texts{"takes (no format)"}));
}

TEST_F(DrawWordsTest, AStreamThatNobodyGivesHasTheFormatThatIsTaken) {
    DrawnStream stream;
    stream.consumers = {{0, "nv12", false, {}}, {1, "rgb", false, {}}};
    EXPECT_EQ(formatOf(stream), "nv12");
    EXPECT_EQ(TextsOf(remarksOn(stream, stream.consumers[1], "takes")), (Texts{"takes rgb"}));
}

TEST_F(DrawWordsTest, ALooseEndSaysWhatIsMissing) {
    DrawnStream stream;
    EXPECT_EQ(TextsOf(remarksOnLoose(stream, "no producer")), (Texts{"no producer"}));
    stream.findings = FindingsOf({"n-a"});
    EXPECT_EQ(TextsOf(remarksOnLoose(stream, "no producer")), (Texts{"no producer"}));
    stream.findings = FindingsOf({"w-a"});
    EXPECT_EQ(TextsOf(remarksOnLoose(stream, "no producer")), (Texts{"warning: w-a"}));
}

// ---- Legends ----------------------------------------------------------------

TEST_F(DrawWordsTest, ALegendHasOptionSetsAndFindings) {
    Load(SMALL_PIPE,
         {At("/pipe_0/node_0", "a", Severity::Warning),
          At("/pipe_0/node_0", "b", Severity::Note),
          At("", "c"),
          At("/pipe_0/link_0", "d")});
    const auto drawing = Drawn();
    EXPECT_EQ(TextsOf(legendOf(drawing, drawing.pipes[0])),
              (Texts{"executor_0|name \"fast\", priority 80",
                     "link_0|depth 3, mode \"sync\"",
                     "error 1:1|it is wrong [d]",
                     "warning 1:1|it is wrong [a]"}));
    EXPECT_EQ(TextsOf(legendOf(drawing)), (Texts{"error 1:1|it is wrong [c]"}));
}

TEST_F(DrawWordsTest, ALegendHasAFewFindings) {
    Load("{}", std::vector<Finding>(14, At("", "a")));
    const Texts texts = TextsOf(legendOf(Drawn()));
    ASSERT_EQ(texts.size(), 13U);
    EXPECT_EQ(texts[11], "error 1:1|it is wrong [a]");
    EXPECT_EQ(texts[12], "|and 2 more");
}

TEST_F(DrawWordsTest, ALegendHasAFewOptionSets) {
    std::string links;
    for (int i = 10; i < 52; ++i) {
        links += (links.empty() ? "\"link_" : ", \"link_") + std::to_string(i) + "\": {}";
    }
    Load("{\"pipe_0\": {" + links + "}}");
    const auto drawing = Drawn();
    const Texts texts = TextsOf(legendOf(drawing, drawing.pipes[0]));
    ASSERT_EQ(texts.size(), 41U);
    EXPECT_EQ(texts[39], "link_49|");
    EXPECT_EQ(texts[40], "|and 2 more");
}

TEST_F(DrawWordsTest, ASummaryCounts) {
    Load(SMALL_PIPE);
    EXPECT_EQ(summaryOf(Drawn()), "1 pipe, 4 nodes");
    Load(R"({"pipe_0": {}, "pipe_1": {"node_0": {}}})",
         {At("", "a"),
          At("/pipe_0", "b"),
          At("/pipe_1/node_0", "c", Severity::Warning),
          At("", "d", Severity::Note)});
    EXPECT_EQ(summaryOf(Drawn()), "2 pipes, 1 node, 2 errors and 1 warning");
}

TEST_F(DrawWordsTest, FactsOfAPipe) {
    Load(SMALL_PIPE);
    EXPECT_EQ(factsOf(Drawn().pipes[0]), "2 executor threads, default link mode async");
    Load(R"({"pipe_0": {"thread_opts": {"exec_thread_num": 1}}})");
    EXPECT_EQ(factsOf(Drawn().pipes[0]), "1 executor thread, default link mode none");
    Load(R"({"pipe_0": {"thread_opts": {"exec_thread_num": -1}}})");
    EXPECT_EQ(factsOf(Drawn().pipes[0]), "-1 executor threads, default link mode none");
}

// ---- Names and options ------------------------------------------------------

TEST_F(DrawWordsTest, ANodeHasItsNameInTwoParts) {
    const auto parts = [](const std::string& name) {
        const Node node = NodeNamed(name);
        return nameOf(node).className + '|' + nameOf(node).label;
    };
    EXPECT_EQ(parts("Camera"), "Camera|");
    EXPECT_EQ(parts("Camera#door#1"), "Camera|#door#1");
    EXPECT_EQ(parts("#door"), "|#door");
    EXPECT_EQ(parts("\033#\n"), "\\x1b|#\\x0a");
    EXPECT_EQ(parts(""), "(no name)|");
}

TEST_F(DrawWordsTest, AMemberWhoseIdLeadsElsewhereHasItsOwnName) {
    Node node = NodeNamed("Other");
    node.member = "node_x";
    node.stored = {{"node_name", std::string("Mine#1")}};
    EXPECT_EQ(nameOf(node).className, "Mine");
    EXPECT_EQ(keyTextOf(node), "node_x (id 0)");
    node.stored = {{"node_name", int32_t{5}}};
    EXPECT_EQ(nameOf(node).className, "(no name)");
    node.stored.clear();
    EXPECT_EQ(nameOf(node).className, "(no name)");
}

TEST_F(DrawWordsTest, AKeyIsShownAsItIs) {
    Node node = NodeNamed("Camera");
    EXPECT_EQ(keyTextOf(node), "node_0");
    node.id = 7;
    node.member = "node_7" + std::string(100, 'x');
    EXPECT_EQ(keyTextOf(node), "node_7" + std::string(31, 'x') + "... (id 7)");
}

TEST_F(DrawWordsTest, OptionsHaveTheirValues) {
    EXPECT_EQ(qvgraph::optionsTextOf({{"a", std::string("x\n")},
                                      {"b", int32_t{-1}},
                                      {"c", int64_t{4294967296}},
                                      {"d", 0.5F}}),
              R"(a "x\x0a", b -1, c 4294967296, d 0.5)");
}

TEST_F(DrawWordsTest, OptionsThatAreShownOtherwiseAreLeftOut) {
    Node node;
    for (const char* key : {"node_name",
                            "stream_input_0",
                            "stream_output",
                            "stream_fmt_in",
                            "stream_fmt_out_1",
                            "stream_mode_in",
                            "stream_mode",
                            "fps"}) {
        node.stored.emplace(key, int32_t{1});
    }
    const std::vector<OptionLine> lines = optionLinesOf(node);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].key + '|' + lines[0].value, "fps|1");
    EXPECT_EQ(lines[1].key + '|' + lines[1].value, "stream_mode|1");
}

TEST_F(DrawWordsTest, ANodeShowsAFewOptions) {
    Node node;
    for (int i = 0; i < 32; ++i) {
        node.stored.emplace("o" + std::to_string(10 + i), std::string(127, 'v'));
    }
    const std::vector<OptionLine> lines = optionLinesOf(node);
    ASSERT_EQ(lines.size(), 31U);
    EXPECT_EQ(lines[29].key + '|' + lines[29].value, "o39|\"" + std::string(28, 'v') + "...");
    EXPECT_EQ(lines[30].key + '|' + lines[30].value, "|and 2 more");
}

// ---- Texts that are too long ------------------------------------------------

TEST_F(DrawWordsTest, ATextIsClipped) {
    EXPECT_EQ(qvgraph::clipped("12345", 5), "12345");
    EXPECT_EQ(qvgraph::clipped("123456", 5), "12...");
    EXPECT_EQ(qvgraph::clipped("\u00e4\u00f6\u00fc\U0001f600xy", 5), "\u00e4\u00f6...");
    EXPECT_EQ(qvgraph::clipped("\n\n", 5), "\\x...");
    EXPECT_EQ(qvgraph::clipped("", 5), "");
}

TEST_F(DrawWordsTest, ATextIsBrokenIntoLines) {
    EXPECT_EQ(qvgraph::linesOf("one two three", 7), (Texts{"one two", "three"}));
    EXPECT_EQ(qvgraph::linesOf("one two three", 6), (Texts{"one", "two", "three"}));
    EXPECT_EQ(qvgraph::linesOf("abcdefgh", 3), (Texts{"abc", "def", "gh"}));
    EXPECT_EQ(qvgraph::linesOf("\u00e4\u00f6\u00fc", 2), (Texts{"\u00e4\u00f6", "\u00fc"}));
    EXPECT_EQ(qvgraph::linesOf("", 3), (Texts{""}));
}

}  // namespace
