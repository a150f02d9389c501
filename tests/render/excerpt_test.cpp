// A line with a marker under a part of it.
#include "render/excerpt.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using qvgraph::Excerpt;
using qvgraph::Source;

class ExcerptTest : public testing::Test {
protected:
    // The excerpt for the part of `text` between the two marks "‹" and "›".
    static std::string Shown(std::string text) {
        const std::string open = "‹";
        const std::string close = "›";
        const size_t begin = text.find(open);
        text.erase(begin, open.size());
        const size_t end = text.find(close);
        text.erase(end, close.size());
        return ShownAt(text, begin, end);
    }

    static std::string ShownAt(const std::string& text, size_t begin, size_t end) {
        const Excerpt excerpt = qvgraph::excerptOf(Source(text), {begin, end});
        return '\n' + excerpt.line + '\n' + excerpt.marker + '\n';
    }

    // "0123456789", repeated.
    static std::string Digits(size_t number) {
        std::string digits;
        for (size_t i = 0; i < number; ++i) {
            digits += static_cast<char>('0' + i % 10);
        }
        return digits;
    }

    static std::string Blanks(size_t number) { return std::string(number, ' '); }
};

// ---- The marker -------------------------------------------------------------

TEST_F(ExcerptTest, MarksAPartOfALine) {
    EXPECT_EQ(Shown("{\n  ‹\"fps\"›: 25\n}"), R"(
  "fps": 25
  ^~~~~
)");
    EXPECT_EQ(Shown("{‹7›}"), R"(
{7}
 ^
)");
    EXPECT_EQ(Shown("‹[1, 2]›"), R"(
[1, 2]
^~~~~~
)");
}

