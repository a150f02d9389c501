// The settings in docs/editors and the hook for pre-commit work with the reports of
// "qvgraph check".
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

// The words between spaces.
std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

using Problem = std::vector<std::string>;

// The parts of each line of a report, as an editor extracts them with a problem pattern.
std::vector<Problem> problemsIn(const std::string& text, const json& pattern) {
    const std::regex matcher(pattern["regexp"].get<std::string>());
    std::vector<Problem> problems;
    std::istringstream report(text);
    for (std::string line; std::getline(report, line);) {
        std::smatch match;
        EXPECT_TRUE(std::regex_match(line, match, matcher)) << line;
        problems.emplace_back();
        for (const char* part : {"file", "line", "column", "severity", "code", "message"}) {
            problems.back().push_back(match[pattern[part].get<size_t>()]);
        }
    }
    return problems;
}

class EditorsTest : public CommandTest {};

TEST_F(EditorsTest, TheProblemMatcherParsesEveryFinding) {
    const json task =
        json::parse(readFile(QVGRAPH_SOURCE_DIR "/docs/editors/vscode/tasks.json"))["tasks"][0];
    ASSERT_EQ(task["command"], "qvgraph");
    auto arguments = task["args"].get<std::vector<std::string>>();
    std::replace(arguments.begin(), arguments.end(), std::string("${file}"), std::string("a.json"));
    folder.write("a.json", TWO_MISTAKES);
    const std::vector<Problem> expected = {
        {"a.json",
         "2",
         "3",
         "warning",
         "unknown-key",
         std::string("'threads' is not a reserved key of a pipe: the device ignores it; ") +
             "hint: remove it; the reserved keys of a pipe are \"thread_opts\", "
             "\"default_mode_link\", 'executor_<e>', 'link_<l>' and 'node_<n>'"},
        {"a.json",
         "3",
         "56",
         "warning",
         "number-lost",
         "'a' is stored as 1: the device drops the fraction of '1.5'; hint: write \"float:1.5\""},
        {"a.json",
         "4",
         "47",
         "note",
         "no-consumer",
         std::string(
             "stream 'raw' has no consumer in this pipe: no node receives its data; hint: add a ") +
             "consumer, unless something outside the pipe consumes it"}};
    EXPECT_EQ(problemsIn(Run(arguments).out, task["problemMatcher"]["pattern"]), expected);
}

// pre-commit appends file names to the entry and runs it.
TEST_F(EditorsTest, ThePreCommitHookFailsIfAFileHasAnError) {
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
