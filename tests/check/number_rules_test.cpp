// Numbers in options: those that the parser stores as a different number, and those
// that it stores as a string.
#include <map>
#include <sstream>
#include <string>

#include "check/rules.h"
#include "tests/check/check_test.h"

namespace {

class NumberRulesTest : public CheckTest {
protected:
    // Expects option 'k' of a link, with this JSON value, to have one finding with
    // this code, message and hint. The message continues after "'k' is stored as ".
    static void AssertFinding(const std::string& code,
                              const std::string& value,
                              const std::string& message,
                              const std::string& hint) {
        const std::string severity = toText(qvgraph::findRule(code)->severity);
        const std::string end = std::to_string(17 + value.size());
        std::string finding = "2:17-2:" + end;
        finding += ' ' + severity + ' ' + code + " /pipe_0/link_0/k: 'k' is stored as " + message;
        AssertPipe(R"("link_0": {"k": )" + value + '}', finding + "\n  hint: " + hint + '\n');
    }

    static void AssertTypedValue(const std::string& string,
                                 const std::string& message,
                                 const std::string& hint) {
        AssertFinding("typed-value", '"' + string + '"', message, hint);
    }

    static void AssertTypeWord(const std::string& string, const std::string& hint) {
        const std::string word = string.substr(0, string.find(':'));
        AssertFinding("type-word",
                      '"' + string + '"',
                      "the string '" + string + "': '" + word + "' is not a type word",
                      hint);
    }

    static void AssertNumberLost(const std::string& number,
                                 const std::string& message,
                                 const std::string& hint) {
        AssertFinding("number-lost", number, message, hint);
    }

    static void AssertNarrowed(const std::string& number,
                               const std::string& stored,
                               const std::string& hint) {
        AssertFinding(
            "double-narrowed",
            "\"double:" + number + '"',
            stored + ": the device narrows a \"double:\" to a float, which cannot represent '" +
                number + '\'',
            hint);
    }

    static void AssertAccepted(const std::string& string) {
        AssertPipe(R"("link_0": {"k": ")" + string + "\"}", "");
    }
};

const char* const INT32_RANGE_HINT = "write an integer from -2147483648 to 2147483647";
const char* const INT64_RANGE_HINT =
    "write an integer from -9223372036854775808 to 9223372036854775807";
const char* const FLOAT_RANGE_HINT = "write 0, or a number with a magnitude from 1.2e-38 to 3.4e38";

// ---- typed-value -------------------------------------------------------------

TEST_F(NumberRulesTest, TextAfterANumberIsIgnored) {
    AssertPipe(
        R"("link_0": {"timeout": "int32:12ms"})",
        "2:23-2:35 warning typed-value /pipe_0/link_0/timeout: "
        "'timeout' is stored as 12: the device ignores 'ms' after the number in 'int32:12ms'\n"
        "  hint: write \"int32:12\"\n");
    AssertTypedValue("int32: 5 6",
                     "5: the device ignores ' 6' after the number in 'int32: 5 6'",
                     R"(write "int32:5")");
    AssertTypedValue("int64:5L",
                     "5: the device ignores 'L' after the number in 'int64:5L'",
                     R"(write "int64:5")");
    AssertTypedValue("float:1.5f",
                     "1.5: the device ignores 'f' after the number in 'float:1.5f'",
                     R"(write "float:1.5")");
    AssertTypedValue("double:50%",
                     "50.0: the device ignores '%' after the number in 'double:50%'",
                     R"(write "double:50")");
}

TEST_F(NumberRulesTest, TextAfterASecondColonIsIgnored) {
    AssertTypedValue("int32:7:9",
                     "7: the device ignores ':9' after the number in 'int32:7:9'",
                     R"(write "int32:7")");
    AssertTypedValue("float:16:9",
                     "16.0: the device ignores ':9' after the number in 'float:16:9'",
                     R"(write "float:16")");
    AssertTypedValue("int64:7:",
                     "7: the device ignores ':' after the number in 'int64:7:'",
                     R"(write "int64:7")");
}

TEST_F(NumberRulesTest, AnInt32CannotBeHexadecimal) {
    AssertTypedValue("int32:0x10",
                     "0: the device ignores 'x10' after the number in 'int32:0x10'",
                     R"(write "int32:16"; only "int64:" accepts hexadecimal numbers)");
    AssertTypedValue("int32:0xFFFFFFFF",
                     "0: the device ignores 'xFFFFFFFF' after the number in 'int32:0xFFFFFFFF'",
                     R"(write "int64:0xFFFFFFFF")");
}

