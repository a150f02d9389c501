// That the check and the parser agree on what is stored of an option.
#include "check/stored_option.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "source/source.h"
#include "survey/survey.h"

namespace {

using qvgraph::Source;
using qvgraph::Stored;
using qvgraph::storedOf;
using qvgraph::textOf;

// "int32 5", "float nan", "string 'x'" or "nothing".
std::string typedText(const std::optional<Stored>& stored) {
    static const char* const TYPES[] = {"string ", "int32 ", "int64 ", "float "};
    return stored ? TYPES[stored->index()] + textOf(*stored) : "nothing";
}

// Expects an option of this value, in JSON, to be stored as told, by the parser
// and for the check.
void AssertStores(const std::string& value, const std::string& stored) {
    const std::string text = R"({"pipe_0": {"link_0": {"k": )" + value + "}}}";
    const Source source(text);
    const qvgraph::Value* link = source.root()->member("pipe_0")->member("link_0");
    EXPECT_EQ(typedText(storedOf(*link->member("k"))), stored) << value;

    const qvgraph::Options options = qvgraph::surveyText(text, {}).survey.pipes[0].links[0].options;
    const auto found = options.find("k");
    const auto byParser =
        found == options.end() ? std::nullopt : std::optional<Stored>(found->second);
    EXPECT_EQ(typedText(byParser), stored) << value;
}

void AssertStoresText(const std::string& text, const std::string& stored) {
    AssertStores('"' + text + '"', stored);
}

TEST(StoredOptionTest, Numbers) {
    AssertStores("0", "int32 0");
    AssertStores("3.9", "int32 3");
    AssertStores("-3.9", "int32 -3");
    AssertStores("2147483647.5", "int32 2147483647");
    AssertStores("3e9", "int32 2147483647");
    AssertStores("-1e999", "int32 -2147483648");
}

TEST(StoredOptionTest, WhatIsNeitherANumberNorAText) {
    AssertStores("null", "nothing");
    AssertStores("true", "nothing");
    AssertStores("[1]", "nothing");
    AssertStores(R"({"a": 1})", "nothing");
}

TEST(StoredOptionTest, Texts) {
    AssertStoresText("", "string ''");
    AssertStoresText("Int32:5", "string 'Int32:5'");
    AssertStoresText(":5", "string ':5'");
    AssertStoresText(R"(left\u0000right)", "string 'left'");
    AssertStoresText(std::string(127, 'x'), "string '" + std::string(60, 'x') + "...'");
    AssertStoresText(std::string(128, 'x'), "nothing");
}

TEST(StoredOptionTest, Int32) {
    AssertStoresText("int32:42", "int32 42");
    AssertStoresText("int32", "int32 0");
    AssertStoresText("int32:", "int32 0");
    AssertStoresText("int32::5", "int32 0");
    AssertStoresText("int32: -7:9", "int32 -7");
    AssertStoresText("int32:0x10", "int32 0");
    AssertStoresText("int32:99999999999999999999", "int32 2147483647");
    AssertStoresText("int32:-2147483649", "int32 -2147483648");
    AssertStoresText(R"(int32:12\u00003)", "int32 12");
}

TEST(StoredOptionTest, Int64) {
    AssertStoresText("int64:0x10", "int64 16");
    AssertStoresText("int64:010", "int64 8");
    AssertStoresText("int64:09", "int64 0");
    AssertStoresText("int64:-1", "int64 -1");
    AssertStoresText("int64:0xffffffffffffffff", "int64 -1");
    AssertStoresText("int64:18446744073709551616", "int64 -1");
    AssertStoresText("int64:-9223372036854775809", "int64 9223372036854775807");
}

TEST(StoredOptionTest, Floats) {
    AssertStoresText("float", "float 0.0");
    AssertStoresText("float:0.1", "float 0.1");
    AssertStoresText("float:1,5", "float 1.0");
    AssertStoresText("float:1e-7", "float 1e-07");
    AssertStoresText("float:1e20", "float 1e+20");
    AssertStoresText("float:1e39", "float inf");
    AssertStoresText("float:-nan", "float nan");
    AssertStoresText("double:16777217", "float 16777216.0");
    AssertStoresText("double:-1e-999", "float -0.0");
}

TEST(StoredOptionTest, ATextIsSplitAtItsColons) {
    const std::string text = R"({"k": "int64:5x:6:7"})";
    const Source source(text);
    const auto typed = qvgraph::typedIn(*source.root()->member("k"));
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->text, "int64:5x:6:7");
    EXPECT_EQ(typed->word, "int64");
    EXPECT_EQ(typed->value, "5x");
    EXPECT_EQ(typed->rest, "5x:6:7");
    EXPECT_TRUE(typed->isWhole());
    EXPECT_EQ(qvgraph::readingOf(*typed).length, 1U);
}

}  // namespace
