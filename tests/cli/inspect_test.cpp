// The reports and exit codes of `qvgraph inspect`.
#include <string>

#include "tests/cli/command_test.h"

namespace {

class InspectTest : public CommandTest {
protected:
    InspectTest() {
        folder.write("ready.json", READY);
        folder.write("unready.json", UNREADY);
        folder.write("three.json", R"({
            "pipe_0": {"default_mode_link": "sync"},
            "pipe_2": {"default_mode_link": "async"},
            "other": {}
        })");
    }
};

const char* const NOT_READY = "qvgraph: unready.json: 2 nodes, 2 of them not ready\n";

TEST_F(InspectTest, ReportsAConfigurationThatIsReady) {
    AssertRuns({"inspect", "ready.json"}, 0, std::string("ready.json") + READY_TEXT, "");
    AssertRuns({"inspect", "--format", "text", "ready.json"},
               0,
               std::string("ready.json") + READY_TEXT,
               "");
}

TEST_F(InspectTest, ReportsAConfigurationThatIsNotReady) {
    AssertRuns(
        {"inspect", "unready.json"}, 1, std::string("unready.json") + UNREADY_TEXT, NOT_READY);
}

const char* const UNREADY_JSON = R"({
  "format_version": "1.0",
  "file": "unready.json",
  "pipes": [
    {
      "index": 0,
      "key": "pipe_0",
      "threads": 0,
      "link_mode": "none",
      "executors": [],
      "links": [],
      "nodes": [
        {
          "index": 0,
          "id": 0,
          "key": "node_0",
          "name": "",
          "class": "",
          "outcome": "not created",
          "result": -1,
          "message": "it has no \"node_name\" that is a string",
          "options": [],
          "inputs": [],
          "outputs": []
        },
        {
          "index": 1,
          "id": 1,
          "key": "node_1",
          "name": "View",
          "class": "View",
          "outcome": "would abort",
          "result": null,
          "message": "no name for its input stream",
          "options": [
            {
              "key": "node_name",
              "type": "string",
              "value": "View"
            },
            {
              "key": "stream_input",
              "type": "int32",
              "value": 5
            }
          ],
          "inputs": [
            {
              "name": null,
              "id": null,
              "format": null,
              "remain_newest": false
            }
          ],
          "outputs": []
        }
      ],
      "streams": []
    }
  ]
}
)";

TEST_F(InspectTest, ReportsAsJson) {
    AssertRuns({"inspect", "--format", "json", "unready.json"}, 1, UNREADY_JSON, NOT_READY);
}

TEST_F(InspectTest, AConfigurationWithoutNodesIsReady) {
    folder.write("empty.json", "{}");
    AssertRuns({"inspect", "empty.json"}, 0, "empty.json: 0 pipes, no nodes\n", "");
    folder.write("list.json", "[1, 2]");
    AssertRuns({"inspect", "list.json"}, 0, "list.json: 0 pipes, no nodes\n", "");
}

// ---- --pipe -----------------------------------------------------------------

TEST_F(InspectTest, ShowsOnePipe) {
    AssertRuns({"inspect", "--pipe", "2", "three.json"},
               0,
               R"(three.json: 1 pipe, no nodes

pipe_2: index 2, 0 executor threads, default link mode async
)",
               "");
    AssertRuns({"inspect", "three.json", "--pipe=1"},
               0,
               R"(three.json: 1 pipe, no nodes

pipe 1: there is no "pipe_1"
)",
               "");
}

TEST_F(InspectTest, OnlyTheSelectedPipeDeterminesTheExitCode) {
    folder.write("half.json", R"({"pipe_0": {}, "pipe_1": {"node_0": {}}})");
    EXPECT_EQ(Run({"inspect", "--pipe", "0", "half.json"}).exitCode, 0);
    EXPECT_EQ(Run({"inspect", "--pipe", "1", "half.json"}).exitCode, 1);
    EXPECT_EQ(Run({"inspect", "half.json"}).exitCode, 1);
}

TEST_F(InspectTest, RejectsAPipeThatDoesNotExist) {
    AssertFails({"inspect", "--pipe", "3", "three.json"},
                "three.json: there is no pipe 3: "
                "the configuration has 3 pipes, with the indexes 0 to 2");
    AssertFails({"inspect", "--pipe", "1", "ready.json"},
                "ready.json: there is no pipe 1: the configuration has 1 pipe, with the index 0");
    AssertFails({"inspect", "--pipe", "2147483647", "ready.json"},
                "ready.json: there is no pipe 2147483647: "
                "the configuration has 1 pipe, with the index 0");
    folder.write("empty.json", "{}");
    AssertFails({"inspect", "--pipe", "0", "empty.json"},
                "empty.json: there is no pipe 0: the configuration has no pipes");
}

TEST_F(InspectTest, RejectsAPipeThatIsNotANumber) {
    for (const std::string index : {"-1", "first", "1.5", "0x1", "+1", " 1", "1 ", "2147483648"}) {
        AssertFails(
            {"inspect", "--pipe=" + index, "three.json"},
            "--pipe: '" + index +
                "' is not a whole number from 0 to 2147483647 (see qvgraph inspect --help)");
    }
}

TEST_F(InspectTest, AnIndexWithALeadingZeroIsDecimal) {
    AssertFails(
        {"inspect", "--pipe", "010", "three.json"},
        "three.json: there is no pipe 10: the configuration has 3 pipes, with the indexes 0 to 2");
}

// ---- Records ----------------------------------------------------------------

