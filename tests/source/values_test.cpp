// The keys, values and comments of a source.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "source/source.h"

namespace {

using qvgraph::pointerTo;
using qvgraph::Source;
using qvgraph::Span;
using qvgraph::toText;
using qvgraph::Value;
using qvgraph::ValueKind;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

const Value& rootOf(const Source& source) {
    if (source.root() == nullptr) {
        throw std::logic_error("no JSON: " + source.text());
    }
    return *source.root();
}

std::string partOf(const Source& source, Span span) {
    return source.text().substr(span.begin, span.end - span.begin);
}

// Every value in the order of the text: its pointer and kind, then the bytes
// and the text of the key and of the value. "over" if it is overridden.
std::string valuesIn(const Source& source) {
    const auto part = [&source](Span span) {
        return std::to_string(span.begin) + "-" + std::to_string(span.end) + " " +
               partOf(source, span);
    };
    std::string all = "\n";
    for (const Value& value : source.values()) {
        all += "'" + pointerTo(value) + "' is " + toText(value.kind);
        all += value.keySpan.end != 0 ? ", key " + part(value.keySpan) : "";
        all += ", value " + part(value.span);
        all += value.overriddenBy != nullptr ? ", overridden\n" : "\n";
    }
    return all;
}

// The keys of an object's children.
std::vector<std::string> keysOf(const Value& object) {
    std::vector<std::string> keys;
    for (const Value* child : object.children) {
        keys.emplace_back(child->key);
    }
    return keys;
}

std::vector<std::string> commentsIn(const std::string& text) {
    const Source source(text);
    std::vector<std::string> comments;
    for (const Span comment : source.comments()) {
        comments.push_back(partOf(source, comment));
    }
    return comments;
}

std::string decoded(const std::string& string) {
    const Source source(string);
    EXPECT_FALSE(source.error()) << string;
    return source.root() != nullptr ? std::string(source.root()->text) : "";
}

double numberOf(const std::string& number) {
    const Source source(number);
    EXPECT_FALSE(source.error()) << number;
    return source.root() != nullptr ? source.root()->number : 0;
}

using Texts = std::vector<std::string>;

// ---- Spans ------------------------------------------------------------------

TEST(ValuesTest, AreInTheOrderOfTheTextWithTheirSpans) {
    EXPECT_EQ(valuesIn(Source(R"({"pipe_0": {"on" : true, "ids":[7,-1.5], "x": null}})")), R"(
'' is an object, value 0-52 {"pipe_0": {"on" : true, "ids":[7,-1.5], "x": null}}
'/pipe_0' is an object, key 1-9 "pipe_0", value 11-51 {"on" : true, "ids":[7,-1.5], "x": null}
'/pipe_0/on' is a boolean, key 12-16 "on", value 19-23 true
'/pipe_0/ids' is an array, key 25-30 "ids", value 31-39 [7,-1.5]
'/pipe_0/ids/0' is a number, value 32-33 7
'/pipe_0/ids/1' is a number, value 34-38 -1.5
'/pipe_0/x' is null, key 41-44 "x", value 46-50 null
)");
}

TEST(ValuesTest, ARootMayBeOfAnyKind) {
    EXPECT_EQ(valuesIn(Source(" \"a\" ")), "\n'' is a string, value 1-4 \"a\"\n");
    EXPECT_EQ(valuesIn(Source("false")), "\n'' is a boolean, value 0-5 false\n");
}

TEST(ValuesTest, CommentsBetweenTokensArePartOfNoValue) {
    EXPECT_EQ(valuesIn(Source("/*a*/[/*b*/1/*c*/,//\n{/*d*/\"e\"/*f*/:/*g*/2/*h*/}]//")), R"(
'' is an array, value 5-49 [/*b*/1/*c*/,//
{/*d*/"e"/*f*/:/*g*/2/*h*/}]
'/0' is a number, value 11-12 1
'/1' is an object, value 21-48 {/*d*/"e"/*f*/:/*g*/2/*h*/}
'/1/e' is a number, key 27-30 "e", value 41-42 2
)");
}

TEST(ValuesTest, SpansInAPartCountFromTheBeginningOfTheText) {
    EXPECT_EQ(valuesIn(Source("x = [1]; y", 4, 7)), R"(
'' is an array, value 4-7 [1]
'/0' is a number, value 5-6 1
)");
}

TEST(ValuesTest, APartMayBeginAndEndWithinAToken) {
    EXPECT_EQ(numberOf("[12345678901]"), 0) << "an array has no number";
    EXPECT_EQ(rootOf(Source("12345678901234", 1, 11)).number, 2345678901.0);
    EXPECT_EQ(rootOf(Source("[truefalse]", 1, 5)).kind, ValueKind::Bool);
    EXPECT_EQ(commentsIn("1 // a"), Texts({"// a"}));
    EXPECT_EQ(Source("1 // a", 0, 4).comments().at(0).end, 4U);
}

// ---- Strings ----------------------------------------------------------------

TEST(StringsTest, AreDecoded) {
    EXPECT_EQ(decoded(R"("")"), "");
    EXPECT_EQ(decoded(R"("a b")"), "a b");
    EXPECT_EQ(decoded(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(decoded(R"("a\u0000b")"), "a\0b"s);
    EXPECT_EQ(decoded(R"("\u0041\u00e9\u6249\u007f\u0080\u07ff\u0800\uFFFF")"),
              "A\u00e9\u6249\u007f\u0080\u07ff\u0800\uffff");
    EXPECT_EQ(decoded("\"é扉\x7f\xff\""), "é扉\x7f\xff");
}

TEST(StringsTest, TwoSurrogatesAreOneCodePoint) {
    EXPECT_EQ(decoded(R"("\ud83d\udeaa")"), "🚪");
    EXPECT_EQ(decoded(R"("\uD800\uDC00\uDBFF\uDFFF")"), "\U00010000\U0010ffff");
    EXPECT_EQ(decoded(R"("\ud83d\ud83d\udeaa")"), "\xed\xa0\xbd🚪");
}

TEST(StringsTest, ALoneSurrogateIsThreeBytes) {
    EXPECT_EQ(decoded(R"("\ud83d")"), "\xed\xa0\xbd");
    EXPECT_EQ(decoded(R"("\udeaa\ud83d")"), "\xed\xba\xaa\xed\xa0\xbd");
    EXPECT_EQ(decoded(R"("\ud83d \udeaa")"), "\xed\xa0\xbd \xed\xba\xaa");
    EXPECT_EQ(decoded(R"("\ud83d\n\udeaa")"), "\xed\xa0\xbd\n\xed\xba\xaa");
    EXPECT_EQ(decoded(R"("\ud83d\u0041")"), "\xed\xa0\xbd\x41");
}

TEST(StringsTest, KeysAreAlsoDecoded) {
    const Source source(R"({"\u0061\n": 1})");
    EXPECT_EQ(rootOf(source).children[0]->key, "a\n");
    EXPECT_EQ(partOf(source, rootOf(source).children[0]->keySpan), R"("\u0061\n")");
}

// ---- Numbers ----------------------------------------------------------------

TEST(NumbersTest, AreReadAsJson11ReadsThem) {
    EXPECT_EQ(numberOf("7"), 7);
    EXPECT_EQ(numberOf("-999999999"), -999999999);
    EXPECT_EQ(numberOf("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(numberOf("0.1"), 0.1);
    EXPECT_EQ(numberOf("12.5e-1"), 1.25);
    EXPECT_EQ(numberOf("1E2"), 100);
}

TEST(NumbersTest, MayBeInfinite) {
    EXPECT_EQ(numberOf("1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(numberOf("-1e999"), -std::numeric_limits<double>::infinity());
}

TEST(NumbersTest, AShortIntegerHasNoNegativeZero) {
    EXPECT_FALSE(std::signbit(numberOf("-0")));
    EXPECT_TRUE(std::signbit(numberOf("-0.0")));
    EXPECT_TRUE(std::signbit(numberOf("-0e1")));
}

// ---- Members ----------------------------------------------------------------

TEST(MembersTest, AreInTheByteOrderOfTheirKeys) {
    const Source source(R"({"node_2": 1, "node_10": 1, "é": 1, "": 1, "node": 1, "~": 1})");
    EXPECT_EQ(keysOf(rootOf(source)), Texts({"", "node", "node_10", "node_2", "~", "é"}));
}

TEST(MembersTest, AreFoundByTheirKey) {
    const Source source(R"({"b": 1, "a": 2, "": 3, "a\u0000": 4})");
    EXPECT_EQ(rootOf(source).member("b")->number, 1);
    EXPECT_EQ(rootOf(source).member("a")->number, 2);
    EXPECT_EQ(rootOf(source).member("")->number, 3);
    EXPECT_EQ(rootOf(source).member("a\0"s)->number, 4);
    EXPECT_EQ(rootOf(source).member("A"), nullptr);
    EXPECT_EQ(rootOf(source).member("aa"), nullptr);
    EXPECT_EQ(rootOf(source).member("c"), nullptr);
}

TEST(MembersTest, ElementsAreNotMembers) {
    EXPECT_EQ(rootOf(Source("[1]")).member(""), nullptr);
    EXPECT_EQ(rootOf(Source("\"a\"")).member("a"), nullptr);
    EXPECT_EQ(rootOf(Source("{}")).member("a"), nullptr);
}

TEST(MembersTest, TheLastOfSeveralWithTheSameKeyWins) {
    const Source source(R"({"a": 1, "b": 2, "\u0061": {"a": 3}, "a": 4})");
    EXPECT_EQ(valuesIn(source), R"(
'' is an object, value 0-44 {"a": 1, "b": 2, "\u0061": {"a": 3}, "a": 4}
'/a' is a number, key 1-4 "a", value 6-7 1, overridden
'/b' is a number, key 9-12 "b", value 14-15 2
'/a' is an object, key 17-25 "\u0061", value 27-35 {"a": 3}, overridden
'/a/a' is a number, key 28-31 "a", value 33-34 3
'/a' is a number, key 37-40 "a", value 42-43 4
)");
    EXPECT_EQ(keysOf(rootOf(source)), Texts({"a", "b"}));
    EXPECT_EQ(rootOf(source).member("a")->number, 4);
}

TEST(MembersTest, AnOverriddenMemberRefersToTheNext) {
    const Source source(R"({"a": 1, "a": 2, "a": 3})");
    const Value& first = source.values()[1];
    ASSERT_NE(first.overriddenBy, nullptr);
    EXPECT_EQ(first.overriddenBy->number, 2);
    ASSERT_NE(first.overriddenBy->overriddenBy, nullptr);
    EXPECT_EQ(first.overriddenBy->overriddenBy, rootOf(source).member("a"));
    EXPECT_EQ(rootOf(source).member("a")->overriddenBy, nullptr);
}

TEST(MembersTest, EqualKeysOfDifferentObjectsAreIndependent) {
    const Source source(R"([{"a": 1}, {"a": 2}])");
    for (const Value& value : source.values()) {
        EXPECT_EQ(value.overriddenBy, nullptr);
    }
}

TEST(MembersTest, ManyMembersWithTheSameKeyFormAChain) {
    std::string text = "{";
    for (int i = 0; i < 10000; ++i) {
        text += "\"a\": " + std::to_string(i) + ", ";
    }
    const Source source(text + "\"a\": 10000}");
    int next = 0;
    for (const Value* at = &source.values()[1]; at != nullptr; at = at->overriddenBy) {
        EXPECT_EQ(at->number, next++);
    }
    EXPECT_EQ(next, 10001);
    EXPECT_EQ(rootOf(source).children.size(), 1U);
}

// ---- Pointers ---------------------------------------------------------------

TEST(PointersTest, EscapeTildesAndSlashes) {
    const Source source(R"({"a/b": {"~": {"~1": {"": {"/~": 1}}}}})");
    EXPECT_EQ(pointerTo(source.values().back()), "/a~1b/~0/~01//~1~0");
}

TEST(PointersTest, CountElementsFromZero) {
    std::string text = "[[]";
    for (int i = 0; i < 11; ++i) {
        text += ", {\"a\": [0, 1]}";
    }
    const Source source(text + "]");
    EXPECT_EQ(pointerTo(rootOf(source)), "");
    EXPECT_EQ(pointerTo(*rootOf(source).children[0]), "/0");
    EXPECT_EQ(pointerTo(source.values().back()), "/11/a/1");
}

TEST(PointersTest, ContainTheBytesOfTheKey) {
    EXPECT_EQ(pointerTo(Source("{\"\xff\\u0000\": 1}").values().back()), "/\xff\0"s);
}

// ---- Comments ---------------------------------------------------------------

TEST(CommentsTest, AreInOrderWithoutTheEndOfTheLine) {
    EXPECT_EQ(commentsIn("// a\n/* b\n */ [ /**/ 1, //c\r\n2 ]//"),
              Texts({"// a", "/* b\n */", "/**/", "//c", "//"}));
}

TEST(CommentsTest, IncludeACarriageReturnThatEndsNoLine) {
    EXPECT_EQ(commentsIn("// a\rb\r\r\n1 // c\r"), Texts({"// a\rb\r", "// c\r"}));
}

TEST(CommentsTest, DoNotBeginInAString) {
    EXPECT_EQ(commentsIn(R"({"// a": "/* b */"})"), Texts());
}

// ---- Kinds ------------------------------------------------------------------

TEST(KindsTest, HaveNames) {
    EXPECT_STREQ(toText(ValueKind::Null), "null");
    EXPECT_STREQ(toText(ValueKind::Bool), "a boolean");
    EXPECT_STREQ(toText(ValueKind::Number), "a number");
    EXPECT_STREQ(toText(ValueKind::String), "a string");
    EXPECT_STREQ(toText(ValueKind::Array), "an array");
    EXPECT_STREQ(toText(ValueKind::Object), "an object");
}

TEST(KindsTest, CanBeTested) {
    const Source source("[{}, \"\", 0, null]");
    const auto children = rootOf(source).children;
    EXPECT_TRUE(children[0]->isObject() && children[1]->isString() && children[2]->isNumber());
    EXPECT_FALSE(children[3]->isObject() || children[3]->isString() || children[3]->isNumber());
}

}  // namespace
