// Texts that do not load, or not as intended.
#include <string>

#include "tests/check/check_test.h"

namespace {

using TextRulesTest = CheckTest;

// ---- syntax -----------------------------------------------------------------

TEST_F(TextRulesTest, SyntaxErrorIsReportedAtTheFirstUnexpectedCharacter) {
    AssertFinds(R"({
  "pipe_0": {},
})",
                R"(3:1-3:2 error syntax : expected '"' in object, got '}' (125)
  hint: remove the comma before this bracket
)");
}

TEST_F(TextRulesTest, OpeningQuoteOfAnUnclosedStringIsRelated) {
    AssertFinds(R"({"pipe_0": "x)",
                R"(1:14-1:14 error syntax : unexpected end of input in string
  1:12-1:13 opened here
  hint: close the string with "
)");
}

TEST_F(TextRulesTest, KeyThatIsIndentedTooLittleIsRelated) {
    AssertFinds(R"({
  "pipe_0": {
    "node_0": {
      "node_opts": {"node_name": "Camera",
      "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
    }
  }
})",
                R"(8:2-8:2 error syntax : unexpected end of input
  1:1-1:2 opened here
  5:7-5:20 indented as if a } were missing before it
  hint: close the object with }
)");
}

TEST_F(TextRulesTest, ErrorOfATextThatIsTooShortIsAtItsEnd) {
    AssertFinds("// nothing\n",
                R"(2:1-2:1 error syntax : unexpected end of input
  hint: write an object, at least {}
)");
}

// The messages are not compared: they contain the byte in a form that depends
// on the machine.
TEST_F(TextRulesTest, ErrorSpansACompleteCharacter) {
    const auto assertSpan = [](const std::string& text, size_t begin, size_t end) {
        const auto findings = qvgraph::checkConfiguration("test.json", text, {}).findings;
        ASSERT_EQ(findings.size(), 1U) << text;
        EXPECT_EQ(findings[0].span.begin, begin) << text;
        EXPECT_EQ(findings[0].span.end, end) << text;
    };
    assertSpan("{x", 1, 2);
    assertSpan("{\xc3\xa9", 1, 3);
    assertSpan("{\xe2\x80\x9cpipe_0", 1, 4);
    assertSpan("{\xf0\x9f\x98\x80", 1, 5);
    assertSpan("{\xe2\x80", 1, 2);
    assertSpan("{\xff\xff", 1, 2);
}

TEST_F(TextRulesTest, SyntaxErrorIsTheOnlyFinding) {
    EXPECT_EQ(CodesIn(R"({"camera": {}, "pipe_0": [}})"), "syntax");
}

// ---- no-document, root-not-object, no-pipes ---------------------------------

TEST_F(TextRulesTest, NullIsNotADocument) {
    AssertFinds(" null // nothing",
                R"(1:2-1:6 error no-document : the document is null: the load fails
  hint: write an object with at least one pipe: {"pipe_0": {...}}
)");
}

TEST_F(TextRulesTest, RootThatIsNotAnObjectHasNoPipes) {
    AssertFinds(
        R"(["pipe_0"])",
        R"(1:1-1:11 error root-not-object : the root is an array, not an object: the document loads, but it has no pipes
  hint: write an object with at least one pipe: {"pipe_0": {...}}
)");
    for (const char* text : {"true", "12", "\"pipe_0\"", "[]"}) {
        EXPECT_EQ(CodesIn(text), "root-not-object") << text;
    }
}

TEST_F(TextRulesTest, EmptyRootHasNoPipes) {
    AssertFinds(
        "{ }",
        R"(1:1-1:4 warning no-pipes : the configuration has no pipes: the device loads it and sets up nothing
  hint: add a pipe: "pipe_0": {...}
)");
}

TEST_F(TextRulesTest, EmptyPipeIsAPipe) {
    AssertFinds(R"({"pipe_0": {}})", "");
}

// ---- duplicate-key ----------------------------------------------------------

