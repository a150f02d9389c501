// The table of reserved keys, compared with the rules that use it.
#include "check/reserved_keys.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/check/check_test.h"

namespace {

using qvgraph::Level;
using qvgraph::ReservedKey;
using qvgraph::reservedKeys;
using qvgraph::ValueKind;

// A member with this key and a value of the right kind.
std::string memberOf(const ReservedKey& key) {
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

TEST(ReservedKeysTest, TableListsEveryKeyByLevel) {
    std::string table;
    for (const ReservedKey& key : reservedKeys()) {
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

TEST(ReservedKeysTest, LevelsHaveNames) {
    EXPECT_STREQ(toText(Level::ExecutorOptions), "\"executor_opts\"");
    EXPECT_STREQ(toText(Level::Link), "a link");
    EXPECT_STREQ(toText(Level::ExtraOptions), "an extra option object");
}

TEST(ReservedKeysTest, EveryMeaningIsASentence) {
    for (const ReservedKey& key : reservedKeys()) {
        const std::string meaning = key.meaning;
        ASSERT_FALSE(meaning.empty()) << key.name;
        EXPECT_TRUE(meaning.front() >= 'A' && meaning.front() <= 'Z') << meaning;
        EXPECT_EQ(meaning.find_first_of(".\n"), meaning.size() - 1) << meaning;
    }
}

TEST(ReservedKeysTest, KeysAreUniqueInEachLevel) {
    std::set<std::pair<Level, std::string>> keys;
    for (const ReservedKey& key : reservedKeys()) {
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

using ReservedKeysInRulesTest = CheckTest;

TEST_F(ReservedKeysInRulesTest, RulesAboutKeysAndSectionsAcceptThem) {
    const std::set<std::string_view> codes = {"unknown-key",
                                              "pipe-not-addressable",
                                              "id-not-canonical",
                                              "section-not-object",
                                              "section-ignored",
                                              "link-mode-not-text",
                                              "thread-count",
                                              "stream-mode"};
    for (const ReservedKey& key : reservedKeys()) {
        const std::string text = configurationWith(memberOf(key), key.level);
        ASSERT_NE(text, "") << key.name;
        for (const auto& finding : qvgraph::checkConfiguration("test.json", text, {}).findings) {
            EXPECT_EQ(codes.count(finding.code), 0U) << text << ": " << finding.code;
        }
    }
}

}  // namespace
