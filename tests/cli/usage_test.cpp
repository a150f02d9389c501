// The arguments of the command, and its messages about wrong usage.
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/cli/command_test.h"

namespace {

class UsageTest : public CommandTest {
protected:
    UsageTest() { folder.write("door.json", READY); }

    // Expects success, and output that begins with `beginning`.
    void AssertPrints(const std::vector<std::string>& arguments, const std::string& beginning) {
        const ProcessResult result = Run(arguments);
        EXPECT_EQ(result.out.substr(0, beginning.size()), beginning);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitCode, 0);
    }
};

const char* const COMMAND_HELP = R"(Inspect, check and draw graph configurations.

Examples:
  qvgraph inspect pipes.json        show how the framework interprets it
)";

const char* const INSPECT_HELP = R"(Show how the framework interprets a configuration.

Examples:
  qvgraph inspect pipes.json                     show all pipes
)";

TEST_F(UsageTest, HelpBeginsWithExamples) {
    AssertPrints({"--help"}, COMMAND_HELP);
    AssertPrints({"-h"}, COMMAND_HELP);
    AssertPrints({"inspect", "--help"}, INSPECT_HELP);
    AssertPrints({"inspect", "-h"}, INSPECT_HELP);
}

TEST_F(UsageTest, HelpTakesPrecedenceOverOtherArguments) {
    AssertPrints({"inspect", "missing.json", "--help"}, INSPECT_HELP);
}

TEST_F(UsageTest, HelpListsEveryVerbOnOneLine) {
    const std::string help = Run({"--help"}).out;
    const std::string verbs =
        "Verbs:\n"
        "  inspect               Show how the framework interprets a configuration.\n";
    EXPECT_NE(help.find(verbs), std::string::npos) << help;
}

TEST_F(UsageTest, HelpFitsAnEightyColumnTerminal) {
    for (const char* verb : {"", "inspect", "check", "draw", "explain", "schema"}) {
        const bool isVerb = *verb != '\0';
        std::istringstream help(
            Run(isVerb ? std::vector<std::string>{verb, "--help"} : std::vector<std::string>{"-h"})
                .out);
        int lines = 0;
        for (std::string line; std::getline(help, line); ++lines) {
            EXPECT_LE(line.size(), 80U) << line;
        }
        EXPECT_GT(lines, 10) << verb;
    }
}

TEST_F(UsageTest, HelpNamesEveryOptionOfInspect) {
    const std::string help = Run({"inspect", "--help"}).out;
    for (const char* option : {"\n  FILE  ",
                               "\n  -h,--help  ",
                               "\n  --format FORMAT  ",
                               "\n  -o,--output FILE  ",
                               "\n  --pipe N  ",
                               "\n  --color WHEN  ",
                               "\n  -v,--verbose  ",
                               "\n  -q,--quiet  "}) {
        EXPECT_NE(help.find(option), std::string::npos) << option << '\n' << help;
    }
}

TEST_F(UsageTest, PrintsTheVersionsOfTheCommandAndItsLibraries) {
    const ProcessResult result = Run({"--version"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    const std::regex versions("qvgraph " QVGRAPH_VERSION
                              "\njson11 [0-9.]+, CLI11 [0-9.]+, nlohmann_json [0-9.]+\n");
    EXPECT_TRUE(std::regex_match(result.out, versions)) << result.out;
}

TEST_F(UsageTest, RequiresAVerb) {
    AssertFails({}, "a verb is missing (see qvgraph --help)");
    AssertFails({"check-out"}, "there is no verb 'check-out' (see qvgraph --help)");
    AssertFails({"Inspect"}, "there is no verb 'Inspect' (see qvgraph --help)");
}

TEST_F(UsageTest, RequiresAFile) {
    AssertFails({"inspect"}, "FILE is required (see qvgraph inspect --help)");
    AssertFails({"inspect", "--format", "json"}, "FILE is required (see qvgraph inspect --help)");
}

TEST_F(UsageTest, AcceptsOnlyOneFile) {
    AssertFails({"inspect", "door.json", "other.json"},
                "The following argument was not expected: other.json (see qvgraph inspect --help)");
}

TEST_F(UsageTest, RejectsUnknownOptions) {
    AssertFails({"inspect", "--loud", "door.json"},
                "The following argument was not expected: --loud (see qvgraph inspect --help)");
    AssertFails({"inspect", "door.json", "-x"},
                "The following argument was not expected: -x (see qvgraph inspect --help)");
}

TEST_F(UsageTest, RejectsUnknownValues) {
    AssertFails({"inspect", "--format", "xml", "door.json"},
                "--format: xml not in {text,json} (see qvgraph inspect --help)");
    AssertFails({"inspect", "--color", "sometimes", "door.json"},
                "--color: sometimes not in {auto,always,never} (see qvgraph inspect --help)");
    AssertFails({"inspect", "door.json", "-o"},
                "--output: 1 required TEXT missing (see qvgraph inspect --help)");
}

TEST_F(UsageTest, AnArgumentIsEscapedOnTheTerminal) {
    AssertFails({"inspect", "door.json", "\033[2J\n\xff"},
                "The following argument was not expected: \\x1b[2J\\x0a\ufffd"
                " (see qvgraph inspect --help)");
}

TEST_F(UsageTest, ArgumentsAfterTwoDashesAreFiles) {
    folder.write("-v", READY);
    AssertRuns({"inspect", "--", "-v"}, 0, std::string("-v") + READY_TEXT, "");
}

}  // namespace
