// Loading, and the reasons why a text is not a document.
#include <json11.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "tests/survey/survey_test.h"

namespace {

using qvgraph::loadConfiguration;
using qvgraph::RecordObserver;

class LoadingTest : public SurveyTest {
protected:
    void AssertLoads(const std::string& text, const std::string& document) {
        EXPECT_EQ(loadConfiguration(text, {}, &parser), std::nullopt) << text;
        EXPECT_EQ(parser.root().dump(), document);
    }

    // Expects this reason, and that it leaves the parser without a document.
    void AssertFails(const std::string& text, const std::string& why) {
        Load(R"({"pipe_0": {}})");
        EXPECT_EQ(loadConfiguration(text, {}, &parser), why) << text;
        EXPECT_TRUE(parser.root().is_null());
    }
};

std::string bytes(std::string_view text) {
    return std::string(text);
}

TEST_F(LoadingTest, AcceptsWhateverIsNotNull) {
    AssertLoads("{}", "{}");
    AssertLoads(R"({"pipe_0": {"node_0": {}}})", R"({"pipe_0": {"node_0": {}}})");
    AssertLoads("[1, 2]", "[1, 2]");
    AssertLoads("false", "false");
    AssertLoads("0", "0");
    AssertLoads(R"("")", R"("")");
    AssertLoads("// pipes\n{/* none */}\n", "{}");
}

TEST_F(LoadingTest, ReadsUpToTheFirstNul) {
    using std::string_view_literals::operator""sv;
    AssertLoads(bytes("{\"a\": 1}\0, and then something else"sv), R"({"a": 1})");
    AssertFails(bytes("{\"a\": \0 1}"sv),
                "unexpected end of input (the text ends at the NUL at byte 6)");
    AssertFails(bytes("\0{}"sv), "unexpected end of input (the text ends at the NUL at byte 0)");
}

// json11 shows the first byte of the mark as a char, which may be signed or
// unsigned.
TEST_F(LoadingTest, ReportsAByteOrderMark) {
    const std::string text = "\xef\xbb\xbf{}";
    std::string why;
    json11::Json::parse(text, why);
    EXPECT_TRUE(why == "expected value, got (-17)" || why == "expected value, got (239)") << why;
    AssertFails(text, why + " (the text begins with a byte-order mark)");
}

TEST_F(LoadingTest, ReportsADocumentThatIsNull) {
    AssertFails("null", "the document is null");
    AssertFails("// nothing yet\nnull\n", "the document is null");
}

TEST_F(LoadingTest, ReportsTheErrorOfJson11) {
    AssertFails("", "unexpected end of input");
    AssertFails("   ", "unexpected end of input");
    AssertFails("// only a comment", "unexpected end of input");
    AssertFails(R"({"pipe_0")", "unexpected end of input");
    AssertFails(R"({"pipe_0" {}})", "expected ':' in object, got '{' (123)");
    AssertFails(R"({"pipe_0": {} "pipe_1": {}})", "expected ',' in object, got '\"' (34)");
    AssertFails(R"({pipe_0: {}})", "expected '\"' in object, got 'p' (112)");
    AssertFails("{} {}", "unexpected trailing '{' (123)");
    AssertFails("nothing", "parse error: expected null, got noth");
}

// The error is extracted from a log record, which has its own beginning and end.
TEST_F(LoadingTest, ReportsAllOfTheErrorWhateverItContains) {
    AssertFails("ferr=x", "parse error: expected false, got ferr=");
    AssertFails("f\033[0m", "parse error: expected false, got f\033[0m");
    AssertFails("f%s%n", "parse error: expected false, got f%s%n");
}

TEST_F(LoadingTest, ReportsTheSameAtEveryObservedLevel) {
    for (int level = 0; level <= QV_LOG_INFO; ++level) {
        const RecordObserver observer = {level, [](const QVLogRecord& /*record*/) {}};
        EXPECT_EQ(loadConfiguration("", observer, &parser), "unexpected end of input") << level;
        EXPECT_EQ(loadConfiguration("null", observer, &parser), "the document is null") << level;
    }
}

TEST_F(LoadingTest, TheObserverSeesTheRecordOfAFailure) {
    std::string records;
    RecordObserver observer;
    observer.sink = [&](const QVLogRecord& record) {
        records += std::string(record.function) + ' ' + record.message + '\n';
    };
    EXPECT_EQ(loadConfiguration("{}", observer, &parser), std::nullopt);
    EXPECT_EQ(records, "");
    EXPECT_EQ(loadConfiguration("", observer, &parser), "unexpected end of input");
    EXPECT_EQ(records,
              "parseConfigText \033[31m\033[1mfailed to json11::Json::parse(...), "
              "err=unexpected end of input\033[0m\n");

    records.clear();
    observer.level = QV_LOG_ERROR - 1;
    EXPECT_EQ(loadConfiguration("", observer, &parser), "unexpected end of input");
    EXPECT_EQ(records, "");
}

}  // namespace
