// The graph for Graphviz.
#include "render/draw_dot.h"

#include <sstream>
#include <string>
#include <vector>

#include "tests/render/draw_test.h"
#include "tests/support/temporary_folder.h"

namespace {

using qvgraph::DotRequest;
using qvgraph::Severity;

class DrawDotTest : public DrawTest {
protected:
    std::string Dot(const DotRequest& request = {}) const {
        std::ostringstream out;
        renderDrawDot(out, Drawn(), request);
        return out.str();
    }

    // The lines that begin with the names of these nodes, "node_0" or
    // "node_0 -> stream_1", without the pipe's key.
    std::vector<std::string> LinesOf(const std::string& names,
                                     const DotRequest& request = {}) const {
        std::vector<std::string> lines;
        std::istringstream dot(Dot(request));
        const std::string start = "    " + names + " [";
        for (std::string line; std::getline(dot, line);) {
            const std::string shorter = Replaced(Replaced(line, "\"pipe_0/", "\""), "\"", "");
            if (shorter.compare(0, start.size(), start) == 0) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    // An attribute of the only such line; "" if it has none.
    std::string AttributeOf(const std::string& names,
                            const std::string& attribute,
                            const DotRequest& request = {}) const {
        const std::vector<std::string> lines = LinesOf(names, request);
        if (lines.size() != 1) {
            return std::to_string(lines.size()) + " lines";
        }
        const size_t first = lines[0].find('[' + attribute + '=');
        const size_t name =
            first != std::string::npos ? first : lines[0].find(", " + attribute + '=');
        if (name == std::string::npos) {
            return "";
        }
        const size_t begin = lines[0].find('=', name) + 1;
        const bool isQuoted = lines[0][begin] == '"';
        const size_t end = attribute == "label" ? lines[0].find(">, ", begin) + 1
                           : isQuoted           ? lines[0].find('"', begin + 1) + 1
                                                : lines[0].find_first_of(",]", begin);
        return lines[0].substr(begin, end - begin);
    }

    // What a label shows: '/' between its lines, '|' between its rows.
    std::string LabelOf(const std::string& names, const DotRequest& request = {}) const {
        const std::string html = AttributeOf(names, "label", request);
        std::string text;
        for (size_t i = 1; i + 1 < html.size(); ++i) {
            if (html[i] != '<') {
                text += html[i];
                continue;
            }
            const size_t end = html.find('>', i);
            const std::string tag = html.substr(i, end + 1 - i);
            text += tag == "<BR/>" ? "/" : tag == "<TR>" && !text.empty() ? "|" : "";
            i = end;
        }
        return text;
    }

    static std::string Replaced(std::string text, const std::string& old, const std::string& by) {
        for (size_t at = text.find(old); at != std::string::npos; at = text.find(old, at)) {
            text.replace(at, old.size(), by);
            at += by.size();
        }
        return text;
    }
};

TEST_F(DrawDotTest, DrawsAllOfAPipe) {
    Load(SMALL_PIPE);
    EXPECT_EQ(Dot(), readFile(QVGRAPH_TEST_DATA "/draw/door.dot"));
}

TEST_F(DrawDotTest, TheSameInputProducesTheSameBytes) {
    Load(SMALL_PIPE, {At("/pipe_0/node_1", "a"), At("/pipe_0/link_0", "b")});
    const std::string first = Dot();
    Load(SMALL_PIPE, {At("/pipe_0/node_1", "a"), At("/pipe_0/link_0", "b")});
    EXPECT_EQ(Dot(), first);
}

TEST_F(DrawDotTest, TheFirstPipeIsTheLastInTheGraph) {
    Load(R"({"pipe_0": {}, "pipe_1": {}})");
    const std::string dot = Dot();
    EXPECT_LT(dot.find("subgraph \"cluster_pipe_1\" {"), dot.find("subgraph \"cluster_pipe_0\" {"));
}

TEST_F(DrawDotTest, APipeWithoutNodesIsMarked) {
    Load(R"({"pipe_0": {}})");
    EXPECT_EQ(LabelOf("empty"), "no nodes");
}

TEST_F(DrawDotTest, AMemberWhoseIdMapsToADifferentKeyIsNamedByItsPosition) {
    Load(R"({"pipe_0": {"node_0": {}, "node_00": {"node_opts": {"node_name": "Camera"}}}})");
    EXPECT_EQ(LabelOf("node_0"), "(no name)/node_0");
    EXPECT_EQ(LabelOf("#1"), "Camera/node_00 (id 0)");
    EXPECT_EQ(AttributeOf("#1", "id"), "\"p0n1\"");
}

TEST_F(DrawDotTest, ManyNodesAreLaidOutFaster) {
    const auto load = [this](int count) {
        std::string nodes;
        for (int i = 0; i < count; ++i) {
            nodes += (i == 0 ? "\"node_" : ", \"node_") + std::to_string(i) + "\": {}";
        }
        Load("{\"pipe_0\": {" + nodes + "}}");
    };
    load(400);
    EXPECT_EQ(Dot().find("mclimit"), std::string::npos);
    load(401);
    EXPECT_NE(Dot().find(", mclimit=0.3, nslimit=1]"), std::string::npos);
}

// ---- Legends ----------------------------------------------------------------

TEST_F(DrawDotTest, ALegendNamesTheFileAndSummarisesIt) {
    Load(R"({"pipe_0": {}})", {At("", "a"), At("/pipe_0", "b", Severity::Warning)});
    EXPECT_NE(Dot().find("<B>door.json</B>"), std::string::npos);
    EXPECT_NE(Dot().find(">1 pipe, 0 nodes, 1 error and 1 warning</FONT>"), std::string::npos);
    EXPECT_NE(Dot().find("<B>error 1:1</B>  it is wrong [a]"), std::string::npos);
}

TEST_F(DrawDotTest, MarksAreExplainedIfTheyOccur) {
    Load(SMALL_PIPE);
    EXPECT_NE(Dot().find("input keeps the latest item only"), std::string::npos);
    Load(R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "X"},
                        "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}}}})");
    EXPECT_EQ(Dot().find("input keeps the latest item only"), std::string::npos);
}

TEST_F(DrawDotTest, APipeShowsItsOptionSetsAndFindingsAtTheTop) {
    Load(SMALL_PIPE, {At("/pipe_0/node_1", "a"), At("/pipe_0/link_0", "b", Severity::Warning)});
    EXPECT_EQ(LabelOf("graph"),
              "pipe_0  2 executor threads, default link mode async"
              "|executor_0  name \"fast\", priority 80"
              "|link_0  depth 3, mode \"sync\""
              "|error 1:1  it is wrong [a]"
              "|warning 1:1  it is wrong [b]");
    EXPECT_NE(Dot().find("<FONT COLOR=\"#7d6100\" POINT-SIZE=\"10\"><B>link_0</B>"),
              std::string::npos);
}

TEST_F(DrawDotTest, ALongLegendContinuesInFurtherLines) {
    const std::string word(60, 'x');
    Load("{\"pipe_0\": {\"link_0\": {\"a\": \"" + word + "\", \"b\": \"" + word + "\"}}}");
    EXPECT_EQ(LabelOf("graph"),
              "pipe_0  0 executor threads, default link mode none"
              "|link_0  a \"" +
                  word + "\", b/\"" + word + "\"");
}

TEST_F(DrawDotTest, ACycleHasSpaceBelowTheLegend) {
    Load(R"({"pipe_0": {
  "node_0": {"node_opts": {"node_name": "A"},
             "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                             "stream_output": "a", "stream_fmt_out": "f"}},
  "node_1": {"node_opts": {"node_name": "B"},
             "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                             "stream_output": "b", "stream_fmt_out": "f"}}
}})");
    EXPECT_EQ(LabelOf("graph"), "pipe_0  0 executor threads, default link mode none|&#160;");
    EXPECT_NE(Dot().find("POINT-SIZE=\"32\">&#160;</FONT>"), std::string::npos);
}

// ---- Texts ------------------------------------------------------------------

TEST_F(DrawDotTest, NamesAreNothingButText) {
    Load(R"({"pipe_0": {"node_0": {
      "node_opts": {"node_name": "</TABLE>>];\"&lt;\\N\\x\u001b\uffff#<B>"},
      "stream_opts": {"stream_output": "\"]; a -> b <&", "stream_fmt_out": "\\G</FONT>"}}}})");
    EXPECT_EQ(LinesOf("node_0"),
              (std::vector<std::string>{
                  "    \"pipe_0/node_0\" [label=<<B>&lt;/TABLE&gt;&gt;];\"&amp;lt;"
                  "\\\u2060N\\x\\x1b\ufffd</B>#&lt;B&gt;<BR/>"
                  "<FONT COLOR=\"#57606a\" POINT-SIZE=\"9\">node_0</FONT>>, "
                  "tooltip=\"node_0: </TABLE>>];\\\"&amp;lt;\\\\N\\\\x\\\\x1b\ufffd#<B>, "
                  "class </TABLE>>];\\\"&amp;lt;\\\\N\\\\x\\\\x1b\ufffd, id 0\", "
                  "id=\"p0n0\", class=\"node\"]"}));
    EXPECT_EQ(LabelOf("stream_0"), "\"]; a -&gt; b &lt;&amp;/\\\u2060G&lt;/FONT&gt;");
    EXPECT_EQ(AttributeOf("stream_0 -> stream_0/loose", "arrowhead"), "none");
}

