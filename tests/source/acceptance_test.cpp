// Which texts are JSON: those that json11 accepts in its mode with comments.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "source/source.h"
#include "tests/support/same_as_json11.h"

namespace {

using qvgraph::Source;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

// A text that is JSON, and one that just misses it.
struct Neighbours {
    std::string json;
    std::string none;
};

void AssertNeighbours(const std::vector<Neighbours>& table) {
    for (const Neighbours& row : table) {
        EXPECT_FALSE(Source(row.json).error()) << row.json;
        EXPECT_EQ(differenceFromJson11(row.json), "") << row.json;
        EXPECT_TRUE(Source(row.none).error()) << row.none;
        EXPECT_EQ(differenceFromJson11(row.none), "") << row.none;
    }
}

std::string times(size_t count, const std::string& text) {
    std::string all;
    for (size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

TEST(AcceptanceTest, Documents) {
    AssertNeighbours({
        {"{}", ""},
        {"[]", "\n"},
        {"0", "// nothing else"},
        {"\"\"", "\""},
        {" {} ", "{} {}"},
        {"[] ", "[],"},
        {"null", "null null"},
        {"{}", "\xef\xbb\xbf{}"},
        {"{}\n", "{}\0"s},
        {"[{}]", "[{}]]"},
        {"[{}]", "[{}"},
        {"[{}]", "[{]}"},
    });
}

TEST(AcceptanceTest, Words) {
    AssertNeighbours({
        {"true", "tru"},
        {"false", "False"},
        {"null", "nul l"},
        {"[true]", "[true"},
        {"[true,false]", "[truefalse]"},
        {"{\"a\":null}", "{\"a\":nullnull}"},
        {"true ", "truex"},
        {"\"NaN\"", "NaN"},
        {"1e999", "Infinity"},
        {"[null]", "[undefined]"},
    });
}

TEST(AcceptanceTest, Numbers) {
    AssertNeighbours({
        {"0", "00"},
        {"-0", "-"},
        {"10", "01"},
        {"-10", "-01"},
        {"-1", "--1"},
        {"1", "+1"},
        {"0.5", ".5"},
        {"-0.5", "-.5"},
        {"5.0", "5."},
        {"5.0e1", "5.e1"},
        {"1e5", "1e"},
        {"1E+5", "1E+"},
        {"1e-05", "1e-"},
        {"1e5", "1e5.0"},
        {"0e0", "0e"},
        {"0.0", "0..0"},
        {"16", "0x10"},
        {"1000", "1_000"},
        {"[1, 0]", "[1 0]"},
        {"-1e-999", "1e9e9"},
        {"123456789", "0123456789"},
        {"-99999999999999999999", "- 1"},
        {"1" + times(5000, "0"), "0" + times(5000, "0")},
        {"0." + times(5000, "1"), "0." + times(5000, "1") + "."},
    });
}

TEST(AcceptanceTest, Strings) {
    AssertNeighbours({
        {R"("a")", R"("a)"},
        {R"("a")", R"('a')"},
        {R"("\"")", R"("\")"},
        {R"("\\")", R"("\\\")"},
        {R"("\/\b\f\n\r\t")", R"("\a")"},
        {R"("\n")", R"("\N")"},
        {R"("'")", R"("\'")"},
        {R"("\u0041")", R"("\x41")"},
        {R"("\u0041")", R"("\U0041")"},
        {R"("\uaBcD")", R"("\uaBcG")"},
        {R"("\u1234")", R"("\u123")"},
        {R"("\u0000")", R"("\0")"},
        {R"("\u0012")", R"("\u+012")"},
        {R"("\u0012")", R"("\u 012")"},
        {R"("\u0012")", R"("\u0x12")"},
        {R"("\u0012")", R"("\u)"},
        {"\" \"", "\"\t\""},
        {"\"\\n\"", "\"\n\""},
        {"\"\\\\n\"", "\"\\\n\""},
        {"\"\x20\"", "\"\x1f\""},
        {"\"\x7f\"", "\"\x01\""},
        {"\"0\"", "\"\0\""s},
        {R"("//")", R"("/)"},
        {R"("a" // ")", R"("a // )"},
    });
}

TEST(AcceptanceTest, StringsOfAnyBytesAboveTheControlCharacters) {
    AssertNeighbours({
        {"\"\xff\xfe\x80\"", "\xff\"\""},
        {"\"caf\xc3\xa9\"", "caf\xc3\xa9"},
        {"\"caf\xc3\"", "\"caf\xc3"},
        {"\"\xed\xa0\x80\"", "\xed\xa0\x80"},
    });
}

TEST(AcceptanceTest, Surrogates) {
    AssertNeighbours({
        {R"("\ud83d\udeaa")", R"("\ud83d\udea")"},
        {R"("\ud83d")", R"("\ud83d\")"},
        {R"("\ud83d\n")", R"("\ud83d\x")"},
        {R"("\udeaa\ud83d")", R"("\ud83d\u")"},
        {R"("\ud83d\u0041")", R"("\ud83d\uD")"},
    });
}

TEST(AcceptanceTest, Arrays) {
    AssertNeighbours({
        {"[1]", "[1,]"},
        {"[1]", "[,1]"},
        {"[1, 2]", "[1, , 2]"},
        {"[1, 2]", "[1 2]"},
        {"[1, 2]", "[1; 2]"},
        {"[]", "[,]"},
        {"[]", "["},
        {"[]", "]"},
        {"[]", "[}"},
        {"[[], []]", "[[] []]"},
        {"[1]", "(1)"},
        {"[\"a\"]", "[\"a\": 1]"},
    });
}

TEST(AcceptanceTest, Objects) {
    AssertNeighbours({
        {R"({"a": 1})", R"({"a": 1,})"},
        {R"({"a": 1})", R"({,"a": 1})"},
        {R"({"a": 1})", R"({"a" 1})"},
        {R"({"a": 1})", R"({"a":: 1})"},
        {R"({"a": 1})", R"({"a" = 1})"},
        {R"({"a": 1})", R"({a: 1})"},
        {R"({"a": 1})", R"({'a': 1})"},
        {R"({"1": 1})", R"({1: 1})"},
        {R"({"null": 1})", R"({null: 1})"},
        {R"({"a": 1})", R"({"a"})"},
        {R"({"a": 1})", R"({"a":})"},
        {R"({"a": 1})", R"({"a": 1)"},
        {R"({"a": 1})", R"("a": 1)"},
        {R"({"a": 1, "b": 2})", R"({"a": 1 "b": 2})"},
        {R"({"a": 1, "b": 2})", R"({"a": 1, , "b": 2})"},
        {R"({"a": 1, "a": 2})", R"({"a": 1, 2})"},
        {R"({"": {}})", R"({: {}})"},
        {"{}", "{]"},
        {"{}", "}"},
    });
}

TEST(AcceptanceTest, Comments) {
    AssertNeighbours({
        {"1 // a", "1 / a"},
        {"1 //", "1 /"},
        {"1 // a\n", "1 # a\n"},
        {"// a\n1", "// a\r1"},
        {"// a\r\n1", "// 1"},
        {"1/**/", "1/*/"},
        {"1 /***/", "1 /**"},
        {"1 /* * / */", "1 /* * /"},
        {"1 /* /* */", "1 /* /* */ */"},
        {"1 /* // */", "1 // */\n*/"},
        {"1 // /*", "1 /* //"},
        {"/* a */ 1", "/* a * / 1"},
        {"[1 /* , */, 2]", "[1 /* , */ 2]"},
        {"/**/{/**/\"a\"/**/:/**/1/**/,/**/\"b\"/**/:/**/2/**/}/**/", "{\"a\"/**/1}"},
        {"//\n{//\n\"a\"//\n:[//\n]//\n}//\n//", "{//}"},
        {"[12, 3]", "[1/**/2, 3]"},
        {"\"/* a */\"", "\"a\"/*\""},
        {"//\0\n1"s, "\0// 1"s},
        {"1 /* \xff\x01 */", "1 \xff"},
    });
}

TEST(AcceptanceTest, Blanks) {
    AssertNeighbours({
        {" \t\r\n1 \t\r\n", "\v1"},
        {"1\r", "1\f"},
        {"[\r1\r]", "[\b1]"},
        {"[ ]", "[\u00a0]"},
        {"{ \"a\" : 1 }", "{ \"a \" : 1 }\u2028"},
    });
}

TEST(AcceptanceTest, AtMost200ObjectsAndArraysAroundAValue) {
    AssertNeighbours({
        {times(201, "[") + times(201, "]"), times(202, "[") + times(202, "]")},
        {times(200, "[") + "1" + times(200, "]"), times(201, "[") + "1" + times(201, "]")},
        {times(200, "{\"a\":") + "{}" + times(200, "}"),
         times(201, "{\"a\":") + "{}" + times(201, "}")},
        {times(200, "{\"a\":") + "\"\"" + times(200, "}"),
         times(201, "{\"a\":") + "\"\"" + times(201, "}")},
        {times(201, "[") + "/* */" + times(201, "]"), times(201, "[") + "null" + times(201, "]")},
        {times(100, "[{\"a\":") + "0" + times(100, "}]"),
         times(100, "[{\"a\":") + "[0]" + times(100, "}]")},
        {"[" + times(1000, "[],") + "[]]", "[" + times(1000, "[],") + "]"},
    });
}

}  // namespace
