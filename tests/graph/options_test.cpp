// Options: conversion of one option, and copying of option objects.
#include <algorithm>
#include <string>
#include <vector>

#include "tests/graph/parser_test.h"

using json11::Json;

namespace {

class OptionTest : public ParserTest {
protected:
    // `calls` are the calls for the option under "key".
    void AssertStores(const Json& value, const std::string& calls) {
        EXPECT_EQ(reader.parseOptions(&framework.store, "key", value), 0);
        EXPECT_EQ(framework.takeTrace(), calls) << value.dump();
    }

    void AssertStoresWhole(const std::string& text) {
        AssertStores(text, "\nstore.setCString \"key\" " + inQuotes(text) + "\n");
    }

    // Stored through `setter`, then logged.
    void AssertConverts(const std::string& text,
                        const std::string& setter,
                        const std::string& stored,
                        const std::string& shown) {
        AssertStores(text,
                     "\nstore." + setter + " \"key\" " + stored +
                         "\nqv_log 6 parseOptions \"\\033[34m\\033[1mkey=key value=" + shown +
                         "\\033[0m\"\n");
    }
    void AssertInt32(const std::string& text, const std::string& number) {
        AssertConverts(text, "setInt32", number, number);
    }
    void AssertInt64(const std::string& text, const std::string& number) {
        AssertConverts(text, "setInt64", number, number);
    }

    void AssertRefuses(const std::string& text, const std::string& shown) {
        EXPECT_EQ(reader.parseOptions(&framework.store, "key", text), -68);
        EXPECT_EQ(framework.takeTrace(),
                  "\nqv_err 2 parseOptions \"\\033[31m\\033[1mvalue " + shown +
                      " is too long!\\033[0m\"\n");
    }
};

class SyncTest : public ParserTest {
protected:
    std::string Sync(const std::string& options) {
        EXPECT_EQ(reader.syncOptions(&framework.store, Value(options)), 0) << options;
        return framework.takeTrace();
    }
};

// A word with different bytes and the same hash: decreasing the byte at `place`
// by 1 equals increasing the next byte by 131.
std::string twinOf(std::string word, size_t place) {
    word[place] = static_cast<char>(word[place] - 1);
    word[place + 1] = static_cast<char>(static_cast<unsigned char>(word[place + 1]) + 131);
    return word;
}

const char* const HEADER =
    R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
)";

}  // namespace

// ---- JSON types -------------------------------------------------------------

TEST_F(OptionTest, NumberIsStoredAsInt32AndNotLogged) {
    AssertStores(42, R"(
store.setInt32 "key" 42
)");
    AssertStores(Value("-7"), R"(
store.setInt32 "key" -7
)");
}

TEST_F(OptionTest, FractionIsDiscarded) {
    AssertStores(Value("3.9"), R"(
store.setInt32 "key" 3
)");
}

TEST_F(OptionTest, StringIsStoredUnchangedAndNotLogged) {
    for (const char* text : {"", " ", "sync", "rtsp://camera:554/a:b", "42", "0x10", "true"}) {
        AssertStoresWhole(text);
    }
}

TEST_F(OptionTest, OtherTypesAreSkipped) {
    for (const char* value : {"null", "true", "false", "[1]", "[]", R"({"a": 1})", "{}"}) {
        AssertStores(Value(value), "\n");
    }
}

TEST_F(OptionTest, OtherTypesNeedNoStore) {
    EXPECT_EQ(reader.parseOptions(nullptr, nullptr, Value("true")), 0);
}

// ---- Typed strings ----------------------------------------------------------

TEST_F(OptionTest, Int32IsStoredAndLogged) {
    AssertStores("int32:42", R"(
store.setInt32 "key" 42
qv_log 6 parseOptions "\033[34m\033[1mkey=key value=42\033[0m"
)");
}

TEST_F(OptionTest, Int32ReadsTheLeadingNumber) {
    AssertInt32("int32:-42", "-42");
    AssertInt32("int32:+42", "42");
    AssertInt32("int32: \t7", "7");
    AssertInt32("int32:7.9", "7");
    AssertInt32("int32:-7.9", "-7");
    AssertInt32("int32:7px", "7");
    AssertInt32("int32:010", "10");
    AssertInt32("int32:0x10", "0");
    AssertInt32("int32:1e3", "1");
}

TEST_F(OptionTest, Int64IsStoredAndLogged) {
    AssertStores("int64:0x10", R"(
store.setInt64 "key" 16
qv_log 6 parseOptions "\033[34m\033[1mkey=key value=16\033[0m"
)");
}

