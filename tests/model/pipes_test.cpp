// The pipes of a model with their executors, links and nodes.
#include <string>

#include "tests/model/model_test.h"

namespace {

class PipesTest : public ModelTest {};

// ---- pipes --------------------------------------------------------------------

TEST_F(PipesTest, PipesAreInTheOrderOfTheirIndexes) {
    AssertModel(R"({"pipe_10": {}, "pipe_9": {}, "pipe_0": {}})", R"(
pipe 0 threads 0 links none
pipe 9 threads 0 links none
pipe 10 threads 0 links none
)");
}

TEST_F(PipesTest, AMemberThatNoIndexMapsToIsNotAPipe) {
    AssertModel(R"({"pipe_00": {}, "pipe_x": {}, "pipe_-1": {}, "Pipe_1": {}, "pipe": {}})", "\n");
}

TEST_F(PipesTest, APipeIsTheLastMemberWithItsKey) {
    const qvgraph::Model last = ModelOf(R"({"pipe_0": {"node_0": {}}, "pipe_0": {}})");
    EXPECT_EQ(textOf(last), "\npipe 0 threads 0 links none\n");
    EXPECT_EQ(last.pipes().at(0).value, last.source().root()->member("pipe_0"));
    EXPECT_EQ(last.source().text(last.pipes().at(0).value->span), "{}");
}

TEST_F(PipesTest, APipeThatIsNotAnObjectIsEmpty) {
    AssertModel(R"({"pipe_0": [{"node_0": {}}], "pipe_1": "node_0", "pipe_2": null})", R"(
pipe 0 threads 0 links none
pipe 1 threads 0 links none
pipe 2 threads 0 links none
)");
}

TEST_F(PipesTest, ARootThatIsNotAnObjectHasNoPipes) {
    AssertModel(R"([{"pipe_0": {}}])", "\n");
}

TEST_F(PipesTest, APipeHasItsThreadsAndItsLinkMode) {
    AssertModel(R"({"pipe_0": {
        "thread_opts": {"exec_thread_num": 4}, "default_mode_link": "async"
    }})",
                R"(
pipe 0 threads 4 links async
)");
}

// ---- executors and links ----------------------------------------------------------

TEST_F(PipesTest, ExecutorsHaveTheOptionsOfTheirSectionAndLinksTheirOwn) {
    AssertModel(R"({"pipe_0": {
        "executor_0": {"outside": 1, "executor_opts": {"rate": "float:0.5", "cores": []}},
        "link_0": {"depth": "int64:16", "executor_opts": {}}
    }})",
                R"(
pipe 0 threads 0 links none
  executor_0 id 0 {cores -, rate float 0.5}
  link_0 id 0 {depth int64 16, executor_opts -}
)");
}

TEST_F(PipesTest, AnExecutorWithoutItsSectionHasNoOptions) {
    const qvgraph::Model executors =
        ModelOf(R"({"pipe_0": {"executor_0": {"a": 1}, "executor_1": {"executor_opts": 1}}})");
    for (const qvgraph::OptionSet& executor : executors.pipes().at(0).executors) {
        EXPECT_EQ(executor.object.value, nullptr);
        EXPECT_TRUE(executor.object.options.empty());
    }
}

TEST_F(PipesTest, AMemberIsCanonicalIfItsIdMapsBackToIt) {
    AssertModel(R"({"pipe_0": {
        "link_1": {"of": "1"}, "link_+1": {"of": "+1"}, "link_01": {"of": "01"},
        "link_x": {"of": "x"}, "link_10": {"of": "10"}
    }})",
                R"(
pipe 0 threads 0 links none
  link_+1 id 1 (not canonical: link_1) {of "+1"}
  link_01 id 1 (not canonical: link_1) {of "01"}
  link_1 id 1 {of "1"}
  link_10 id 10 {of "10"}
  link_x id 0 (not canonical: -) {of "x"}
)");
}

// ---- nodes -----------------------------------------------------------------------

TEST_F(PipesTest, NodesHaveTheirClassAndTheirOutcome) {
    AssertModel(R"({"pipe_0": {
        "node_2": {"node_opts": {"node_name": "Camera#door"},
                   "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}},
        "node_10": {"node_opts": {"node_name": "#window"}},
        "node_1": {"node_opts": {"node_name": "Idle"}}
    }})",
                R"(
pipe 0 threads 0 links none
  node_1 id 1 "Idle" of "Idle": no streams
    node_opts {node_name "Idle"}
  node_10 id 10 "#window" of "": not created
    node_opts {node_name "#window"}
  node_2 id 2 "Camera#door" of "Camera": ready
    node_opts {node_name "Camera#door"}
    stream_opts {stream_fmt_out "nv12", stream_output "raw"}
    out 0 stream_output "raw", stream_fmt_out "nv12"
  stream "raw": node_2 out 0 > -
)");
}

TEST_F(PipesTest, ANodeThatIsNotCanonicalHasTheOutcomeOfTheNodeThatItsIdMapsTo) {
    AssertModel(R"({"pipe_0": {
        "node_07": {"node_opts": {"node_name": "Filter"},
                    "stream_opts": {"stream_input": "a"}},
        "node_7": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}}
    }})",
                R"(
pipe 0 threads 0 links none
  node_07 id 7 (not canonical: node_7) "Camera" of "Camera": ready
    node_opts {node_name "Filter"}
    stream_opts {stream_input "a"}
    in 0 stream_input "a", stream_fmt_in (no option) -
  node_7 id 7 "Camera" of "Camera": stream refused
    node_opts {node_name "Camera"}
    stream_opts {stream_fmt_out "f", stream_output "a"}
    out 0 stream_output "a", stream_fmt_out "f"
  stream "a": node_7 out 0 > node_07 in 0
)");
}

TEST_F(PipesTest, ANodeIsReadyOnlyIfItIsCanonical) {
    const qvgraph::Model both = ModelOf(R"({"pipe_0": {
        "node_07": {},
        "node_7": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}}
    }})");
    const qvgraph::Pipe& pipe = both.pipes().at(0);
    EXPECT_EQ(pipe.nodes.at(0).outcome, qvgraph::Outcome::Ready);
    EXPECT_FALSE(pipe.nodes.at(0).isReady());
    EXPECT_TRUE(pipe.nodes.at(1).isReady());
}

TEST_F(PipesTest, ANodeThatIsNotAnObjectHasNoOptionObjects) {
    const qvgraph::Node& node = NodeOf(R"(["node_opts"])");
    EXPECT_EQ(node.nodeOptions(), nullptr);
    EXPECT_EQ(node.streamOptions(), nullptr);
    EXPECT_EQ(textOf(model), R"(
pipe 0 threads 0 links none
  node_3 id 3 "" of "": not created
)");
}

TEST_F(PipesTest, TheRegisteredClassesAreThoseOfTheSurvey) {
    Register<QVStubTaskNode>("Filter");
    Register<QVStubTaskNode>("Camera");
    const qvgraph::Model classes = ModelOf("{}");
    ASSERT_EQ(classes.nodeClasses().classes.size(), 2U);
    EXPECT_EQ(classes.nodeClasses().classes[0].name, "Camera");
    EXPECT_EQ(classes.nodeClasses().classes[1].name, "Filter");
    EXPECT_TRUE(classes.nodeClasses().stub);
}

}  // namespace