TEST_F(TextRulesTest, LastMemberWithAKeyWins) {
    AssertPipe(
        R"("default_mode_link": "sync",
"default_mode_link": "async")",
        R"(3:1-3:20 warning duplicate-key /pipe_0/default_mode_link: 'default_mode_link' is already in this object: the device discards the earlier value and uses this one
  2:1-2:20 the earlier value
  hint: remove or rename one of them
)");
}

TEST_F(TextRulesTest, EveryDiscardedMemberIsReported) {
    AssertPipe(
        R"("default_mode_link": "a",
"default_mode_link": "b",
"default_mode_link": "c")",
        R"(3:1-3:20 warning duplicate-key /pipe_0/default_mode_link: 'default_mode_link' is already in this object: the device discards both values, because a later one wins
  2:1-2:20 the earlier value
  hint: remove or rename one of them
4:1-4:20 warning duplicate-key /pipe_0/default_mode_link: 'default_mode_link' is already in this object: the device discards the earlier value and uses this one
  3:1-3:20 the earlier value
  hint: remove or rename one of them
)");
}

TEST_F(TextRulesTest, KeysAreComparedAfterDecoding) {
    AssertPipe(
        R"("link_0": {"mode": "a"},
"link_\u0030": {"mode": "b"})",
        R"(3:1-3:14 warning duplicate-key /pipe_0/link_0: 'link_0' is already in this object: the device discards the earlier value and uses this one
  2:1-2:9 the earlier value
  hint: remove or rename one of them
)");
}

TEST_F(TextRulesTest, DuplicatesInADiscardedMemberAreNotReported) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": {"a": 1, "a": 2}, "link_0": {}}})"),
              "duplicate-key");
}

TEST_F(TextRulesTest, SameKeyInDifferentObjectsIsNotADuplicate) {
    AssertPipe(R"("link_0": {"mode": "a"}, "link_1": {"mode": "a", "Mode": "b"})", "");
}

// ---- nul-in-text ------------------------------------------------------------

TEST_F(TextRulesTest, NulEndsTheText) {
    AssertFinds(
        std::string("{\"pipe_0\": {}}\n\0{\"pipe_0\"", 25),
        R"(2:1-2:2 error nul-in-text : the text contains a NUL byte: the device stops reading there and ignores the 9 bytes after it
  hint: remove the NUL byte
)");
}

TEST_F(TextRulesTest, NothingIsIgnoredAfterANulAtTheEnd) {
    AssertFinds(
        std::string("{\"pipe_0\": {}}\0", 15),
        R"(1:15-1:16 error nul-in-text : the text contains a NUL byte: the device stops reading there
  hint: remove the NUL byte
)");
}

TEST_F(TextRulesTest, NulHidesTheSyntaxErrorThatItCauses) {
    EXPECT_EQ(CodesIn(std::string("{\"pipe_0\": \0{}}", 15)), "nul-in-text");
    EXPECT_EQ(CodesIn(std::string("\0", 1)), "nul-in-text");
}

TEST_F(TextRulesTest, MistakesBeforeANulAreReported) {
    EXPECT_EQ(CodesIn(std::string("{\"Pipe_0\": {}}\0", 15)), "pipe-not-addressable nul-in-text");
}

TEST_F(TextRulesTest, Utf16IsRecognised) {
    AssertFinds(
        std::string("\xff\xfe{\0}\0", 6),
        R"(1:4-1:5 error nul-in-text : the text contains a NUL byte: the device stops reading there and ignores the 2 bytes after it
  hint: save the file as UTF-8; it seems to be UTF-16
)");
    EXPECT_EQ(
        FindingsIn(std::string("\0{\0}", 4)),
        R"(1:1-1:2 error nul-in-text : the text contains a NUL byte: the device stops reading there and ignores the 3 bytes after it
  hint: save the file as UTF-8; it seems to be UTF-16
)");
}