TEST_F(InspectTest, PrintsErrorsAndFailuresIfVerbose) {
    for (const char* option : {"-v", "--verbose"}) {
        const ProcessResult result = Run({"inspect", option, "unready.json"});
        EXPECT_EQ(result.out, std::string("unready.json") + UNREADY_TEXT);
        EXPECT_EQ(WithoutLines(result.err),
                  "QVGraphParser notice initTaskNode:<line>: "
                  "failed to node_proxy_node_create(...) for node:\n"
                  "QVGraphParser error initTaskNode:<line>: "
                  "Assertion options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName) "
                  "failed at initTaskNode:<line>\n" +
                      std::string(NOT_READY));
        EXPECT_EQ(result.exitCode, 1);
    }
}

TEST_F(InspectTest, PrintsEveryRecordIfMoreVerbose) {
    for (const char* option : {"-vv", "-vvv"}) {
        const ProcessResult result = Run({"inspect", option, "ready.json"});
        EXPECT_EQ(result.out, std::string("ready.json") + READY_TEXT);
        EXPECT_EQ('\n' + WithoutLines(result.err),
                  R"(
QVGraphParser info getDefaultLinkMode:<line>: default link mode )"
                  R"(
QVGraphParser info getItemNum:<line>: item name=node_0 , \x09 tag=executor_
QVGraphParser info getItemNum:<line>: item name=node_0 , \x09 tag=link_
QVGraphParser info getItemNum:<line>: item name=node_0 , \x09 tag=node_
QVGraphParser info getItemNum:<line>: item name=stream_fmt_out , \x09 tag=stream_input
QVGraphParser info getItemNum:<line>: item name=stream_output , \x09 tag=stream_input
QVGraphParser info getItemNum:<line>: item name=stream_fmt_out , \x09 tag=stream_output
QVGraphParser info getItemNum:<line>: item name=stream_output , \x09 tag=stream_output
QVGraphParser info initTaskNode:<line>: node proxy: create task node(name=Camera)
QVGraphParser info syncOptions:<line>: sync to node options, node info:
QVGraphParser info syncOptions:<line>: option: key = fps             , opt = 25              )"
                  R"(
QVGraphParser info syncOptions:<line>: option: key = node_name       , opt = "Camera"        )"
                  R"(
QVGraphParser info syncOptions:<line>: sync to node options, node info:
QVGraphParser info syncOptions:<line>: option: key = stream_fmt_out  , opt = "nv12"          )"
                  R"(
QVGraphParser info syncOptions:<line>: option: key = stream_output   , opt = "raw"           )"
                  R"(
QVGraphParser info syncOptions:<line>: sync to node options, node info:
QVGraphParser info syncOptions:<line>: sync to node options, node info:
)");
        EXPECT_EQ(result.exitCode, 0);
    }
}

TEST_F(InspectTest, PrintsTheRecordOfAFailedLoad) {
    folder.write("broken.json", "{");
    const ProcessResult result = Run({"inspect", "-v", "broken.json"});
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(WithoutLines(result.err),
              "QVGraphParser error parseConfigText:<line>: "
              "failed to json11::Json::parse(...), err=unexpected end of input\n"
              "qvgraph: broken.json: unexpected end of input (see qvgraph check)\n");
    EXPECT_EQ(result.exitCode, 2);
}

TEST_F(InspectTest, PrintsNoSummaryIfQuiet) {
    for (const char* option : {"-q", "--quiet"}) {
        AssertRuns(
            {"inspect", option, "unready.json"}, 1, std::string("unready.json") + UNREADY_TEXT, "");
    }
    AssertFails({"inspect", "-q", "missing.json"},
                "cannot read missing.json: No such file or directory");
}

TEST_F(InspectTest, PrintsRecordsEvenIfQuiet) {
    EXPECT_EQ(WithoutLines(Run({"inspect", "-vq", "unready.json"}).err),
              "QVGraphParser notice initTaskNode:<line>: "
              "failed to node_proxy_node_create(...) for node:\n"
              "QVGraphParser error initTaskNode:<line>: "
              "Assertion options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName) "
              "failed at initTaskNode:<line>\n");
}

// ---- Control characters -----------------------------------------------------

TEST_F(InspectTest, AFileNameIsEscapedOnTheTerminal) {
    const std::string name = "a\033[2J\n\xff.json";
    const std::string shown = "a\\x1b[2J\\x0a\ufffd.json";
    folder.write(name, UNREADY);
    AssertRuns({"inspect", name},
               1,
               shown + UNREADY_TEXT,
               "qvgraph: " + shown + ": 2 nodes, 2 of them not ready\n");
    AssertFails({"inspect", name + "x"}, "cannot read " + shown + "x: No such file or directory");
    AssertFails({"inspect", name, "--pipe", "7"},
                shown + ": there is no pipe 7: the configuration has 1 pipe, with the index 0");
    folder.write(name, "{}");
    AssertRuns({"inspect", "--format", "json", name},
               0,
               "{\n"
               "  \"format_version\": \"1.0\",\n"
               "  \"file\": \"a\\u001b[2J\\n\ufffd.json\",\n"
               "  \"pipes\": []\n"
               "}\n",
               "");
}

TEST_F(InspectTest, AnErrorTextIsEscapedOnTheTerminal) {
    folder.write("evil.json", "f\033[0m");
    AssertFails({"inspect", "evil.json"},
                "evil.json: parse error: expected false, got f\\x1b[0m (see qvgraph check)");
}

}  // namespace