TEST_F(DrawDotTest, LongNamesAreClipped) {
    const std::string name(100, 'n');
    Load("{\"pipe_0\": {\"node_0\": {\"node_opts\": {\"node_name\": \"" + name + "#" + name +
         "\"}}}}");
    const std::string shown = std::string(37, 'n') + "...";
    EXPECT_EQ(LabelOf("node_0"), shown + '#' + shown.substr(1) + "/node_0");
}

// ---- Options ----------------------------------------------------------------

TEST_F(DrawDotTest, NodesShowTheirOptionsOnRequest) {
    Load(R"({"pipe_0": {"node_0": {
      "node_opts": {"node_name": "Camera", "fps": 25, "gain": "float:0.5"},
      "stream_opts": {"stream_output": "a", "stream_fmt_out": "f", "depth": "int64:7"},
      "node_opts_extra": {"path": "<a>"}}}})");
    EXPECT_EQ(LabelOf("node_0"), "Camera/node_0");
    EXPECT_EQ(LabelOf("node_0", {true}),
              "Camera/node_0|depth  7|fps  25|gain  0.5|path  \"&lt;a&gt;\"");
}

TEST_F(DrawDotTest, NodesWithoutOptionsStayAsTheyAre) {
    Load(R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "Camera"}}}})");
    EXPECT_EQ(AttributeOf("node_0", "label", {true}), AttributeOf("node_0", "label"));
}

