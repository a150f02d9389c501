// The manual says what the command says: qvgraph(1) has the verbs and options of
// its help, qvgraph-config(5) and docs/configuration.md the keys of the check's
// table, and the latter what becomes of every mistake that the check knows.
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "check/known_keys.h"
#include "check/rule.h"
#include "tests/cli/command_test.h"

namespace {

using Lines = std::vector<std::string>;

const std::string PAGES = QVGRAPH_SOURCE_DIR "/docs/man/";

Lines linesOf(const std::string& text) {
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

// Every match of the expression in the lines, as `format` writes it.
Lines matches(const Lines& lines, const char* expression, const char* format) {
    const std::regex regex(expression);
    Lines found;
    std::smatch match;
    for (const std::string& line : lines) {
        if (std::regex_search(line, match, regex)) {
            found.push_back(match.format(format));
        }
    }
    return found;
}

// The lines behind `heading`, up to the next of its kind, or of a higher one.
Lines sectionOf(const Lines& page, const std::string& heading) {
    const auto begin = std::find(page.begin(), page.end(), heading);
    if (begin == page.end()) {
        return {};
    }
    const auto isNext = [&](const std::string& line) {
        return line.compare(0, 3, ".Sh") == 0 || line.compare(0, 3, heading, 0, 3) == 0;
    };
    return {begin + 1, std::find_if(begin + 1, page.end(), isNext)};
}

Lines sorted(Lines lines) {
    std::sort(lines.begin(), lines.end());
    return lines;
}

// "-o,--output FILE" and "FILE", as help shows them at the begin of a line.
Lines optionsInHelp(const std::string& help) {
    Lines options = matches(linesOf(help), "^  (-[^ ]+( [A-Z]+)?) ", "$1");
    for (const std::string& argument : matches(linesOf(help), "^  ([A-Z]+) ", "$1")) {
        options.push_back(argument);
    }
    return sorted(options);
}

// The same of a page's ".It Fl o , Fl -output Ar FILE" and ".It Ar FILE".
Lines optionsInPage(const Lines& section) {
    Lines options;
    for (const std::string& item : matches(section, "^\\.It ((Fl|Ar) .*)", "$1")) {
        std::string option = std::regex_replace(item, std::regex(" , "), ",");
        option = std::regex_replace(option, std::regex("Fl "), "-");
        options.push_back(std::regex_replace(option, std::regex("Ar "), ""));
    }
    return sorted(options);
}

class ManualTest : public CommandTest {
protected:
    Lines page = linesOf(readFile(PAGES + "qvgraph.1"));
    Lines configuration = linesOf(readFile(PAGES + "qvgraph-config.5"));

    Lines VerbsInHelp() {
        return matches(linesOf(Run({"--help"}).out), "^  ([a-z]+) {8,}[A-Z]", "$1");
    }
};

TEST_F(ManualTest, HasEveryVerb) {
    const Lines verbs = {"inspect", "check", "draw", "explain", "schema"};
    EXPECT_EQ(VerbsInHelp(), verbs);
    EXPECT_EQ(matches(sectionOf(page, ".Sh VERBS"), "^\\.Ss (.*)", "$1"), verbs);
}

TEST_F(ManualTest, HasEveryOptionOfTheCommand) {
    const Lines options = {"--version", "-h,--help"};
    EXPECT_EQ(optionsInHelp(Run({"--help"}).out), options);
    EXPECT_EQ(optionsInPage(sectionOf(page, ".Sh DESCRIPTION")), options);
}

TEST_F(ManualTest, HasEveryOptionOfEveryVerb) {
    for (const std::string& verb : VerbsInHelp()) {
        const Lines options = optionsInHelp(Run({verb, "--help"}).out);
        EXPECT_GE(options.size(), 2U) << verb;
        EXPECT_EQ(optionsInPage(sectionOf(page, ".Ss " + verb)), options) << verb;
    }
}

TEST_F(ManualTest, HasEveryKeyOfAConfiguration) {
    std::string named;
    for (const std::string& line : configuration) {
        named += line + '\n';
    }
    for (const qvgraph::KnownKey& key : qvgraph::knownKeys()) {
        const std::string name(key.name);
        const std::regex item(key.family ? "Cm " + name + " Ns Ar [A-Z]" : "Cm " + name + "\\b");
        EXPECT_TRUE(std::regex_search(named, item)) << name;
    }
}

// In an example: as a member, of any index.
TEST_F(ManualTest, ThePageHasEveryKeyInAnExample) {
    const std::string text = readFile(QVGRAPH_SOURCE_DIR "/docs/configuration.md");
    for (const qvgraph::KnownKey& key : qvgraph::knownKeys()) {
        const std::string name = std::string(key.name) + (key.family ? "[0-9a-z]+" : "");
        const std::regex member("\n +.*\"" + name + "\": ");
        EXPECT_TRUE(std::regex_search(text, member)) << name;
    }
}

TEST_F(ManualTest, ThePageHasEveryMistake) {
    const std::string text = readFile(QVGRAPH_SOURCE_DIR "/docs/configuration.md");
    for (const qvgraph::Rule& rule : qvgraph::rules()) {
        const std::string code(rule.code);
        EXPECT_NE(text.find("`](rules.md#" + code + ")"), std::string::npos) << code;
    }
}

TEST_F(ManualTest, ItsConfigurationIsClean) {
    std::string example;
    for (const std::string& line : sectionOf(configuration, ".Sh DESCRIPTION")) {
        if (line == ".Ed") {
            break;
        }
        const bool begun = !example.empty() || line == "{";
        example += begun ? line + '\n' : "";
    }
    folder.write("example.json", example);
    AssertRuns({"check", "example.json"}, 0, "", "qvgraph: 1 file, no findings\n");
}

TEST_F(ManualTest, MandocFindsNothing) {
    request.command = {
        "/usr/bin/env", "mandoc", "-T", "lint", "-W", "warning", PAGES + "qvgraph.1"};
    request.command.push_back(PAGES + "qvgraph-config.5");
    const ProcessResult result = runProcess(request);
    if (result.exitCode == 127) {
        GTEST_SKIP() << "mandoc is not installed";
    }
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(result.exitCode, 0);
}

}  // namespace
