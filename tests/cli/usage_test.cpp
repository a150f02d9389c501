// How the command is called, and what it says of wrong calls.
#include <regex>
#include <string>

#include "tests/cli/command_test.h"

namespace {

class UsageTest : public CommandTest {
protected:
    UsageTest() { folder.write("door.json", READY); }

    // Succeeds, and prints a text that begins so.
    void AssertPrints(const std::vector<std::string>& arguments, const std::string& beginning) {
        const ProcessResult result = Run(arguments);
        EXPECT_EQ(result.out.substr(0, beginning.size()), beginning);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitCode, 0);
    }
};

const char* const COMMAND_HELP = R"(Graph configurations of stream-processing pipes, on the desk.

Examples:
  qvgraph inspect pipes.json        what a framework makes of a configuration
)";

const char* const INSPECT_HELP = R"(Show what a framework makes of a configuration.

Examples:
  qvgraph inspect pipes.json                      the whole, for people
)";

TEST_F(UsageTest, HelpBeginsWithExamples) {
    AssertPrints({"--help"}, COMMAND_HELP);
    AssertPrints({"-h"}, COMMAND_HELP);
    AssertPrints({"inspect", "--help"}, INSPECT_HELP);
    AssertPrints({"inspect", "-h"}, INSPECT_HELP);
}

TEST_F(UsageTest, HelpWinsOverWhatElseIsGiven) {
    AssertPrints({"inspect", "missing.json", "--help"}, INSPECT_HELP);
}

TEST_F(UsageTest, HelpListsEveryVerbByOneLine) {
    const std::string help = Run({"--help"}).out;
    const std::string verbs =
        "Verbs:\n"
        "  inspect               Show what a framework makes of a configuration.\n";
    EXPECT_NE(help.find(verbs), std::string::npos) << help;
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

TEST_F(UsageTest, TellsItsVersionAndThoseOfItsLibraries) {
    const ProcessResult result = Run({"--version"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    const std::regex versions("qvgraph " QVGRAPH_VERSION
                              "\njson11 [0-9.]+, CLI11 [0-9.]+, nlohmann_json [0-9.]+\n");
    EXPECT_TRUE(std::regex_match(result.out, versions)) << result.out;
}

TEST_F(UsageTest, WantsAVerb) {
    AssertFails({}, "a verb is missing (see qvgraph --help)");
    AssertFails({"check-out"}, "there is no verb 'check-out' (see qvgraph --help)");
    AssertFails({"Inspect"}, "there is no verb 'Inspect' (see qvgraph --help)");
}

TEST_F(UsageTest, WantsAFile) {
    AssertFails({"inspect"}, "FILE is required (see qvgraph inspect --help)");
    AssertFails({"inspect", "--format", "json"}, "FILE is required (see qvgraph inspect --help)");
}

TEST_F(UsageTest, WantsOneFile) {
    AssertFails({"inspect", "door.json", "other.json"},
                "The following argument was not expected: other.json (see qvgraph inspect --help)");
}

TEST_F(UsageTest, WantsOptionsThatItKnows) {
    AssertFails({"inspect", "--loud", "door.json"},
                "The following argument was not expected: --loud (see qvgraph inspect --help)");
    AssertFails({"inspect", "door.json", "-x"},
                "The following argument was not expected: -x (see qvgraph inspect --help)");
}

TEST_F(UsageTest, WantsArgumentsThatItKnows) {
    AssertFails({"inspect", "--format", "xml", "door.json"},
                "--format: xml not in {text,json} (see qvgraph inspect --help)");
    AssertFails({"inspect", "--color", "sometimes", "door.json"},
                "--color: sometimes not in {auto,always,never} (see qvgraph inspect --help)");
    AssertFails({"inspect", "door.json", "-o"},
                "--output: 1 required TEXT missing (see qvgraph inspect --help)");
}

TEST_F(UsageTest, AnArgumentNeverReachesTheTerminalRaw) {
    AssertFails({"inspect", "door.json", "\033[2J\n\xff"},
                "The following argument was not expected: \\x1b[2J\\x0a\ufffd"
                " (see qvgraph inspect --help)");
}

TEST_F(UsageTest, AfterTwoDashesComesAFile) {
    folder.write("-v", READY);
    AssertRuns({"inspect", "--", "-v"}, 0, std::string("-v") + READY_TEXT, "");
}

}  // namespace
