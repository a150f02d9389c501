// The text in pictures, except names.
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

    // Loads a pipe with only this node, and returns the node.
    const Node& NodeOf(const std::string& key, const std::string& nodeOptions) {
        Load("{\"pipe_0\": {\"" + key + "\": {\"node_opts\": " + nodeOptions + "}}}");
        return file->model.pipes().at(0).nodes.at(0);
    }
    const Node& NodeNamed(const std::string& name) {
        return NodeOf("node_0", "{\"node_name\": \"" + name + "\"}");
    }

    // Loads a pipe whose nodes have these options for streams, and returns its
    // first stream.
    DrawnStream StreamOf(const std::vector<std::string>& streamOptions) {
        std::string nodes;
        for (const std::string& options : streamOptions) {
            nodes += (nodes.empty() ? "\"node_" : ", \"node_") + std::to_string(mNodes++) +
                     R"(": {"node_opts": {"node_name": "X"}, "stream_opts": )" + options + '}';
        }
        Load("{\"pipe_0\": {" + nodes + "}}");
        return Drawn().pipes.at(0).streams.at(0);
    }

private:
    std::vector<Finding> mFindings;
    Findings mPointers;
    int mNodes = 0;
};

// ---- Findings ---------------------------------------------------------------

TEST_F(DrawWordsTest, TheWorstSeverityDecides) {
    EXPECT_EQ(worstOf(FindingsOf({"n-a", "w-a", "e-a"})), Severity::Error);
    EXPECT_EQ(worstOf(FindingsOf({"n-a", "w-a"})), Severity::Warning);
    EXPECT_EQ(worstOf(FindingsOf({"n-a"})), std::nullopt);
    EXPECT_EQ(worstOf(FindingsOf({})), std::nullopt);
}

TEST_F(DrawWordsTest, ErrorsComeFirstAndNotesAreOmitted) {
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"w-b", "n-a", "e-b", "w-a", "e-a"}))),
              (Texts{"error: e-b", "error: e-a", "warning: w-b", "warning: w-a"}));
}

TEST_F(DrawWordsTest, ACodeIsShownOnce) {
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"e-a", "e-a", "w-a"}))),
              (Texts{"error: e-a", "warning: w-a"}));
}

TEST_F(DrawWordsTest, AtMostFourCodesAreShown) {
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"e-a", "e-b", "e-c", "w-d"}))),
              (Texts{"error: e-a", "error: e-b", "error: e-c", "warning: w-d"}));
    EXPECT_EQ(TextsOf(remarksOn(FindingsOf({"e-a", "e-b", "e-c", "w-d", "w-e", "w-f"}))),
              (Texts{"error: e-a", "error: e-b", "error: e-c", "warning: w-d", "and 2 more"}));
}

TEST_F(DrawWordsTest, AnEndShowsAFormatThatDiffers) {
    DrawnStream stream = StreamOf({R"({"stream_output": "s", "stream_fmt_out": "nv12"})",
                                   R"({"stream_input": "s", "stream_fmt_in": "nv12"})",
                                   R"({"stream_input": "s", "stream_fmt_in": "rgb"})",
                                   R"({"stream_input": "s"})"});
    EXPECT_EQ(TextsOf(remarksOn(stream, stream.consumers.at(0), "consumes")), Texts());
    EXPECT_EQ(TextsOf(remarksOn(stream, stream.consumers.at(1), "consumes")),
              (Texts{"consumes rgb"}));
    EXPECT_EQ(TextsOf(remarksOn(stream, stream.consumers.at(2), "consumes")),
              (Texts{"consumes (no format)"}));
    stream.consumers[1].findings = FindingsOf({"w-a"});
    EXPECT_EQ(TextsOf(remarksOn(stream, stream.consumers[1], "consumes")),
              (Texts{"consumes rgb", "warning: w-a"}));
}

TEST_F(DrawWordsTest, AStreamWithoutAProducerHasTheFormatOfItsFirstConsumer) {
    const DrawnStream stream = StreamOf({R"({"stream_input": "s", "stream_fmt_in": "nv12"})",
                                         R"({"stream_input": "s", "stream_fmt_in": "rgb"})"});
    ASSERT_NE(formatOf(stream), nullptr);
    EXPECT_EQ(*formatOf(stream), "nv12");
    EXPECT_EQ(TextsOf(remarksOn(stream, stream.consumers[1], "consumes")), (Texts{"consumes rgb"}));
}

TEST_F(DrawWordsTest, AMissingFormatIsShown) {
    const DrawnStream stream = StreamOf({R"({"stream_input": "s"})"});
    EXPECT_EQ(formatOf(stream), nullptr);
    EXPECT_EQ(qvgraph::formatTextOf(formatOf(stream)), "(no format)");
}

TEST_F(DrawWordsTest, AMissingEndShowsItsFindingsOrWhatIsMissing) {
    DrawnStream stream;
    EXPECT_EQ(TextsOf(remarksOnLoose(stream, "no producer")), (Texts{"no producer"}));
    stream.findings = FindingsOf({"n-a"});
    EXPECT_EQ(TextsOf(remarksOnLoose(stream, "no producer")), (Texts{"no producer"}));
    stream.findings = FindingsOf({"w-a"});
    EXPECT_EQ(TextsOf(remarksOnLoose(stream, "no producer")), (Texts{"warning: w-a"}));
}

