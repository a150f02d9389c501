// What a survey records about pipes, executors, links, nodes and streams.
#include "tests/survey/survey_test.h"

#include <cstddef>
#include <string>
#include <vector>

namespace {

using qvgraph::Outcome;
using qvgraph::Readiness;
using qvgraph::Survey;
using qvgraph::toText;

TEST_F(SurveyTest, RecordsEveryFieldOfAPipe) {
    AssertSurveys(R"({
        "pipe_0": {
            "thread_opts": {"exec_thread_num": 4},
            "default_mode_link": "async",
            "executor_0": {"executor_opts": {"name": "fast", "priority": 80}},
            "link_0": {"depth": "int64:0x10", "drop_after_s": "float:0.5"},
            "node_0": {
                "node_opts": {"node_name": "Camera#door", "fps": 25},
                "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}
            },
            "node_1": {
                "node_opts": {"node_name": "Display"},
                "stream_opts": {
                    "stream_input": "raw",
                    "stream_fmt_in": "bgr",
                    "stream_mode_in": "remain_newest"
                }
            }
        }
    })",
                  R"(
pipe 0 pipe_0 threads 4 links async
  executor 0 id 0 executor_0 {name "fast", priority 80}
  link 0 id 0 link_0 {depth int64 16, drop_after_s float 0.5}
  node 0 id 0 node_0 "Camera#door" of "Camera": ready (0)
    {fps 25, node_name "Camera#door", stream_fmt_out "nv12", stream_output "raw"}
    out 0 "raw" "nv12"
  node 1 id 1 node_1 "Display" of "Display": ready (0)
    {node_name "Display", stream_fmt_in "bgr", stream_input "raw", stream_mode_in "remain_newest"}
    in 0 "raw" "bgr" latest
  stream 0 "raw" node_0 > node_1
)");
}

TEST_F(SurveyTest, AnEmptyPipeHasItsDefaults) {
    AssertSurveys(R"({"pipe_0": {}})", "\npipe 0 pipe_0 threads 0 links none\n");
}

TEST_F(SurveyTest, ARootWithoutMembersHasNoPipes) {
    AssertSurveys("{}", "\n");
    AssertSurveys("[1, 2]", "\n");
    AssertSurveys("7", "\n");
    AssertSurveys("\"pipe_0\"", "\n");
    AssertSurveys("false", "\n");
}

TEST_F(SurveyTest, AParserWithoutADocumentHasNoPipes) {
    EXPECT_EQ(textOf(surveyConfiguration(parser, request)), "\n");
}

TEST_F(SurveyTest, APipeThatIsNotAnObjectReadsAsEmpty) {
    AssertSurveys(R"({"pipe_0": 5, "pipe_1": ["node_0"], "pipe_2": null})", R"(
pipe 0 pipe_0 threads 0 links none
pipe 1 pipe_1 threads 0 links none
pipe 2 pipe_2 threads 0 links none
)");
}

TEST_F(SurveyTest, AnIndexThatMapsToNoPipeHasNoKey) {
    AssertSurveys(R"({"pipe_1": {"default_mode_link": "sync"}, "comment": "sound"})", R"(
pipe 0 - threads 0 links none
pipe 1 pipe_1 threads 0 links sync
)");
}

TEST_F(SurveyTest, PipesAreInTheOrderOfTheirIndexesNotOfTheirKeys) {
    std::string configuration = "{";
    std::string survey = "\n";
    for (int pipe = 0; pipe < 11; ++pipe) {
        const std::string key = "pipe_" + std::to_string(pipe);
        configuration += (pipe > 0 ? ",\"" : "\"") + key + "\": {}";
        survey += "pipe " + std::to_string(pipe) + ' ' + key + " threads 0 links none\n";
    }
    AssertSurveys(configuration + '}', survey);
}

