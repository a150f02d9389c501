// What a picture shows, and which findings belong to each part of it.
#include "render/drawing.h"

#include <optional>
#include <string>
#include <vector>

#include "host/qv_node_class.h"
#include "tests/render/draw_test.h"

namespace {

using qvgraph::Drawing;
using qvgraph::DrawnEnd;
using qvgraph::DrawnPipe;
using qvgraph::DrawnSet;
using qvgraph::DrawnStream;
using qvgraph::Findings;

// A drawing as text: a line for each part, with the codes of its findings.
class DrawingText {
public:
    static std::string of(const Drawing& drawing) {
        std::string text = "\n" + drawing.title + codes(drawing.findings) + '\n';
        for (const DrawnPipe& pipe : drawing.pipes) {
            text += std::string(pipe.pipe->value->key) + codes(pipe.findings) + '\n';
            for (const auto* sets : {&pipe.executors, &pipe.links}) {
                for (const DrawnSet& set : *sets) {
                    text += "  " + set.set->member + codes(set.findings) + '\n';
                }
            }
            for (const auto& node : pipe.nodes) {
                text += "  " + node.node->member + codes(node.findings) + '\n';
            }
            for (const DrawnStream& stream : pipe.streams) {
                text += "  " + std::string(stream.stream->name) + codes(stream.findings) + ":" +
                        ends(pipe, stream.producers) + " ->" + ends(pipe, stream.consumers) + '\n';
            }
        }
        return text;
    }

private:
    static std::string codes(const Findings& findings) {
        std::string text;
        for (const auto* finding : findings) {
            text += (text.empty() ? " [" : " ") + std::string(finding->code);
        }
        return text.empty() ? "" : text + ']';
    }

    static std::string ends(const DrawnPipe& pipe, const std::vector<DrawnEnd>& ends) {
        std::string text;
        for (const DrawnEnd& end : ends) {
            text += ' ' + pipe.nodes[end.node].node->member + ' ' +
                    (end.end->format != nullptr ? *end.end->format : "-") +
                    (end.end->latestOnly ? " latest" : "") + codes(end.findings);
        }
        return text;
    }
};

class DrawingTest : public DrawTest {
protected:
    void AssertDraws(const std::string& text, std::optional<int> pipe = std::nullopt) const {
        EXPECT_EQ(DrawingText::of(Drawn(pipe)), text);
    }
};

TEST_F(DrawingTest, ShowsEverythingInThePipe) {
    Load(SMALL_PIPE);
    AssertDraws(R"(
door.json
pipe_0
  executor_0
  link_0
  node_0
  node_1
  node_2
  node_3
  raw: node_0 nv12 -> node_1 nv12
  tuned: node_1 nv12 -> node_2 nv12 latest node_3 nv12
)");
}

TEST_F(DrawingTest, ShowsStreamsThatSetUpDoesNotReach) {
    Load(R"({"pipe_0": {
      "node_0": {"node_opts": {}, "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
      "node_1": {"node_opts": {"node_name": "X"},
                 "stream_opts": {"stream_input": "a", "stream_output": "b"}},
      "node_2": {"node_opts": {"node_name": "X"},
                 "stream_opts": {"stream_input": "b", "stream_fmt_in": 5}},
      "node_03": {"node_opts": {"node_name": "X"},
                  "stream_opts": {"stream_input": "c", "stream_fmt_in": "f",
                                  "stream_mode_in": "remain_newest"}}}})");
    AssertDraws(R"(
door.json
pipe_0
  node_0
  node_03
  node_1
  node_2
  a: node_0 f -> node_1 -
  c: -> node_03 f latest
  b: node_1 - -> node_2 -
)");
}

TEST_F(DrawingTest, ShowsPipesWithoutNodes) {
    Load(R"({"pipe_0": {}, "pipe_1": 5, "other": {}, "pipe_7": {}})");
    AssertDraws(R"(
door.json
pipe_0
pipe_1
pipe_7
)");
}

TEST_F(DrawingTest, HasNoPipesIfTheConfigurationHasNone) {
    Load("[1]");
    AssertDraws("\ndoor.json\n");
}