TEST_F(OptionTest, Int64ReadsDecimalHexadecimalAndOctal) {
    AssertInt64("int64:5", "5");
    AssertInt64("int64:-1", "-1");
    AssertInt64("int64:+9", "9");
    AssertInt64("int64:0XfF", "255");
    AssertInt64("int64:-0x10", "-16");
    AssertInt64("int64:010", "8");
    AssertInt64("int64:08", "0");
    AssertInt64("int64:12px", "12");
    AssertInt64("int64: 3", "3");
}

TEST_F(OptionTest, FloatIsStoredAndLogged) {
    AssertStores("float:0.5", R"(
store.setFloat "key" 0.5
qv_log 6 parseOptions "\033[34m\033[1mkey=key value=0.500000\033[0m"
)");
}

TEST_F(OptionTest, FloatIsLoggedAsStored) {
    AssertConverts("float:16777217", "setFloat", "16777216", "16777216.000000");
    AssertConverts("float:0.1", "setFloat", "0.100000001", "0.100000");
    AssertConverts("float:-1e2x", "setFloat", "-100", "-100.000000");
}

TEST_F(OptionTest, DoubleIsStoredAsFloatAndLoggedAsDouble) {
    AssertStores("double:0.1", R"(
store.setFloat "key" 0.100000001
qv_log 6 parseOptions "\033[34m\033[1mkey=key value=0.100000\033[0m"
)");
    AssertConverts("double:16777217", "setFloat", "16777216", "16777217.000000");
    AssertConverts("double:-123456789.25", "setFloat", "-123456792", "-123456789.250000");
}

TEST_F(OptionTest, ValueThatIsNotANumberIsZero) {
    AssertInt32("int32:abc", "0");
    AssertInt32("int32:-", "0");
    AssertInt64("int64:abc", "0");
    AssertInt64("int64:0x", "0");
    AssertConverts("float:abc", "setFloat", "0", "0.000000");
    AssertConverts("double:abc", "setFloat", "0", "0.000000");
}

TEST_F(OptionTest, EmptyOrMissingValueIsZero) {
    for (const char* ending : {"", ":", "::5"}) {
        AssertInt32(std::string("int32") + ending, "0");
        AssertInt64(std::string("int64") + ending, "0");
        AssertConverts(std::string("float") + ending, "setFloat", "0", "0.000000");
        AssertConverts(std::string("double") + ending, "setFloat", "0", "0.000000");
    }
}

TEST_F(OptionTest, ValueEndsAtTheSecondColon) {
    AssertInt32("int32:7:9", "7");
    AssertInt64("int64:0x1:2", "1");
    AssertConverts("float:1.5:9", "setFloat", "1.5", "1.500000");
    AssertConverts("double:1.5:9", "setFloat", "1.5", "1.500000");
}

TEST_F(OptionTest, StringWithoutATypeWordIsStoredUnchanged) {
    for (const char* text : {":5", ":", "::", ":int32:5"}) {
        AssertStoresWhole(text);
    }
}

TEST_F(OptionTest, StringsWithSimilarTypeWordsAreStoredUnchanged) {
    for (const char* text : {"Int32:5",
                             "INT32:5",
                             " int32:5",
                             "int32 :5",
                             "int:5",
                             "int3:5",
                             "int322:5",
                             "int16:5",
                             "uint32:5",
                             "int32;5",
                             "int64_t:5",
                             "Float:1",
                             "float32:1",
                             "doubl:1",
                             "Double:1",
                             "string:int32"}) {
        AssertStoresWhole(text);
    }
}

TEST_F(OptionTest, TypeWordIsRecognisedByItsHash) {
    ASSERT_EQ(twinOf("int32", 3), "int2\xb5");
    for (size_t place = 0; place < 4; ++place) {
        AssertInt32(twinOf("int32", place) + ":42", "42");
        AssertInt64(twinOf("int64", place) + ":0x10", "16");
        AssertConverts(twinOf("float", place) + ":1.5", "setFloat", "1.5", "1.500000");
        AssertConverts(
            twinOf("double", place) + ":16777217", "setFloat", "16777216", "16777217.000000");
    }
    AssertInt32(twinOf(twinOf("int32", 0), 2) + ":42", "42");
    AssertInt32(twinOf("int32", 3), "0");
}

TEST_F(OptionTest, HashWrapsAround64Bits) {
    // The part above 64 bits, 2737 times 2^64, is not in the hash.
    AssertInt32("!xfMm^AgJd9:42", "42");
    AssertStoresWhole("!xfMm^AgJd8:42");
}

TEST_F(OptionTest, StringWithASimilarHashIsStoredUnchanged) {
    AssertStoresWhole("int2\xb4:42");
    AssertStoresWhole("int2\xb6:42");
}

// ---- Length -----------------------------------------------------------------