TEST_F(NumberRulesTest, AnIntegerHasNeitherAFractionNorAnExponent) {
    AssertTypedValue("int32:3.7",
                     "3: the device ignores '.7' after the number in 'int32:3.7'",
                     R"(write "float:3.7")");
    AssertTypedValue("int32:1e3",
                     "1: the device ignores 'e3' after the number in 'int32:1e3'",
                     R"(write "int32:1000")");
    AssertTypedValue("int32:3e9",
                     "3: the device ignores 'e9' after the number in 'int32:3e9'",
                     R"(write "int64:3000000000")");
    AssertTypedValue("int64:2.0",
                     "2: the device ignores '.0' after the number in 'int64:2.0'",
                     R"(write "int64:2")");
    AssertTypedValue("int64:1e300",
                     "1: the device ignores 'e300' after the number in 'int64:1e300'",
                     INT64_RANGE_HINT);
}

TEST_F(NumberRulesTest, ALeadingZeroMakesAnInt64Octal) {
    AssertTypedValue("int64:09",
                     "0: the device ignores '9' after the number in 'int64:09'",
                     R"(write "int64:9"; a leading 0 makes a number octal)");
}

TEST_F(NumberRulesTest, TheHintRemovesThousandsSeparators) {
    AssertTypedValue("int32:4,000,000",
                     "4: the device ignores ',000,000' after the number in 'int32:4,000,000'",
                     R"(write "int32:4000000")");
    AssertTypedValue("int32:-4_000_000",
                     "-4: the device ignores '_000_000' after the number in 'int32:-4_000_000'",
                     R"(write "int32:-4000000")");
    AssertTypedValue("int64: 12 500",
                     "12: the device ignores ' 500' after the number in 'int64: 12 500'",
                     R"(write "int64:12500")");
    AssertTypedValue(
        "int32:4,000,000,000",
        "4: the device ignores ',000,000,000' after the number in 'int32:4,000,000,000'",
        R"(write "int64:4000000000")");
    AssertTypedValue("float:1_000",
                     "1.0: the device ignores '_000' after the number in 'float:1_000'",
                     R"(write "float:1000")");
    AssertTypedValue("double:1,000,000",
                     "1.0: the device ignores ',000,000' after the number in 'double:1,000,000'",
                     R"(write "double:1000000")");
}

TEST_F(NumberRulesTest, OtherGroupsOfDigitsAreNotThousands) {
    AssertTypedValue("int32:4,000_000",
                     "4: the device ignores ',000_000' after the number in 'int32:4,000_000'",
                     R"(write "int32:4")");
    AssertTypedValue("int32:1280,720",
                     "1280: the device ignores ',720' after the number in 'int32:1280,720'",
                     R"(write "int32:1280")");
    AssertTypedValue("int32:4,00",
                     "4: the device ignores ',00' after the number in 'int32:4,00'",
                     R"(write "int32:4")");
    AssertTypedValue("int32:4,000,",
                     "4: the device ignores ',000,' after the number in 'int32:4,000,'",
                     R"(write "int32:4")");
    AssertTypedValue("int32:0,500",
                     "0: the device ignores ',500' after the number in 'int32:0,500'",
                     R"(write "int32:0")");
}

TEST_F(NumberRulesTest, TheHintReplacesADecimalComma) {
    AssertTypedValue("float:1,5",
                     "1.0: the device ignores ',5' after the number in 'float:1,5'",
                     R"(write "float:1.5")");
    AssertTypedValue("float:1,5,7",
                     "1.0: the device ignores ',5,7' after the number in 'float:1,5,7'",
                     R"(write "float:1")");
}

TEST_F(NumberRulesTest, AValueWithoutDigitsIsNotANumber) {
    AssertTypedValue("int32:abc",
                     "0: 'abc' in 'int32:abc' is not a number",
                     R"(write a number after "int32:", or start the string with a different word)");
    AssertTypedValue("int64:-",
                     "0: '-' in 'int64:-' is not a number",
                     R"(write a number after "int64:", or start the string with a different word)");
    AssertTypedValue("float:.",
                     "0.0: '.' in 'float:.' is not a number",
                     R"(write a number after "float:", or start the string with a different word)");
    AssertTypedValue(
        "double:high:2",
        "0.0: 'high' in 'double:high:2' is not a number",
        R"(write a number after "double:", or start the string with a different word)");
}

TEST_F(NumberRulesTest, AWordThatBeginsWithInfinityIsNotANumber) {
    AssertTypedValue("float:information",
                     "inf: the device ignores 'ormation' after the number in 'float:information'",
                     R"(write a number after "float:", or start the string with a different word)");
}

