// Where a text stops being JSON, what is open there, and how to fix it.
//
// In these texts, ‸ marks the first byte that does not fit, and ⟦⟧ surround
// what is open there.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "source/source.h"
#include "tests/support/same_as_json11.h"

namespace {

using qvgraph::Source;
using qvgraph::SyntaxError;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

const std::string CARET = "‸";
const std::string OPEN = "⟦";
const std::string CLOSE = "⟧";

std::string without(const std::string& mark, std::string text) {
    for (size_t at = 0; (at = text.find(mark, at)) != std::string::npos;) {
        text.erase(at, mark.size());
    }
    return text;
}

// The text with the marks that belong to its error.
std::string marked(const Source& source) {
    std::string text = source.text();
    if (!source.error()) {
        return text;
    }
    const SyntaxError& error = *source.error();
    text.insert(error.byte, CARET);
    if (error.opened) {
        text.insert(error.opened->end, CLOSE);
        text.insert(error.opened->begin, OPEN);
    }
    return text;
}

struct Row {
    std::string text;
    std::string hint;
};

void AssertErrors(const std::vector<Row>& table) {
    for (const Row& row : table) {
        const std::string text = without(CARET, without(OPEN, without(CLOSE, row.text)));
        const Source source(text);
        EXPECT_EQ(marked(source), row.text);
        EXPECT_EQ(source.error() ? source.error()->hint : "no error", row.hint) << row.text;
        EXPECT_EQ(differenceFromJson11(text), "") << row.text;
    }
}

std::string times(size_t count, const std::string& text) {
    std::string all;
    for (size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

TEST(ErrorTest, NoDocument) {
    AssertErrors({
        {"‸", "write an object, at least {}"},
        {" // nothing\n‸", "write an object, at least {}"},
        {"‸]", "remove this bracket: nothing is open"},
        {"‸}", "remove this bracket: nothing is open"},
        {"‸, {}", "remove this comma"},
        {"‸<pipe/>", ""},
    });
}

TEST(ErrorTest, ASurplusComma) {
    AssertErrors({
        {"[1, 2,‸]", "remove the comma before this bracket"},
        {"[1, // last\n‸]", "remove the comma before this bracket"},
        {R"({"a": 1,‸})", "remove the comma before this bracket"},
        {"[‸, 1]", "remove this comma"},
        {"[1,‸, 2]", "remove this comma"},
        {R"({‸, "a": 1})", "remove this comma"},
        {R"({"a": 1,‸, "b": 2})", "remove this comma"},
    });
}

TEST(ErrorTest, AMissingComma) {
    AssertErrors({
        {R"({"a": 1 ‸"b": 2})", "add a comma before this key"},
        {R"({"a": 1 ‸b: 2})", "add a comma before this key"},
        {"{\"a\": {}\n ‸\"b\": {}}", "add a comma before this key"},
        {R"({"a": 1 ‸{"b": 2}})", "add a comma and a key before this value"},
        {R"({"a": 1 ‸2})", "add a comma and a key before this value"},
        {"[1 ‸2]", "add a comma before this value"},
        {"[1 ‸-2]", "add a comma before this value"},
        {"[\"a\"‸\"b\"]", "add a comma before this value"},
        {"[{} ‸{}]", "add a comma before this value"},
        {"[1 ‸true]", "add a comma before this value"},
        {"[1‸; 2]", "replace the semicolon with a comma"},
        {R"({"a": 1‸; "b": 2})", "replace the semicolon with a comma"},
        {"[1 ‸= 2]", ""},
        {R"({"a": 1 ‸)})", ""},
    });
}

TEST(ErrorTest, KeysAndColons) {
    AssertErrors({
        {"{‸a: 1}", "put the key in double quotes"},
        {"{‸1: 1}", "put the key in double quotes"},
        {"{‸-1: 1}", "put the key in double quotes"},
        {"{‸größe: 1}", "put the key in double quotes"},
        {"{‸$ref: 1}", "put the key in double quotes"},
        {R"({"a": 1, ‸_b: 1})", "put the key in double quotes"},
        {"{‸: 1}", "add a key in double quotes before the colon"},
        {"{‸{}}", "add a key and a colon before this value"},
        {R"({"a": 1, ‸[]})", "add a key and a colon before this value"},
        {"{‸.a: 1}", ""},
        {R"({"a" ‸1})", "add a colon between the key and its value"},
        {R"({"a" ‸"b"})", "add a colon between the key and its value"},
        {R"({"a" ‸true})", "add a colon between the key and its value"},
        {R"({"a" ‸= 1})", "replace the equals sign with a colon"},
        {R"({"a"‸; 1})", "replace the semicolon with a colon"},
        {R"({"a"‸, "b"})", "add a colon and a value after the key"},
        {R"({"a"‸})", "add a colon and a value after the key"},
        {R"({"a" ‸> 1})", ""},
        {R"({"a":‸})", "add a value after the colon"},
        {R"({"a":‸, "b": 1})", "add a value after the colon"},
        {R"({"a":‸: 1})", "remove this colon"},
        {R"({"a":‸= 1})", ""},
    });
}

TEST(ErrorTest, AnObjectOrArrayClosedByTheWrongBracket) {
    AssertErrors({
        {R"({"a": ⟦[⟧1, 2‸}})", "close the array with ] here"},
        {"⟦[⟧‸}", "close the array with ] here"},
        {"⟦[⟧1, ‸}", "replace the comma with ]"},
        {R"(⟦{⟧"a": 1‸])", "close the object with } here"},
        {R"([⟦{⟧"a": 1‸])", "close the object with } here"},
        {"⟦{⟧‸]", "close the object with } here"},
        {R"(⟦{⟧"a": 1, ‸])", "replace the comma with }"},
        {R"(⟦{⟧"a"‸])", "add a colon and a value after the key"},
        {R"(⟦{⟧"a":‸])", "add a value after the colon"},
    });
}

TEST(ErrorTest, AnIncompleteText) {
    AssertErrors({
        {"⟦[⟧‸", "close the array with ]"},
        {"⟦[⟧1 // one\n‸", "close the array with ]"},
        {"⟦[⟧1, ‸", "replace the comma with ]"},
        {"⟦{⟧‸", "close the object with }"},
        {R"([⟦{⟧"a": 1‸)", "close the object with }"},
        {R"({"a": [], "b": ⟦[⟧{}‸)", "close the array with ]"},
        {R"(⟦{⟧"a": 1, ‸)", "replace the comma with }"},
        {R"(⟦{⟧"a"‸)", "add a colon and a value after the key"},
        {R"(⟦{⟧"a":‸)", "add a value after the colon"},
        {"⟦[⟧tru‸", "write true"},
        {"⟦[⟧-‸", "add a digit after the minus sign"},
    });
}

TEST(ErrorTest, ArraysWithKeysAndObjectsWithoutBrackets) {
    AssertErrors({
        {R"(["a"‸: 1])", "write members in { and } instead of [ and ]"},
        {R"("a"‸: 1)", "put the members in { and }"},
    });
}

TEST(ErrorTest, TextAfterTheDocument) {
    AssertErrors({
        {"{}‸}", "remove this bracket: nothing is open"},
        {"[]\n‸]", "remove this bracket: nothing is open"},
        {"{} ‸{}", "remove the text after the document"},
        {"{}‸,", "remove the text after the document"},
        {"{}‸;", "remove the text after the document"},
        {"{} ‸: 1", "remove the text after the document"},
        {"{} ‸end", "remove the text after the document"},
        {R"({"a": {}}‸, {})", "remove the text after the document"},
        {R"([]‸, "b": 1)", "remove the text after the document"},
        {R"({"a": {}}‸, "b": {}})", "remove one } before this; it closes the document"},
        {R"({"a": {}} ‸"b": {}})", "remove one } before this; it closes the document"},
        {"null‸\0"s, "remove this NUL byte"},
    });
}

TEST(ErrorTest, Words) {
    AssertErrors({
        {R"({"a": ‸True})", "write true"},
        {R"({"a": f‸ALSE})", "write false"},
        {R"({"a": ‸Null})", "write null"},
        {R"({"a": tru‸})", "write true"},
        {R"({"a": nul‸, "b": 1})", "write null"},
        {R"({"a": ‸None})", "write null"},
        {R"({"a": n‸il})", "write null"},
        {R"({"a": ‸undefined})", "write null"},
        {R"({"a": ‸NaN})", "write a number: JSON has neither NaN nor Infinity"},
        {R"({"a": n‸an})", "write a number: JSON has neither NaN nor Infinity"},
        {R"({"a": ‸inf})", "write a number: JSON has neither NaN nor Infinity"},
        {R"({"a": -‸Infinity})", "write a number: JSON has neither NaN nor Infinity"},
        {R"({"a": ‸sync})", "put the string in double quotes"},
        {R"({"a": fa‸st})", "put the string in double quotes"},
        {R"({"a": t‸})", "put the string in double quotes"},
        {R"({"a": ‸größe})", "put the string in double quotes"},
        {R"({"a": true‸ly})", "put the string in double quotes"},
    });
}

TEST(ErrorTest, Numbers) {
    AssertErrors({
        {"[0‸7]", "remove the leading zero"},
        {"[-0‸0.5]", "remove the leading zero"},
        {"[‸+1]", "remove the plus sign"},
        {"[‸.5]", "write a 0 before the decimal point"},
        {"[-‸.5]", "write a 0 before the decimal point"},
        {"[‸.]", ""},
        {"[-‸]", "add a digit after the minus sign"},
        {"[-‸-1]", "add a digit after the minus sign"},
        {"[5.‸]", "add a digit after the decimal point"},
        {"[5.‸e1]", "add a digit after the decimal point"},
        {"5.‸", "add a digit after the decimal point"},
        {"[1e‸]", "add a digit to the exponent"},
        {"[1e+‸]", "add a digit to the exponent"},
        {"[1e-‸-1]", "add a digit to the exponent"},
        {"[0‸x10]", "write the number in decimal"},
        {"-0‸XFF", "write the number in decimal"},
        {"[0‸ms]", "put the string in double quotes"},
        {"[10‸x10]", "put the string in double quotes"},
        {"[1‸_000]", "put the string in double quotes"},
        {"[10‸ms]", "put the string in double quotes"},
        {"[1.2‸.3]", "put the string in double quotes"},
        {R"({"a": 10‸:30})", "put the string in double quotes"},
        {R"({"a": 2024‸-12-24})", "put the string in double quotes"},
    });
}

TEST(ErrorTest, Strings) {
    AssertErrors({
        {R"({"a": ⟦"⟧b‸)", "close the string with \""},
        {R"(⟦"⟧a\‸)", "close the string with \""},
        {R"(⟦"⟧\u00‸)", "close the string with \""},
        {R"({⟦"⟧a‸)", "close the string with \""},
        {"{\"a\": ⟦\"⟧b‸\n}", R"(close the string on its line, or write \n for a line break)"},
        {"{\"a\": ⟦\"⟧b,‸\r\n}", R"(close the string on its line, or write \n for a line break)"},
        {"[⟦\"⟧b\\‸\n\"]", R"(close the string on its line, or write \n for a line break)"},
        {"[⟦\"⟧\\u12‸\n\"]", R"(close the string on its line, or write \n for a line break)"},
        {"[\"b‸\t\"]", R"(write \t for a tab)"},
        {"[\"‸\0\"]"s, R"(write \u0000 for this control character)"},
        {"[\"‸\x1f\"]", R"(write \u001f for this control character)"},
        {R"(["it\‸'s"])", "write ' without a backslash"},
        {R"(["\‸x41"])", R"(write \u00 instead of \x)"},
        {R"(["C:\‸Models"])", R"(write \\ for a backslash)"},
        {R"(["C:\u‸sers"])", R"(write four hexadecimal digits after \u, or \\ for a backslash)"},
        {R"(["\u12‸"])", R"(write four hexadecimal digits after \u, or \\ for a backslash)"},
        {R"(["\u123‸g"])", R"(write four hexadecimal digits after \u, or \\ for a backslash)"},
        {R"({"a": "say "‸hi""})", R"(write \" for a double quote within a string)"},
        {R"(["say "‸hi""])", R"(write \" for a double quote within a string)"},
        {R"({"a"‸b": 1})", R"(write \" for a double quote within a string)"},
    });
}