TEST_F(TextRulesTest, EscapedNulIsNotANulByte) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"default_mode_link": "\u0000"}})"), "");
}

// ---- byte-order-mark --------------------------------------------------------

TEST_F(TextRulesTest, TextWithAByteOrderMarkDoesNotLoad) {
    AssertFinds(
        "\xef\xbb\xbf{\"pipe_0\": {}}",
        R"(1:1-1:2 error byte-order-mark : the text begins with a byte-order mark: the load fails
  hint: save the file as UTF-8 without a byte-order mark
)");
}

TEST_F(TextRulesTest, MistakesAfterAByteOrderMarkAreReported) {
    EXPECT_EQ(CodesIn("\xef\xbb\xbf{\"Pipe_0\": {}}"), "byte-order-mark pipe-not-addressable");
}

TEST_F(TextRulesTest, ByteOrderMarkHidesSyntaxErrors) {
    EXPECT_EQ(CodesIn("\xef\xbb\xbf"), "byte-order-mark");
    EXPECT_EQ(CodesIn("\xef\xbb\xbf{"), "byte-order-mark");
}

TEST_F(TextRulesTest, ByteOrderMarkInAStringIsAllowed) {
    AssertPipe("\"default_mode_link\": \"\xef\xbb\xbf\"", "");
}

// ---- invalid-utf8 -----------------------------------------------------------

TEST_F(TextRulesTest, InvalidStringIsReportedAtItsFirstInvalidBytes) {
    AssertPipe(
        "\"default_mode_link\": \"caf\xe9\xe9, caf\xe9\"",
        R"(2:26-2:28 warning invalid-utf8 /pipe_0/default_mode_link: this string contains the bytes 0xe9 and 0xe9, which are not UTF-8: the device keeps the bytes
  hint: save the file as UTF-8
)");
}

TEST_F(TextRulesTest, InvalidKeyIsReported) {
    AssertPipe(
        "\"link_0\": {\"m\xf6"
        "de\": \"a\"}",
        "2:14-2:15 warning invalid-utf8 /pipe_0/link_0/m\xf6"
        R"(de: this key contains the byte 0xf6, which is not UTF-8: the device keeps the byte
  hint: save the file as UTF-8
)");
}

TEST_F(TextRulesTest, InvalidCommentIsReported) {
    AssertPipe(
        "// gr\xfc\xdf"
        "e",
        R"(2:6-2:8 warning invalid-utf8 : this comment contains the bytes 0xfc and 0xdf, which are not UTF-8: the device ignores the comment
  hint: save the file as UTF-8
)");
}

TEST_F(TextRulesTest, ElementsOfArraysAreChecked) {
    AssertFinds(
        "[\"a\", \"\x80\"]",
        R"(1:1-1:11 error root-not-object : the root is an array, not an object: the document loads, but it has no pipes
  hint: write an object with at least one pipe: {"pipe_0": {...}}
1:8-1:9 warning invalid-utf8 /1: this string contains the byte 0x80, which is not UTF-8: the device keeps the byte
  hint: save the file as UTF-8
)");
}

TEST_F(TextRulesTest, HalfOfASurrogatePairIsNotUtf8) {
    AssertPipe(
        R"("default_mode_link": "a\ud83d")",
        R"(2:22-2:31 warning invalid-utf8 /pipe_0/default_mode_link: this string contains an escape for half of a surrogate pair: the device reads it as bytes that are not UTF-8
  hint: write the character itself, or both halves of the pair
)");
}

TEST_F(TextRulesTest, Utf8OfEveryLengthIsValid) {
    AssertPipe("\"default_mode_link\": \"\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80 \\ud83d\\ude00\"",
               "");
}

TEST_F(TextRulesTest, EncodingOfATextThatDoesNotLoadIsNotChecked) {
    EXPECT_EQ(CodesIn("{\"pipe_0\": \"\xff\""), "syntax");
    EXPECT_EQ(CodesIn("null // \xff"), "no-document");
}

}  // namespace