TEST_F(NumberRulesTest, AnEmptyValueIsStoredAsZero) {
    AssertTypedValue("int32:",
                     "0: the value in 'int32:' is empty",
                     R"(write a number after "int32:", or start the string with a different word)");
    AssertTypedValue("float: ",
                     "0.0: the value in 'float: ' is empty",
                     R"(write a number after "float:", or start the string with a different word)");
    AssertTypedValue("int64::5",
                     "0: the value in 'int64::5' is empty",
                     R"(write a number after "int64:", or start the string with a different word)");
}

TEST_F(NumberRulesTest, ATypeWordWithoutAColonIsStoredAsZero) {
    AssertTypedValue("float",
                     "0.0: 'float' is a type word without a value",
                     R"(write a number after "float:", or start the string with a different word)");
    AssertTypedValue("int64",
                     "0: 'int64' is a type word without a value",
                     R"(write a number after "int64:", or start the string with a different word)");
}

TEST_F(NumberRulesTest, AnInt32IsLimitedToItsRange) {
    AssertTypedValue("int32:2147483648",
                     "2147483647: '2147483648' does not fit in an int32",
                     R"(write "int64:2147483648")");
    AssertTypedValue("int32:-2147483649",
                     "-2147483648: '-2147483649' does not fit in an int32",
                     R"(write "int64:-2147483649")");
    AssertTypedValue("int32:99999999999999999999",
                     "2147483647: '99999999999999999999' does not fit in an int32",
                     INT32_RANGE_HINT);
    // After "int64:", it would be octal.
    AssertTypedValue("int32:03000000000",
                     "2147483647: '03000000000' does not fit in an int32",
                     INT32_RANGE_HINT);
    AssertAccepted("int32:2147483647");
    AssertAccepted("int32:-2147483648");
}

TEST_F(NumberRulesTest, AnInt64WrapsAround) {
    AssertTypedValue("int64:9223372036854775808",
                     "-9223372036854775808: '9223372036854775808' does not fit in an int64",
                     R"(write "int64:-9223372036854775808" if you intended these 64 bits)");
    AssertTypedValue("int64:0xffffffffffffffff",
                     "-1: '0xffffffffffffffff' does not fit in an int64",
                     R"(write "int64:-1" if you intended these 64 bits)");
    AssertTypedValue("int64:18446744073709551616",
                     "-1: '18446744073709551616' does not fit in an int64",
                     INT64_RANGE_HINT);
    AssertTypedValue("int64:-9223372036854775809",
                     "9223372036854775807: '-9223372036854775809' does not fit in an int64",
                     INT64_RANGE_HINT);
    AssertAccepted("int64:9223372036854775807");
    AssertAccepted("int64:-9223372036854775808");
    AssertAccepted("int64:-1");
}

TEST_F(NumberRulesTest, AFloatOverflowsAndUnderflows) {
    AssertTypedValue("float:1e39", "inf: '1e39' does not fit in a float", FLOAT_RANGE_HINT);
    AssertTypedValue("float:-1e999", "-inf: '-1e999' does not fit in a float", FLOAT_RANGE_HINT);
    AssertTypedValue("float:1e-50", "0.0: '1e-50' does not fit in a float", FLOAT_RANGE_HINT);
    AssertTypedValue("double:1e999", "inf: '1e999' does not fit in a double", FLOAT_RANGE_HINT);
    AssertTypedValue("double:1e-999", "0.0: '1e-999' does not fit in a double", FLOAT_RANGE_HINT);
    AssertAccepted("float:3.4e38");
    AssertAccepted("float:1.2e-38");
}

TEST_F(NumberRulesTest, TheRangeIsReportedBeforeTheIgnoredText) {
    AssertTypedValue("int32:3000000000ms",
                     "2147483647: '3000000000' does not fit in an int32",
                     R"(write "int64:3000000000")");
}

TEST_F(NumberRulesTest, AcceptsEveryNotationOfItsType) {
    for (const char* string :
         {"int32:0",    "int32:+5",        "int32:007", "int32: 5",   "int32:5 ",
          "int64:0x10", "int64:-0X10",     "int64:010", "int64:0",    "float:0",
          "float:-0",   "float:.5",        "float:5.",  "float:1e3",  "float:0x1p3",
          "float:inf",  "float:-Infinity", "float:nan", "double:inf", "double:0.1"}) {
        AssertAccepted(string);
    }
}

