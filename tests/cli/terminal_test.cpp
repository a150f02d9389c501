// When the command uses colour.
#include <string>
#include <vector>

#include "tests/cli/command_test.h"

namespace {

using Kind = ProcessStream::Kind;

const char* const PLAIN =
    "door.json: 1 pipe, no nodes\n"
    "\n"
    "pipe_0: index 0, 0 executor threads, default link mode none\n";

const char* const COLOURED =
    "door.json: 1 pipe, no nodes\n"
    "\n"
    "\033[1mpipe_0\033[0m: index 0, 0 executor threads, default link mode none\n";

class TerminalTest : public CommandTest {
protected:
    TerminalTest() {
        folder.write("door.json", R"({"pipe_0": {}})");
        folder.write("broken.json", "{");
        request.out.kind = Kind::Terminal;
        request.err.kind = Kind::Terminal;
    }

    void AssertPrints(const std::vector<std::string>& options, const std::string& report) {
        std::vector<std::string> arguments = {"inspect", "door.json"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        AssertRuns(arguments, 0, report, "");
    }

    // The records of a configuration that does not load.
    std::string Records(const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"inspect", "-v", "broken.json"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return WithoutLines(Run(arguments).err);
    }
};

TEST_F(TerminalTest, UsesColourOnATerminal) {
    AssertPrints({}, COLOURED);
    AssertPrints({"--color", "auto"}, COLOURED);
}

TEST_F(TerminalTest, UsesNoColourInAPipe) {
    request.out.kind = Kind::Pipe;
    AssertPrints({}, PLAIN);
    AssertPrints({"--color", "auto"}, PLAIN);
}

TEST_F(TerminalTest, TheColorOptionOverridesTheTerminal) {
    AssertPrints({"--color", "never"}, PLAIN);
    request.out.kind = Kind::Pipe;
    AssertPrints({"--color", "always"}, COLOURED);
    AssertPrints({"--color=always"}, COLOURED);
}

TEST_F(TerminalTest, NoColorTurnsColourOff) {
    request.environment = {"TERM=xterm", "NO_COLOR=1"};
    AssertPrints({}, PLAIN);
    AssertPrints({"--color", "auto"}, PLAIN);
    AssertPrints({"--color", "always"}, COLOURED);
}

TEST_F(TerminalTest, AnEmptyNoColorHasNoEffect) {
    request.environment = {"TERM=xterm", "NO_COLOR="};
    AssertPrints({}, COLOURED);
}

TEST_F(TerminalTest, UsesNoColourOnADumbTerminal) {
    request.environment = {"TERM=dumb"};
    AssertPrints({}, PLAIN);
    AssertPrints({"--color", "always"}, COLOURED);
}

TEST_F(TerminalTest, UsesNoColourIfTermIsNotSet) {
    request.environment = {};
    request.withoutEnvironment = {"NO_COLOR", "TERM"};
    AssertPrints({}, PLAIN);
}

TEST_F(TerminalTest, UsesColourInAFileOnlyIfRequested) {
    AssertPrints({"-o", "report.txt"}, "");
    EXPECT_EQ(folder.read("report.txt"), PLAIN);
    AssertPrints({"-o", "report.txt", "--color", "always"}, "");
    EXPECT_EQ(folder.read("report.txt"), COLOURED);
}

TEST_F(TerminalTest, JsonHasNoColour) {
    const ProcessResult result =
        Run({"inspect", "door.json", "--format", "json", "--color", "always"});
    EXPECT_EQ(result.out.find('\033'), std::string::npos) << result.out;
    EXPECT_EQ(result.exitCode, 0);
}

const char* const RECORDS =
    "QVGraphParser error parseConfigText:<line>: "
    "failed to json11::Json::parse(...), err=unexpected end of input\n"
    "qvgraph: broken.json: unexpected end of input (see qvgraph check)\n";

const char* const COLOURED_RECORDS =
    "\033[31m\033[1mQVGraphParser error parseConfigText:<line>: "
    "failed to json11::Json::parse(...), err=unexpected end of input\033[0m\n"
    "qvgraph: broken.json: unexpected end of input (see qvgraph check)\n";

TEST_F(TerminalTest, TheColourOfRecordsDependsOnStandardError) {
    EXPECT_EQ(Records({}), COLOURED_RECORDS);
    EXPECT_EQ(Records({"--color", "never"}), RECORDS);
    request.err.kind = Kind::Pipe;
    EXPECT_EQ(Records({}), RECORDS);
    EXPECT_EQ(Records({"--color", "always"}), COLOURED_RECORDS);
    request.out.kind = Kind::Pipe;
    request.err.kind = Kind::Terminal;
    EXPECT_EQ(Records({}), COLOURED_RECORDS);
}

}  // namespace