TEST_F(DrawingTest, MayShowOnlyOnePipe) {
    Load(R"({"pipe_0": {}, "pipe_1": {}, "other": {}})",
         {At("", "text"), At("/pipe_0", "zero"), At("/pipe_1", "one"), At("/other", "other")});
    AssertDraws("\ndoor.json [text]\npipe_1 [one]\n", 1);
}

// A class that keeps only the latest item, whatever the configuration.
class Late : public QVTaskNodeBase {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        inputs[1]->mRemainNewest = 1;
        return 0;
    }
};

TEST_F(DrawingTest, AClassMayMakeAnInputLatestOnly) {
    const auto create = [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new Late; };
    QVNodeRegistry::instance().registerClass({"Late", create, 2, 0});
    Load(R"({"pipe_0": {"node_0": {
      "node_opts": {"node_name": "Late"},
      "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                      "stream_input_1": "b", "stream_fmt_in_1": "g"}}}})");
    QVNodeRegistry::instance().unregisterClass("Late");
    AssertDraws(R"(
door.json
pipe_0
  node_0
  a: -> node_0 f
  b: -> node_0 g latest
)");
}

// ---- Findings ---------------------------------------------------------------

TEST_F(DrawingTest, AFindingBelongsToThePartThatItsPointerResolvesTo) {
    Load(SMALL_PIPE,
         {At("", "whole"),
          At("/pipes", "elsewhere"),
          At("/pipe_0", "pipe"),
          At("/pipe_0/thread_opts/exec_thread_num", "threads"),
          At("/pipe_0/executor_0/executor_opts/name", "executor"),
          At("/pipe_0/link_0", "link"),
          At("/pipe_0/node_0/node_opts/fps", "option"),
          At("/pipe_0/node_1", "node"),
          At("/pipe_0/node_1/stream_opts/stream_input_2", "missing"),
          At("/pipe_0/node_1/stream_opts/stream_output", "name"),
          At("/pipe_0/node_2/stream_opts/stream_fmt_in", "format")});
    AssertDraws(R"(
door.json [whole elsewhere]
pipe_0 [pipe threads]
  executor_0 [executor]
  link_0 [link]
  node_0 [option]
  node_1 [node missing]
  node_2
  node_3
  raw: node_0 nv12 -> node_1 nv12
  tuned: node_1 nv12 [name] -> node_2 nv12 latest [format] node_3 nv12
)");
}

TEST_F(DrawingTest, AStreamWithoutAProducerOrAConsumerHasTheFinding) {
    Load(SMALL_PIPE,
         {At("/pipe_0/node_1/stream_opts/stream_output", "no-consumer"),
          At("/pipe_0/node_1/stream_opts/stream_input", "no-producer")});
    AssertDraws(R"(
door.json
pipe_0
  executor_0
  link_0
  node_0
  node_1
  node_2
  node_3
  raw [no-producer]: node_0 nv12 -> node_1 nv12
  tuned [no-consumer]: node_1 nv12 -> node_2 nv12 latest node_3 nv12
)");
}

TEST_F(DrawingTest, PointersMayHaveEscapedSlashes) {
    Load(R"({"pipe_0": {"node_0/x~": {"node_opts": {"node_name": "X"}}}})",
         {At("/pipe_0/node_0~1x~0/node_opts", "found")});
    AssertDraws("\ndoor.json\npipe_0\n  node_0/x~ [found]\n");
}

TEST_F(DrawingTest, APipeHasAListOfAllItsFindings) {
    Load(SMALL_PIPE, {At("/pipe_0/node_0", "a"), At("", "b"), At("/pipe_0", "c")});
    std::vector<std::string> codes;
    const Drawing drawing = Drawn();
    for (const auto* finding : drawing.pipes[0].allFindings) {
        codes.emplace_back(finding->code);
    }
    EXPECT_EQ(codes, (std::vector<std::string>{"a", "c"}));
}

TEST_F(DrawingTest, TheTitleIsPrintable) {
    Load("{}");
    file->name = "a/b\033\xff.json";
    EXPECT_EQ(Drawn().title, "b\\x1b\ufffd.json");
    file->name = "<stdin>";
    EXPECT_EQ(Drawn().title, "<stdin>");
}

}  // namespace
