// No byte of a configuration controls the terminal, adds a line or is used as a format.
#include <string>
#include <vector>

#include "tests/cli/command_test.h"
#include "tests/support/harmful_text.h"

namespace {

class HarmlessTest : public CommandTest {
protected:
    // Expects as many lines as for a harmless text, and no control characters.
    void AssertHarmless(const std::vector<std::string>& arguments) {
        const std::string command = testing::PrintToString(arguments);
        folder.write("door.json", fullOf(HARMLESS));
        const ProcessResult plain = Run(arguments);
        folder.write("door.json", fullOf(HARMFUL));
        const ProcessResult result = Run(arguments);
        EXPECT_EQ(harmIn(result.out), "") << command << result.out;
        EXPECT_EQ(harmIn(result.err), "") << command << result.err;
        EXPECT_EQ(linesOf(result.out), linesOf(plain.out)) << command << result.out;
        EXPECT_EQ(linesOf(result.err), linesOf(plain.err)) << command << result.err;
        EXPECT_EQ(result.exitCode, plain.exitCode) << command;
        EXPECT_EQ(plain.exitCode, 1) << "some nodes are ready, and some are not";
    }

    static std::string Replaced(std::string text, const std::string& from, const std::string& to) {
        for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
            text.replace(at, from.size(), to);
        }
        return text;
    }
};

TEST_F(HarmlessTest, TheTextReportIsHarmless) {
    AssertHarmless({"inspect", "door.json"});
    AssertHarmless({"inspect", "--no-stub", "door.json"});
}

TEST_F(HarmlessTest, TheJsonReportIsHarmless) {
    AssertHarmless({"inspect", "--format", "json", "door.json"});
}

TEST_F(HarmlessTest, RecordsAreHarmless) {
    AssertHarmless({"inspect", "-v", "door.json"});
    AssertHarmless({"inspect", "-vv", "door.json"});
}

TEST_F(HarmlessTest, OnlyTheCommandSetsColours) {
    const std::vector<std::string> arguments = {"inspect", "--color", "always", "-vv", "door.json"};
    for (const char* colour : {"0", "1", "31", "32", "34", "1;31"}) {
        folder.write("door.json", fullOf(HARMLESS));
        const ProcessResult plain = Run(arguments);
        folder.write("door.json", fullOf(HARMFUL));
        const ProcessResult result = Run(arguments);
        const std::string escape = "\033[" + std::string(colour) + "m";
        EXPECT_EQ(Replaced(result.out, escape, "").size() - result.out.size(),
                  Replaced(plain.out, escape, "").size() - plain.out.size())
            << colour;
    }
}

TEST_F(HarmlessTest, SyntaxErrorsAreHarmless) {
    for (const char* text :
         {"{\"a\033[2J\": \033}", "[\x9b]", "f\x7f\r\n", "{\"\": 1\u0085}", "\xff"}) {
        folder.write("door.json", text);
        for (const char* verbosity : {"-q", "-vv"}) {
            const ProcessResult result = Run({"inspect", verbosity, "door.json"});
            EXPECT_EQ(harmIn(result.err), "") << result.err;
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.exitCode, 2) << text;
        }
    }
}

TEST_F(HarmlessTest, FormatConversionsArePrintedAsText) {
    for (const char* format : {"text", "json"}) {
        const std::vector<std::string> arguments = {
            "inspect", "--format", format, "-vv", "door.json"};
        folder.write("door.json", fullOf("QQQQ"));
        const ProcessResult plain = Run(arguments);
        folder.write("door.json", fullOf("%n%s"));
        const ProcessResult result = Run(arguments);
        EXPECT_EQ(Replaced(result.out, "%n%s", "QQQQ"), plain.out);
        EXPECT_EQ(Replaced(result.err, "%n%s", "QQQQ"), plain.err);
        EXPECT_EQ(result.exitCode, plain.exitCode);
        EXPECT_NE(result.err.find("%n%s"), std::string::npos);
    }
}

}  // namespace
