// Numbers outside the range of int32_t, in every position where a number may
// appear.
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tests/graph/parser_test.h"

using json11::Json;

namespace {

const int HIGHEST = std::numeric_limits<int32_t>::max();
const int LOWEST = std::numeric_limits<int32_t>::min();

class NumbersTest : public ParserTest {
protected:
    void AssertStores(const Json& value, int number) {
        EXPECT_EQ(reader.parseOptions(&framework.store, "key", value), 0);
        EXPECT_EQ(framework.takeTrace(),
                  "\nstore.setInt32 \"key\" " + std::to_string(number) + "\n")
            << value.dump();
    }

    void AssertConverts(const std::string& text,
                        const std::string& setter,
                        const std::string& stored,
                        const std::string& shown) {
        EXPECT_EQ(reader.parseOptions(&framework.store, "key", text), 0);
        EXPECT_EQ(framework.takeTrace(),
                  "\nstore." + setter + " \"key\" " + stored +
                      "\nqv_log 6 parseOptions \"\\033[34m\\033[1mkey=key value=" + shown +
                      "\\033[0m\"\n")
            << text;
    }
};

// JSON numbers, and the values that are read.
const std::vector<std::pair<std::string, int>> JSON_NUMBERS = {
    {"0", 0},
    {"-0", 0},
    {"0.999", 0},
    {"-0.999", 0},
    {"-1.5", -1},
    {"-3.9", -3},
    {"1e-300", 0},
    {"1e3", 1000},
    {"123456789", 123456789},
    {"1234567890", 1234567890},
    {"2147483646", HIGHEST - 1},
    {"2147483646.9", HIGHEST - 1},
    {"2147483647", HIGHEST},
    {"2147483647.5", HIGHEST},
    {"2147483648", HIGHEST},
    {"3000000000", HIGHEST},
    {"4294967296", HIGHEST},
    {"9223372036854775808", HIGHEST},
    {"1e300", HIGHEST},
    {"1e999", HIGHEST},
    {"-2147483647", LOWEST + 1},
    {"-2147483647.9", LOWEST + 1},
    {"-2147483648", LOWEST},
    {"-2147483648.5", LOWEST},
    {"-2147483649", LOWEST},
    {"-3000000000", LOWEST},
    {"-1e300", LOWEST},
    {"-1e999", LOWEST},
};

// Decimal strings, as in keys and after "int32:".
const std::vector<std::pair<std::string, int>> DECIMAL_TEXTS = {
    {"2147483646", HIGHEST - 1},
    {"2147483647", HIGHEST},
    {"2147483648", HIGHEST},
    {"4294967295", HIGHEST},
    {"4294967297", HIGHEST},
    {"99999999999", HIGHEST},
    {"9223372036854775807", HIGHEST},
    {"18446744073709551617", HIGHEST},
    {std::string(100, '9'), HIGHEST},
    {"0000000000000000000000000000012", 12},
    {"-2147483647", LOWEST + 1},
    {"-2147483648", LOWEST},
    {"-2147483649", LOWEST},
    {"-4294967297", LOWEST},
    {"-9223372036854775809", LOWEST},
    {"-" + std::string(100, '9'), LOWEST},
};

}  // namespace

TEST_F(NumbersTest, OptionsSaturateAtTheLimitsOfInt32) {
    for (const auto& [text, number] : JSON_NUMBERS) {
        AssertStores(Value(text), number);
    }
}

TEST_F(NumbersTest, OptionThatIsNotANumberIsZero) {
    AssertStores(Json(static_cast<double>(NAN)), 0);
    AssertStores(Json(-static_cast<double>(NAN)), 0);
}

TEST_F(NumbersTest, ThreadCountsSaturateAtTheLimitsOfInt32) {
    for (const auto& [text, number] : JSON_NUMBERS) {
        Load(R"({"pipe_0": {"thread_opts": {"exec_thread_num": )" + text + "}}}");
        EXPECT_EQ(reader.getThreadNum(0), number) << text;
    }
}

