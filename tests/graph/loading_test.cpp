// Loading from text: what is accepted, what is rejected, and the state
// afterwards.
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/graph/parser_test.h"

using json11::Json;

namespace {

class LoadingTest : public ParserTest {
protected:
    void AssertLoads(const std::string& text, int pipes) {
        SCOPED_TRACE(text);
        EXPECT_EQ(parser.parseConfigText(text.c_str()), 0);
        EXPECT_EQ(reader.getPipeNum(), pipes);
        EXPECT_EQ(framework.takeTrace(), "\n");
    }

    // `error` as it appears in a trace, escaped.
    void AssertRefuses(const char* text, const std::string& error) {
        SCOPED_TRACE(text != nullptr ? text : "(null)");
        Load(R"({"pipe_0": {}})");
        EXPECT_EQ(parser.parseConfigText(text), -1);
        EXPECT_EQ(framework.takeTrace(),
                  "\nqv_err 2 parseConfigText \"\\033[31m\\033[1m"
                  "failed to json11::Json::parse(...), err=" +
                      error + "\\033[0m\"\n");
        EXPECT_TRUE(reader.root().is_null());
        EXPECT_EQ(reader.getPipeNum(), 0);
    }

    // `count` nested arrays.
    static std::string Nested(size_t count) {
        return std::string(count, '[') + std::string(count, ']');
    }
};

}  // namespace

TEST_F(LoadingTest, NewParserHasNoDocument) {
    EXPECT_TRUE(reader.root().is_null());
    EXPECT_EQ(reader.getPipeNum(), 0);
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(LoadingTest, EmptyObjectHasNoPipes) {
    AssertLoads("{}", 0);
}

TEST_F(LoadingTest, EveryMemberOfTheRootCountsAsAPipe) {
    AssertLoads(R"({"pipe_0": {}, "pipe_7": {}, "camera": 1, "": null})", 4);
}

TEST_F(LoadingTest, RootOfAnyOtherTypeHasNoPipes) {
    for (const char* text : {"[1,2]", "[]", "0", "-1.5", R"("")", R"("pipe_0")", "true", "false"}) {
        AssertLoads(text, 0);
    }
}

TEST_F(LoadingTest, RootIsTheDocument) {
    Load(R"({"pipe_0": {"default_mode_link": "sync"}})");
    EXPECT_EQ(reader.root().dump(), R"({"pipe_0": {"default_mode_link": "sync"}})");
}

TEST_F(LoadingTest, CommentsAreAccepted) {
    AssertLoads(R"(// before
{ // a pipe /* not nested
  /* one /* only */ "pipe_0" /**/ : // here too
  {} /* and
  over lines */ , "pipe_1": {}
} // to the end)",
                2);
}

TEST_F(LoadingTest, LastDuplicateKeyWins) {
    AssertLoads(R"({"pipe_0": 1, "pipe_0": {"default_mode_link": "last"}})", 1);
    EXPECT_EQ(reader.getDefaultLinkMode(0), "last");
}

TEST_F(LoadingTest, SuccessReturnsWhatTheSummaryReturns) {
    EXPECT_EQ(reader.summary(), 0);
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(LoadingTest, NullTextIsRejected) {
    AssertRefuses(nullptr, "null input");
}

TEST_F(LoadingTest, NullDocumentIsRejectedWithoutAnErrorText) {
    AssertRefuses("null", "");
    AssertRefuses(" null // nothing", "");
}

TEST_F(LoadingTest, MalformedTextIsRejectedWithItsError) {
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"", "unexpected end of input"},
        {" ", "unexpected end of input"},
        {"// only a comment", "unexpected end of input"},
        {"{", "unexpected end of input"},
        {"{]", "expected '\\\"' in object, got ']' (93)"},
        {R"({"pipe_0" {}})", "expected ':' in object, got '{' (123)"},
        {R"({"pipe_0": {},})", "expected '\\\"' in object, got '}' (125)"},
        {R"({"pipe_0": {}} {})", "unexpected trailing '{' (123)"},
        {R"({"pipe_0": 01})", "leading 0s not permitted in numbers"},
        {"nul", "parse error: expected null, got nul"},
        {"/* open", "unexpected end of input inside multi-line comment"},
        {"/ {}", "malformed comment"},
    };
    for (const auto& [text, error] : cases) {
        AssertRefuses(text, error);
    }
}

TEST_F(LoadingTest, ContainersNestedTooDeeplyAreRejected) {
    AssertLoads(Nested(201), 0);
    AssertRefuses(Nested(202).c_str(), "exceeded maximum nesting depth");
}

TEST_F(LoadingTest, RejectedTextDiscardsTheCurrentDocument) {
    Load(R"({"pipe_0": {}})");
    ASSERT_EQ(reader.getPipeNum(), 1);
    EXPECT_EQ(parser.parseConfigText(nullptr), -1);
    EXPECT_EQ(reader.getPipeNum(), 0);
    EXPECT_TRUE(reader.root().is_null());
}

TEST_F(LoadingTest, LoadReplacesTheDocument) {
    AssertLoads(R"({"pipe_0": {}, "pipe_1": {}})", 2);
    AssertLoads(R"({"pipe_0": {"default_mode_link": "new"}})", 1);
    EXPECT_EQ(reader.getDefaultLinkMode(0), "new");
}

TEST_F(LoadingTest, LoadsAgainAfterARejection) {
    AssertRefuses("{", "unexpected end of input");
    AssertLoads(R"({"pipe_0": {}})", 1);
}

TEST_F(LoadingTest, SubValuesOutliveAReload) {
    Load(R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "Camera"}}}})");
    const Json node = reader.root()["pipe_0"]["node_0"];
    Load("{}");
    EXPECT_EQ(node.dump(), R"({"node_opts": {"node_name": "Camera"}})");
    EXPECT_EQ(parser.parseConfigText(nullptr), -1);
    EXPECT_EQ(node["node_opts"]["node_name"].string_value(), "Camera");
}

TEST_F(LoadingTest, CopiesShareTheDocument) {
    Load(R"({"pipe_0": {}})");
    const QVGraphParser copy = parser;
    EXPECT_EQ(&copy.root().object_items(), &reader.root().object_items());
}

TEST_F(LoadingTest, CopyKeepsTheDocumentWhenTheOriginalLoadsAnother) {
    Load(R"({"pipe_0": {}})");
    QVGraphParser copy = parser;
    Load("[]");
    EXPECT_EQ(copy.getPipeNum(), 1);
    copy = parser;
    EXPECT_EQ(copy.getPipeNum(), 0);
    EXPECT_TRUE(copy.root().is_array());
}

TEST_F(LoadingTest, ExceptionFromTheLoggerLeavesNoDocument) {
    Load(R"({"pipe_0": {}})");
    framework.onCall = [](const std::string& call) { throw std::runtime_error(call); };
    EXPECT_THROW(parser.parseConfigText("{"), std::runtime_error);
    EXPECT_TRUE(reader.root().is_null());
}

TEST_F(LoadingTest, SavingIsNotSupported) {
    Load(R"({"pipe_0": {}})");
    for (const char* path : {static_cast<const char*>(nullptr), "", "saved.json"}) {
        EXPECT_EQ(reader.saveConfig(path), -10);
    }
    EXPECT_EQ(framework.takeTrace(), "\n");
    EXPECT_FALSE(std::filesystem::exists("saved.json"));
    EXPECT_EQ(reader.getPipeNum(), 1);
}