TEST(ErrorTest, OtherQuotationMarks) {
    const std::string plain = "replace this with a plain double quote";
    AssertErrors({
        {"{‸'a': 1}", "use double quotes instead of single quotes"},
        {R"({"a": ‸'b'})", "use double quotes instead of single quotes"},
        {R"({"a": ‸`b`})", "use double quotes instead of backticks"},
        {"{‸“a”: 1}", plain},
        {R"({"a": ‸”b”})", plain},
        {R"({"a": ‸„b“})", plain},
        {R"({"a": ‸‘b’})", plain},
        {R"({"a": ‸’b’})", plain},
        {R"({"a": ‸‚b‘})", plain},
        {R"({"a": ‸«b»})", plain},
        {R"({"a": ‸»b«})", plain},
    });
}

TEST(ErrorTest, LookAlikeCharacters) {
    AssertErrors({
        {R"({"a": 1‸，"b": 2})", "replace this with a plain comma"},
        {R"({"a"‸：1})", "replace this with a plain colon"},
        {"{‸\u00a0\"a\": 1}", "replace this no-break space with a plain space"},
        {"{‸\u200b\"a\": 1}", "remove this invisible character"},
        {"{} ‸\ufeff", "remove this invisible character"},
    });
}

TEST(ErrorTest, Encodings) {
    AssertErrors({
        {"‸\ufeff{}", "remove the byte-order mark"},
        {" ‸\ufeff{}", "remove this invisible character"},
        {"‸\xff\xfe{\0}\0"s, "save the file as UTF-8"},
        {"‸\xfe\xff\0{\0}"s, "save the file as UTF-8"},
        {"{‸\0}\0"s, "remove this NUL byte"},
    });
}