TEST_F(OptionTest, StringsOfUpTo127BytesAreStored) {
    AssertStoresWhole(std::string(126, 'x'));
    AssertStoresWhole(std::string(127, 'x'));
    AssertInt32("int32:" + std::string(120, '0') + "7", "7");
    AssertInt32("int32:7:" + std::string(119, 'x'), "7");
}

TEST_F(OptionTest, LongerStringsAreRejected) {
    for (const size_t length : {128U, 129U, 200U, 5000U}) {
        AssertRefuses(std::string(length, 'x'), std::string(length, 'x'));
    }
    AssertRefuses("int32:" + std::string(121, '0') + "7", "int32:" + std::string(121, '0') + "7");
}

TEST_F(OptionTest, LengthIsCountedInBytes) {
    std::string text;
    for (int i = 0; i < 63; ++i) {
        text += "\xc3\xa4";
    }
    AssertStoresWhole(text + "x");
    EXPECT_EQ(reader.parseOptions(&framework.store, "key", text + "\xc3\xa4"), -68);
}

TEST_F(OptionTest, StringEndsAtItsFirstNul) {
    AssertStores(Value(R"("sync\u0000tail")"), R"(
store.setCString "key" "sync"
)");
    AssertStores(Value(R"("\u0000tail")"), R"(
store.setCString "key" ""
)");
    AssertInt32(std::string("int32:4\0002", 9), "4");
    AssertInt32(std::string("int32\000:42", 9), "0");
    AssertStores("short" + std::string(1, '\0') + std::string(200, 'x'), R"(
store.setCString "key" "short"
)");
    AssertRefuses(std::string(128, 'x') + std::string(1, '\0') + "tail", std::string(128, 'x'));
}

TEST_F(OptionTest, SplittingUsesTheFrameworksHelpers) {
    AssertStoresWhole("sync");
    EXPECT_EQ(
        framework.helperCalls,
        (std::vector<std::string>{
            "qv_memset 0 128", "qv_memset 0 128", "qv_memset 0 128", R"(util_snprintf 5 "%s")"}));
}

TEST_F(OptionTest, ResultsOfTheFrameworkAreIgnored) {
    framework.ignoredResult = -1;
    AssertStores(42, R"(
store.setInt32 "key" 42
)");
    AssertInt32("int32:42", "42");
    AssertInt64("int64:42", "42");
    AssertConverts("float:2", "setFloat", "2", "2.000000");
    AssertConverts("double:2", "setFloat", "2", "2.000000");
    AssertStoresWhole("sync");
    AssertRefuses(std::string(128, 'x'), std::string(128, 'x'));
}

TEST_F(OptionTest, KeyAndStringAreLoggedUnchanged) {
    reader.parseOptions(&framework.store, "%d\n\033[0m", "int32:1");
    reader.parseOptions(&framework.store, "", "int32:1");
    EXPECT_EQ(framework.takeTrace(), R"(
store.setInt32 "%d\n\033[0m" 1
qv_log 6 parseOptions "\033[34m\033[1mkey=%d\n\033[0m value=1\033[0m"
store.setInt32 "" 1
qv_log 6 parseOptions "\033[34m\033[1mkey= value=1\033[0m"
)");
}

// ---- Objects ----------------------------------------------------------------

TEST_F(SyncTest, MembersAreCopiedInKeyOrder) {
    EXPECT_EQ(Sync(R"({"b": 1, "a": "int64:5"})"), R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = a               , opt = \"int64:5\"       \033[0m"
store.setInt64 "a" 5
qv_log 6 parseOptions "\033[34m\033[1mkey=a value=5\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = b               , opt = 1               \033[0m"
store.setInt32 "b" 1
)");
}

