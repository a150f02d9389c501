// The resolved configuration, for people.
#include "render/inspect_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>

#include "tests/render/small_survey.h"

namespace {

using qvgraph::Survey;
using qvgraph::SurveyedPipe;

class TextReportTest : public testing::Test {
protected:
    // The report, with a newline before it: the shape of a raw literal.
    static std::string Report(const Survey& survey, bool colour = false) {
        std::ostringstream out;
        qvgraph::renderInspectText(out, "door.json", survey, colour);
        return '\n' + out.str();
    }

    static void AssertShows(const Survey& survey, const std::string& report) {
        EXPECT_EQ(Report(survey), report);
    }

    // A survey with one link that has these options.
    static Survey WithOptions(const qvgraph::Options& options) {
        SurveyedPipe pipe = pipeAt(0);
        pipe.links = {{.key = "link_0", .options = options}};
        return surveyOf(pipe);
    }
};

TEST_F(TextReportTest, ShowsAllOfASurvey) {
    AssertShows(smallSurvey(), R"(
door.json: 1 pipe, 2 nodes, all ready

pipe_0: index 0, 4 executor threads, default link mode async

  executors
    0  executor_0  id 0
         name      string  "fast"
         priority  int32   80

  links
    0  link_12        id 12
         depth         int64  16
         drop_after_s  float  0.5
    1  (no such key)  id 0

  nodes
    0  node_10  id 10  Camera#door, class Camera
         ready
         out  0  raw  nv12
         fps        int32   25
         node_name  string  "Camera#door"

    1  node_2   id 2   Display
         ready
         in  0  raw      nv12  latest only
         in  1  overlay  argb
         node_name  string  "Display"

  streams
    id  name     producer  consumers
    0   raw      node_10   node_2
    1   overlay  (none)    node_2
)");
}

TEST_F(TextReportTest, ShowsWhyNodesAreNotReady) {
    AssertShows(unreadySurvey(), R"(
door.json: 1 pipe, 5 nodes, 5 of them not ready

pipe_0: index 0, 0 executor threads, default link mode none

  nodes
    0  (no such key)  id 0  (no name)
         not created: it has no "node_name" that is a string

    1  node_1         id 1  Idle
         no streams: it has neither inputs nor outputs

    2  node_2         id 2  Refused
         stream refused: the name of its output stream is empty
         in   0  a            f
         out  -  (not wired)

    3  node_3         id 3  Aborts
         would abort: no name for its input stream
         in  -  (not wired)

    4  node_4         id 4  Throws
         would throw: no format for its output stream 'b'
         out  1  b  (no format)

  streams
    id  name  producer  consumers
    0   a     (none)    node_2
    1   b     node_4    (none)
)");
}

TEST_F(TextReportTest, ColoursPipesAndOutcomes) {
    SurveyedPipe pipe = unreadySurvey().pipes.at(0);
    pipe.nodes = {nodeNamed(0, 0, "Camera"), pipe.nodes.at(1)};
    pipe.streams.clear();
    Survey survey = surveyOf(pipe);
    survey.pipes.push_back(pipeAt(1));
    survey.pipes.at(1).key.reset();
    EXPECT_EQ(Report(survey, true),
              "\n"
              "door.json: 2 pipes, 2 nodes, 1 of them not ready\n"
              "\n"
              "\033[1mpipe_0\033[0m: index 0, 0 executor threads, default link mode none\n"
              "\n"
              "  nodes\n"
              "    0  node_0  id 0  Camera\n"
              "         \033[32mready\033[0m\n"
              "\n"
              "    1  node_1  id 1  Idle\n"
              "         \033[1;31mno streams\033[0m: it has neither inputs nor outputs\n"
              "\n"
              "\033[1mpipe 1\033[0m: there is no \"pipe_1\"\n");
}

TEST_F(TextReportTest, ReportsThatThereIsNothing) {
    AssertShows({}, R"(
door.json: 0 pipes, no nodes
)");
    AssertShows(surveyOf(pipeAt(0)), R"(
door.json: 1 pipe, no nodes

pipe_0: index 0, 0 executor threads, default link mode none
)");
}

TEST_F(TextReportTest, ReportsThatAnIndexMapsToNoPipe) {
    Survey survey = surveyOf(pipeAt(3));
    survey.pipes.at(0).key.reset();
    AssertShows(survey, R"(
door.json: 1 pipe, no nodes

pipe 3: there is no "pipe_3"
)");
}

TEST_F(TextReportTest, CountsThreads) {
    Survey survey = surveyOf(pipeAt(0));
    survey.pipes.at(0).threads = 1;
    AssertShows(survey, R"(
door.json: 1 pipe, no nodes

pipe_0: index 0, 1 executor thread, default link mode none
)");
    survey.pipes.at(0).threads = -3;
    AssertShows(survey, R"(
door.json: 1 pipe, no nodes

pipe_0: index 0, -3 executor threads, default link mode none
)");
}

TEST_F(TextReportTest, ShowsValuesOfEveryType) {
    AssertShows(WithOptions({{"", std::string()},
                             {"float", 3.0F},
                             {"high", INT64_MAX},
                             {"int32", INT32_MIN},
                             {"low", INT64_MIN},
                             {"quotes", std::string(R"(say "hi")")}}),
                R"(
door.json: 1 pipe, no nodes

pipe_0: index 0, 0 executor threads, default link mode none

  links
    0  link_0  id 0
                 string  ""
         float   float   3.0
         high    int64   9223372036854775807
         int32   int32   -2147483648
         low     int64   -9223372036854775808
         quotes  string  "say "hi""
)");
}

TEST_F(TextReportTest, NothingOfAConfigurationReachesTheTerminalRaw) {
    const std::string evil = "\033[2J\n\xff\u009b";
    SurveyedPipe pipe = pipeAt(0);
    pipe.linkMode = evil;
    pipe.links = {{.key = "link_0", .options = {{evil, evil}}}};
    qvgraph::SurveyedNode node = nodeNamed(0, 0, evil + "#" + evil);
    node.outcome = qvgraph::Outcome::WouldThrow;
    node.message = evil;
    node.inputEnds = {wiredTo(evil, 0, evil)};
    pipe.nodes = {node};
    pipe.streams = {{0, evil, std::nullopt, {}}};
    std::ostringstream out;
    qvgraph::renderInspectText(out, evil, surveyOf(pipe), false);
    const std::string shown = R"(\x1b[2J\x0a)"
                              "\ufffd"
                              R"(\x9b)";
    EXPECT_EQ(out.str(),
              shown + ": 1 pipe, 1 node, not ready\n\n" +
                  "pipe_0: index 0, 0 executor threads, default link mode " + shown + "\n\n" +
                  "  links\n"
                  "    0  link_0  id 0\n"
                  "         " +
                  shown + "  string  \"" + shown + "\"\n\n" +
                  "  nodes\n"
                  "    0  node_0  id 0  " +
                  shown + "#" + shown + ", class " + shown + "\n" + "         would throw: " +
                  shown + "\n" + "         in  0  " + shown + "  " + shown + "\n\n" +
                  "  streams\n"
                  "    id  name              producer  consumers\n"
                  "    0   " +
                  shown + "  (none)    (none)\n");
}

TEST_F(TextReportTest, MarksNodesOfClassesAndStubsIfThereAreClasses) {
    SurveyedPipe pipe = pipeAt(0);
    qvgraph::SurveyedNode plain = nodeNamed(0, 0, "Camera");
    qvgraph::SurveyedNode labelled = nodeNamed(1, 1, "Camera#door");
    labelled.className = "Camera";
    qvgraph::SurveyedNode missing = nodeNamed(3, 3, "Lens");
    missing.outcome = qvgraph::Outcome::NotCreated;
    missing.message = "its class 'Lens' created no node";
    pipe.nodes = {plain, labelled, nodeNamed(2, 2, "Display"), missing};
    qvgraph::Survey survey = surveyOf(pipe);
    survey.nodeClasses.classes = {{"Camera", "camera.so"}};
    AssertShows(survey, R"(
door.json: 1 pipe, 4 nodes, 1 of them not ready

pipe_0: index 0, 0 executor threads, default link mode none

  nodes
    0  node_0  id 0  Camera (registered)
         ready

    1  node_1  id 1  Camera#door, class Camera (registered)
         ready

    2  node_2  id 2  Display (stub)
         ready

    3  node_3  id 3  Lens
         not created: its class 'Lens' created no node
)");
}

TEST_F(TextReportTest, MarksAClassAsRegisteredEvenIfItCreatesNoNode) {
    SurveyedPipe pipe = pipeAt(0);
    qvgraph::SurveyedNode throws = nodeNamed(0, 0, "Tone");
    throws.outcome = qvgraph::Outcome::WouldThrow;
    throws.message = "no such tone";
    qvgraph::SurveyedNode createsNone = nodeNamed(1, 1, "Tone#low");
    createsNone.outcome = qvgraph::Outcome::NotCreated;
    createsNone.message = "its class 'Tone' created no node";
    pipe.nodes = {throws, createsNone};
    qvgraph::Survey survey = surveyOf(pipe);
    survey.nodeClasses.classes = {{"Tone", "tone.so"}};
    AssertShows(survey, R"(
door.json: 1 pipe, 2 nodes, 2 of them not ready

pipe_0: index 0, 0 executor threads, default link mode none

  nodes
    0  node_0  id 0  Tone (registered)
         would throw: no such tone

    1  node_1  id 1  Tone#low, class Tone (registered)
         not created: its class 'Tone' created no node
)");
}

TEST_F(TextReportTest, ShowsTheUnwiredStreamsOfAReadyNode) {
    SurveyedPipe pipe = pipeAt(0);
    qvgraph::SurveyedNode node = nodeNamed(0, 0, "Tone");
    node.message = "1 declared input is not wired: its class has 0 inputs";
    node.outputEnds = {wiredTo("a", 0, "f")};
    pipe.nodes = {node};
    AssertShows(surveyOf(pipe), R"(
door.json: 1 pipe, 1 node, ready

pipe_0: index 0, 0 executor threads, default link mode none

  nodes
    0  node_0  id 0  Tone
         ready: 1 declared input is not wired: its class has 0 inputs
         out  0  a  f
)");
}

TEST(ClassesTextTest, ListsClassesAndTheirOrigins) {
    std::ostringstream out;
    qvgraph::renderClassesText(
        out, {{{"Camera", "/opt/libcamera.so"}, {"View\x1b", ""}, {"Z", "\x9b.so"}}, false});
    EXPECT_EQ(out.str(),
              "Camera    /opt/libcamera.so\n"
              "View\\x1b  the program\n"
              "Z         \ufffd.so\n"
              "there is no stub for other classes\n");
}

TEST(ClassesTextTest, ReportsThatThereAreNone) {
    std::ostringstream out;
    qvgraph::renderClassesText(out, {{}, true});
    EXPECT_EQ(out.str(),
              "no node classes are registered\n"
              "a stub stands in for all other classes\n");
}

TEST_F(TextReportTest, WrapsAllOfARowWhoseFirstCellsAreLong) {
    SurveyedPipe pipe = pipeAt(0);
    pipe.links = {{.key = "link_0", .options = {{std::string(70, 'k'), int32_t{7}}}}};
    AssertShows(surveyOf(pipe), R"(
door.json: 1 pipe, no nodes

pipe_0: index 0, 0 executor threads, default link mode none

  links
    0  link_0  id 0
         kkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkk
         int32  7
)");
}

TEST_F(TextReportTest, StaysWithinEightyColumns) {
    SurveyedPipe pipe = pipeAt(0);
    pipe.links = {
        {.key = "link_0",
         .options = {{"note",
                      std::string("a value that is so long that it takes more than one line, "
                                  "and then one more")},
                     {"path", std::string(127, 'x')}}}};
    qvgraph::SurveyedNode node = nodeNamed(0, 0, "Camera");
    node.outcome = qvgraph::Outcome::WouldThrow;
    node.message = "the sensor at the front door does not answer, and so there is no picture";
    pipe.nodes = {node};
    qvgraph::SurveyedStream stream = {0, "raw", "node_0", {}};
    for (int consumer = 1; consumer < 10; ++consumer) {
        stream.consumers.push_back("node_" + std::to_string(consumer));
    }
    pipe.streams = {stream};
    AssertShows(surveyOf(pipe), R"(
door.json: 1 pipe, 1 node, not ready

pipe_0: index 0, 0 executor threads, default link mode none

  links
    0  link_0  id 0
         note  string  "a value that is so long that it takes more than one
                       line, and then one more"
         path  string  "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
                       xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
                       xxxxxxxxxxxxxx"

  nodes
    0  node_0  id 0  Camera
         would throw: the sensor at the front door does not answer, and so there
                      is no picture

  streams
    id  name  producer  consumers
    0   raw   node_0    node_1, node_2, node_3, node_4, node_5, node_6, node_7,
                        node_8, node_9
)");
}

TEST_F(TextReportTest, AWideCellDoesNotWidenItsColumn) {
    AssertShows(WithOptions({{"a key of thirty columns, or 30.", int32_t{1}},
                             {"b key of twenty-eight cols..", int32_t{2}},
                             {"c", int32_t{3}}}),
                R"(
door.json: 1 pipe, no nodes

pipe_0: index 0, 0 executor threads, default link mode none

  links
    0  link_0  id 0
         a key of thirty columns, or 30.  int32  1
         b key of twenty-eight cols..  int32  2
         c                             int32  3
)");
}

TEST(ReadinessTextTest, CountsNodes) {
    EXPECT_EQ(textOf(qvgraph::Readiness{0, 0}), "no nodes");
    EXPECT_EQ(textOf(qvgraph::Readiness{1, 0}), "1 node, ready");
    EXPECT_EQ(textOf(qvgraph::Readiness{14, 0}), "14 nodes, all ready");
    EXPECT_EQ(textOf(qvgraph::Readiness{1, 1}), "1 node, not ready");
    EXPECT_EQ(textOf(qvgraph::Readiness{14, 2}), "14 nodes, 2 of them not ready");
}

}  // namespace
