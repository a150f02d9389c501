// The flowchart for Mermaid.
#include "render/draw_mermaid.h"

#include <sstream>
#include <string>
#include <vector>

#include "tests/render/draw_test.h"
#include "tests/support/temporary_folder.h"

namespace {

using qvgraph::MermaidRequest;
using qvgraph::Severity;

class DrawMermaidTest : public DrawTest {
protected:
    std::string Chart(const MermaidRequest& request = {}) const {
        std::ostringstream out;
        renderDrawMermaid(out, Drawn(), request);
        return out.str();
    }

    // Expects these lines within the first pipe, from one of them on.
    void AssertDraws(const std::string& lines, const MermaidRequest& request = {}) const {
        const std::string chart = Chart(request);
        const std::string begin = "    direction LR\n";
        const size_t from = chart.find(begin) + begin.size();
        EXPECT_EQ('\n' + chart.substr(from, chart.find("  end\n") - from), lines);
    }
};

TEST_F(DrawMermaidTest, DrawsAllOfAPipe) {
    Load(SMALL_PIPE);
    EXPECT_EQ(Chart(), readFile(QVGRAPH_TEST_DATA "/draw/door.mmd"));
}

TEST_F(DrawMermaidTest, NamesAreNothingButText) {
    Load(R"({"pipe_0": {"node_0": {
      "node_opts": {"node_name": "%%{init: {}}%%\"];<b>`*1. \\&amp;\u001b|\u00e4"},
      "stream_opts": {"stream_output": "end", "stream_fmt_out": "style:#1;"}}}})");
    AssertDraws(R"(
    p0n0["#37;#37;#123;init#58; #123;#125;#125;#37;#37;#34;#93;#59;#60;b#62;#96;#42;1#46; )"
                R"(#92;#38;amp#59;#92;x1b#124;)"
                "\u00e4"
                R"(<br/>node_0"]
    p0s0(["end<br/>style#58;#35;1#59;"])
    p0n0 --- p0s0
    p0s0loose["no consumer"]
    style p0s0loose stroke-dasharray:5 4
    p0s0 --- p0s0loose
)");
}

TEST_F(DrawMermaidTest, NodesShowTheirOptionsOnRequest) {
    Load(R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "X", "fps": 25, "b": "c"}}}})");
    AssertDraws(R"(
    p0n0["X<br/>node_0"]
)");
    AssertDraws(R"(
    p0n0["X<br/>node_0<br/>b #34;c#34;<br/>fps 25"]
)",
                {true});
}

TEST_F(DrawMermaidTest, FindingsColourNodesAndEdges) {
    Load(R"({"pipe_0": {
      "node_0": {"node_opts": {"node_name": "A"},
                 "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}},
      "node_1": {"node_opts": {"node_name": "B"},
                 "stream_opts": {"stream_input": "s", "stream_fmt_in": "g",
                                 "stream_mode_in": "remain_newest"}}}})",
         {At("/pipe_0/node_0", "bad"),
          At("/pipe_0/node_1/node_opts", "odd", Severity::Warning),
          At("/pipe_0/node_1", "note", Severity::Note),
          At("/pipe_0/node_1/stream_opts/stream_fmt_in", "differs", Severity::Warning)});
    AssertDraws(R"(
    p0legend["error 1#58;1#58; it is wrong #91;bad#93;)"
                R"(<br/>warning 1#58;1#58; it is wrong #91;odd#93;)"
                R"(<br/>warning 1#58;1#58; it is wrong #91;differs#93;"]:::legend
    p0legend ~~~ p0n0
    p0n0["A<br/>node_0<br/>error#58; bad"]:::error
    p0n1["B<br/>node_1<br/>warning#58; odd"]:::warning
    p0n0 -.->|"s<br/>f<br/>consumes g<br/>warning#58; differs<br/>latest only"| p0n1
)");
    EXPECT_NE(Chart().find("\n  linkStyle 1 stroke:#7d6100,stroke-width:3px\n"), std::string::npos);
}

TEST_F(DrawMermaidTest, AStreamWithSeveralProducersIsANode) {
    Load(R"({"pipe_0": {
      "node_0": {"node_opts": {"node_name": "A"},
                 "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}},
      "node_1": {"node_opts": {"node_name": "B"},
                 "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}},
      "node_2": {"node_opts": {"node_name": "C"},
                 "stream_opts": {"stream_input": "s", "stream_fmt_in": "f"}}}})",
         {At("/pipe_0/node_1/stream_opts/stream_output", "two")});
    AssertDraws(R"(
    p0legend["error 1#58;1#58; it is wrong #91;two#93;"]:::legend
    p0legend ~~~ p0n0
    p0n0["A<br/>node_0"]
    p0n1["B<br/>node_1"]
    p0n2["C<br/>node_2"]
    p0s0(["s<br/>f"])
    p0n0 --- p0s0
    p0n1 ---|"error#58; two"| p0s0
    p0s0 --> p0n2
)");
    EXPECT_NE(Chart().find("\n  linkStyle 2 stroke:#b33a00,stroke-width:3px\n"), std::string::npos);
}

TEST_F(DrawMermaidTest, MissingEndsHaveTheColourOfTheirFindings) {
    Load(R"({"pipe_0": {"node_0": {
      "node_opts": {"node_name": "X"},
      "stream_opts": {"stream_input": "in", "stream_fmt_in": "f"}}}})",
         {At("/pipe_0/node_0/stream_opts/stream_input", "no-producer", Severity::Warning)});
    AssertDraws(R"(
    p0legend["warning 1#58;1#58; it is wrong #91;no-producer#93;"]:::legend
    p0legend ~~~ p0n0
    p0n0["X<br/>node_0"]
    p0s0(["in<br/>f"])
    p0s0 --> p0n0
    p0s0loose["warning#58; no-producer"]:::warning
    style p0s0loose stroke-dasharray:5 4
    p0s0loose --- p0s0
)");
}

TEST_F(DrawMermaidTest, FindingsOutsideOfPipesAreOutsideOfThem) {
    Load(R"({"pipe_0": {}, "pipe_1": {}})", {At("", "whole")});
    EXPECT_EQ(Chart(), R"(%%{init: {"flowchart": {"wrappingWidth": 900}}}%%
flowchart LR
    legend["error 1#58;1#58; it is wrong #91;whole#93;"]:::legend
  subgraph p0["pipe_0#58; 0 executor threads, default link mode none"]
    direction LR
  end
  subgraph p1["pipe_1#58; 0 executor threads, default link mode none"]
    direction LR
  end
  classDef legend text-align:left
  classDef error fill:#fde4da,stroke:#b33a00,stroke-width:3px,color:#1b1f24
  classDef warning fill:#fff4cc,stroke:#7d6100,stroke-width:3px,color:#1b1f24
)");
}

}  // namespace
