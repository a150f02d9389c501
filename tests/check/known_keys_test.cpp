// The table of known keys, against the parser that gives them their meaning.
#include "check/known_keys.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/check/check_test.h"

namespace {

using qvgraph::KnownKey;
using qvgraph::knownKeys;
using qvgraph::Level;
using qvgraph::ValueKind;

// A member of each level's objects, with a value of the right kind.
std::string memberOf(const KnownKey& key) {
    const std::string name = key.name + std::string(key.family ? "0" : "");
    switch (key.kind) {
        case ValueKind::String:
            return '"' + name + "\": \"x\"";
        case ValueKind::Number:
            return '"' + name + "\": 1";
        default:
            return '"' + name + "\": {}";
    }
}

TEST(KnownKeysTest, LevelByLevel) {
    std::string table;
    for (const KnownKey& key : knownKeys()) {
        table += std::string(toText(key.level)) + ": " + key.name + (key.family ? "<index>" : "") +
                 ", " + toText(key.kind) + '\n';
    }
    EXPECT_EQ(table, R"(the root: pipe_<index>, an object
a pipe: thread_opts, an object
a pipe: default_mode_link, a string
a pipe: executor_<index>, an object
a pipe: link_<index>, an object
a pipe: node_<index>, an object
"thread_opts": exec_thread_num, a number
an executor: executor_opts, an object
a node: node_opts, an object
a node: stream_opts, an object
a node: node_opts_extra, an object
a node: stream_opts_extra, an object
"node_opts": node_name, a string
"stream_opts": stream_input, a string
"stream_opts": stream_fmt_in, a string
"stream_opts": stream_input_<index>, a string
"stream_opts": stream_fmt_in_<index>, a string
"stream_opts": stream_mode_in, a string
"stream_opts": stream_output, a string
"stream_opts": stream_fmt_out, a string
"stream_opts": stream_output_<index>, a string
"stream_opts": stream_fmt_out_<index>, a string
)");
}

TEST(KnownKeysTest, LevelsHaveNames) {
    EXPECT_STREQ(toText(Level::ExecutorOptions), "\"executor_opts\"");
    EXPECT_STREQ(toText(Level::Link), "a link");
    EXPECT_STREQ(toText(Level::ExtraOptions), "an extra option object");
}

TEST(KnownKeysTest, EachMeaningIsASentence) {
    for (const KnownKey& key : knownKeys()) {
        const std::string meaning = key.meaning;
        ASSERT_FALSE(meaning.empty()) << key.name;
        EXPECT_TRUE(meaning.front() >= 'A' && meaning.front() <= 'Z') << meaning;
        EXPECT_EQ(meaning.find_first_of(".\n"), meaning.size() - 1) << meaning;
    }
}

TEST(KnownKeysTest, NoKeyStandsTwiceInOneLevel) {
    std::set<std::pair<Level, std::string>> keys;
    for (const KnownKey& key : knownKeys()) {
        EXPECT_TRUE(keys.emplace(key.level, key.name).second) << key.name;
    }
}

// A configuration with this member in an object of that level.
std::string configurationWith(const std::string& member, Level level) {
    switch (level) {
        case Level::Root:
            return '{' + member + '}';
        case Level::Pipe:
            return R"({"pipe_0": {)" + member + "}}";
        case Level::ThreadOptions:
            return R"({"pipe_0": {"thread_opts": {)" + member + "}}}";
        case Level::Executor:
            return R"({"pipe_0": {"executor_0": {)" + member + "}}}";
        case Level::Node:
            return R"({"pipe_0": {"node_0": {)" + member + "}}}";
        case Level::NodeOptions:
            return R"({"pipe_0": {"node_0": {"node_opts": {)" + member + "}}}}";
        case Level::StreamOptions:
            return R"({"pipe_0": {"node_0": {"stream_opts": {)" + member + "}}}}";
        default:
            return "";
    }
}

using KnownKeysInRulesTest = CheckTest;

TEST_F(KnownKeysInRulesTest, NoRuleAboutKeysAndSectionsFindsThem) {
    const std::set<std::string_view> codes = {"unknown-key",
                                              "pipe-not-addressable",
                                              "id-not-canonical",
                                              "section-not-object",
                                              "section-ignored",
                                              "link-mode-not-text",
                                              "thread-count",
                                              "stream-mode"};
    for (const KnownKey& key : knownKeys()) {
        const std::string text = configurationWith(memberOf(key), key.level);
        ASSERT_NE(text, "") << key.name;
        for (const auto& finding : qvgraph::checkConfiguration("test.json", text, {}).findings) {
            EXPECT_EQ(codes.count(finding.code), 0U) << text << ": " << finding.code;
        }
    }
}

}  // namespace
