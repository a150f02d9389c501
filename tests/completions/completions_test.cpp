// The completions that the tab key offers after "qvgraph", in a real bash and a real zsh.
#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "check/rules.h"
#include "tests/cli/command_test.h"

namespace {

using Words = std::vector<std::string>;

Words linesOf(const std::string& text) {
    Words lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

Words sorted(Words words) {
    std::sort(words.begin(), words.end());
    return words;
}

// A shell, and the command that asks it for completions.
struct Shell {
    const char* name;
    Words command;
};

const std::string ROOT = QVGRAPH_SOURCE_DIR;

const Shell BASH = {
    "bash",
    {"bash", ROOT + "/tests/completions/complete.bash", ROOT + "/completions/qvgraph.bash"}};
const Shell ZSH = {"zsh",
                   {"zsh", "-f", ROOT + "/tests/completions/complete.zsh", ROOT + "/completions"}};

class CompletionsTest : public CommandTest, public testing::WithParamInterface<Shell> {
protected:
    void SetUp() override {
        ASSERT_TRUE(std::filesystem::create_directory(folder.path("bin")));
        folder.write("bin/qvgraph", Script());
        std::filesystem::permissions(folder.path("bin/qvgraph"), std::filesystem::perms::owner_all);
        request.environment.push_back("PATH=" + folder.path("bin") + ":/usr/bin:/bin");
        request.command = {"/usr/bin/env", GetParam().name, "-c", "true"};
        if (runProcess(request).exitCode == 127) {
            GTEST_SKIP() << GetParam().name << " is not installed";
        }
    }

    // A script that runs the command under test, for the first "qvgraph" in PATH.
    static std::string Script() {
        std::string script = "#!/bin/sh\nexec";
        for (const std::string& word : Emulator()) {
            script += " '" + word + "'";
        }
        return script + " '" QVGRAPH_COMMAND "' \"$@\"\n";
    }

    Words Offered(const std::string& line) {
        request.command = {"/usr/bin/env"};
        const Words& command = GetParam().command;
        request.command.insert(request.command.end(), command.begin(), command.end());
        request.command.push_back(line);
        const ProcessResult result = runProcess(request);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitCode, 0);
        return linesOf(result.out);
    }

    void AssertOffers(const std::string& line, const Words& words) {
        EXPECT_EQ(Offered(line), words) << line;
    }

    // The long options in the help of a verb, or of the command for "".
    Words LongOptions(const std::string& verb) {
        const std::string help = Run(verb.empty() ? Words{"--help"} : Words{verb, "--help"}).out;
        Words options;
        const std::regex option("\n  (-[a-z],)?(--[a-z-]+)");
        for (std::sregex_iterator match(help.begin(), help.end(), option), end; match != end;
             ++match) {
            options.push_back((*match)[2]);
        }
        return sorted(options);
    }
};

TEST_P(CompletionsTest, OffersVerbs) {
    AssertOffers("qvgraph ", {"check", "draw", "explain", "inspect", "schema"});
    AssertOffers("qvgraph in", {"inspect"});
    AssertOffers("qvgraph x", {});
}

TEST_P(CompletionsTest, OffersTheOptionsOfTheCommand) {
    AssertOffers("qvgraph --", LongOptions(""));
    AssertOffers("qvgraph --v", {"--version"});
}

TEST_P(CompletionsTest, OffersTheOptionsOfEveryVerb) {
    for (const char* verb : {"inspect", "check", "draw", "explain", "schema"}) {
        AssertOffers(std::string("qvgraph ") + verb + " --", LongOptions(verb));
    }
    AssertOffers("qvgraph check -q --fa", {"--fail-on"});
}

TEST_P(CompletionsTest, OffersFormats) {
    AssertOffers("qvgraph inspect --format ", {"json", "text"});
    AssertOffers("qvgraph check --format ", {"gcc", "github", "json", "sarif", "text"});
    AssertOffers("qvgraph draw --format ", {"dot", "html", "mermaid", "png", "svg"});
    AssertOffers("qvgraph explain --format ", {"markdown", "text"});
    AssertOffers("qvgraph check --format=js", {"json"});
}

TEST_P(CompletionsTest, OffersTheValuesOfOtherOptions) {
    AssertOffers("qvgraph check --fail-on ", {"error", "note", "warning"});
    AssertOffers("qvgraph check --color ", {"always", "auto", "never"});
    AssertOffers("qvgraph inspect --color a", {"always", "auto"});
    AssertOffers("qvgraph draw --pipe ", {});
}

TEST_P(CompletionsTest, OffersEveryRule) {
    Words codes;
    for (const qvgraph::Rule* rule : qvgraph::rules()) {
        codes.emplace_back(rule->code);
    }
    AssertOffers("qvgraph explain ", sorted(codes));
    AssertOffers("qvgraph check --select ", sorted(codes));
    AssertOffers("qvgraph check --ignore ", sorted(codes));
    AssertOffers("qvgraph explain no-p", {"no-pipes", "no-producer"});
    AssertOffers("qvgraph check --ignore=key", {"key-order"});
}

TEST_P(CompletionsTest, CompletesTheLastOfSeveralRules) {
    // bash replaces the complete word, zsh only the part after the comma.
    const bool replacesWord = std::string(GetParam().name) == "bash";
    AssertOffers("qvgraph check --ignore no-pipes,key",
                 {replacesWord ? "no-pipes,key-order" : "key-order"});
}

TEST_P(CompletionsTest, OffersConfigurations) {
    folder.write("door.json", "");
    folder.write("door.svg", "");
    AssertOffers("qvgraph check d", {"door.json"});
    AssertOffers("qvgraph check --format sarif first.json d", {"door.json"});
    AssertOffers("qvgraph inspect d", {"door.json"});
    AssertOffers("qvgraph draw d", {"door.json"});
    AssertOffers("qvgraph check -- d", {"door.json"});
}

TEST_P(CompletionsTest, OffersAllFilesIfThereIsNoJson) {
    folder.write("door.conf", "");
    AssertOffers("qvgraph check d", {"door.conf"});
}

TEST_P(CompletionsTest, OffersTheFilesThatAnOptionNeeds) {
    folder.write("door.json", "");
    folder.write("door.svg", "");
    folder.write("libdoor.so", "");
    AssertOffers("qvgraph draw -o d", {"door.json", "door.svg"});
    AssertOffers("qvgraph draw --output=d", {"door.json", "door.svg"});
    AssertOffers("qvgraph inspect --plugin lib", {"libdoor.so"});
}

INSTANTIATE_TEST_SUITE_P(Shells,
                         CompletionsTest,
                         testing::Values(BASH, ZSH),
                         [](const testing::TestParamInfo<Shell>& shell) {
                             return std::string(shell.param.name);
                         });

}  // namespace