TEST_F(SyncTest, EveryMemberIsLoggedAsJsonWhetherStoredOrNot) {
    EXPECT_EQ(Sync(R"({"a": null, "b": [1, {"c": true}], "d": "\"\n\u00e4", "e": 2.5,
                       "a_key_longer_than_the_field": {}})"),
              R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = a               , opt = null            \033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = a_key_longer_than_the_field, opt = {}              \033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = b               , opt = [1, {\"c\": true}]\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = d               , opt = \"\\\"\\n\xC3\xA4\"        \033[0m"
store.setCString "d" "\"\n\xC3\xA4"
qv_log 6 syncOptions "\033[34m\033[1moption: key = e               , opt = 2.5             \033[0m"
store.setInt32 "e" 2
)");
}

TEST_F(SyncTest, NonObjectLogsOnlyTheHeader) {
    for (const char* options : {"{}", "null", "[1,2]", "5", R"("int32:5")", "false"}) {
        EXPECT_EQ(Sync(options), HEADER) << options;
        EXPECT_EQ(reader.syncOptions(nullptr, Value(options)), 0);
        EXPECT_EQ(framework.takeTrace(), HEADER) << "nothing touches the store";
    }
}

TEST_F(SyncTest, OptionThatIsTooLongIsSkipped) {
    const std::string text(200, 'x');
    EXPECT_EQ(Sync(R"({"a": 1, "b": ")" + text + R"(", "c": 3})"),
              R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = a               , opt = 1               \033[0m"
store.setInt32 "a" 1
qv_log 6 syncOptions "\033[34m\033[1moption: key = b               , opt = \")" +
                  text + R"(\"\033[0m"
qv_err 2 parseOptions "\033[31m\033[1mvalue )" +
                  text + R"( is too long!\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = c               , opt = 3               \033[0m"
store.setInt32 "c" 3
)");
}

TEST_F(SyncTest, KeyEndsAtItsFirstNul) {
    EXPECT_EQ(Sync(R"({"fps\u0000x": 30})"), R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = fps             , opt = 30              \033[0m"
store.setInt32 "fps" 30
)");
}

TEST_F(SyncTest, ResultsOfTheStoreDoNotStopTheCopy) {
    framework.ignoredResult = -1;
    EXPECT_EQ(Sync(R"({"a": "x", "b": "float:1"})"), R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = a               , opt = \"x\"             \033[0m"
store.setCString "a" "x"
qv_log 6 syncOptions "\033[34m\033[1moption: key = b               , opt = \"float:1\"       \033[0m"
store.setFloat "b" 1
qv_log 6 parseOptions "\033[34m\033[1mkey=b value=1.000000\033[0m"
)");
}

TEST_F(SyncTest, ExceptionFromTheStoreEndsTheCopy) {
    framework.onCall = [](const std::string& call) {
        if (call == R"(store.setInt32 "a" 1)") {
            throw std::runtime_error(call);
        }
    };
    EXPECT_THROW(reader.syncOptions(&framework.store, Value(R"({"a": 1, "b": 2})")),
                 std::runtime_error);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = a               , opt = 1               \033[0m"
store.setInt32 "a" 1
)");
}

TEST_F(SyncTest, LinkIsItsOwnOptionObject) {
    Load(R"({"pipe_1": {"link_4": {"mode": "sync"}, "link_5": {"mode": "other"}}})");
    EXPECT_EQ(reader.syncLinkOptions(&framework.store, 1, 4), 0);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = mode            , opt = \"sync\"          \033[0m"
store.setCString "mode" "sync"
)");
}

TEST_F(SyncTest, OptionsOfAnExecutorAreInItsMember) {
    Load(R"({"pipe_1": {"executor_4": {"executor_opts": {"priority": 10}, "cpu": 2}}})");
    EXPECT_EQ(reader.syncExecOptions(&framework.store, 1, 4), 0);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = priority        , opt = 10              \033[0m"
store.setInt32 "priority" 10
)");
}

TEST_F(SyncTest, IdsComeFromTheKeysNotFromPositions) {
    Load(R"({"pipe_0": {"link_7": {"a": 1}, "executor_7": {"executor_opts": {"a": 1}}}})");
    EXPECT_EQ(reader.syncLinkOptions(&framework.store, 0, 0), 0);
    EXPECT_EQ(framework.takeTrace(), HEADER);
    EXPECT_EQ(reader.syncExecOptions(&framework.store, 0, 0), 0);
    EXPECT_EQ(framework.takeTrace(), HEADER);
}

TEST_F(SyncTest, MissingExecutorOrLinkCopiesNothing) {
    for (const char* document : {"{}",
                                 "[]",
                                 R"({"pipe_0": {}})",
                                 R"({"pipe_0": 5})",
                                 R"({"pipe_0": {"executor_0": {}, "link_0": {}}})",
                                 R"({"pipe_0": {"executor_0": {"cpu": 2}, "link_0": 5}})",
                                 R"({"pipe_0": {"executor_0": [], "link_0": []}})"}) {
        SCOPED_TRACE(document);
        Load(document);
        EXPECT_EQ(reader.syncExecOptions(nullptr, 0, 0), 0);
        EXPECT_EQ(framework.takeTrace(), HEADER);
        EXPECT_EQ(reader.syncLinkOptions(nullptr, 0, 0), 0);
        EXPECT_EQ(framework.takeTrace(), HEADER);
    }
}

TEST_F(SyncTest, KeysAreBuiltWithTheFrameworksDecimalText) {
    reader.syncExecOptions(nullptr, 1, 2);
    reader.syncLinkOptions(nullptr, 3, -4);
    EXPECT_EQ(framework.helperCalls.size(), 4U);
    for (const char* call :
         {"util_to_string 1", "util_to_string 2", "util_to_string 3", "util_to_string -4"}) {
        EXPECT_EQ(std::count(framework.helperCalls.begin(), framework.helperCalls.end(), call), 1)
            << call;
    }
}
