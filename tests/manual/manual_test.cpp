// Compares the manual with the command: qvgraph(1) has the verbs and options of the help, qvgraph-config(5) and docs/configuration.md have the reserved
// keys, and the latter describes every mistake that the check finds.
#include <algorithm>
#include <cctype>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "check/reserved_keys.h"
#include "check/rules.h"
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

// Every match of the expression in the lines, formatted by `format`.
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

// The lines after `heading`, up to the next heading of the same or a higher level.
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

// "-o,--output FILE" and "FILE", as the help shows them at the beginning of a line.
Lines optionsInHelp(const std::string& help) {
    Lines options = matches(linesOf(help), "^  (-[^ ]+( [A-Z]+)?) ", "$1");
    for (const std::string& argument : matches(linesOf(help), "^  ([A-Z]+) ", "$1")) {
        options.push_back(argument);
    }
    return sorted(options);
}

// The same from ".It Fl o , Fl -output Ar FILE" and ".It Ar FILE" of a page.
Lines optionsInPage(const Lines& section) {
    Lines options;
    for (const std::string& item : matches(section, "^\\.It ((Fl|Ar) .*)", "$1")) {
        std::string option = std::regex_replace(item, std::regex(" , "), ",");
        option = std::regex_replace(option, std::regex("Fl "), "-");
        options.push_back(std::regex_replace(option, std::regex("Ar "), ""));
    }
    return sorted(options);
}

// A row of the table of verbs.
std::string rowOf(const std::string& verb, const std::string& words) {
    std::string row = "| [`" + verb;
    row.append("`](#").append(verb).append(") | ").append(words).append(" |");
    return row;
}

// A verb in the completion of zsh.
std::string completionOf(const std::string& verb, const std::string& words) {
    std::string completion = '\'' + verb;
    completion.append("[").append(words).append("]'");
    return completion;
}

class ManualTest : public CommandTest {
protected:
    Lines page = linesOf(readFile(PAGES + "qvgraph.1"));
    Lines configuration = linesOf(readFile(PAGES + "qvgraph-config.5"));

    Lines VerbsInHelp() {
        return matches(linesOf(Run({"--help"}).out), "^  ([a-z]+) {8,}[A-Z]", "$1");
    }
};

TEST_F(ManualTest, ThePageDescribesEveryVerb) {
    const Lines verbs = {"inspect", "check", "draw", "explain", "schema"};
    EXPECT_EQ(VerbsInHelp(), verbs);
    EXPECT_EQ(matches(sectionOf(page, ".Sh VERBS"), "^\\.Ss (.*)", "$1"), verbs);
}

// The summary of a verb in the help, with a capital letter and a full stop, and
// without both.
TEST_F(ManualTest, EveryPageSummarisesAVerbInTheSameWords) {
    const std::string help = Run({"--help"}).out;
    const std::string table = readFile(QVGRAPH_SOURCE_DIR "/docs/command.md");
    const std::string completions = readFile(QVGRAPH_SOURCE_DIR "/completions/_qvgraph");
    for (const std::string& verb : VerbsInHelp()) {
        const std::string summary =
            matches(linesOf(help), ("^  " + verb + " +(.*)$").c_str(), "$1").at(0);
        EXPECT_EQ(linesOf(Run({verb, "--help"}).out).at(0), summary);
        EXPECT_EQ(sectionOf(page, ".Ss " + verb).at(0), summary);
        std::string words = summary.substr(0, summary.size() - 1);
        words[0] = static_cast<char>(tolower(words[0]));
        EXPECT_NE(table.find(rowOf(verb, words)), std::string::npos) << words;
        EXPECT_NE(completions.find(completionOf(verb, words)), std::string::npos) << words;
    }
}

TEST_F(ManualTest, ThePageDescribesEveryOptionOfTheCommand) {
    const Lines options = {"--version", "-h,--help"};
    EXPECT_EQ(optionsInHelp(Run({"--help"}).out), options);
    EXPECT_EQ(optionsInPage(sectionOf(page, ".Sh DESCRIPTION")), options);
}

TEST_F(ManualTest, ThePageDescribesEveryOptionOfEveryVerb) {
    for (const std::string& verb : VerbsInHelp()) {
        const Lines options = optionsInHelp(Run({verb, "--help"}).out);
        EXPECT_GE(options.size(), 2U) << verb;
        EXPECT_EQ(optionsInPage(sectionOf(page, ".Ss " + verb)), options) << verb;
    }
}

TEST_F(ManualTest, TheConfigurationPageDescribesEveryReservedKey) {
    std::string named;
    for (const std::string& line : configuration) {
        named += line + '\n';
    }
    for (const qvgraph::ReservedKey& key : qvgraph::reservedKeys()) {
        const std::string name(key.name);
        const std::regex item(key.family ? "Cm " + name + " Ns Ar [A-Z]" : "Cm " + name + "\\b");
        EXPECT_TRUE(std::regex_search(named, item)) << name;
    }
}

// Looks for the key as a member of an example, with any index.
TEST_F(ManualTest, TheGuideHasEveryReservedKeyInAnExample) {
    const std::string text = readFile(QVGRAPH_SOURCE_DIR "/docs/configuration.md");
    for (const qvgraph::ReservedKey& key : qvgraph::reservedKeys()) {
        const std::string name = std::string(key.name) + (key.family ? "[0-9a-z]+" : "");
        const std::regex member("\n +.*\"" + name + "\": ");
        EXPECT_TRUE(std::regex_search(text, member)) << name;
    }
}

TEST_F(ManualTest, TheGuideDescribesEveryMistake) {
    const std::string text = readFile(QVGRAPH_SOURCE_DIR "/docs/configuration.md");
    for (const qvgraph::Rule* rule : qvgraph::rules()) {
        const std::string code(rule->code);
        EXPECT_NE(text.find("`](rules.md#" + code + ")"), std::string::npos) << code;
    }
}

TEST_F(ManualTest, TheExampleHasNoFindings) {
    std::string example;
    for (const std::string& line : sectionOf(configuration, ".Sh DESCRIPTION")) {
        if (line == ".Ed") {
            break;
        }
        const bool hasBegun = !example.empty() || line == "{";
        example += hasBegun ? line + '\n' : "";
    }
    folder.write("example.json", example);
    AssertRuns({"check", "example.json"}, 0, "", "qvgraph: 1 file, no findings\n");
}

TEST_F(ManualTest, MandocReportsNoProblems) {
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