TEST_F(DrawDotTest, NodesShowAtMost30Options) {
    std::string options;
    for (int i = 10; i < 42; ++i) {
        options += ", \"o" + std::to_string(i) + "\": 1";
    }
    Load("{\"pipe_0\": {\"node_0\": {\"node_opts\": {\"node_name\": \"X\"" + options + "}}}}");
    const std::string label = LabelOf("node_0", {true});
    EXPECT_EQ(label.substr(label.find("|o38")), "|o38  1|o39  1|and 2 more");
}

// ---- Findings ---------------------------------------------------------------

TEST_F(DrawDotTest, AnErrorColoursItsNode) {
    Load(SMALL_PIPE, {At("/pipe_0/node_1/node_opts", "name")});
    EXPECT_EQ(LabelOf("node_1"), "Tuner/node_1/error: name");
    EXPECT_EQ(AttributeOf("node_1", "color"), "\"#b33a00\"");
    EXPECT_EQ(AttributeOf("node_1", "fillcolor"), "\"#fde4da\"");
    EXPECT_EQ(AttributeOf("node_1", "peripheries"), "2");
    EXPECT_EQ(AttributeOf("node_1", "tooltip"),
              "\"node_1: Tuner, class Tuner, id 1; error: it is wrong\"");
    EXPECT_EQ(AttributeOf("node_2", "color"), "");
}

TEST_F(DrawDotTest, AWarningHasADifferentColour) {
    Load(SMALL_PIPE, {At("/pipe_0/node_1", "name", Severity::Warning)});
    EXPECT_EQ(LabelOf("node_1"), "Tuner/node_1/warning: name");
    EXPECT_EQ(AttributeOf("node_1", "color"), "\"#7d6100\"");
    EXPECT_EQ(AttributeOf("node_1", "fillcolor"), "\"#fff4cc\"");
    EXPECT_EQ(AttributeOf("node_1", "peripheries"), "1");
}

TEST_F(DrawDotTest, ANoteHasNoColour) {
    Load(SMALL_PIPE);
    const std::string without = Dot();
    Load(SMALL_PIPE,
         {At("/pipe_0/node_1", "a", Severity::Note),
          At("/pipe_0/node_1/stream_opts/stream_input", "b", Severity::Note)});
    EXPECT_EQ(Dot(), without);
}

TEST_F(DrawDotTest, AFindingOnAConsumerColoursItsLine) {
    Load(SMALL_PIPE, {At("/pipe_0/node_2/stream_opts/stream_input", "late")});
    EXPECT_EQ(LabelOf("stream_1/remark_0"), "error: late");
    EXPECT_EQ(AttributeOf("stream_1/remark_0", "id"), "\"p0s1r0\"");
    EXPECT_EQ(
        LinesOf("stream_1 -> stream_1/remark_0"),
        (std::vector<std::string>{"    \"pipe_0/stream_1\" -> \"pipe_0/stream_1/remark_0\" "
                                  "[color=\"#b33a00\", penwidth=2.2, style=dashed, arrowhead=none, "
                                  "id=\"p0s1e1\", class=\"stream\"]"}));
    EXPECT_EQ(LinesOf("stream_1/remark_0 -> node_2"),
              (std::vector<std::string>{
                  "    \"pipe_0/stream_1/remark_0\" -> \"pipe_0/node_2\" "
                  "[color=\"#b33a00\", penwidth=2.2, style=dashed, arrowhead=normalnormal, "
                  "id=\"p0s1e2\", class=\"stream\"]"}));
    EXPECT_EQ(LinesOf("stream_1 -> node_3").size(), 1U);
}

