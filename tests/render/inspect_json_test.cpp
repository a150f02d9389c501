// The resolved configuration, for programs.
#include "render/inspect_json.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "tests/render/small_survey.h"

namespace {

using nlohmann::json;
using qvgraph::Survey;

class JsonReportTest : public testing::Test {
protected:
    // The report, with a newline before it: the shape of a raw literal.
    static std::string Report(const Survey& survey, const std::string& file = "door.json") {
        std::ostringstream out;
        qvgraph::renderInspectJson(out, file, survey);
        return '\n' + out.str();
    }

    // The only option of a link in the report, as compact text.
    static std::string Shown(const qvgraph::Options::mapped_type& value) {
        qvgraph::SurveyedPipe pipe = pipeAt(0);
        pipe.links = {{.key = "link_0", .options = {{"a", value}}}};
        const json option =
            json::parse(Report(surveyOf(pipe))).at("/pipes/0/links/0/options/0"_json_pointer);
        EXPECT_EQ(option.at("key"), "a");
        return option.at("type").get<std::string>() + ' ' + option.at("value").dump();
    }
};

TEST_F(JsonReportTest, ShowsAllOfASurvey) {
    EXPECT_EQ(Report(smallSurvey()), R"(
{
  "format_version": "1.0",
  "file": "door.json",
  "pipes": [
    {
      "index": 0,
      "key": "pipe_0",
      "threads": 4,
      "link_mode": "async",
      "executors": [
        {
          "index": 0,
          "id": 0,
          "key": "executor_0",
          "options": [
            {
              "key": "name",
              "type": "string",
              "value": "fast"
            },
            {
              "key": "priority",
              "type": "int32",
              "value": 80
            }
          ]
        }
      ],
      "links": [
        {
          "index": 0,
          "id": 12,
          "key": "link_12",
          "options": [
            {
              "key": "depth",
              "type": "int64",
              "value": 16
            },
            {
              "key": "drop_after_s",
              "type": "float",
              "value": 0.5
            }
          ]
        },
        {
          "index": 1,
          "id": 0,
          "key": null,
          "options": []
        }
      ],
      "nodes": [
        {
          "index": 0,
          "id": 10,
          "key": "node_10",
          "name": "Camera#door",
          "class": "Camera",
          "outcome": "ready",
          "result": 0,
          "message": null,
          "options": [
            {
              "key": "fps",
              "type": "int32",
              "value": 25
            },
            {
              "key": "node_name",
              "type": "string",
              "value": "Camera#door"
            }
          ],
          "inputs": [],
          "outputs": [
            {
              "name": "raw",
              "id": 0,
              "format": "nv12"
            }
          ]
        },
        {
          "index": 1,
          "id": 2,
          "key": "node_2",
          "name": "Display",
          "class": "Display",
          "outcome": "ready",
          "result": 0,
          "message": null,
          "options": [
            {
              "key": "node_name",
              "type": "string",
              "value": "Display"
            }
          ],
          "inputs": [
            {
              "name": "raw",
              "id": 0,
              "format": "nv12",
              "remain_newest": true
            },
            {
              "name": "overlay",
              "id": 1,
              "format": "argb",
              "remain_newest": false
            }
          ],
          "outputs": []
        }
      ],
      "streams": [
        {
          "name": "raw",
          "id": 0,
          "producer": "node_10",
          "consumers": [
            "node_2"
          ]
        },
        {
          "name": "overlay",
          "id": 1,
          "producer": null,
          "consumers": [
            "node_2"
          ]
        }
      ]
    }
  ]
}
)");
}

TEST_F(JsonReportTest, WhatIsAbsentIsNull) {
    EXPECT_EQ(json::parse(Report(unreadySurvey())), json::parse(R"({
        "format_version": "1.0",
        "file": "door.json",
        "pipes": [{
            "index": 0, "key": "pipe_0", "threads": 0, "link_mode": "none",
            "executors": [], "links": [],
            "nodes": [
                {"index": 0, "id": 0, "key": null, "name": "", "class": "",
                 "outcome": "not created", "result": -1,
                 "message": "it has no \"node_name\" that is a string",
                 "options": [], "inputs": [], "outputs": []},
                {"index": 1, "id": 1, "key": "node_1", "name": "Idle", "class": "Idle",
                 "outcome": "no streams", "result": -1,
                 "message": "it has neither inputs nor outputs",
                 "options": [], "inputs": [], "outputs": []},
                {"index": 2, "id": 2, "key": "node_2", "name": "Refused", "class": "Refused",
                 "outcome": "stream refused", "result": 0,
                 "message": "the name of its output stream is empty",
                 "options": [],
                 "inputs": [{"name": "a", "id": 0, "format": "f", "remain_newest": false}],
                 "outputs": [{"name": null, "id": null, "format": null}]},
                {"index": 3, "id": 3, "key": "node_3", "name": "Aborts", "class": "Aborts",
                 "outcome": "would abort", "result": null,
                 "message": "no name for its input stream",
                 "options": [],
                 "inputs": [{"name": null, "id": null, "format": null, "remain_newest": false}],
                 "outputs": []},
                {"index": 4, "id": 4, "key": "node_4", "name": "Throws", "class": "Throws",
                 "outcome": "would throw", "result": null,
                 "message": "no format for its output stream 'b'",
                 "options": [], "inputs": [],
                 "outputs": [{"name": "b", "id": 1, "format": null}]}
            ],
            "streams": [
                {"name": "a", "id": 0, "producer": null, "consumers": ["node_2"]},
                {"name": "b", "id": 1, "producer": "node_4", "consumers": []}
            ]
        }]
    })"));
}

TEST_F(JsonReportTest, ASurveyWithoutPipesIsAReport) {
    EXPECT_EQ(Report({}, "<stdin>"), R"(
{
  "format_version": "1.0",
  "file": "<stdin>",
  "pipes": []
}
)");
}

TEST_F(JsonReportTest, AnIndexThatMapsToNoPipeHasANullKey) {
    qvgraph::SurveyedPipe pipe = pipeAt(3);
    pipe.key.reset();
    EXPECT_EQ(Report(surveyOf(pipe)), R"(
{
  "format_version": "1.0",
  "file": "door.json",
  "pipes": [
    {
      "index": 3,
      "key": null,
      "threads": 0,
      "link_mode": "none",
      "executors": [],
      "links": [],
      "nodes": [],
      "streams": []
    }
  ]
}
)");
}

TEST_F(JsonReportTest, NumbersAreWhole) {
    EXPECT_EQ(Shown(INT32_MAX), "int32 2147483647");
    EXPECT_EQ(Shown(INT32_MIN), "int32 -2147483648");
    EXPECT_EQ(Shown(INT64_MAX), "int64 9223372036854775807");
    EXPECT_EQ(Shown(INT64_MIN), "int64 -9223372036854775808");
}

TEST_F(JsonReportTest, FloatsHaveAsManyDigitsAsTheyNeed) {
    EXPECT_EQ(Shown(0.1F), "float 0.1");
    EXPECT_EQ(Shown(3.0F), "float 3.0");
    EXPECT_EQ(Shown(-0.0F), "float -0.0");
    EXPECT_EQ(Shown(1e-7F), "float 1e-07");
    EXPECT_EQ(Shown(1e10F), "float 10000000000.0");
    EXPECT_EQ(Shown(std::numeric_limits<float>::max()), "float 3.4028235e+38");
    EXPECT_EQ(Shown(std::numeric_limits<float>::denorm_min()), "float 1e-45");
}

TEST_F(JsonReportTest, InfinitiesAndNotANumberAreStrings) {
    EXPECT_EQ(Shown(std::numeric_limits<float>::infinity()), R"(float "inf")");
    EXPECT_EQ(Shown(-std::numeric_limits<float>::infinity()), R"(float "-inf")");
    EXPECT_EQ(Shown(std::numeric_limits<float>::quiet_NaN()), R"(float "nan")");
}

TEST_F(JsonReportTest, StringsAreEscapedAsJsonRequires) {
    EXPECT_EQ(Shown(std::string("\033[2J\n\t\"\\/")), R"(string "\u001b[2J\n\t\"\\/")");
    EXPECT_EQ(Shown(std::string("\0x", 2)), R"(string "\u0000x")");
    EXPECT_EQ(Shown(std::string("Tür 扉")), "string \"Tür 扉\"");
}

TEST_F(JsonReportTest, WhatIsNotUtf8IsReplaced) {
    EXPECT_EQ(Shown(std::string("caf\xe9!")), "string \"caf\ufffd!\"");
    EXPECT_EQ(Shown(std::string("caf\xc3")), "string \"caf\ufffd\"");
    EXPECT_EQ(json::parse(Report({}, "\xff.json")).at("file"), "\ufffd.json");
}

TEST_F(JsonReportTest, EveryStringMayContainAnything) {
    const std::string evil = "\033\"\xff";
    const std::string shown = "\033\"\ufffd";
    qvgraph::SurveyedPipe pipe = pipeAt(0);
    pipe.linkMode = evil;
    pipe.executors = {{0, 0, "executor_0", {{evil, evil}}}};
    qvgraph::SurveyedNode node = nodeNamed(0, 0, evil);
    node.message = evil;
    node.inputEnds = {wiredTo(evil, 0, evil)};
    pipe.nodes = {node};
    pipe.streams = {{0, evil, std::nullopt, {}}};
    const json report = json::parse(Report(surveyOf(pipe), evil));
    EXPECT_EQ(report.at("file"), shown);
    const json& told = report.at("pipes").at(0);
    EXPECT_EQ(told.at("link_mode"), shown);
    EXPECT_EQ(told.at("executors").at(0).at("options").at(0),
              (json{{"key", shown}, {"type", "string"}, {"value", shown}}));
    EXPECT_EQ(told.at("nodes").at(0).at("name"), shown);
    EXPECT_EQ(told.at("nodes").at(0).at("class"), shown);
    EXPECT_EQ(told.at("nodes").at(0).at("message"), shown);
    EXPECT_EQ(told.at("nodes").at(0).at("inputs").at(0),
              (json{{"name", shown}, {"id", 0}, {"format", shown}, {"remain_newest", false}}));
    EXPECT_EQ(told.at("streams").at(0).at("name"), shown);
}

TEST(ClassesJsonTest, ListsClassesAndTheirOrigins) {
    std::ostringstream out;
    qvgraph::renderClassesJson(out, {{{"Camera", "/opt/\x9b.so"}, {"View", ""}}, true});
    EXPECT_EQ(out.str(), R"({
  "format_version": "1.0",
  "classes": [
    {
      "name": "Camera",
      "origin": "/opt/�.so"
    },
    {
      "name": "View",
      "origin": null
    }
  ],
  "stub": true
}
)");
}

}  // namespace