// ---- type-word ---------------------------------------------------------------

TEST_F(NumberRulesTest, ATypeWordInUpperCaseIsReported) {
    AssertPipe(R"("link_0": {"timeout": "Int32:250"})",
               "2:23-2:34 warning type-word /pipe_0/link_0/timeout: "
               "'timeout' is stored as the string 'Int32:250': 'Int32' is not a type word\n"
               "  hint: write \"int32:250\"\n");
    AssertTypeWord("INT64:0x10", R"(write "int64:0x10")");
    AssertTypeWord("Float:.5", R"(write "float:.5")");
    AssertTypeWord("DOUBLE:1e-3", R"(write "double:1e-3")");
}

TEST_F(NumberRulesTest, AMisspeltTypeWordIsReported) {
    AssertTypeWord("int_32:5", R"(write "int32:5")");
    AssertTypeWord("in32:5", R"(write "int32:5")");
    AssertTypeWord("itn64:5", R"(write "int64:5")");
    AssertTypeWord(" int32:5", R"(write "int32:5")");
    AssertTypeWord("flaot:1.5", R"(write "float:1.5")");
    AssertTypeWord("doubel:1.5", R"(write "double:1.5")");
}

TEST_F(NumberRulesTest, ATypeWordOfAnotherLanguageIsReported) {
    AssertTypeWord("int:5", R"(write "int32:5")");
    AssertTypeWord("uint8:200", R"(write "int32:200")");
    AssertTypeWord("int32_t:5", R"(write "int32:5")");
    AssertTypeWord("UInt32:5", R"(write "int64:5")");
    AssertTypeWord("long:5", R"(write "int64:5")");
    AssertTypeWord("u64:9007199254740993", R"(write "int64:9007199254740993")");
    AssertTypeWord("float32:0.5", R"(write "float:0.5")");
    AssertTypeWord("float64:0.5", R"(write "double:0.5")");
    AssertTypeWord("number:5", R"(write "int32:5")");
    AssertTypeWord("number:0.5", R"(write "float:0.5")");
}

TEST_F(NumberRulesTest, EveryForeignTypeWordMapsToATypeWord) {
    const std::map<std::string, std::string> words = {
        {"int32",
         "int integer int8 int8_t int16 int16_t uint8 uint8_t uint16 uint16_t u8 u16 i32 int32_t"},
        {"int64", "long unsigned i64 int64_t uint size_t uint32 uint32_t uint64 uint64_t u32 u64"},
        {"float", "float16 float32 f32"},
        {"double", "float64 f64"}};
    for (const auto& [ours, theirs] : words) {
        std::istringstream each(theirs);
        for (std::string word; each >> word;) {
            AssertTypeWord(word + ":7", "write \"" + ours + ":7\"");
        }
    }
}

TEST_F(NumberRulesTest, TheHintUsesATypeThatHoldsTheNumber) {
    AssertTypeWord("Int32:3000000000", R"(write "int64:3000000000")");
    AssertTypeWord("Int32:0x10", R"(write "int32:16")");
    AssertTypeWord("Int32:0xFFFFFFFF", R"(write "int64:0xFFFFFFFF")");
    AssertTypeWord("uint32:0x10", R"(write "int64:0x10")");
    AssertTypeWord("Int32:2.5", R"(write "float:2.5")");
    AssertTypeWord("Int32:1e3", R"(write "int32:1000")");
    AssertTypeWord("uint32:010", R"(write "int64:10")");
    AssertTypeWord("Int64:9223372036854775807", R"(write "int64:9223372036854775807")");
    AssertTypeWord("uint64:18446744073709551615", R"(write "int64:18446744073709551615")");
    AssertTypeWord("Float:1e39", R"(write "float:1e39")");
}

TEST_F(NumberRulesTest, TheHintReplacesABooleanByAnInt32) {
    AssertTypeWord("bool:true", R"(write "int32:1")");
    AssertTypeWord("Boolean:False", R"(write "int32:0")");
    AssertTypeWord("bool:1", R"(write "int32:1")");
    AssertTypeWord("bool:0", R"(write "int32:0")");
}

TEST_F(NumberRulesTest, AStringNeedsNoTypeWord) {
    AssertTypeWord("string:front door", "remove 'string:'; a string has no type word");
    AssertTypeWord("str:", "remove 'str:'; a string has no type word");
}

