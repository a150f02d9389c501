// Findings for people, and for tools that read the output of compilers.
#include "render/check_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "render/check_gcc.h"
#include "tests/render/small_check.h"

namespace {

using qvgraph::CheckedFile;
using qvgraph::Finding;
using qvgraph::Severity;

// ---- Text -------------------------------------------------------------------

class CheckTextTest : public testing::Test {
protected:
    static std::string Report(const std::vector<CheckedFile>& files, bool colour = false) {
        std::ostringstream out;
        qvgraph::renderCheckText(out, files, colour);
        return out.str();
    }

    // Expects the report, with a newline before it: the shape of a raw literal.
    static void AssertShows(const std::vector<CheckedFile>& files, const std::string& report) {
        EXPECT_EQ('\n' + Report(files), report);
    }
};

TEST_F(CheckTextTest, ShowsFindingsWithTheirLines) {
    AssertShows(filesOf(doorFile(), gateFile()), R"(
door.json:3:14: warning: 'fps' is already in this object [twice]
    3 |              "fps": 30},
      |              ^~~~~
door.json:2:14: note: overridden here
    2 |   "link_0": {"fps": 25,
      |              ^~~~~
      = hint: remove one of the two

door.json:4:3: error: 'link_x' has no number [no-number]
    4 |   "link_x": {}
      |   ^~~~~~~~

gate.json:1:3: note: the last line does not end [no-line-end]
    1 | {}
      |   ^
)");
}

TEST_F(CheckTextTest, WritesNothingWithoutFindings) {
    EXPECT_EQ(Report(filesOf()), "");
    EXPECT_EQ(Report(filesOf(fileWith("a.json", "{}", {}), fileWith("b.json", "{}", {}))), "");
}

TEST_F(CheckTextTest, WritesNoEmptyLineForAFileWithoutFindings) {
    EXPECT_EQ(
        Report(filesOf(fileWith("a.json", "{}", {}), gateFile(), fileWith("b.json", "{}", {}))),
        Report(filesOf(gateFile())));
}

TEST_F(CheckTextTest, ShowsEveryRelatedLocation) {
    Finding finding = findingAt({1, 2}, Severity::Error, "two", "there are two more");
    finding.related = {{"this one", {4, 5}}, {"and this one", {7, 8}}};
    AssertShows(filesOf(fileWith("a.json", "[1, 2, 3]", {finding})), R"(
a.json:1:2: error: there are two more [two]
    1 | [1, 2, 3]
      |  ^
a.json:1:5: note: this one
    1 | [1, 2, 3]
      |     ^
a.json:1:8: note: and this one
    1 | [1, 2, 3]
      |        ^
)");
}

TEST_F(CheckTextTest, WrapsALongHint) {
    Finding finding = findingAt({0, 2}, Severity::Error, "long", "it needs many words");
    finding.hint =
        "write an object that has a member for every pipe, numbered from 0 on without a gap, each "
        "an object";
    AssertShows(filesOf(fileWith("a.json", "{}", {finding})), R"(
a.json:1:1: error: it needs many words [long]
    1 | {}
      | ^~
      = hint: write an object that has a member for every pipe, numbered from 0
              on without a gap, each an object
)");
}

TEST_F(CheckTextTest, AHintIsAlignedWithAWideGutter) {
    Finding finding = findingAt({999999, 1000001}, Severity::Error, "late", "it is late");
    finding.hint = "come earlier";
    AssertShows(filesOf(fileWith("a.json", std::string(999999, '\n') + "{}", {finding})), R"(
a.json:1000000:1: error: it is late [late]
1000000 | {}
        | ^~
        = hint: come earlier
)");
}

TEST_F(CheckTextTest, ShowsTheEndOfTheText) {
    AssertShows(
        filesOf(fileWith("a.json",
                         "{\n",
                         {findingAt({2, 2}, Severity::Error, "end", "unexpected end of input")})),
        R"(
a.json:2:1: error: unexpected end of input [end]
    2 | )"
        R"(
      | ^
)");
}

