// Findings as SARIF.
#include "render/check_sarif.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/render/small_check.h"
#include "tests/render/small_rules.h"

namespace {

using nlohmann::json;
using qvgraph::CheckedFile;
using qvgraph::Finding;
using qvgraph::Severity;

std::string reportOf(const std::vector<CheckedFile>& files) {
    std::ostringstream out;
    qvgraph::renderCheckSarif(out, files, {smallRules().at(0)}, "1.2.3");
    return out.str();
}

json resultsOf(const std::vector<CheckedFile>& files) {
    return json::parse(reportOf(files)).at("/runs/0/results"_json_pointer);
}

std::string uriOf(const std::string& path) {
    const json results = resultsOf(
        filesOf(fileWith(path, "{}", {findingAt({0, 2}, Severity::Note, "n", "a note")})));
    return results.at("/0/locations/0/physicalLocation/artifactLocation/uri"_json_pointer);
}

std::vector<std::string> fingerprintsOf(const std::vector<CheckedFile>& files) {
    std::vector<std::string> fingerprints;
    for (const json& result : resultsOf(files)) {
        fingerprints.push_back(result.at("partialFingerprints").at("codeAndPointer/v1"));
    }
    return fingerprints;
}

Finding noteAt(qvgraph::Span span, const char* code, const std::string& pointer) {
    return findingAt(span, Severity::Note, code, "a note", pointer);
}

TEST(CheckSarifTest, ShowsAllOfRulesAndFindings) {
    EXPECT_EQ('\n' + reportOf(filesOf(doorFile())), R"(
{
  "$schema": "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json",
  "version": "2.1.0",
  "runs": [
    {
      "tool": {
        "driver": {
          "name": "qvgraph",
          "version": "1.2.3",
          "semanticVersion": "1.2.3",
          "rules": [
            {
              "id": "twice",
              "shortDescription": {
                "text": "A key occurs twice in one object"
              },
              "fullDescription": {
                "text": "The order in the text decides which of the two values wins. An object of *JSON* has each key <once>."
              },
              "help": {
                "text": "On a device: The last value wins; the other one is silently discarded.\n\nFix: Remove the one that is not intended."
              },
              "defaultConfiguration": {
                "level": "warning"
              }
            }
          ]
        }
      },
      "columnKind": "unicodeCodePoints",
      "results": [
        {
          "ruleId": "twice",
          "level": "warning",
          "message": {
            "text": "'fps' is already in this object. Hint: remove one of the two"
          },
          "locations": [
            {
              "physicalLocation": {
                "artifactLocation": {
                  "uri": "door.json"
                },
                "region": {
                  "startLine": 3,
                  "startColumn": 14,
                  "endLine": 3,
                  "endColumn": 19
                }
              },
              "logicalLocations": [
                {
                  "fullyQualifiedName": "/pipe_0/link_0/fps"
                }
              ]
            }
          ],
          "partialFingerprints": {
            "codeAndPointer/v1": "4095fee74d4780b1:1"
          },
          "relatedLocations": [
            {
              "id": 1,
              "physicalLocation": {
                "artifactLocation": {
                  "uri": "door.json"
                },
                "region": {
                  "startLine": 2,
                  "startColumn": 14,
                  "endLine": 2,
                  "endColumn": 19
                }
              },
              "message": {
                "text": "overridden here"
              }
            }
          ]
        },
        {
          "ruleId": "no-number",
          "level": "error",
          "message": {
            "text": "'link_x' has no number"
          },
          "locations": [
            {
              "physicalLocation": {
                "artifactLocation": {
                  "uri": "door.json"
                },
                "region": {
                  "startLine": 4,
                  "startColumn": 3,
                  "endLine": 4,
                  "endColumn": 11
                }
              },
              "logicalLocations": [
                {
                  "fullyQualifiedName": "/pipe_0/link_x"
                }
              ]
            }
          ],
          "partialFingerprints": {
            "codeAndPointer/v1": "665db3f1c30a3dc0:1"
          }
        }
      ]
    }
  ]
}
)");
}

TEST(CheckSarifTest, WithoutFindingsThereAreNoResults) {
    EXPECT_EQ(resultsOf(filesOf(fileWith("a.json", "{}", {}))), json::array());
}

TEST(CheckSarifTest, TheRootHasNoLogicalLocation) {
    const json results = resultsOf(filesOf(fileWith("a.json", "{}", {noteAt({0, 2}, "n", "")})));
    EXPECT_EQ(results.at("/0/locations/0"_json_pointer).contains("logicalLocations"), false);
}

// ---- Paths ------------------------------------------------------------------

TEST(CheckSarifTest, ARelativePathStaysRelative) {
    EXPECT_EQ(uriOf("door.json"), "door.json");
    EXPECT_EQ(uriOf("../pipes/door-camera_2.json"), "../pipes/door-camera_2.json");
    EXPECT_EQ(uriOf("./a~b.json"), "./a~b.json");
}

TEST(CheckSarifTest, AnAbsolutePathIsAFile) {
    EXPECT_EQ(uriOf("/etc/door.json"), "file:///etc/door.json");
}

TEST(CheckSarifTest, EncodesWhatAUriCannotContain) {
    EXPECT_EQ(uriOf("<stdin>"), "%3Cstdin%3E");
    EXPECT_EQ(uriOf("a b%20?#.json"), "a%20b%2520%3F%23.json");
    EXPECT_EQ(uriOf("C:door.json"), "C%3Adoor.json");
    EXPECT_EQ(uriOf("/Tür\xff\n"), "file:///T%C3%BCr%FF%0A");
}

// ---- Fingerprints -----------------------------------------------------------

TEST(CheckSarifTest, AFingerprintDependsOnTheCodeAndThePointer) {
    const auto moved =
        fingerprintsOf(filesOf(fileWith("a.json", "{}", {noteAt({0, 2}, "n", "/a")}),
                               fileWith("b.json", "\n{}", {noteAt({1, 3}, "n", "/a")})));
    EXPECT_EQ(moved, (std::vector<std::string>{"0ce636bc6a3e3e5f:1", "0ce636bc6a3e3e5f:1"}));
    const auto others = fingerprintsOf(
        filesOf(fileWith("a.json", "{}", {noteAt({0, 2}, "n", "/b"), noteAt({0, 2}, "n/", "a")})));
    EXPECT_EQ(others, (std::vector<std::string>{"0ce637bc6a3e4012:1", "67c73fbc0c90cf9d:1"}));
}

TEST(CheckSarifTest, DistinguishesFindingsWithTheSameCodeAndPointer) {
    const auto fingerprints = fingerprintsOf(filesOf(
        fileWith("a.json",
                 "{}",
                 {noteAt({0, 1}, "n", "/a"), noteAt({0, 1}, "m", "/a"), noteAt({1, 2}, "n", "/a")}),
        fileWith("b.json", "{}", {noteAt({0, 1}, "n", "/a")})));
    EXPECT_EQ(fingerprints,
              (std::vector<std::string>{"0ce636bc6a3e3e5f:1",
                                        "2cd434a3678025ac:1",
                                        "0ce636bc6a3e3e5f:2",
                                        "0ce636bc6a3e3e5f:1"}));
}

// ---- Bytes ------------------------------------------------------------------

TEST(CheckSarifTest, NothingOfAConfigurationReachesTheTerminalRaw) {
    const std::string shown = SHOWN_EVIL;
    const std::string text = reportOf(filesOf(hostileFile()));
    EXPECT_EQ(text.find_first_of("\033\x7f\t\r"), std::string::npos);
    EXPECT_EQ(text.find('\x9b'), std::string::npos);
    const json result = json::parse(text).at("/runs/0/results/0"_json_pointer);
    EXPECT_EQ(result.at("/message/text"_json_pointer), shown + ". Hint: " + shown);
    EXPECT_EQ(result.at("/relatedLocations/0/message/text"_json_pointer), shown);
    EXPECT_EQ(result.at("/locations/0/physicalLocation/artifactLocation/uri"_json_pointer),
              "%1B%5B2J%0A%FF%C2%9B");
    EXPECT_EQ(result.at("/locations/0/logicalLocations/0/fullyQualifiedName"_json_pointer),
              "/\033[2J\n\ufffd\u009b");
}

}  // namespace