TEST(ErrorTest, Comments) {
    AssertErrors({
        {"{‸# comment\n}", "begin a comment with // instead of #"},
        {"{} /‸ comment", "begin a comment with // or /*"},
        {"{} /‸", "begin a comment with // or /*"},
        {"⟦[⟧/‸", "begin a comment with // or /*"},
        {"{} ⟦/*⟧ comment‸", "close the comment with */"},
        {"[1, ⟦/*⟧/‸", "close the comment with */"},
        {"/* a /* b */ ‸*/ {}", "remove this */: comments do not nest"},
    });
}

TEST(ErrorTest, Nesting) {
    const std::string hint = "nest at most 200 objects and arrays";
    AssertErrors({
        {times(201, "[") + "‸[", hint},
        {times(201, "[") + "‸1" + times(201, "]"), hint},
        {times(200, "[") + "[" + "‸\"a\"", hint},
        {times(200, "{\"a\":") + "{‸\"a\": 1}", hint},
        {times(200, "[") + "⟦[⟧‸}", "close the array with ] here"},
    });
}

TEST(ErrorTest, TwoMillionOpenBracketsStopAtTheSameByte) {
    EXPECT_EQ(Source(std::string(2000000, '[')).error()->byte, 201U);
    EXPECT_EQ(Source(times(2000000, "{\"a\":")).error()->byte, 200U * 5 + 1);
}