TEST_F(NumbersTest, Int32StringsSaturateAtTheLimitsOfInt32) {
    for (const auto& [text, number] : DECIMAL_TEXTS) {
        const std::string stored = std::to_string(number);
        AssertConverts("int32:" + text, "setInt32", stored, stored);
    }
}

TEST_F(NumbersTest, IdsSaturateAtTheLimitsOfInt32) {
    for (const auto& [text, number] : DECIMAL_TEXTS) {
        std::string members;
        for (const char* kind : {"node_", "executor_", "link_"}) {
            members.append(members.empty() ? "\"" : ", \"").append(kind + text).append("\": {}");
        }
        Load(R"({"pipe_0": {)" + members + "}}");
        EXPECT_EQ(reader.getNodeIDByIndex(0, 0), number) << text;
        EXPECT_EQ(reader.getExecIDByIndex(0, 0), number) << text;
        EXPECT_EQ(reader.getLinkIDByIndex(0, 0), number) << text;
    }
}

TEST_F(NumbersTest, IdsAtTheLimitsOfInt32MapBackToTheirKeys) {
    Load(R"({"pipe_2147483647": {"link_-2147483648": {"a": 1}}})");
    EXPECT_EQ(reader.getLinkIDByIndex(HIGHEST, 0), LOWEST);
    EXPECT_EQ(reader.syncLinkOptions(&framework.store, HIGHEST, LOWEST), 0);
    EXPECT_EQ(framework.calls.back(), R"(store.setInt32 "a" 1)");
}

TEST_F(NumbersTest, Int64StringsAreReadAsUnsigned) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"2147483648", "2147483648"},
        {"-2147483649", "-2147483649"},
        {"9223372036854775807", "9223372036854775807"},
        {"9223372036854775808", "-9223372036854775808"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"0x7fffffffffffffff", "9223372036854775807"},
        {"0xffffffffffffffff", "-1"},
        {"18446744073709551615", "-1"},
        {"01777777777777777777777", "-1"},
    };
    for (const auto& [text, number] : cases) {
        AssertConverts("int64:" + text, "setInt64", number, number);
    }
}

TEST_F(NumbersTest, Int64StringsOutOfRangeAreAllOnes) {
    for (const std::string& text : {std::string("18446744073709551616"),
                                    std::string("0x10000000000000000"),
                                    std::string("-18446744073709551616"),
                                    std::string(100, '9')}) {
        AssertConverts("int64:" + text, "setInt64", "-1", "-1");
    }
}

TEST_F(NumbersTest, FloatsAboveTheirRangeAreInfinite) {
    AssertConverts("float:1e39", "setFloat", "inf", "inf");
    AssertConverts("float:-1e39", "setFloat", "-inf", "-inf");
    AssertConverts("float:1e999", "setFloat", "inf", "inf");
    AssertConverts("double:-1e999", "setFloat", "-inf", "-inf");
    AssertConverts(
        "double:1e39", "setFloat", "inf", "999999999999999939709166371603178586112.000000");
}

TEST_F(NumbersTest, FloatsMayBeInfiniteOrNotANumber) {
    for (const std::string type : {"float:", "double:"}) {
        AssertConverts(type + "inf", "setFloat", "inf", "inf");
        AssertConverts(type + "-Infinity", "setFloat", "-inf", "-inf");
        AssertConverts(type + "nan", "setFloat", "nan", "nan");
    }
}

TEST_F(NumbersTest, FloatsBelowTheirRangeAreZero) {
    AssertConverts("float:1e-46", "setFloat", "0", "0.000000");
    AssertConverts("float:-1e-46", "setFloat", "-0", "-0.000000");
    AssertConverts("double:1e-400", "setFloat", "0", "0.000000");
    AssertConverts("float:1e-45", "setFloat", "1.40129846e-45", "0.000000");
}

TEST_F(NumbersTest, HexadecimalFloatsAreRead) {
    AssertConverts("float:0x1p4", "setFloat", "16", "16.000000");
}
