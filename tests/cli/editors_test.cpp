// What docs/editors tells an editor about the reports of "qvgraph check", and
// the hook for pre-commit: applied to reports as they are.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/cli/command_test.h"

using nlohmann::json;

namespace {

const char* const TWO_MISTAKES = R"({"pipe_0": {
  "threads": 2,
  "node_0": {"node_opts": {"node_name": "Camera", "a": 1.5},
             "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}}}}
)";

// What stands between blanks.
std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

class EditorsTest : public CommandTest {};

TEST_F(EditorsTest, TheProblemMatcherTakesEveryFindingApart) {
    const json task =
        json::parse(readFile(QVGRAPH_SOURCE_DIR "/docs/editors/vscode/tasks.json"))["tasks"][0];
    ASSERT_EQ(task["command"], "qvgraph");
    auto arguments = task["args"].get<std::vector<std::string>>();
    std::replace(arguments.begin(), arguments.end(), std::string("${file}"), std::string("a.json"));
    folder.write("a.json", TWO_MISTAKES);
    const json& pattern = task["problemMatcher"]["pattern"];
    const std::regex matcher(pattern["regexp"].get<std::string>());

    std::vector<std::vector<std::string>> problems;
    std::istringstream report(Run(arguments).out);
    for (std::string line; std::getline(report, line);) {
        std::smatch match;
        ASSERT_TRUE(std::regex_match(line, match, matcher)) << line;
        std::vector<std::string> problem;
        for (const char* part : {"file", "line", "column", "severity", "code", "message"}) {
            problem.push_back(match[pattern[part].get<size_t>()]);
        }
        problems.push_back(problem);
    }

    const std::vector<std::vector<std::string>> expected = {
        {"a.json",
         "2",
         "3",
         "warning",
         "unknown-key",
         std::string("'threads' is no key of a pipe: a device ignores it; hint: remove it; ") +
             "\"thread_opts\", \"default_mode_link\", 'executor_<e>', 'link_<l>' and 'node_<n>' "
             "are known here"},
        {"a.json",
         "3",
         "56",
         "warning",
         "number-lost",
         "'a' is stored as 1: the fraction of '1.5' is dropped; hint: write \"float:1.5\""},
        {"a.json",
         "4",
         "47",
         "note",
         "no-consumer",
         std::string(
             "no node of the pipe takes the stream 'raw'; hint: add a node that takes it, ") +
             "unless something outside the pipe does"}};
    EXPECT_EQ(problems, expected);
}

// pre-commit runs the entry with the names of files behind it.
TEST_F(EditorsTest, ThePreCommitHookFailsWhereAFileIsWrong) {
    std::vector<std::string> entry;
    std::istringstream hooks(readFile(QVGRAPH_SOURCE_DIR "/.pre-commit-hooks.yaml"));
    for (std::string line; std::getline(hooks, line);) {
        const std::vector<std::string> words = wordsOf(line);
        if (!words.empty() && words[0] == "entry:") {
            entry.assign(words.begin() + 1, words.end());
        }
    }
    ASSERT_FALSE(entry.empty());
    ASSERT_EQ(entry[0], "qvgraph");
    entry.erase(entry.begin());
    folder.write("right.json", READY);
    folder.write("wrong.json", "{");

    entry.emplace_back("right.json");
    EXPECT_EQ(Run(entry).exitCode, 0);
    entry.emplace_back("wrong.json");
    EXPECT_EQ(Run(entry).exitCode, 1);
}

}  // namespace