// ---- Outdented keys ----------------------------------------------------------

// The outdented key with its quotes; "" for none.
std::string outdentedIn(const std::string& text) {
    const Source source(text);
    const auto outdented = source.error()->outdented;
    return outdented ? text.substr(outdented->begin, outdented->end - outdented->begin) : "";
}

TEST(ErrorTest, AnOutdentedKeyIsIndentedNoDeeperThanTheLineThatOpensItsObject) {
    EXPECT_EQ(outdentedIn("{\n  \"a\": {\n    \"b\": 1,\n  \"c\": 2\n}\n"), "\"c\"");
    EXPECT_EQ(outdentedIn("{\n\t\"a\": {\n\t\t\"b\": 1,\n\t\"c\": 2\n}\n"), "\"c\"");
    EXPECT_EQ(outdentedIn("{\r\n  \"a\": {\"b\": 1,\r\n  \"c\": 2\r\n}\r\n"), "\"c\"");
    EXPECT_EQ(outdentedIn("{\n  \"a\": {\n    \"b\": {\"x\": 1,\n  \"c\": 2\n}\n}\n"), "\"c\"");
    EXPECT_EQ(outdentedIn("{\n  \"a\": {\n    \"b\": 1,\n\"c\": 2\n}\n"), "\"c\"");
}