TEST_F(NumberRulesTest, OtherStringsMayContainAColon) {
    for (const char* string :
         {"camera:front", "hw:0",       "plughw:1,0", "rtsp://camera:554/front",
          "image:nv12",   "in:3",       "port:80",    "float3:1",
          "flat:2",       "long:13.4",  "16:9",       ":5",
          "::",           "bool:maybe", "Int32:abc",  "int8:",
          "Int32:5:6",    "uint8",      "string",     "Float",
          "bloat:1",      "gloat:1",    "floats:1",   "doubled:1",
          "doubly:1"}) {
        AssertAccepted(string);
    }
}

// ---- number-lost -------------------------------------------------------------

TEST_F(NumberRulesTest, TheFractionOfANumberIsDropped) {
    AssertPipe(R"("link_0": {"gain": 3.9})",
               "2:20-2:23 warning number-lost /pipe_0/link_0/gain: "
               "'gain' is stored as 3: the device drops the fraction of '3.9'\n"
               "  hint: write \"float:3.9\"\n");
    AssertNumberLost("-0.5", "0: the device drops the fraction of '-0.5'", R"(write "float:-0.5")");
    AssertNumberLost(
        "25e-1", "2: the device drops the fraction of '25e-1'", R"(write "float:25e-1")");
}

TEST_F(NumberRulesTest, ANumberIsLimitedToTheRangeOfInt32) {
    AssertNumberLost("2147483648",
                     "2147483647: '2147483648' does not fit in an int32",
                     R"(write "int64:2147483648")");
    AssertNumberLost(
        "-3e9", "-2147483648: '-3e9' does not fit in an int32", R"(write "int64:-3000000000")");
    AssertNumberLost("1700000000000000001",
                     "2147483647: '1700000000000000001' does not fit in an int32",
                     R"(write "int64:1700000000000000001")");
    AssertNumberLost("9223372036854775808",
                     "2147483647: '9223372036854775808' does not fit in an int32",
                     R"(write "float:9223372036854775808")");
    AssertNumberLost("3000000000.5",
                     "2147483647: '3000000000.5' does not fit in an int32",
                     R"(write "float:3000000000.5")");
    AssertNumberLost(
        "1e20", "2147483647: '1e20' does not fit in an int32", R"(write "float:1e20")");
    AssertNumberLost("1e300", "2147483647: '1e300' does not fit in an int32", INT32_RANGE_HINT);
    AssertNumberLost("1e999", "2147483647: '1e999' does not fit in an int32", INT32_RANGE_HINT);
    AssertNumberLost("-1e999", "-2147483648: '-1e999' does not fit in an int32", INT32_RANGE_HINT);
}

TEST_F(NumberRulesTest, AnIntegerWithinInt32IsAccepted) {
    AssertPipe(
        R"("link_0": {"a": 0, "b": -0.0, "c": 3.0, "d": 12e2, "e": 2147483647, "f": -2147483648})",
        "");
}

// ---- double-narrowed ---------------------------------------------------------

TEST_F(NumberRulesTest, AnIntegerThatChangesAsAFloatIsReported) {
    AssertPipe(R"("link_0": {"start": "double:16777217"})",
               "2:21-2:38 note double-narrowed /pipe_0/link_0/start: "
               "'start' is stored as 16777216: the device narrows a \"double:\" to a float, "
               "which cannot represent '16777217'\n"
               "  hint: write \"int64:16777217\"\n");
    AssertNarrowed("-1700000001", "-1700000000", R"(write "int64:-1700000001")");
    AssertNarrowed("9007199254740993", "9007199254740992", R"(write "int64:9007199254740993")");
    AssertNarrowed("99999999999999999999",
                   "100000002004087734272",
                   "write it with an exponent if its last digits do not matter");
}

TEST_F(NumberRulesTest, ADoubleOutsideTheRangeOfFloatIsReported) {
    AssertNarrowed("1e39", "inf", FLOAT_RANGE_HINT);
    AssertNarrowed("-1e39", "-inf", FLOAT_RANGE_HINT);
    AssertNarrowed("1e-50", "0", FLOAT_RANGE_HINT);
}

TEST_F(NumberRulesTest, ASubnormalFloatIsReported) {
    AssertNarrowed("1e-40", "9.99994610111476e-41", FLOAT_RANGE_HINT);
}

TEST_F(NumberRulesTest, RoundingADoubleIsNotReported) {
    for (const char* string : {"double:0.1",
                               "double:3.14159265358979",
                               "double:1700000000.5",
                               "double:16777216",
                               "double:+016777216",
                               "double:0",
                               "double:-0",
                               "double:1e20",
                               "double:nan",
                               "double:-inf"}) {
        AssertAccepted(string);
    }
}

}  // namespace