TEST_F(SurveyTest, MembersAreInTheByteOrderOfTheirKeys) {
    AssertSurveys(R"({
        "pipe_0": {
            "executor_2": {"executor_opts": {"z": 1, "a": 2, "B": 3}},
            "executor_10": {},
            "link_2": {"b": 1, "a": 2},
            "link_10": {},
            "node_2": {"node_opts": {"node_name": "B"},
                       "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}},
            "node_10": {"node_opts": {"node_name": "A"},
                        "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}}
        }
    })",
                  R"(
pipe 0 pipe_0 threads 0 links none
  executor 0 id 10 executor_10 {}
  executor 1 id 2 executor_2 {B 3, a 2, z 1}
  link 0 id 10 link_10 {}
  link 1 id 2 link_2 {a 2, b 1}
  node 0 id 10 node_10 "A" of "A": ready (0)
    {node_name "A", stream_fmt_out "f", stream_output "a"}
    out 0 "a" "f"
  node 1 id 2 node_2 "B" of "B": ready (0)
    {node_name "B", stream_fmt_out "f", stream_output "b"}
    out 1 "b" "f"
  stream 0 "a" node_10 > -
  stream 1 "b" node_2 > -
)");
}

TEST_F(SurveyTest, AnIdMayMapToNoMember) {
    AssertSurveys(R"({
        "pipe_0": {
            "executor_x": {"executor_opts": {"never": "seen"}},
            "link_": {"never": "seen"},
            "node_x": {"node_opts": {"node_name": "Never"}}
        }
    })",
                  R"(
pipe 0 pipe_0 threads 0 links none
  executor 0 id 0 - {}
  link 0 id 0 - {}
  node 0 id 0 - "" of "": not created (-1): its id 0 maps to 'node_0', which does not exist
    {}
)");
}

TEST_F(SurveyTest, AnIdMayMapToAnotherMember) {
    AssertSurveys(R"({
        "pipe_0": {
            "executor_1": {"executor_opts": {"of": "executor_1"}},
            "executor_1b": {"executor_opts": {"of": "executor_1b"}},
            "link_0": {"of": "link_0"},
            "link_x": {"of": "link_x"},
            "node_07": {"node_opts": {"node_name": "Never"}},
            "node_7": {"node_opts": {"node_name": "Twice"},
                       "stream_opts": {"stream_input": "s", "stream_fmt_in": "f"}}
        }
    })",
                  R"(
pipe 0 pipe_0 threads 0 links none
  executor 0 id 1 executor_1 {of "executor_1"}
  executor 1 id 1 executor_1 {of "executor_1"}
  link 0 id 0 link_0 {of "link_0"}
  link 1 id 0 link_0 {of "link_0"}
  node 0 id 7 node_7 "Twice" of "Twice": ready (0)
    {node_name "Twice", stream_fmt_in "f", stream_input "s"}
    in 0 "s" "f"
  node 1 id 7 node_7 "Twice" of "Twice": ready (0)
    {node_name "Twice", stream_fmt_in "f", stream_input "s"}
    in 0 "s" "f"
  stream 0 "s" - > node_7
)");
}

TEST_F(SurveyTest, NumbersOutsideInt32Saturate) {
    AssertSurveys(R"({
        "pipe_0": {
            "thread_opts": {"exec_thread_num": 1e300},
            "link_-99999999999": {},
            "link_99999999999": {"of": "no id"},
            "link_2147483647": {"high": 4294967296, "low": -1e300, "text": "int32:99999999999"}
        }
    })",
                  R"(
pipe 0 pipe_0 threads 2147483647 links none
  link 0 id -2147483648 - {}
  link 1 id 2147483647 link_2147483647 {high 2147483647, low -2147483648, text 2147483647}
  link 2 id 2147483647 link_2147483647 {high 2147483647, low -2147483648, text 2147483647}
)");
}

TEST_F(SurveyTest, OptionsAreRecordedAsTheyAreStored) {
    const Survey survey = SurveyOf(R"({"pipe_0": {"link_0": {
        "a number": 3.9,
        "a string": "camera:front",
        "bare type": "float",
        "bool": true,
        "double": "double:0.1",
        "empty": "",
        "float": "float:-1.5",
        "int32": "int32:-7",
        "int64": "int64:-1",
        "list": [1],
        "null": null
    }}})");
    EXPECT_EQ(textOf(survey.pipes.at(0).links.at(0).options),
              R"({a number 3, a string "camera:front", bare type float 0, )"
              R"(double float 0.1, empty "", float float -1.5, int32 -7, int64 int64 -1})");
}

