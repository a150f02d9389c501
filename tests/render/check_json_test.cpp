// Findings for programs.
#include "render/check_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/render/small_check.h"

namespace {

using nlohmann::json;
using qvgraph::CheckedFile;
using qvgraph::Severity;

std::string reportOf(const std::vector<CheckedFile>& files) {
    std::ostringstream out;
    qvgraph::renderCheckJson(out, files);
    return out.str();
}

TEST(CheckJsonTest, ShowsAllOfAFinding) {
    EXPECT_EQ('\n' + reportOf(filesOf(doorFile(), gateFile())), R"(
{
  "format_version": "1.0",
  "valid": false,
  "error_count": 1,
  "warning_count": 1,
  "note_count": 1,
  "files": [
    {
      "file": "door.json",
      "valid": false
    },
    {
      "file": "gate.json",
      "valid": true
    }
  ],
  "diagnostics": [
    {
      "code": "twice",
      "severity": "warning",
      "message": "'fps' is already in this object",
      "file": "door.json",
      "pointer": "/pipe_0/link_0/fps",
      "range": {
        "start": {
          "line": 3,
          "column": 14,
          "byte": 50
        },
        "end": {
          "line": 3,
          "column": 19,
          "byte": 55
        }
      },
      "related": [
        {
          "message": "overridden here",
          "file": "door.json",
          "range": {
            "start": {
              "line": 2,
              "column": 14,
              "byte": 26
            },
            "end": {
              "line": 2,
              "column": 19,
              "byte": 31
            }
          }
        }
      ],
      "hint": "remove one of the two"
    },
    {
      "code": "no-number",
      "severity": "error",
      "message": "'link_x' has no number",
      "file": "door.json",
      "pointer": "/pipe_0/link_x",
      "range": {
        "start": {
          "line": 4,
          "column": 3,
          "byte": 64
        },
        "end": {
          "line": 4,
          "column": 11,
          "byte": 72
        }
      },
      "related": [],
      "hint": null
    },
    {
      "code": "no-line-end",
      "severity": "note",
      "message": "the last line does not end",
      "file": "gate.json",
      "pointer": "/pipe_0",
      "range": {
        "start": {
          "line": 1,
          "column": 3,
          "byte": 2
        },
        "end": {
          "line": 1,
          "column": 3,
          "byte": 2
        }
      },
      "related": [],
      "hint": null
    }
  ]
}
)");
}

TEST(CheckJsonTest, WithoutFindingsEverythingIsValid) {
    EXPECT_EQ('\n' + reportOf(filesOf(fileWith("a.json", "{}", {}))), R"(
{
  "format_version": "1.0",
  "valid": true,
  "error_count": 0,
  "warning_count": 0,
  "note_count": 0,
  "files": [
    {
      "file": "a.json",
      "valid": true
    }
  ],
  "diagnostics": []
}
)");
}

TEST(CheckJsonTest, WarningsAndNotesLeaveAFileValid) {
    const json report = json::parse(
        reportOf(filesOf(fileWith("a.json",
                                  "{}",
                                  {findingAt({0, 2}, Severity::Warning, "w", "a warning"),
                                   findingAt({0, 2}, Severity::Note, "n", "a note")}))));
    EXPECT_EQ(report.at("valid"), true);
    EXPECT_EQ(report.at("error_count"), 0);
    EXPECT_EQ(report.at("warning_count"), 1);
    EXPECT_EQ(report.at("note_count"), 1);
}

TEST(CheckJsonTest, CountsTheFindingsOfAllFiles) {
    const auto wrong = [] {
        return fileWith("a.json", "{}", {findingAt({0, 2}, Severity::Error, "e", "an error")});
    };
    const json report =
        json::parse(reportOf(filesOf(wrong(), fileWith("b.json", "{}", {}), wrong())));
    EXPECT_EQ(report.at("valid"), false);
    EXPECT_EQ(report.at("error_count"), 2);
    EXPECT_EQ(report.at("files"), json::parse(R"([{"file": "a.json", "valid": false},
                                                  {"file": "b.json", "valid": true},
                                                  {"file": "a.json", "valid": false}])"));
}

TEST(CheckJsonTest, ColumnsCountCodePointsAndBytesBytes) {
    const std::string text = "\"扉\xff\t\" 1";
    const json report = json::parse(reportOf(filesOf(
        fileWith("a.json", text, {findingAt(spanOf(text, "1"), Severity::Note, "n", "it is 1")}))));
    EXPECT_EQ(report.at("/diagnostics/0/range"_json_pointer),
              json::parse(R"({"start": {"line": 1, "column": 7, "byte": 8},
                              "end": {"line": 1, "column": 8, "byte": 9}})"));
}

// Messages are safe for a terminal; names and pointers are exact except for
// invalid UTF-8.
TEST(CheckJsonTest, NothingOfAConfigurationReachesTheTerminalRaw) {
    const std::string shown = SHOWN_EVIL;
    const std::string text = reportOf(filesOf(hostileFile()));
    EXPECT_EQ(text.find_first_of("\033\x7f\t\r"), std::string::npos);
    EXPECT_EQ(text.find('\x9b'), std::string::npos);
    const json report = json::parse(text);
    const json& diagnostic = report.at("/diagnostics/0"_json_pointer);
    EXPECT_EQ(diagnostic.at("message"), shown);
    EXPECT_EQ(diagnostic.at("hint"), shown);
    EXPECT_EQ(diagnostic.at("/related/0/message"_json_pointer), shown);
    EXPECT_EQ(diagnostic.at("file"), "\033[2J\n\ufffd\u009b");
    EXPECT_EQ(diagnostic.at("pointer"), "/\033[2J\n\ufffd\u009b");
}

}  // namespace