TEST_F(DrawDotTest, AFindingOnAProducerColoursItsLine) {
    Load(SMALL_PIPE, {At("/pipe_0/node_0/stream_opts/stream_fmt_out", "odd", Severity::Warning)});
    EXPECT_EQ(LabelOf("stream_0/remark_0"), "warning: odd");
    EXPECT_EQ(
        LinesOf("node_0 -> stream_0/remark_0"),
        (std::vector<std::string>{"    \"pipe_0/node_0\" -> \"pipe_0/stream_0/remark_0\" "
                                  "[color=\"#7d6100\", penwidth=2.2, arrowhead=none, weight=4, "
                                  "id=\"p0s0e0\", class=\"stream\"]"}));
    EXPECT_EQ(LinesOf("stream_0/remark_0 -> stream_0").size(), 1U);
}

TEST_F(DrawDotTest, AFormatThatDiffersIsOnItsLine) {
    Load(R"({"pipe_0": {
      "node_0": {"node_opts": {"node_name": "X"},
                 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
      "node_1": {"node_opts": {"node_name": "X"},
                 "stream_opts": {"stream_input": "a", "stream_fmt_in": "g"}}}})");
    EXPECT_EQ(LabelOf("stream_0"), "a/f");
    EXPECT_EQ(LabelOf("stream_0/remark_0"), "consumes g");
    EXPECT_EQ(LinesOf("stream_0/remark_0 -> node_1"),
              (std::vector<std::string>{"    \"pipe_0/stream_0/remark_0\" -> \"pipe_0/node_1\" "
                                        "[id=\"p0s0e2\", class=\"stream\"]"}));
}

TEST_F(DrawDotTest, AStreamMayHaveSeveralProducers) {
    Load(R"({"pipe_0": {
      "node_0": {"node_opts": {"node_name": "X"},
                 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
      "node_1": {"node_opts": {"node_name": "X"},
                 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}}}})",
         {At("/pipe_0/node_1/stream_opts/stream_output", "two")});
    EXPECT_EQ(LinesOf("node_0 -> stream_0").size(), 1U);
    EXPECT_EQ(LinesOf("node_1 -> stream_0/remark_0").size(), 1U);
    EXPECT_EQ(LabelOf("stream_0/remark_0"), "error: two");
}

// ---- Missing ends -----------------------------------------------------------

const char* const LOOSE = R"({"pipe_0": {"node_0": {
  "node_opts": {"node_name": "X"},
  "stream_opts": {"stream_input": "in", "stream_fmt_in": "f",
                  "stream_output": "out", "stream_fmt_out": "g"}}}})";

TEST_F(DrawDotTest, AStreamWithoutAProducerBeginsAtADashedBox) {
    Load(LOOSE);
    EXPECT_EQ(LabelOf("stream_0/loose"), "no producer");
    EXPECT_EQ(AttributeOf("stream_0/loose", "style"), "\"rounded,dashed\"");
    EXPECT_EQ(AttributeOf("stream_0/loose", "color"), "\"#57606a\"");
    EXPECT_EQ(LinesOf("stream_0/loose -> stream_0").size(), 1U);
    EXPECT_EQ(LinesOf("stream_0 -> node_0").size(), 1U);
    EXPECT_EQ(LabelOf("stream_0"), "in/f");
}

TEST_F(DrawDotTest, AStreamWithoutAConsumerEndsAtADashedBox) {
    Load(LOOSE);
    EXPECT_EQ(LabelOf("stream_1/loose"), "no consumer");
    EXPECT_EQ(LinesOf("node_0 -> stream_1").size(), 1U);
    EXPECT_EQ(LinesOf("stream_1 -> stream_1/loose").size(), 1U);
    EXPECT_EQ(LabelOf("stream_1"), "out/g");
}

TEST_F(DrawDotTest, AMissingEndHasTheColourOfItsFinding) {
    Load(LOOSE, {At("/pipe_0/node_0/stream_opts/stream_input", "no-producer", Severity::Warning)});
    EXPECT_EQ(LabelOf("stream_0/loose"), "warning: no-producer");
    EXPECT_EQ(AttributeOf("stream_0/loose", "color"), "\"#7d6100\"");
    EXPECT_EQ(AttributeOf("stream_0/loose", "tooltip"), "\"no producer; warning: it is wrong\"");
    EXPECT_EQ(AttributeOf("stream_0/loose -> stream_0", "penwidth"), "2.2");
    EXPECT_EQ(AttributeOf("stream_0 -> node_0", "penwidth"), "");
}

}  // namespace