TEST_F(SurveyTest, OptionsThatAreTooLongAreNotStored) {
    const std::string longest(127, 'x');
    const Survey survey = SurveyOf(R"({"pipe_0": {"link_0": {"long": ")" + longest +
                                   R"(", "longer": "x)" + longest + R"("}}})");
    EXPECT_EQ(textOf(survey.pipes.at(0).links.at(0).options), "{long \"" + longest + "\"}");
}

TEST_F(SurveyTest, LaterOptionObjectsOfANodeWin) {
    EXPECT_EQ(textOf(NodeOf(R"({
        "node_opts": {"node_name": "Filter", "a": 1, "b": 1, "c": 1, "d": 1},
        "stream_opts": {"stream_input": "s", "stream_fmt_in": "f", "b": 2, "c": 2, "d": 2},
        "node_opts_extra": {"c": 3, "d": 3},
        "stream_opts_extra": {"d": "four"}
    })")
                         .options),
              R"({a 1, b 2, c 3, d "four", node_name "Filter", )"
              R"(stream_fmt_in "f", stream_input "s"})");
}

TEST_F(SurveyTest, StreamsHaveTheirProducersAndConsumers) {
    AssertSurveys(R"({
        "pipe_0": {
            "node_0": {"node_opts": {"node_name": "Join"}, "stream_opts": {
                "stream_input_0": "left", "stream_fmt_in_0": "f",
                "stream_input_1": "right", "stream_fmt_in_1": "f"}},
            "node_1": {"node_opts": {"node_name": "Split"}, "stream_opts": {
                "stream_output_0": "right", "stream_fmt_out_0": "f",
                "stream_output_1": "left", "stream_fmt_out_1": "f",
                "stream_output_2": "unused", "stream_fmt_out_2": "f"}},
            "node_2": {"node_opts": {"node_name": "View"}, "stream_opts": {
                "stream_input": "left", "stream_fmt_in": "f"}},
            "node_3": {"node_opts": {"node_name": "Twice"}, "stream_opts": {
                "stream_input_0": "left", "stream_fmt_in_0": "f",
                "stream_input_1": "left", "stream_fmt_in_1": "g"}}
        }
    })",
                  R"(
pipe 0 pipe_0 threads 0 links none
  node 0 id 0 node_0 "Join" of "Join": ready (0)
    {node_name "Join", stream_fmt_in_0 "f", stream_fmt_in_1 "f", )"
                  R"(stream_input_0 "left", stream_input_1 "right"}
    in 0 "left" "f"
    in 1 "right" "f"
  node 1 id 1 node_1 "Split" of "Split": ready (0)
    {node_name "Split", stream_fmt_out_0 "f", stream_fmt_out_1 "f", stream_fmt_out_2 "f", )"
                  R"(stream_output_0 "right", stream_output_1 "left", stream_output_2 "unused"}
    out 1 "right" "f"
    out 0 "left" "f"
    out 2 "unused" "f"
  node 2 id 2 node_2 "View" of "View": ready (0)
    {node_name "View", stream_fmt_in "f", stream_input "left"}
    in 0 "left" "f"
  node 3 id 3 node_3 "Twice" of "Twice": ready (0)
    {node_name "Twice", stream_fmt_in_0 "f", stream_fmt_in_1 "g", )"
                  R"(stream_input_0 "left", stream_input_1 "left"}
    in 0 "left" "f"
    in 0 "left" "g"
  stream 0 "left" node_1 > node_0, node_2, node_3
  stream 1 "right" node_1 > node_0
  stream 2 "unused" node_1 > -
)");
}

TEST_F(SurveyTest, EachPipeHasItsOwnTaskGraph) {
    const char* const NODE = R"({"node_opts": {"node_name": "Camera"},
        "stream_opts": {"stream_output": "raw", "stream_fmt_out": "f"}})";
    const std::string pipe = std::string(R"({"node_0": )") + NODE + '}';
    AssertSurveys(R"({"pipe_0": )" + pipe + R"(, "pipe_1": )" + pipe + '}', R"(
pipe 0 pipe_0 threads 0 links none
  node 0 id 0 node_0 "Camera" of "Camera": ready (0)
    {node_name "Camera", stream_fmt_out "f", stream_output "raw"}
    out 0 "raw" "f"
  stream 0 "raw" node_0 > -
pipe 1 pipe_1 threads 0 links none
  node 0 id 0 node_0 "Camera" of "Camera": ready (0)
    {node_name "Camera", stream_fmt_out "f", stream_output "raw"}
    out 0 "raw" "f"
  stream 0 "raw" node_0 > -
)");
}