TEST_F(ExcerptTest, MarksAnEmptySpan) {
    EXPECT_EQ(Shown("{‹›7}"), R"(
{7}
 ^
)");
    EXPECT_EQ(Shown("{7‹›\n}"), R"(
{7
  ^
)");
    EXPECT_EQ(Shown("{7}‹›"), R"(
{7}
   ^
)");
    EXPECT_EQ(Shown("{7\n‹›"), "\n\n^\n");
    EXPECT_EQ(Shown("‹›"), "\n\n^\n");
}

TEST_F(ExcerptTest, MarksOnlyTheFirstOfSeveralLines) {
    EXPECT_EQ(Shown("  ‹[1,\n  2]›"), R"(
  [1,
  ^~~
)");
    EXPECT_EQ(Shown("  ‹[1,\r\n  2]›"), R"(
  [1,
  ^~~
)");
    EXPECT_EQ(Shown("7‹\n›"), R"(
7
 ^
)");
    EXPECT_EQ(Shown("7\r‹\n›"), R"(
7
 ^
)");
}

TEST_F(ExcerptTest, ATabIsABlank) {
    EXPECT_EQ(Shown("\t\t‹\"a\tb\"›"), R"(
  "a b"
  ^~~~~
)");
}

TEST_F(ExcerptTest, ACodePointIsAColumn) {
    EXPECT_EQ(Shown("\"Tür 扉 🚪\": ‹\"ä\"›"), R"(
"Tür 扉 🚪": "ä"
           ^~~
)");
}

TEST_F(ExcerptTest, WhatIsNotPrintableIsAsWideAsItsNumber) {
    EXPECT_EQ(Shown("\"\x1b\" ‹\"\x7f\u009b\u202e\"› 1"), R"(
"\x1b" "\x7f\x9b\x202e" 1
       ^~~~~~~~~~~~~~~~
)");
    EXPECT_EQ(Shown("1 \r ‹2›"), R"(
1 \x0d 2
       ^
)");
}

TEST_F(ExcerptTest, AByteOrderMarkIsShownByItsNumber) {
    EXPECT_EQ(Shown("‹\ufeff›{}"), R"(
\xfeff{}
^~~~~~
)");
}

TEST_F(ExcerptTest, AByteThatIsNotUtf8IsAColumn) {
    EXPECT_EQ(Shown("\"\xff\xf0\x9f\x9a\" ‹\"\xc3\"›"),
              "\n\"\ufffd\ufffd\ufffd\ufffd\" \"\ufffd\"\n       ^~~\n");
    EXPECT_EQ(Shown("ä\x80 ‹\xc3›"), "\nä\ufffd \ufffd\n   ^\n");
}

// ---- Long lines -------------------------------------------------------------

TEST_F(ExcerptTest, ALineOf92ColumnsIsShownCompletely) {
    EXPECT_EQ(ShownAt(Digits(92), 0, 3), '\n' + Digits(92) + "\n^~~\n");
    EXPECT_EQ(ShownAt(Digits(92), 89, 92), '\n' + Digits(92) + '\n' + Blanks(89) + "^~~\n");
    EXPECT_EQ(ShownAt(Digits(92), 92, 92), '\n' + Digits(92) + '\n' + Blanks(92) + "^\n");
}

TEST_F(ExcerptTest, OfALongerLineThePartAroundTheSpanIsShown) {
    EXPECT_EQ(ShownAt(Digits(300), 150, 154),
              "\n..." + Digits(300).substr(109, 86) + "...\n" + Blanks(3 + 41) + "^~~~\n");
}

TEST_F(ExcerptTest, AtItsBeginningOnlyTheEndIsCutOff) {
    EXPECT_EQ(ShownAt(Digits(93), 2, 4), '\n' + Digits(86) + "...\n  ^~\n");
    EXPECT_EQ(ShownAt(Digits(300), 0, 0), '\n' + Digits(86) + "...\n^\n");
}

TEST_F(ExcerptTest, AtItsEndOnlyTheBeginningIsCutOff) {
    EXPECT_EQ(ShownAt(Digits(93), 91, 93),
              "\n..." + Digits(93).substr(7) + '\n' + Blanks(3 + 84) + "^~\n");
    EXPECT_EQ(ShownAt(Digits(300), 300, 300),
              "\n..." + Digits(300).substr(214) + '\n' + Blanks(3 + 86) + "^\n");
}

TEST_F(ExcerptTest, OfALongSpanTheBeginningIsShown) {
    EXPECT_EQ(ShownAt(Digits(300), 100, 290),
              "\n..." + Digits(300).substr(79, 86) + "...\n" + Blanks(3 + 21) + '^' +
                  std::string(64, '~') + '\n');
    EXPECT_EQ(ShownAt(Digits(300), 0, 300),
              '\n' + Digits(86) + "...\n^" + std::string(85, '~') + '\n');
}

TEST_F(ExcerptTest, TheWidthOfWhatIsNotPrintableIsThatOfItsNumber) {
    const std::string text = std::string(100, '\x1b');
    EXPECT_EQ(qvgraph::excerptOf(Source(text), {0, 1}).line.size(), 21U * 4 + 3);
    EXPECT_EQ(qvgraph::excerptOf(Source(text), {50, 51}).line.size(), 21U * 4 + 2 * 3);
}

// The code points of valid UTF-8.
std::vector<std::string> codePointsOf(const std::string& text) {
    std::vector<std::string> codePoints;
    for (const char byte : text) {
        if ((static_cast<unsigned char>(byte) & 0xc0U) == 0x80) {
            codePoints.back() += byte;
        } else {
            codePoints.emplace_back(1, byte);
        }
    }
    return codePoints;
}

TEST_F(ExcerptTest, TheMarkerIsAlwaysUnderTheBeginningOfTheSpan) {
    const std::vector<std::string> between = {"\x01", "\x80", "扉", "ab", "\u009b\t"};
    std::string text;
    for (size_t i = 0; i < 200; ++i) {
        text += '#' + between[i % between.size()];
    }
    const Source source(text);
    for (size_t begin = text.find('#'); begin != std::string::npos;
         begin = text.find('#', begin + 1)) {
        for (const size_t length : {0U, 1U, 2U, 40U, 1000U}) {
            const size_t end = std::min(begin + length, text.size());
            const Excerpt excerpt = qvgraph::excerptOf(source, {begin, end});
            const std::vector<std::string> shown = codePointsOf(excerpt.line);
            EXPECT_LE(shown.size(), 92U);
            EXPECT_LE(excerpt.marker.size(), shown.size());
            EXPECT_EQ(shown.at(excerpt.marker.find('^')), "#") << excerpt.line;
        }
    }
}

// ---- The gutter -------------------------------------------------------------

TEST(GutterTest, HasTheNumberOfTheLine) {
    EXPECT_EQ(qvgraph::gutterOf(1), "    1 | ");
    EXPECT_EQ(qvgraph::gutterOf(12345), "12345 | ");
    EXPECT_EQ(qvgraph::gutterOf(1234567), "1234567 | ");
}

TEST(GutterTest, IsAsWideBelowALine) {
    EXPECT_EQ(qvgraph::gutterBelow(1), "      | ");
    EXPECT_EQ(qvgraph::gutterBelow(12345), "      | ");
    EXPECT_EQ(qvgraph::gutterBelow(1234567), "        | ");
}

}  // namespace