TEST_F(CheckTextTest, TabsAndCarriageReturnsDoNotMoveTheMarker) {
    const std::string text = "{\r\n\t\"a\":\t1\r\n}";
    AssertShows(
        filesOf(fileWith(
            "a.json", text, {findingAt(spanOf(text, "1"), Severity::Warning, "one", "it is 1")})),
        R"(
a.json:2:7: warning: it is 1 [one]
    2 |  "a": 1
      |       ^
)");
}

TEST_F(CheckTextTest, ShowsTheMarkedPartOfALongLine) {
    const std::string text = "[" + std::string(500, ' ') + "1" + std::string(500, ' ') + "]";
    AssertShows(
        filesOf(fileWith(
            "a.json", text, {findingAt(spanOf(text, "1"), Severity::Note, "one", "it is 1")})),
        R"(
a.json:1:502: note: it is 1 [one]
    1 | ...                                          1                                           ...
      |                                              ^
)");
}

TEST_F(CheckTextTest, ColoursAsCompilersDo) {
    EXPECT_EQ(Report(filesOf(doorFile(), gateFile()), true),
              "\033[1mdoor.json:3:14:\033[0m \033[1;35mwarning:\033[0m "
              "'fps' is already in this object [\033[1;35mtwice\033[0m]\n"
              "    3 |              \"fps\": 30},\n"
              "      |              \033[1;35m^~~~~\033[0m\n"
              "\033[1mdoor.json:2:14:\033[0m \033[1;36mnote:\033[0m overridden here\n"
              "    2 |   \"link_0\": {\"fps\": 25,\n"
              "      |              \033[1;36m^~~~~\033[0m\n"
              "      = \033[1;32mhint:\033[0m remove one of the two\n"
              "\n"
              "\033[1mdoor.json:4:3:\033[0m \033[1;31merror:\033[0m "
              "'link_x' has no number [\033[1;31mno-number\033[0m]\n"
              "    4 |   \"link_x\": {}\n"
              "      |   \033[1;31m^~~~~~~~\033[0m\n"
              "\n"
              "\033[1mgate.json:1:3:\033[0m \033[1;36mnote:\033[0m "
              "the last line does not end [\033[1;36mno-line-end\033[0m]\n"
              "    1 | {}\n"
              "      |   \033[1;36m^\033[0m\n");
}

TEST_F(CheckTextTest, NothingOfAConfigurationReachesTheTerminalRaw) {
    const std::string shown = SHOWN_EVIL;
    const std::string line = "    1 | \"\\x1b\ufffd\\x9b\\x202e\" x\n";
    EXPECT_EQ(Report(filesOf(hostileFile())),
              shown + ":1:1: error: " + shown + " [evil]\n" + line + "      | ^~~~~~\n" + shown +
                  ":1:8: note: " + shown + '\n' + line + "      |                   ^\n" +
                  "      = hint: " + shown + '\n');
}

// ---- One line per finding ----------------------------------------------------

std::string gccReport(const std::vector<CheckedFile>& files) {
    std::ostringstream out;
    qvgraph::renderCheckGcc(out, files);
    return out.str();
}

TEST(CheckGccTest, ShowsAFindingOnOneLine) {
    EXPECT_EQ(
        gccReport(filesOf(doorFile(), fileWith("clean.json", "{}", {}), gateFile())),
        "door.json:3:14: warning: 'fps' is already in this object; hint: remove one of the two [twice]\n"
        "door.json:4:3: error: 'link_x' has no number [no-number]\n"
        "gate.json:1:3: note: the last line does not end [no-line-end]\n");
}

TEST(CheckGccTest, WritesNothingWithoutFindings) {
    EXPECT_EQ(gccReport(filesOf(fileWith("a.json", "{}", {}))), "");
}

TEST(CheckGccTest, NothingOfAConfigurationReachesTheTerminalRaw) {
    const std::string shown = SHOWN_EVIL;
    EXPECT_EQ(gccReport(filesOf(hostileFile())),
              shown + ":1:1: error: " + shown + "; hint: " + shown + " [evil]\n");
}

}  // namespace