TEST_F(SurveyTest, ARequestMayNameOnePipe) {
    const char* const THREE_PIPES = R"({
        "pipe_0": {"default_mode_link": "a"},
        "pipe_2": {"default_mode_link": "c"},
        "other": {}
    })";
    request.pipe = 2;
    AssertSurveys(THREE_PIPES, "\npipe 2 pipe_2 threads 0 links c\n");
    request.pipe = 1;
    AssertSurveys(THREE_PIPES, "\npipe 1 - threads 0 links none\n");
}

TEST_F(SurveyTest, ProgressIsReportedAfterEachPipe) {
    std::vector<std::string> progress;
    request.progress = [&](size_t done, size_t total) {
        progress.push_back(std::to_string(done) + " of " + std::to_string(total));
    };
    const char* const THREE_PIPES = R"({"pipe_0": {}, "pipe_1": {}, "pipe_2": {}})";
    SurveyOf(THREE_PIPES);
    EXPECT_EQ(progress, (std::vector<std::string>{"1 of 3", "2 of 3", "3 of 3"}));

    progress.clear();
    request.pipe = 1;
    SurveyOf(THREE_PIPES);
    EXPECT_EQ(progress, std::vector<std::string>{"1 of 1"});

    progress.clear();
    request.pipe.reset();
    SurveyOf("{}");
    EXPECT_EQ(progress, std::vector<std::string>());
}

TEST_F(SurveyTest, ASurveyCanBeRepeated) {
    const char* const CONFIGURATION = R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": "Camera"},
        "stream_opts": {"stream_output": "raw", "stream_fmt_out": "f"}}}})";
    const std::string first = textOf(SurveyOf(CONFIGURATION));
    EXPECT_EQ(textOf(surveyConfiguration(parser, request)), first);
}

TEST(OutcomeTest, HasAName) {
    EXPECT_STREQ(toText(Outcome::Ready), "ready");
    EXPECT_STREQ(toText(Outcome::NotCreated), "not created");
    EXPECT_STREQ(toText(Outcome::NoStreams), "no streams");
    EXPECT_STREQ(toText(Outcome::StreamRefused), "stream refused");
    EXPECT_STREQ(toText(Outcome::WouldAbort), "would abort");
    EXPECT_STREQ(toText(Outcome::WouldThrow), "would throw");
}

// "nodes/not ready" of a survey with nodes of these outcomes in each pipe.
std::string ReadinessOf(const std::vector<std::vector<Outcome>>& pipes) {
    Survey survey;
    for (const std::vector<Outcome>& outcomes : pipes) {
        survey.pipes.emplace_back();
        for (const Outcome outcome : outcomes) {
            survey.pipes.back().nodes.emplace_back().outcome = outcome;
        }
    }
    const Readiness readiness = readinessOf(survey);
    return std::to_string(readiness.nodes) + '/' + std::to_string(readiness.notReady);
}

TEST(ReadinessTest, CountsTheNodesOfAllPipes) {
    EXPECT_EQ(ReadinessOf({}), "0/0");
    EXPECT_EQ(ReadinessOf({{}, {}}), "0/0");
    EXPECT_EQ(ReadinessOf({{Outcome::Ready}, {Outcome::Ready, Outcome::Ready}}), "3/0");
    EXPECT_EQ(ReadinessOf({{Outcome::NotCreated, Outcome::Ready}, {}, {Outcome::WouldAbort}}),
              "3/2");
}

TEST(ReadinessTest, OnlyReadyIsReady) {
    EXPECT_EQ(ReadinessOf({{Outcome::Ready}}), "1/0");
    EXPECT_EQ(ReadinessOf({{Outcome::NotCreated}}), "1/1");
    EXPECT_EQ(ReadinessOf({{Outcome::NoStreams}}), "1/1");
    EXPECT_EQ(ReadinessOf({{Outcome::StreamRefused}}), "1/1");
    EXPECT_EQ(ReadinessOf({{Outcome::WouldAbort}}), "1/1");
    EXPECT_EQ(ReadinessOf({{Outcome::WouldThrow}}), "1/1");
}

}  // namespace