TEST_F(DrawWordsTest, AnInputMayBeLatestOnly) {
    Load(SMALL_PIPE);
    EXPECT_TRUE(hasLatestOnly(Drawn()));
    StreamOf({R"({"stream_input": "s", "stream_fmt_in": "nv12"})"});
    EXPECT_FALSE(hasLatestOnly(Drawn()));
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

TEST_F(DrawWordsTest, ALegendHasAtMost12Findings) {
    Load("{}", std::vector<Finding>(14, At("", "a")));
    const Texts texts = TextsOf(legendOf(Drawn()));
    ASSERT_EQ(texts.size(), 13U);
    EXPECT_EQ(texts[11], "error 1:1|it is wrong [a]");
    EXPECT_EQ(texts[12], "|and 2 more");
}

TEST_F(DrawWordsTest, ALegendHasAtMost40Links) {
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

TEST_F(DrawWordsTest, ASummaryCountsNodesAndFindings) {
    Load(SMALL_PIPE);
    EXPECT_EQ(summaryOf(Drawn()), "1 pipe, 4 nodes");
    Load(R"({"pipe_0": {}, "pipe_1": {"node_0": {}}})",
         {At("", "a"),
          At("/pipe_0", "b"),
          At("/pipe_1/node_0", "c", Severity::Warning),
          At("", "d", Severity::Note)});
    EXPECT_EQ(summaryOf(Drawn()), "2 pipes, 1 node, 2 errors and 1 warning");
}

TEST_F(DrawWordsTest, APipeShowsItsThreadsAndItsLinkMode) {
    Load(SMALL_PIPE);
    EXPECT_EQ(factsOf(Drawn().pipes[0]), "2 executor threads, default link mode async");
    Load(R"({"pipe_0": {"thread_opts": {"exec_thread_num": 1}}})");
    EXPECT_EQ(factsOf(Drawn().pipes[0]), "1 executor thread, default link mode none");
    Load(R"({"pipe_0": {"thread_opts": {"exec_thread_num": -1}}})");
    EXPECT_EQ(factsOf(Drawn().pipes[0]), "-1 executor threads, default link mode none");
}

// ---- Names and options ------------------------------------------------------

TEST_F(DrawWordsTest, ANameHasTwoParts) {
    const auto parts = [this](const std::string& name) {
        const Node& node = NodeNamed(name);
        return nameOf(node).className + '|' + nameOf(node).label;
    };
    EXPECT_EQ(parts("Camera"), "Camera|");
    EXPECT_EQ(parts("Camera#door#1"), "Camera|#door#1");
    EXPECT_EQ(parts("#door"), "|#door");
    EXPECT_EQ(parts("\\u001b#\\n"), "\\x1b|#\\x0a");
    EXPECT_EQ(parts(""), "(no name)|");
}

TEST_F(DrawWordsTest, AMemberWhoseIdMapsToADifferentKeyHasItsOwnName) {
    const auto nameIn = [this](const std::string& nodeOptions) {
        return nameOf(NodeOf("node_x", nodeOptions)).className;
    };
    EXPECT_EQ(nameIn(R"({"node_name": "Mine#1"})"), "Mine");
    EXPECT_EQ(nameIn(R"({"node_name": 5})"), "(no name)");
    EXPECT_EQ(nameIn("{}"), "(no name)");
    EXPECT_EQ(keyTextOf(NodeOf("node_x", "{}")), "node_x (id 0)");
}

TEST_F(DrawWordsTest, AKeyIsShownWithItsIdIfThatMapsToADifferentKey) {
    EXPECT_EQ(keyTextOf(NodeNamed("Camera")), "node_0");
    EXPECT_EQ(keyTextOf(NodeOf("node_7" + std::string(100, 'x'), "{}")),
              "node_7" + std::string(31, 'x') + "... (id 7)");
}

TEST_F(DrawWordsTest, OptionsHaveTheirValues) {
    EXPECT_EQ(qvgraph::optionsTextOf({{"a", std::string("x\n")},
                                      {"b", int32_t{-1}},
                                      {"c", int64_t{4294967296}},
                                      {"d", 0.5F}}),
              R"(a "x\x0a", b -1, c 4294967296, d 0.5)");
}

TEST_F(DrawWordsTest, OptionsThatAreShownElsewhereAreOmitted) {
    std::string options = R"("node_name": "X")";
    for (const char* key : {"stream_input_0",
                            "stream_output",
                            "stream_fmt_in",
                            "stream_fmt_out_1",
                            "stream_mode_in",
                            "stream_mode",
                            "fps"}) {
        options += std::string(", \"") + key + "\": 1";
    }
    const std::vector<OptionLine> lines = optionLinesOf(NodeOf("node_0", '{' + options + '}'));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].key + '|' + lines[0].value, "fps|1");
    EXPECT_EQ(lines[1].key + '|' + lines[1].value, "stream_mode|1");
}

TEST_F(DrawWordsTest, ANodeShowsAtMost30Options) {
    std::string options = R"("node_name": "X")";
    for (int i = 10; i < 42; ++i) {
        options += ", \"o" + std::to_string(i) + "\": \"" + std::string(127, 'v') + '"';
    }
    const std::vector<OptionLine> lines = optionLinesOf(NodeOf("node_0", '{' + options + '}'));
    ASSERT_EQ(lines.size(), 31U);
    EXPECT_EQ(lines[29].key + '|' + lines[29].value, "o39|\"" + std::string(28, 'v') + "...");
    EXPECT_EQ(lines[30].key + '|' + lines[30].value, "|and 2 more");
}

// ---- Long text --------------------------------------------------------------

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
