// JSON in reports.
#include "render/json_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using qvgraph::Json;

std::string written(const Json& report) {
    std::ostringstream out;
    qvgraph::writeJson(out, report);
    return out.str();
}

TEST(JsonTextTest, IsIndentedAndEndsWithANewline) {
    EXPECT_EQ(written({{"b", 1}, {"a", Json::array({true, nullptr})}}),
              "{\n  \"b\": 1,\n  \"a\": [\n    true,\n    null\n  ]\n}\n");
    EXPECT_EQ(written(Json::object()), "{}\n");
}

TEST(JsonTextTest, LeavesPrintableTextUnchanged) {
    EXPECT_EQ(written("Türkamera 扉 🚪 \u00a0 \"quoted\" \\x00"),
              "\"Türkamera 扉 🚪 \u00a0 \\\"quoted\\\" \\\\x00\"\n");
}

TEST(JsonTextTest, EscapesWhatATerminalMustNotReceive) {
    EXPECT_EQ(written("\033[2J\n\t"), "\"\\u001b[2J\\n\\t\"\n");
    EXPECT_EQ(written("\x7f\u0080\u009b\u009f"), "\"\\u007f\\u0080\\u009b\\u009f\"\n");
    EXPECT_EQ(written("\u202e\u2066\u200f\u2028"), "\"\\u202e\\u2066\\u200f\\u2028\"\n");
}

TEST(JsonTextTest, AReaderReceivesWhatWasEscaped) {
    const std::string text = "\033 \x7f \u009b \u202e \u2028";
    EXPECT_EQ(Json::parse(written(text)), text);
}

TEST(JsonTextTest, ReplacesWhatIsNotUtf8) {
    EXPECT_EQ(written("a\xff\x80"
                      "b"),
              "\"a\ufffd\ufffdb\"\n");
}

TEST(JsonTextTest, CreatesAnArrayOfItems) {
    EXPECT_EQ(qvgraph::jsonArrayOf(std::string("ab"), [](char c) { return Json(c - 'a'); }),
              Json::array({0, 1}));
    EXPECT_EQ(qvgraph::jsonArrayOf(std::string(), [](char c) { return Json(c); }), Json::array());
}

}  // namespace