TEST(ErrorTest, TheFirstOutdentedKeyIsReported) {
    EXPECT_EQ(outdentedIn("{\n  \"a\": {\"x\": 1,\n  \"b\": {\"y\": 1,\n  \"c\": 2\n}\n"), "\"b\"");
}

TEST(ErrorTest, WithoutIndentsNoKeyIsOutdented) {
    EXPECT_EQ(outdentedIn("{\"a\": {\"b\": 1, \"c\": 2}"), "");
    EXPECT_EQ(outdentedIn("{\n\"a\": {\n\"b\": 1,\n\"c\": 2\n}\n"), "");
    EXPECT_EQ(outdentedIn("{\n  \"a\": {\n  \"b\": 1,\n  \"c\": 2\n}\n"), "");
    EXPECT_EQ(outdentedIn("{\"a\": {\"b\": 1,\n\"c\": 2}\n"), "");
    EXPECT_EQ(outdentedIn("  {\"a\": 1,\n \"b\": 2"), "");
    EXPECT_EQ(outdentedIn("{\n  \"a\": {\n    \"b\": 1,\n   \"c\": 2\n}\n"), "");
}

TEST(ErrorTest, OnlyATextThatEndsWithinAnObjectHasAnOutdentedKey) {
    EXPECT_EQ(outdentedIn("{\n  \"a\": {\"b\": 1,\n  \"c\": x\n}\n"), "");
    EXPECT_EQ(outdentedIn("[{\n  \"a\": {\"b\": 1,\n  \"c\": 2\n}\n}\n"), "");
}

TEST(ErrorTest, CommentsBeforeTheErrorAreKept) {
    const Source source("/* a */ [1, // b\n ] // c");
    ASSERT_TRUE(source.error());
    ASSERT_EQ(source.comments().size(), 2U);
    EXPECT_EQ(source.comments()[1].begin, 12U);
    EXPECT_EQ(source.comments()[1].end, 16U);
    EXPECT_EQ(source.root(), nullptr);
    EXPECT_TRUE(source.values().empty());
}

TEST(ErrorTest, TheBytesOfAnErrorInAPartCountFromTheBeginningOfTheText) {
    const Source source("path = [1, ] # end", 7, 12);
    ASSERT_TRUE(source.error());
    EXPECT_EQ(source.error()->byte, 11U);
    EXPECT_EQ(source.error()->hint, "remove the comma before this bracket");
}

TEST(ErrorTest, APartEndsAtItsEnd) {
    const Source source("[1, 2]", 0, 5);
    ASSERT_TRUE(source.error());
    EXPECT_EQ(source.error()->byte, 5U);
    ASSERT_TRUE(source.error()->opened);
    EXPECT_EQ(source.error()->opened->begin, 0U);
    EXPECT_EQ(source.error()->opened->end, 1U);
    EXPECT_EQ(source.error()->hint, "close the array with ]");
}

}  // namespace
